#include "rowmark_p.h"

#include <QEvent>
#include <QPainter>
#include <QPainterPath>

namespace hostkit {

namespace {

constexpr int side = 12;

QColor colourOf(RowState state)
{
    switch (state) {
    case RowState::Requested:
        return QColor(0x1f, 0x78, 0xd1);
    case RowState::Confirmed:
        return QColor(0x2e, 0x8b, 0x3d);
    case RowState::Differing:
        return QColor(0xb8, 0x6e, 0x00);
    case RowState::Refused:
        return QColor(0xd0, 0x30, 0x30);
    case RowState::Unread:
    case RowState::Stale:
        break;
    }
    return QColor(0x80, 0x80, 0x80);
}

/** Palettes are light or dark, and a colour that stands out from the one is dim on the other. */
QColor colourOn(const QColor& background, RowState state)
{
    constexpr int middle = 128;
    constexpr int brighter = 150; // percent
    const QColor colour = colourOf(state);
    return background.lightness() < middle ? colour.lighter(brighter) : colour;
}

/** A shape for each state in a square of 12, so that nobody needs to see the colour. */
QPainterPath shapeOf(RowState state)
{
    QPainterPath path;
    switch (state) {
    case RowState::Unread:
        break;
    case RowState::Requested: // a ring
        path.addEllipse(QPointF(6, 6), 4, 4);
        break;
    case RowState::Confirmed: // a tick
        path.moveTo(2, 6.5);
        path.lineTo(5, 9.5);
        path.lineTo(10, 3);
        break;
    case RowState::Differing: // not equal
        path.moveTo(2, 4.5);
        path.lineTo(10, 4.5);
        path.moveTo(2, 7.5);
        path.lineTo(10, 7.5);
        path.moveTo(8, 2);
        path.lineTo(4, 10);
        break;
    case RowState::Refused: // a cross
        path.moveTo(3, 3);
        path.lineTo(9, 9);
        path.moveTo(9, 3);
        path.lineTo(3, 9);
        break;
    case RowState::Stale: // three dots
        for (const double x : {2.5, 6.0, 9.5})
            path.addEllipse(QPointF(x, 6), 0.7, 0.7);
        break;
    }
    return path;
}

} // namespace

RowMark::RowMark(QWidget* parent)
    : QWidget(parent)
{
    setObjectName(QStringLiteral("rowMark"));
    setFixedSize(side, side);
    parent->installEventFilter(this);
    place();
    show();
}

void RowMark::setState(RowState state)
{
    m_state = state;
    update();
}

bool RowMark::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Resize)
        place();
    return QWidget::eventFilter(watched, event);
}

void RowMark::place()
{
    const QWidget* const parent = parentWidget();
    const int gap = (room - side) / 2;
    move(parent->width() - side - gap, (parent->height() - side) / 2);
}

void RowMark::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(colourOn(palette().color(QPalette::Window), m_state), 1.8, Qt::SolidLine,
                        Qt::RoundCap, Qt::RoundJoin));
    painter.drawPath(shapeOf(m_state));
}

} // namespace hostkit
