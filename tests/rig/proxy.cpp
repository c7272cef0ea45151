#include "proxy.h"

#include <QTimer>

#include <algorithm>

namespace {

bool isCommand(const QByteArray& line, const QByteArray& command)
{
    return line.startsWith("+\\" + command);
}

} // namespace

Proxy::Proxy(quint16 target)
    : m_target(target)
{
    m_context.moveToThread(&m_thread);
    m_thread.start();
    inThread([this] {
        m_server = std::make_unique<QTcpServer>();
        QObject::connect(m_server.get(), &QTcpServer::newConnection, &m_context, [this] { accept(); });
        m_server->listen(QHostAddress::LocalHost);
        m_port = m_server->serverPort();
    });
}

Proxy::~Proxy()
{
    inThread([this] { m_server.reset(); });
    m_thread.quit();
    m_thread.wait();
}

void Proxy::inThread(const std::function<void()>& work)
{
    QMetaObject::invokeMethod(&m_context, work, Qt::BlockingQueuedConnection);
}

int Proxy::connections()
{
    int count = 0;
    inThread([&] { count = m_connections; });
    return count;
}

void Proxy::setDelay(int delay)
{
    inThread([&] { m_delay = delay; });
}

void Proxy::setMute(bool mute)
{
    inThread([&] { m_mute = mute; });
}

void Proxy::answer(const QByteArray& command, const QByteArray& answer)
{
    inThread([&] { m_answers.insert(command, answer); });
}

void Proxy::passOn(const QByteArray& command, int count)
{
    inThread([&] { m_allowances.insert(command, count); });
}

void Proxy::cut()
{
    inThread([this] {
        const auto clients = m_server->findChildren<QTcpSocket*>(QString(), Qt::FindDirectChildrenOnly);
        for (QTcpSocket* client : clients)
            client->abort();
    });
}

void Proxy::accept()
{
    QTcpSocket* const client = m_server->nextPendingConnection();
    auto* const daemon = new QTcpSocket(client);
    ++m_connections;
    client->setSocketOption(QAbstractSocket::LowDelayOption, 1);
    QObject::connect(daemon, &QTcpSocket::connected, daemon,
                     [daemon] { daemon->setSocketOption(QAbstractSocket::LowDelayOption, 1); });
    QObject::connect(client, &QTcpSocket::disconnected, client, &QObject::deleteLater);
    QObject::connect(daemon, &QTcpSocket::disconnected, client, &QTcpSocket::disconnectFromHost);
    QObject::connect(daemon, &QTcpSocket::errorOccurred, client, &QTcpSocket::disconnectFromHost);
    QObject::connect(client, &QTcpSocket::readyRead, daemon,
                     [this, client, daemon] { takeCommands(client, daemon); });
    QObject::connect(daemon, &QTcpSocket::readyRead, client,
                     [this, client, daemon] { reply(client, daemon->readAll()); });
    daemon->connectToHost(QHostAddress::LocalHost, m_target);
}

void Proxy::takeCommands(QTcpSocket* client, QTcpSocket* daemon)
{
    while (client->canReadLine()) {
        const QByteArray line = client->readLine();
        const auto isOf = [&line](const QByteArray& command) { return isCommand(line, command); };
        const QList<QByteArray> commands = m_answers.keys();
        const auto found = std::find_if(commands.begin(), commands.end(), isOf);
        if (found != commands.end())
            reply(client, m_answers.value(*found));
        else if (mayPass(line))
            daemon->write(line);
    }
}

bool Proxy::mayPass(const QByteArray& line)
{
    for (auto allowance = m_allowances.begin(); allowance != m_allowances.end(); ++allowance) {
        if (isCommand(line, allowance.key()) && --*allowance < 0)
            return false;
    }
    return true;
}

void Proxy::reply(QTcpSocket* to, const QByteArray& bytes)
{
    if (!m_mute)
        QTimer::singleShot(m_delay, to, [to, bytes] { to->write(bytes); });
}
