#include "keyboardfocus.h"

#include <QApplication>
#include <QWidget>

namespace Orvane {
namespace Author {

namespace {

bool takesFocus(const QWidget* widget)
{
    return (widget->focusPolicy() & Qt::TabFocus) && widget->isVisible() && widget->isEnabled();
}

/** Null if there is none. */
QWidget* placeInside(QWidget& area)
{
    QWidget* const last = area.focusWidget();
    if (last && takesFocus(last))
        return last;
    QWidget* inside = &area;
    // Forms leave the focus to their rows.
    while (!takesFocus(inside)) {
        inside = inside->nextInFocusChain();
        if (inside == &area || !area.isAncestorOf(inside))
            return nullptr;
    }
    return inside;
}

} // namespace

bool hasFocusInside(const QWidget& area)
{
    const QWidget* const focus = QApplication::focusWidget();
    return focus && (focus == &area || area.isAncestorOf(focus));
}

bool focusInside(QWidget& area)
{
    QWidget* const place = placeInside(area);
    if (place)
        place->setFocus(Qt::ShortcutFocusReason);
    return place;
}

} // namespace Author
} // namespace Orvane
