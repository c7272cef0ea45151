#ifndef ZORVAEXCLUSIONRANGESDIALOG_H
#define ZORVAEXCLUSIONRANGESDIALOG_H

class QString;
class QWidget;

namespace Orvane {

/**
 * Lets the user edit the range map at @p mapPath in a modal dialog; the map is
 * written only if the dialog is accepted. @p parent may be null, and it may be
 * deleted, the map too, while the dialog is open.
 */
void editExclusionRanges(QWidget* parent, const QString& mapPath);

} // namespace Orvane

#endif
