#include "captionlabel_p.h"

#include <QFontMetrics>
#include <QLayout>
#include <QPaintEvent>
#include <QPainter>
#include <QStyle>
#include <QTextDocument>

#include <utility>

bool CaptionLabel::isBare() const
{
    // Without a buddy an ampersand is a character like any other.
    return !text().isEmpty() && !wordWrap() && !buddy() && frameWidth() == 0 && margin() == 0 &&
           indent() <= 0 && textInteractionFlags() == Qt::LinksAccessibleByMouse &&
           (textFormat() == Qt::PlainText || (textFormat() == Qt::AutoText && !looksRich()));
}

bool CaptionLabel::looksRich() const
{
    readText();
    return m_looksRich;
}

void CaptionLabel::readText() const
{
    if (m_text == text())
        return;
    m_text = text();
    m_looksRich = Qt::mightBeRichText(m_text);
    m_isMeasured = false;
}

QSize CaptionLabel::bareHint() const
{
    readText();
    if (m_font != font() || !m_isMeasured) {
        // The room that a QLabel measures in.
        constexpr int room = 2000;
        m_font = font();
        m_textSize =
            fontMetrics()
                .boundingRect(0, 0, room, room, Qt::AlignLeft | Qt::AlignTop | Qt::TextExpandTabs, m_text)
                .size();
        m_inkHeight = -1;
        m_isMeasured = true;
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

void CaptionLabel::setLevel(int controlHeight, CaptionOverflow* overflow)
{
    if (overflow != m_overflow) {
        setOverflow(QRect());
        m_strip = -1;
        m_overflow = overflow;
    }
    if (controlHeight != m_level) {
        m_level = controlHeight;
        // Qt sets each label that asks for itself against all its siblings, visible or not.
        if (m_overflow)
            m_overflow->repaint(geometry());
        else
            update();
    }
    renewOverflow();
}

int CaptionLabel::textTop() const
{
    return qMax(0, qRound((m_level - m_textSize.height()) / 2.0));
}

// Of more than a line of one font, and of an underlined one, the whole is taken for ink.
int CaptionLabel::inkHeight() const
{
    bareHint(); // measures
    if (m_inkHeight < 0) {
        const QFontMetrics metrics = fontMetrics();
        const bool isOneLine = m_textSize.height() == metrics.height() && !font().underline();
        constexpr int around = 2; // what smoothing, and the shadow of a text that is off, may add
        m_inkHeight = isOneLine ? metrics.ascent() + metrics.tightBoundingRect(m_text).bottom() + 1 + around
                                : m_textSize.height();
    }
    return m_inkHeight;
}

bool CaptionLabel::hasInkBelow() const
{
    return textTop() + inkHeight() > height();
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

void CaptionLabel::renewOverflow()
{
    if (!m_overflow)
        return;
    const int lost = textTop() + m_textSize.height() - height();
    const bool overflows =
        m_level >= 0 && lost > 0 && !isHidden() && parentWidget() == m_overflow->m_content && isBare();
    setOverflow(overflows ? QRect(x(), y() + height(), width(), lost) : QRect());
}

void CaptionLabel::setOverflow(const QRect& strip)
{
    if (!m_overflow)
        return;
    const QRect before = m_overflow->place(m_strip);
    if (strip == before && (strip.isEmpty() || text() == m_stripText))
        return;
    m_overflow->put(this, strip);
    m_stripText = strip.isEmpty() ? QString() : text();
    m_overflow->repaint(before.united(strip));
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
    if (m_overflow)
        m_overflow->repaint(m_overflow->place(m_strip));
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
    , m_content(content)
{
    content->installEventFilter(this);
}

QRect CaptionOverflow::place(int strip) const
{
    return strip < 0 ? QRect() : m_strips.at(strip).place;
}

void CaptionOverflow::put(CaptionLabel* label, const QRect& strip)
{
    int& index = label->m_strip;
    if (!strip.isEmpty()) {
        if (index < 0) {
            index = m_strips.count();
            m_strips.append({QRect(), label});
        }
        m_strips[index].place = strip;
    } else if (index >= 0) {
        // Their order means nothing: the last one fills the gap.
        m_strips[index] = m_strips.constLast();
        m_strips.at(index).label->m_strip = index;
        m_strips.removeLast();
        index = -1;
    }
}

void CaptionOverflow::repaint(const QRect& place)
{
    if (m_gatherings > 0)
        m_gathered |= place;
    else
        m_content->update(place);
}

void CaptionOverflow::paint(const QRegion& due) const
{
    QPainter painter;
    const int top = due.boundingRect().top();
    const int bottom = due.boundingRect().bottom();
    for (const Strip& strip : m_strips) {
        // Most are far off, and a region takes ten times as long to say so.
        if (strip.place.bottom() < top || strip.place.top() > bottom)
            continue;
        if (!due.intersects(strip.place) || !strip.label->hasInkBelow())
            continue;
        if (!painter.isActive())
            painter.begin(m_content);
        painter.save();
        painter.setClipRect(strip.place);
        painter.translate(strip.label->pos());
        painter.setFont(strip.label->font());
        painter.setLayoutDirection(strip.label->layoutDirection());
        strip.label->drawText(painter);
        painter.restore();
    }
}

bool CaptionOverflow::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Paint && watched == m_content)
        paint(static_cast<QPaintEvent*>(event)->region());
    return QObject::eventFilter(watched, event);
}

CaptionOverflow::Gathering::Gathering(CaptionOverflow* overflow)
    : m_overflow(overflow)
{
    if (m_overflow)
        ++m_overflow->m_gatherings;
}

CaptionOverflow::Gathering::~Gathering()
{
    if (m_overflow && --m_overflow->m_gatherings == 0)
        m_overflow->repaint(std::exchange(m_overflow->m_gathered, QRect()));
}
