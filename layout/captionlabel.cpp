#include "captionlabel_p.h"

#include <QFontMetrics>
#include <QPainter>
#include <QStyle>
#include <QTextDocument>

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

void CaptionLabel::setLevel(int controlHeight)
{
    if (controlHeight == m_level)
        return;
    m_level = controlHeight;
    update();
}

// Where the text cannot be level without being cut, it stays whole; a text that
// is higher than the label loses no more than that.
int CaptionLabel::textTop(int textHeight) const
{
    constexpr int blank = 1; // pixels below most letters
    const int level = qRound((m_level - textHeight) / 2.0);
    const int lowest = height() - textHeight + blank;
    return lowest < 0 ? qBound(lowest, level, 0) : qBound(0, level, lowest);
}

void CaptionLabel::paintEvent(QPaintEvent* event)
{
    if (m_level < 0 || !isBare()) {
        QLabel::paintEvent(event);
        return;
    }
    bareHint(); // measures
    const int textHeight = m_textSize.height();
    const QRect place(0, textTop(textHeight), width(), textHeight);
    const Qt::Alignment side =
        QStyle::visualAlignment(layoutDirection(), alignment() & Qt::AlignHorizontal_Mask);
    QPainter painter(this);
    style()->drawItemText(&painter, place, int(side | Qt::AlignTop) | Qt::TextExpandTabs, palette(),
                          isEnabled(), text(), foregroundRole());
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
