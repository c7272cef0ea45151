#ifndef ZORVA_LAYOUT_BULKCHANGE_H
#define ZORVA_LAYOUT_BULKCHANGE_H

#include <QLayout>
#include <QPointer>
#include <QWidget>

/// Holds arrangement and painting of a shown form while many of its children
/// change, so that the whole bulk costs one arrangement and one repaint:
///
///     BulkChange bulk(content);
///     for (QWidget* row : rows)
///         row->setVisible(true);
///
/// Guards nest; only the outermost of a content widget acts. Null and content
/// that is not visible are fine and cost nothing. The content and its layout
/// may die while they are held. What a host asked for itself (updates switched
/// off, layout switched off) stays as asked. The arrangement follows in the
/// next turn of the event loop.
class BulkChange
{
    Q_DISABLE_COPY(BulkChange)

public:
    explicit BulkChange(QWidget* content);
    ~BulkChange();

private:
    void releaseLayout();
    void releasePainting();

    QPointer<QWidget> m_content; // null unless this guard is the one that acts
    QPointer<QLayout> m_layout;  // null unless switched off by this guard
    bool m_paintingHeld = false;
};

#endif
