#include "basicvaluewidgets/entryhint_p.h"

#include <QAccessible>
#include <QCoreApplication>
#include <QTextDocument>
#include <QToolTip>
#include <QWidget>

namespace {

constexpr int RefusalStays = 10000; // milliseconds, as long as a tool tip

} // namespace

EntryHint::EntryHint(QWidget* control)
    : m_control(control)
{
    m_end.setSingleShot(true);
    m_end.setInterval(RefusalStays);
    QObject::connect(&m_end, &QTimer::timeout, control, [this] { Hide(); });
}

EntryHint::~EntryHint() = default;

void EntryHint::ShowReading(const QString& reading)
{
    if (m_refused || reading != m_text)
        Hide();
    if (!reading.isEmpty())
        show(reading);
}

void EntryHint::ShowRefusal(const QString& why)
{
    Hide();
    if (!m_control->isVisible())
        return;
    m_descriptionBefore = m_control->accessibleDescription();
    m_refused = true;
    m_control->setAccessibleDescription(why);
    QAccessibleEvent alert(m_control, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
    m_end.start();
    show(why);
}

// In a turn of its own: the focus may leave while a tool tip is being made.
void EntryHint::show(const QString& text)
{
    m_text = text;
    QTimer::singleShot(0, m_control, [this, text] {
        if (m_text != text || !m_control->isVisible())
            return;
        const QString shown = Qt::mightBeRichText(text) ? text.toHtmlEscaped() : text;
        QToolTip::showText(m_control->mapToGlobal(m_control->rect().bottomLeft()), shown, m_control);
    });
}

void EntryHint::Hide()
{
    if (m_text.isNull())
        return;
    if (QToolTip::isVisible() && QToolTip::text() == m_text)
        QToolTip::hideText();
    m_text = QString();
    m_end.stop();
    if (!m_refused)
        return;
    m_refused = false;
    m_control->setAccessibleDescription(m_descriptionBefore);
}

QString EntryHint::OutOfRange(const QString& limit, bool tooLow)
{
    const QString text = tooLow ? QCoreApplication::translate("EntryHint", "%1 is the lowest")
                                : QCoreApplication::translate("EntryHint", "%1 is the highest");
    return text.arg(limit);
}
