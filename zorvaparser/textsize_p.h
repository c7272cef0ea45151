#ifndef ZORVATEXTSIZE_P_H
#define ZORVATEXTSIZE_P_H

class QFont;
class QWidget;

namespace Orvane {

// Text sizes of forms are points. A font that is given in pixels counts with the
// points that it has on the screen.

/** The size of the application's font. Only with a screen. */
int normalTextSize();

/** The size of the font that @p widget has, or will have when it is shown. */
int shownTextSize(const QWidget& widget);

/** Gives @p font the size of @p points; the application's own size is taken as exactly as it is given. */
void setTextSize(QFont& font, int points);

} // namespace Orvane

#endif
