#include "textsize_p.h"

#include <QApplication>
#include <QFont>
#include <QFontInfo>
#include <QWidget>

namespace Orvane {

namespace {

int pointsOf(const QFont& font)
{
    return font.pointSize() > 0 ? font.pointSize() : QFontInfo(font).pointSize();
}

} // namespace

int normalTextSize()
{
    return pointsOf(QApplication::font());
}

int shownTextSize(const QWidget& widget)
{
    // A style sheet has its say only now, and a widget that was never shown has not heard it.
    widget.ensurePolished();
    return pointsOf(widget.font());
}

void setTextSize(QFont& font, int points)
{
    const QFont normal = QApplication::font();
    if (points == pointsOf(normal) && normal.pixelSize() > 0)
        font.setPixelSize(normal.pixelSize());
    else
        font.setPointSize(points);
}

} // namespace Orvane
