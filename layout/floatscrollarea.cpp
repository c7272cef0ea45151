#include <layout/floatscrollarea.h>

#include <layout/floatgrouplayout.h>

#include "viewportrequest_p.h"

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

QLayout* layoutOf(const QWidget* content)
{
    return content ? content->layout() : nullptr;
}

int arrangedHeight(QWidget* content, int width)
{
    content->layout()->invalidate();
    return content->heightForWidth(width);
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
    const auto* layout = qobject_cast<const FloatGroupLayout*>(layoutOf(widget()));
    if (!layout || layout->count() == 0)
        return QScrollArea::sizeHint();
    ensurePolished();
    const QSize column = layout->columnSize(); // its width is the last pixel's position
    const QSize room = screen()->availableSize();
    const int width = column.width() + 1 + verticalScrollBar()->sizeHint().width() + 2 * frameWidth();
    return QSize(width, column.height() + 2 * frameWidth()).boundedTo(room);
}

bool FloatScrollArea::event(QEvent* event)
{
    if (event->type() == viewportRequest()) {
        // Past QScrollArea, which would ask the content before it has its width.
        QEvent layOut(QEvent::LayoutRequest);
        return QAbstractScrollArea::event(&layOut);
    }
    if (event->type() != QEvent::LayoutRequest)
        return QScrollArea::event(event);
    const FloatGroupLayout::WidthChange widthChange(layoutOf(widget()));
    reconsider();
    return QScrollArea::event(event);
}

void FloatScrollArea::reconsider()
{
    QWidget* content = widget();
    const auto* layout = qobject_cast<const FloatGroupLayout*>(layoutOf(content));
    if (!layout || verticalScrollBarPolicy() != Qt::ScrollBarAsNeeded)
        return;
    const bool isHeld = content->maximumWidth() < QWIDGETSIZE_MAX;
    const bool barStands = viewport()->width() < maximumViewportSize().width();
    if ((!isHeld && !barStands) || m_settledHints == layout->hintsKey())
        return;
    if (settle())
        release(content);
}

// Whether the rows fit at that width; a row that is wider brings the other bar.
bool FloatScrollArea::fits(int width)
{
    const auto* layout = qobject_cast<const FloatGroupLayout*>(widget()->layout());
    const int needed = layout ? layout->rearrange(width) : arrangedHeight(widget(), width);
    const bool isWide = widget()->layout()->sizeHint().width() > width;
    const int lost = isWide ? horizontalScrollBar()->sizeHint().height() : 0;
    return needed <= maximumViewportSize().height() - lost;
}

// Settles the arrangement before the scroll area asks for a size hint, which
// would settle a single column, tall enough to flash a bar. True if the rows fit
// at the full width.
//
// A form may be taller at the full width than at the width beside the bar,
// since fewer columns pack the sections differently. The bar would then come
// and go for ever; held at the narrower width the form needs none.
bool FloatScrollArea::settle()
{
    const int fullWidth = maximumViewportSize().width();
    const int narrowWidth = fullWidth - verticalScrollBar()->sizeHint().width();
    const bool fitsWhole = fits(fullWidth);
    const bool isHeld = !fitsWhole && fits(narrowWidth);
    widget()->setMaximumWidth(isHeld ? narrowWidth : QWIDGETSIZE_MAX);
    if (const auto* layout = qobject_cast<const FloatGroupLayout*>(widget()->layout()))
        m_settledHints = layout->hintsKey();
    return fitsWhole;
}

void FloatScrollArea::resizeEvent(QResizeEvent* event)
{
    QLayout* const layout = layoutOf(widget());
    const FloatGroupLayout::WidthChange widthChange(layout);
    if (QWidget* content = widget()) {
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
        settle();
    else
        arrangedHeight(widget(), room.width());
}
