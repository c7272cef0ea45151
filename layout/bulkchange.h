#ifndef ZORVA_LAYOUT_BULKCHANGE_H
#define ZORVA_LAYOUT_BULKCHANGE_H

#include <QtGlobal>

#include <memory>

class BulkHold;
class QWidget;

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
/// next turn of the event loop. If somebody else runs the event loop while the
/// guard lives, such as a dialog that answers a change, nothing is held any more.
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
    std::unique_ptr<BulkHold> m_hold; // null unless this guard holds something
};

#endif
