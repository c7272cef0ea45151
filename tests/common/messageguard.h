#ifndef ZORVA_TESTS_MESSAGEGUARD_H
#define ZORVA_TESTS_MESSAGEGUARD_H

#include <QRegularExpression>
#include <QString>
#include <QStringList>

/// Fails the running test function when a Qt warning (or worse) or a trace line
/// comes that nobody announced, and when an announced one stays out. Make one
/// in `init()` and drop it in `cleanup()`, or put it on the stack of one test.
/// One at a time.
class MessageGuard
{
public:
    MessageGuard();
    MessageGuard(const MessageGuard&) = delete;
    MessageGuard& operator=(const MessageGuard&) = delete;
    /// Fails the test if there is something to complain about.
    ~MessageGuard();

    /// Announces one message that contains `text`; it is not passed on.
    void expect(const QString& text);
    /// Announces one message that matches `pattern`.
    void expect(const QRegularExpression& pattern);
    /// Any number of messages that match `pattern` is fine, none too.
    void allow(const QRegularExpression& pattern);

    /// What the destructor would complain about now; empty if nothing.
    QString complaints() const;
    /// Forgets all that was said and announced so far.
    void clear();

private:
    static void handle(QtMsgType type, const QMessageLogContext& context, const QString& message);
    /// True if the message was announced or allowed.
    bool take(const QString& message);

    QtMessageHandler m_previous;
    QList<QRegularExpression> m_expected;
    QList<QRegularExpression> m_allowed;
    QStringList m_unexpected;
};

#endif
