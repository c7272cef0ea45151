#include "rigctld.h"

#include <QTcpServer>

#include <csignal>

namespace {

constexpr int longEnough = 20000; // milliseconds, on a machine with other work

quint16 freePort()
{
    QTcpServer server;
    return server.listen(QHostAddress::LocalHost) ? server.serverPort() : quint16(0);
}

} // namespace

Rigctld::Rigctld()
    : m_port(freePort())
{
    m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
}

Rigctld::~Rigctld()
{
    kill();
}

bool Rigctld::start()
{
    m_process.start(QStringLiteral("rigctld"),
                    {QStringLiteral("-m"), QStringLiteral("1"), QStringLiteral("-T"),
                     QStringLiteral("127.0.0.1"), QStringLiteral("-t"), QString::number(m_port)});
    if (!m_process.waitForStarted(longEnough))
        return false;
    for (int attempt = 0; attempt < 400 && m_process.state() == QProcess::Running; ++attempt) {
        QTcpSocket probe;
        probe.connectToHost(QHostAddress::LocalHost, m_port);
        if (probe.waitForConnected(longEnough))
            return true;
        m_process.waitForFinished(50);
    }
    return false;
}

void Rigctld::kill()
{
    if (m_process.state() == QProcess::NotRunning)
        return;
    m_process.kill();
    m_process.waitForFinished(longEnough);
}

void Rigctld::signal(int number) const
{
    if (m_process.state() == QProcess::Running)
        ::kill(static_cast<pid_t>(m_process.processId()), number);
}

void Rigctld::freeze()
{
    signal(SIGSTOP);
}

void Rigctld::thaw()
{
    signal(SIGCONT);
}

QString Rigctld::rigctl(const QStringList& command) const
{
    QProcess client;
    client.start(QStringLiteral("rigctl"),
                 QStringList{QStringLiteral("-m"), QStringLiteral("2"), QStringLiteral("-r"), address()} +
                     command);
    if (!client.waitForFinished(longEnough) || client.exitCode() != 0)
        return QStringLiteral("failed");
    return QString::fromLatin1(client.readAllStandardOutput()).trimmed();
}

bool RigctlClient::open(quint16 port)
{
    m_socket.connectToHost(QHostAddress::LocalHost, port);
    return m_socket.waitForConnected(longEnough);
}

QStringList RigctlClient::ask(const QString& command)
{
    m_socket.write("+\\" + command.toLatin1() + '\n');
    QStringList lines;
    do {
        while (!m_socket.canReadLine()) {
            if (!m_socket.waitForReadyRead(longEnough))
                return {};
        }
        lines.append(QString::fromLatin1(m_socket.readLine()).trimmed());
    } while (!lines.last().startsWith(QLatin1String("RPRT")));
    return lines.mid(1);
}

QString RigctlClient::value(const QString& command)
{
    const QString line = ask(command).value(0);
    const int colon = line.indexOf(QLatin1String(": "));
    return colon < 0 ? line : line.mid(colon + 2);
}
