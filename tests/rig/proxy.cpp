#include "proxy.h"

#include <QTimer>

#include <algorithm>

Proxy::Proxy(quint16 target, QObject* parent)
    : QObject(parent)
    , m_target(target)
{
    connect(&m_server, &QTcpServer::newConnection, this, &Proxy::accept);
    m_server.listen(QHostAddress::LocalHost);
}

void Proxy::accept()
{
    QTcpSocket* const client = m_server.nextPendingConnection();
    auto* const daemon = new QTcpSocket(client);
    ++m_connections;
    for (QTcpSocket* const socket : {client, daemon})
        socket->setSocketOption(QAbstractSocket::LowDelayOption, 1);
    daemon->connectToHost(QHostAddress::LocalHost, m_target);
    connect(client, &QTcpSocket::disconnected, client, &QObject::deleteLater);
    connect(daemon, &QTcpSocket::disconnected, client, &QTcpSocket::disconnectFromHost);
    connect(daemon, &QTcpSocket::errorOccurred, client, &QTcpSocket::disconnectFromHost);
    connect(daemon, &QTcpSocket::connected, daemon,
            [daemon] { daemon->setSocketOption(QAbstractSocket::LowDelayOption, 1); });
    connect(client, &QTcpSocket::readyRead, daemon, [this, client, daemon] {
        while (client->canReadLine()) {
            const QByteArray line = client->readLine();
            const auto isOf = [&line](const QByteArray& command) { return line.startsWith("+\\" + command); };
            const QList<QByteArray> commands = m_answers.keys();
            const auto found = std::find_if(commands.begin(), commands.end(), isOf);
            if (found != commands.end())
                reply(client, m_answers.value(*found));
            else
                daemon->write(line);
        }
    });
    connect(daemon, &QTcpSocket::readyRead, client,
            [this, client, daemon] { reply(client, daemon->readAll()); });
}

void Proxy::reply(QTcpSocket* to, const QByteArray& bytes)
{
    if (m_mute)
        return;
    QTimer::singleShot(m_delay, to, [to, bytes] { to->write(bytes); });
}

void Proxy::cut(bool again)
{
    const QList<QTcpSocket*> all = m_server.findChildren<QTcpSocket*>(QString(), Qt::FindDirectChildrenOnly);
    for (QTcpSocket* client : all)
        client->abort();
    if (!again)
        m_server.close();
}
