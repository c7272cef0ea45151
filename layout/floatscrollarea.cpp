#include <layout/floatscrollarea.h>

#include <layout/floatgrouplayout.h>

#include <QResizeEvent>
#include <QScreen>
#include <QScrollBar>

namespace {

constexpr int maximumMinimumHeight = 20;
constexpr QSize releasedMinimum(10, 10);

// Lets the content follow the area: down from the size of the last arrangement
// and out to the full width.
void release(QWidget* content)
{
    content->setMinimumSize(releasedMinimum);
    content->setMaximumWidth(QWIDGETSIZE_MAX);
}

int arrangedHeight(QWidget* content, int width)
{
    content->layout()->invalidate();
    return content->heightForWidth(width);
}

// Settles the arrangement for the new size before the scroll area asks for a
// size hint, which would settle a single column, tall enough to flash a bar.
//
// A form may be taller at the full width than at the width beside the bar,
// since fewer columns pack the sections differently. The bar would then come
// and go for ever; held at the narrower width the form needs none.
void settleArrangement(QWidget* content, const QSize& room, int fullWidth, int barWidth)
{
    const int narrowWidth = fullWidth - barWidth;
    const auto fits = [&](int width) { return arrangedHeight(content, width) <= room.height(); };
    const bool barStands = room.width() < fullWidth;
    const bool flips =
        barStands ? fits(narrowWidth) && !fits(fullWidth) : !fits(fullWidth) && fits(narrowWidth);
    if (!flips)
        return;
    arrangedHeight(content, narrowWidth);
    content->setMaximumWidth(narrowWidth);
}

} // namespace

FloatScrollArea::FloatScrollArea(QWidget* parent)
    : QScrollArea(parent)
{
    setFocusPolicy(Qt::NoFocus);
    setFrameShape(QFrame::NoFrame);
    setFrameShadow(QFrame::Plain);
    setWidgetResizable(true);
}

FloatScrollArea::~FloatScrollArea() = default;

QSize FloatScrollArea::minimumSizeHint() const
{
    QSize hint = QAbstractScrollArea::minimumSizeHint();
    hint.setHeight(qMin(hint.height(), maximumMinimumHeight));
    return hint;
}

QSize FloatScrollArea::sizeHint() const
{
    const auto* layout = widget() ? qobject_cast<const FloatGroupLayout*>(widget()->layout()) : nullptr;
    if (!layout || layout->count() == 0)
        return QScrollArea::sizeHint();
    ensurePolished();
    const QSize column = layout->columnSize(); // its width is the last pixel's position
    const QSize room = screen()->availableSize();
    const int width = column.width() + 1 + verticalScrollBar()->sizeHint().width() + 2 * frameWidth();
    return QSize(width, column.height() + 2 * frameWidth()).boundedTo(room);
}

void FloatScrollArea::resizeEvent(QResizeEvent* event)
{
    if (QWidget* content = widget()) {
        QLayoutItem* layout = content->layout();
        if (layout)
            layout->invalidate();
        release(content);
        if (layout && layout->hasHeightForWidth())
            arrange(event->size());
    }
    QScrollArea::resizeEvent(event);
}

void FloatScrollArea::arrange(const QSize& room)
{
    if (verticalScrollBarPolicy() == Qt::ScrollBarAsNeeded)
        settleArrangement(widget(), room, maximumViewportSize().width(),
                          verticalScrollBar()->sizeHint().width());
    else
        arrangedHeight(widget(), room.width());
}
