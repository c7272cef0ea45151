#include "captionlabel_p.h"

#include <QFontMetrics>
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
