#ifndef ZORVAEXCLUSIONRANGESDIALOG_H
#define ZORVAEXCLUSIONRANGESDIALOG_H

#include <QString>

class QWidget;

namespace values {
class ValueCommentedRangeMap;
}

namespace Orvane {

/** What the dialog shows, in the words of the row that opens it. */
struct ExclusionRangesWords
{
    QString title;
    QString sort;
    QString sortToolTip;
};

/**
 * Lets the user edit @p map in a modal dialog; the map is written only if the
 * dialog is accepted. @p parent may be null, and it may be deleted, the map too,
 * while the dialog is open.
 */
void editExclusionRanges(QWidget* parent, values::ValueCommentedRangeMap* map,
                         const ExclusionRangesWords& words);

} // namespace Orvane

#endif
