#include "headlinebox_p.h"

#include "indicatorimages_p.h"

#include <QEvent>
#include <QMouseEvent>
#include <QPointer>
#include <QStyleOptionGroupBox>
#include <QStylePainter>

#include <limits>

namespace {

constexpr int gap = 6; // pixels between indicator, title and hairline

} // namespace

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

// The sheet's font: the style sheet of the indicator keeps the box from following
// a new text size.
QFont HeadlineBox::titleFont() const
{
    QFont font = parentWidget() ? parentWidget()->font() : this->font();
    font.setWeight(QFont::DemiBold);
    return font;
}

QSize HeadlineBox::indicatorSize() const
{
    if (!isCheckable())
        return {0, 0};
    return {style()->pixelMetric(QStyle::PM_IndicatorWidth, nullptr, this),
            style()->pixelMetric(QStyle::PM_IndicatorHeight, nullptr, this)};
}

QRect HeadlineBox::indicatorRect() const
{
    const QSize size = indicatorSize();
    return {QPoint(0, (height() - size.height()) / 2), size};
}

QRect HeadlineBox::titleRect() const
{
    const int left = isCheckable() ? indicatorSize().width() + gap : 0;
    const int wanted = QFontMetrics(titleFont()).horizontalAdvance(title()) + 1;
    return {left, 0, qMin(wanted, width() - left), height()};
}

QSize HeadlineBox::minimumSizeHint() const
{
    constexpr int air = 2;       // pixels above and below the title
    constexpr int shortest = 20; // pixels of hairline
    if (title().isEmpty())
        return {shortest, fontMetrics().height() + 2 * air};
    const QFontMetrics metrics(titleFont());
    const QSize indicator = indicatorSize();
    return {indicator.width() + metrics.horizontalAdvance(title()) + 2 * gap + shortest,
            qMax(metrics.height(), indicator.height()) + 2 * air};
}

bool HeadlineBox::event(QEvent* event)
{
    if (event->type() == QEvent::ContentsRectChange && contentsMargins() != m_margins)
        setContentsMargins(m_margins);
    switch (event->type()) {
    case QEvent::Shortcut:
        return true; // the box made one of an "&" in its title
    case QEvent::HoverEnter:
    case QEvent::HoverMove:
    case QEvent::HoverLeave:
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
        return QGroupBox::event(event);
    default:
        // The group box would ask its style sheet for colors first, whatever the event.
        return QWidget::event(event); // NOLINT(bugprone-parent-virtual-call): passed over on purpose
    }
}

// The group box would compute its margins. A box that is being made has them, and the sheet that names no
// more than images would be read for that, dropped, and read again when the box is polished.
void HeadlineBox::changeEvent(QEvent* event)
{
    const bool isMade = testAttribute(Qt::WA_WState_Polished);
    if (event->type() == QEvent::StyleChange && !isMade && IndicatorImages::know(*this))
        QWidget::changeEvent(event); // NOLINT(bugprone-parent-virtual-call): passed over on purpose
    else
        QGroupBox::changeEvent(event);
}

void HeadlineBox::mousePressEvent(QMouseEvent* event)
{
    m_pressed = isCheckable() && event->button() == Qt::LeftButton;
    if (!m_pressed)
        QGroupBox::mousePressEvent(event);
}

void HeadlineBox::mouseReleaseEvent(QMouseEvent* event)
{
    const bool clicks = m_pressed && event->button() == Qt::LeftButton && rect().contains(event->pos());
    m_pressed = false;
    if (!clicks) {
        QGroupBox::mouseReleaseEvent(event);
        return;
    }
    const QPointer<HeadlineBox> alive(this);
    setChecked(!isChecked());
    if (alive)
        Q_EMIT clicked(isChecked());
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
    int lineBegin = 0;
    if (!title().isEmpty()) {
        const QRect place = titleRect(); // which measures
        paintTitle(painter, option, QStyle::visualRect(layoutDirection(), rect(), place));
        lineBegin = place.right() + gap;
    }
    paintLine(painter, lineBegin);
}

// Between text and background, so that it can be seen in dark palettes as well.
QColor HeadlineBox::lineColor() const
{
    constexpr double share = 0.35; // of the text
    const QColor text = palette().color(QPalette::Active, QPalette::WindowText);
    const QColor ground = palette().color(QPalette::Active, QPalette::Window);
    const auto mixed = [](int a, int b) { return qRound(share * a + (1 - share) * b); };
    return {mixed(text.red(), ground.red()), mixed(text.green(), ground.green()),
            mixed(text.blue(), ground.blue())};
}

void HeadlineBox::paintLine(QStylePainter& painter, int left) const
{
    if (left >= width())
        return;
    const QRect line(left, height() / 2, width() - left, 1);
    painter.fillRect(QStyle::visualRect(layoutDirection(), rect(), line), lineColor());
}

void HeadlineBox::paintIndicator(QStylePainter& painter, const QStyleOptionGroupBox& option) const
{
    QStyleOptionButton indicator;
    indicator.QStyleOption::operator=(option);
    indicator.rect = QStyle::visualRect(layoutDirection(), rect(), indicatorRect());
    if (const QIcon* const image = IndicatorImages::find(*this, isChecked()))
        image->paint(&painter, indicator.rect);
    else
        painter.drawPrimitive(QStyle::PE_IndicatorCheckBox, indicator);
}

void HeadlineBox::paintTitle(QStylePainter& painter, const QStyleOptionGroupBox& option,
                             const QRect& place) const
{
    const QFont font = titleFont();
    painter.setFont(font);
    const QString shown = QFontMetrics(font).elidedText(title(), Qt::ElideRight, place.width());
    const Qt::Alignment leading = QStyle::visualAlignment(layoutDirection(), Qt::AlignLeft);
    painter.drawItemText(place, int(leading | Qt::AlignVCenter) | Qt::TextSingleLine, palette(), isEnabled(),
                         shown, QPalette::WindowText);
    if (option.state & QStyle::State_HasFocus) {
        QStyleOptionFocusRect focus;
        focus.QStyleOption::operator=(option);
        focus.rect = place;
        painter.drawPrimitive(QStyle::PE_FrameFocusRect, focus);
    }
}

// The group box would compute its margins here and nothing else. As each change
// of them invalidates the layout that is just placing the box, the arrangement
// would be made anew for every headline.
void HeadlineBox::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event); // NOLINT(bugprone-parent-virtual-call): passed over on purpose
}
