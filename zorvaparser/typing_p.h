#ifndef ZORVATYPING_P_H
#define ZORVATYPING_P_H

class QWidget;

namespace Orvane {

/**
 * Makes final what the user is just typing into a control in @p content, which may be
 * null. Done before controls are switched off or hidden one after the other: that takes
 * the focus away and would raise signals in the middle.
 */
void finishTyping(const QWidget* content);

} // namespace Orvane

#endif
