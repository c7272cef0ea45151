#ifndef ZORVA_LAYOUT_MARKUP_H
#define ZORVA_LAYOUT_MARKUP_H

#include <QString>

class QLabel;

/// Texts of others on their way to the screen. Qt takes a text for rich that
/// looks so, and then opens whatever files it names and spends as much time and
/// memory as its tables and sizes ask for.
namespace Markup {

/// Shows \a text, rich where Qt finds it rich. No resource is loaded: images,
/// backgrounds and style sheets from elsewhere are left out. A rich text that
/// asks for too much (length, tags, nesting, sizes) is shown letter by letter.
void show(QLabel* label, const QString& text);

/// Shows \a text letter by letter, whatever it looks like.
void showPlain(QLabel* label, const QString& text);

/// What a tool tip is to be given to show \a text as show() does.
QString toolTip(const QString& text);

/// What a tool tip is to be given to show \a text letter by letter.
QString plainToolTip(const QString& text);

/// \a text as a part of a rich text: cleaned if it is rich and within the
/// bounds, letter by letter if it is beyond them, and as it stands if it is plain.
QString fragment(const QString& text);

} // namespace Markup

#endif
