#ifndef ZORVA_TESTS_PROXY_H
#define ZORVA_TESTS_PROXY_H

#include <QByteArray>
#include <QHash>
#include <QObject>
#include <QTcpServer>
#include <QTcpSocket>

/// Stands between a client and a daemon on the loopback address, and is as bad
/// a line as a test wants. Works in the event loop of its thread.
class Proxy : public QObject
{
    Q_OBJECT

public:
    explicit Proxy(quint16 target, QObject* parent = nullptr);

    quint16 port() const { return m_server.serverPort(); }
    int connections() const { return m_connections; }

    /// Milliseconds by which each answer is late.
    void setDelay(int delay) { m_delay = delay; }
    /// Answers are swallowed.
    void setMute(bool mute) { m_mute = mute; }
    /// Commands that begin with `command` are not passed on, and answered with `answer`.
    void answer(const QByteArray& command, const QByteArray& answer) { m_answers.insert(command, answer); }
    /// Ends all connections; new ones are taken if `again`.
    void cut(bool again = true);

private:
    void accept();
    void reply(QTcpSocket* to, const QByteArray& bytes);

    QTcpServer m_server;
    const quint16 m_target;
    int m_delay = 0;
    bool m_mute = false;
    int m_connections = 0;
    QHash<QByteArray, QByteArray> m_answers;
};

#endif
