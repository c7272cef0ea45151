#include "messageguard.h"

#include <QTest>

#include <algorithm>
#include <cstring>

namespace {

MessageGuard* activeGuard = nullptr;

bool isTraceLine(const QMessageLogContext& context)
{
    return context.category && std::strcmp(context.category, "velk.trace") == 0;
}

} // namespace

MessageGuard::MessageGuard()
{
    Q_ASSERT(!activeGuard);
    activeGuard = this;
    m_previous = qInstallMessageHandler(&MessageGuard::handle);
}

MessageGuard::~MessageGuard()
{
    qInstallMessageHandler(m_previous);
    activeGuard = nullptr;
    const QString text = complaints();
    QTest::qVerify(text.isEmpty(), "only announced messages", qPrintable(text), __FILE__, __LINE__);
}

void MessageGuard::expect(const QString& text)
{
    expect(QRegularExpression(QRegularExpression::escape(text)));
}

void MessageGuard::expect(const QRegularExpression& pattern)
{
    m_expected << pattern;
}

void MessageGuard::allow(const QRegularExpression& pattern)
{
    m_allowed << pattern;
}

QString MessageGuard::complaints() const
{
    QStringList lines;
    for (const QString& message : m_unexpected)
        lines << QStringLiteral("unexpected: ") + message;
    for (const QRegularExpression& pattern : m_expected)
        lines << QStringLiteral("announced, but it did not come: ") + pattern.pattern();
    return lines.join(QLatin1Char('\n'));
}

void MessageGuard::clear()
{
    m_expected.clear();
    m_allowed.clear();
    m_unexpected.clear();
}

void MessageGuard::handle(QtMsgType type, const QMessageLogContext& context, const QString& message)
{
    MessageGuard* const guard = activeGuard;
    if (!guard)
        return;
    const bool isSevere = type == QtWarningMsg || type == QtCriticalMsg || type == QtFatalMsg;
    if (isSevere || isTraceLine(context)) {
        if (guard->take(message))
            return;
        guard->m_unexpected << message;
    }
    if (guard->m_previous)
        guard->m_previous(type, context, message);
}

bool MessageGuard::take(const QString& message)
{
    const auto matches = [&message](const QRegularExpression& pattern) {
        return pattern.match(message).hasMatch();
    };
    const auto found = std::find_if(m_expected.begin(), m_expected.end(), matches);
    if (found != m_expected.end()) {
        m_expected.erase(found);
        return true;
    }
    return std::any_of(m_allowed.cbegin(), m_allowed.cend(), matches);
}
