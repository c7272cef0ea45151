#include "captionlabel_p.h"

#include <QFontMetrics>
#include <QLayout>
#include <QPaintEvent>
#include <QPainter>
#include <QStyle>
#include <QTextDocument>

namespace {

int overflowing = 0; // labels

} // namespace

bool CaptionLabel::isBare() const
{
    // Without a buddy an ampersand is a character like any other.
    return !text().isEmpty() && !wordWrap() && !buddy() && frameWidth() == 0 && margin() == 0 &&
           indent() <= 0 && textInteractionFlags() == Qt::LinksAccessibleByMouse &&
           (textFormat() == Qt::PlainText || (textFormat() == Qt::AutoText && !Qt::mightBeRichText(text())));
}

QSize CaptionLabel::bareHint() const
{
    if (m_text != text() || m_font != font() || !m_textSize.isValid()) {
        // The room that a QLabel measures in.
        constexpr int room = 2000;
        m_text = text();
        m_font = font();
        m_textSize =
            fontMetrics()
                .boundingRect(0, 0, room, room, Qt::AlignLeft | Qt::AlignTop | Qt::TextExpandTabs, m_text)
                .size();
    }
    const QMargins around = contentsMargins();
    const QSize whole(m_textSize.width() + around.left() + around.right(),
                      m_textSize.height() + around.top() + around.bottom());
    return whole.expandedTo(minimumSize());
}

CaptionLabel::~CaptionLabel()
{
    setOverflow(QRect());
}

void CaptionLabel::setLevel(int controlHeight)
{
    if (controlHeight != m_level) {
        m_level = controlHeight;
        update();
    }
    renewOverflow();
}

int CaptionLabel::textTop() const
{
    return qMax(0, qRound((m_level - m_textSize.height()) / 2.0));
}

void CaptionLabel::drawText(QPainter& painter) const
{
    bareHint(); // measures
    const QRect place(0, textTop(), width(), m_textSize.height());
    const Qt::Alignment side =
        QStyle::visualAlignment(layoutDirection(), alignment() & Qt::AlignHorizontal_Mask);
    style()->drawItemText(&painter, place, int(side | Qt::AlignTop) | Qt::TextExpandTabs, palette(),
                          isEnabled(), text(), foregroundRole());
}

void CaptionLabel::paintEvent(QPaintEvent* event)
{
    if (m_level < 0 || !isBare()) {
        QLabel::paintEvent(event);
        return;
    }
    QPainter painter(this);
    drawText(painter);
}

void CaptionLabel::paintOverflow(QPainter& painter) const
{
    painter.save();
    painter.setClipRect(m_overflow);
    painter.translate(pos());
    painter.setFont(font());
    painter.setLayoutDirection(layoutDirection());
    drawText(painter);
    painter.restore();
}

bool CaptionLabel::anyOverflows()
{
    return overflowing > 0;
}

void CaptionLabel::renewOverflow()
{
    const int lost = textTop() + m_textSize.height() - height();
    const bool overflows = m_level >= 0 && lost > 0 && !isHidden() && isBare();
    setOverflow(overflows ? QRect(x(), y() + height(), width(), lost) : QRect());
}

void CaptionLabel::setOverflow(const QRect& overflow)
{
    QWidget* content = parentWidget();
    if (overflow.isEmpty() && m_overflow.isEmpty())
        return;
    if (overflow == m_overflow && text() == m_overflowText)
        return;
    overflowing += int(!overflow.isEmpty()) - int(!m_overflow.isEmpty());
    if (content) {
        content->update(m_overflow);
        content->update(overflow);
    }
    m_overflow = overflow;
    m_overflowText = text();
}

void CaptionLabel::moveEvent(QMoveEvent* event)
{
    QLabel::moveEvent(event);
    renewOverflow();
}

void CaptionLabel::resizeEvent(QResizeEvent* event)
{
    QLabel::resizeEvent(event);
    renewOverflow();
}

void CaptionLabel::showEvent(QShowEvent* event)
{
    QLabel::showEvent(event);
    renewOverflow();
}

void CaptionLabel::hideEvent(QHideEvent* event)
{
    QLabel::hideEvent(event);
    renewOverflow();
}

// The palette, whether the label is enabled, the font.
void CaptionLabel::changeEvent(QEvent* event)
{
    QLabel::changeEvent(event);
    if (parentWidget() && !m_overflow.isEmpty())
        parentWidget()->update(m_overflow);
}

QSize CaptionLabel::sizeHint() const
{
    ensurePolished();
    return isBare() ? bareHint() : QLabel::sizeHint();
}

QSize CaptionLabel::minimumSizeHint() const
{
    ensurePolished();
    return isBare() ? bareHint() : QLabel::minimumSizeHint();
}

CaptionOverflow::CaptionOverflow(QWidget* content, QObject* parent)
    : QObject(parent)
{
    content->installEventFilter(this);
}

bool CaptionOverflow::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::Paint || !CaptionLabel::anyOverflows() || !watched->isWidgetType())
        return QObject::eventFilter(watched, event);
    auto* content = static_cast<QWidget*>(watched);
    const QLayout* layout = content->layout();
    const QRegion& due = static_cast<QPaintEvent*>(event)->region();
    QPainter painter(content);
    for (int i = 0; layout && i < layout->count(); ++i) {
        const auto* caption = dynamic_cast<CaptionLabel*>(layout->itemAt(i)->widget());
        if (caption && due.intersects(caption->overflow()))
            caption->paintOverflow(painter);
    }
    return QObject::eventFilter(watched, event);
}
