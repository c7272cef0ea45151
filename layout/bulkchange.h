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
/// Guards nest; what an outer one holds is left to it. Null and content
/// that is not visible are fine and cost nothing. The content and its layout
/// may die while they are held. What a host asked for itself (updates switched
/// off, layout switched off) stays as asked. The arrangement follows in the
/// next turn of the event loop.
///
/// A guard that holds Painting alone is for changes that move nothing; changes
/// that do are arranged as if there were none. One for ComingOnScreen is for
/// content that is hidden and is shown while the guard lives, by itself or with
/// what it lies in; it does nothing to content that is visible already.
class BulkChange
{
    Q_DISABLE_COPY(BulkChange)

public:
    enum Hold { Painting, PaintingAndLayout, ComingOnScreen };

    explicit BulkChange(QWidget* content, Hold hold = PaintingAndLayout);
    ~BulkChange();

private:
    void holdLayout(QLayout* layout);
    void holdPainting(QWidget* content);
    void releaseLayout();
    void releasePainting();

    QPointer<QWidget> m_content; // null unless its painting is held by this guard
    QPointer<QLayout> m_layout;  // null unless switched off by this guard
};

#endif
