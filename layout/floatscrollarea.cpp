#include <layout/floatscrollarea.h>

#include <QLayout>
#include <QResizeEvent>
#include <QScrollBar>

namespace {

constexpr int maximumMinimumHeight = 20;
constexpr QSize releasedMinimum(10, 10);

// A form may be taller at the full width than at the width beside a vertical
// scroll bar, since fewer columns pack the sections differently. The bar would
// then come and go for ever. Arranged for the narrower width the form needs no
// bar, so that arrangement is the one to settle for; the first query after an
// invalidation settles it.
void settleArrangement(QWidget* content, const QSize& room, int barWidth)
{
    if (content->heightForWidth(room.width()) <= room.height())
        return;
    content->layout()->invalidate();
    if (content->heightForWidth(room.width() - barWidth) > room.height())
        content->layout()->invalidate();
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

void FloatScrollArea::resizeEvent(QResizeEvent* event)
{
    if (QWidget* content = widget()) {
        if (QLayoutItem* layout = content->layout())
            layout->invalidate();
        content->setMinimumSize(releasedMinimum);
        const bool barMayCome = verticalScrollBarPolicy() == Qt::ScrollBarAsNeeded &&
                                event->size().width() == maximumViewportSize().width();
        if (barMayCome && content->layout() && content->layout()->hasHeightForWidth())
            settleArrangement(content, event->size(), verticalScrollBar()->sizeHint().width());
    }
    QScrollArea::resizeEvent(event);
}
