#ifndef ZORVA_TESTS_PROXY_H
#define ZORVA_TESTS_PROXY_H

#include <QByteArray>
#include <QHash>
#include <QObject>
#include <QTcpServer>
#include <QTcpSocket>
#include <QThread>

#include <functional>
#include <memory>

/// Stands between a client and a daemon on the loopback address, and is as bad
/// a line as a test wants. It has a thread of its own, which every call visits.
class Proxy
{
public:
    explicit Proxy(quint16 target);
    ~Proxy();
    Proxy(const Proxy&) = delete;
    Proxy& operator=(const Proxy&) = delete;

    quint16 port() const { return m_port; }
    int connections();

    /// Milliseconds by which each answer is late.
    void setDelay(int delay);
    /// Answers are swallowed.
    void setMute(bool mute);
    /// Commands that begin with `command` are not passed on, and answered with `answer`.
    void answer(const QByteArray& command, const QByteArray& answer);
    /// Commands that begin with `command` are passed on `count` times more, and swallowed from then on.
    void passOn(const QByteArray& command, int count);
    /// Ends all connections; new ones are taken.
    void cut();

private:
    void inThread(const std::function<void()>& work);
    void accept();
    void takeCommands(QTcpSocket* client, QTcpSocket* daemon);
    bool mayPass(const QByteArray& line);
    void reply(QTcpSocket* to, const QByteArray& bytes);

    QThread m_thread;
    QObject m_context; // lives in the thread
    const quint16 m_target;
    quint16 m_port = 0;

    // The thread's own.
    std::unique_ptr<QTcpServer> m_server;
    int m_delay = 0;
    bool m_mute = false;
    int m_connections = 0;
    QHash<QByteArray, QByteArray> m_answers;
    QHash<QByteArray, int> m_allowances;
};

#endif
