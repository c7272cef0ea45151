#include "headlinebox_p.h"

#include <QEvent>
#include <QStyleOptionGroupBox>
#include <QStylePainter>

#include <limits>

void HeadlineBox::keepMargins(const QMargins& margins)
{
    // A widget holds its margins in 16 bits; what it cannot hold would be restored for ever.
    const auto held = [](int margin) {
        return qBound<int>(std::numeric_limits<short>::min(), margin, std::numeric_limits<short>::max());
    };
    m_margins =
        QMargins(held(margins.left()), held(margins.top()), held(margins.right()), held(margins.bottom()));
    setContentsMargins(m_margins);
}

QSize HeadlineBox::minimumSizeHint() const
{
    constexpr int air = 2; // pixels above and below the title
    int height = fontMetrics().height();
    if (isCheckable())
        height = qMax(height, style()->pixelMetric(QStyle::PM_IndicatorHeight, nullptr, this));
    return {QGroupBox::minimumSizeHint().width(), height + 2 * air};
}

bool HeadlineBox::event(QEvent* event)
{
    if (event->type() == QEvent::ContentsRectChange && contentsMargins() != m_margins)
        setContentsMargins(m_margins);
    return QGroupBox::event(event);
}

// Drawn by parts: styles that know no flat boxes, and style sheets, draw an
// empty frame below the title whatever the option says.
void HeadlineBox::paintEvent(QPaintEvent*)
{
    QStylePainter painter(this);
    QStyleOptionGroupBox option;
    initStyleOption(&option);
    if (isCheckable())
        paintIndicator(painter, option);
    const int left = title().isEmpty() ? 0 : paintTitle(painter, option);
    painter.setPen(palette().color(QPalette::Mid));
    if (left < width())
        painter.drawLine(left, height() / 2, width() - 1, height() / 2);
}

void HeadlineBox::paintIndicator(QStylePainter& painter, const QStyleOptionGroupBox& option) const
{
    QStyleOptionButton indicator;
    indicator.QStyleOption::operator=(option);
    indicator.rect = style()->subControlRect(QStyle::CC_GroupBox, &option, QStyle::SC_GroupBoxCheckBox, this);
    painter.drawPrimitive(QStyle::PE_IndicatorCheckBox, indicator);
}

int HeadlineBox::paintTitle(QStylePainter& painter, const QStyleOptionGroupBox& option) const
{
    constexpr int gap = 6; // pixels between title and hairline
    QRect text = style()->subControlRect(QStyle::CC_GroupBox, &option, QStyle::SC_GroupBoxLabel, this);
    text.setWidth(qMax(text.width(), fontMetrics().horizontalAdvance(title()) + 1));
    painter.drawItemText(text, Qt::TextShowMnemonic | Qt::AlignLeft | Qt::AlignVCenter, palette(),
                         isEnabled(), title(), QPalette::WindowText);
    if (option.state & QStyle::State_HasFocus) {
        QStyleOptionFocusRect focus;
        focus.QStyleOption::operator=(option);
        focus.rect = text;
        painter.drawPrimitive(QStyle::PE_FrameFocusRect, focus);
    }
    return text.right() + gap;
}

// The group box would compute its margins here and nothing else. As each change
// of them invalidates the layout that is just placing the box, the arrangement
// would be made anew for every headline.
void HeadlineBox::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event); // NOLINT(bugprone-parent-virtual-call): passed over on purpose
}
