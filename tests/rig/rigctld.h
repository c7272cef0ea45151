#ifndef ZORVA_TESTS_RIGCTLD_H
#define ZORVA_TESTS_RIGCTLD_H

#include <QProcess>
#include <QString>
#include <QStringList>
#include <QTcpSocket>

/// Hamlib's daemon with its dummy radio on a free port of the loopback address.
/// It goes with this object.
class Rigctld
{
public:
    Rigctld();
    ~Rigctld();
    Rigctld(const Rigctld&) = delete;
    Rigctld& operator=(const Rigctld&) = delete;

    /// False if it does not come up.
    bool start();
    /// At once, as if it had crashed.
    void kill();
    /// It exists, and does nothing.
    void freeze();
    void thaw();

    quint16 port() const { return m_port; }
    QString address() const { return QStringLiteral("127.0.0.1:%1").arg(m_port); }

    /// What Hamlib's own client says to a command; "failed" if it fails.
    QString rigctl(const QStringList& command) const;

private:
    void signal(int number) const;

    QProcess m_process;
    quint16 m_port = 0;
};

/// A client that speaks the daemon's protocol by itself, for many commands.
class RigctlClient
{
public:
    /// False if the daemon does not answer.
    bool open(quint16 port);
    /// The lines of the answer without the echo; the last one is "RPRT 0" if all is well.
    QStringList ask(const QString& command);
    /// The first line of the answer, without its name.
    QString value(const QString& command);

private:
    QTcpSocket m_socket;
};

#endif
