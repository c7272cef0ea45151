#ifndef ZORVA_AUTHOR_KEYBOARDFOCUS_H
#define ZORVA_AUTHOR_KEYBOARDFOCUS_H

class QWidget;

namespace Orvane {
namespace Author {

/** True if the keyboard is at @p area or at something in it. */
bool hasFocusInside(const QWidget& area);
/**
 * Brings the keyboard into @p area: to where it was in it last, else to the first place that Tab would
 * reach there. Nothing, and false, if there is none.
 */
bool focusInside(QWidget& area);

} // namespace Author
} // namespace Orvane

#endif
