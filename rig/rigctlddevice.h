#ifndef ZORVA_RIG_RIGCTLDDEVICE_H
#define ZORVA_RIG_RIGCTLDDEVICE_H

#include "rigdevice.h"

#include <QByteArray>
#include <QString>

#include <atomic>

namespace radio {

/** Where a rigctld listens. */
struct Endpoint
{
    QString host = QStringLiteral("127.0.0.1");
    quint16 port = 4532;

    /** From "host:port", "[address]:port" or "host"; false and as it was if that is neither. */
    static bool parse(const QString& text, Endpoint* endpoint);
};

/**
 * A connection to a rigctld, line by line. Every wait has an end, and interrupt()
 * ends it at once.
 */
class RigctldConnection
{
public:
    RigctldConnection();
    ~RigctldConnection();
    RigctldConnection(const RigctldConnection&) = delete;
    RigctldConnection& operator=(const RigctldConnection&) = delete;

    /** @p patience is for each later wait, too, in milliseconds. */
    bool open(const Endpoint& endpoint, int patience);
    void close();
    bool send(const QByteArray& line);
    /** One line without its end; false if none came in time or the other side is gone. */
    bool receive(QByteArray* line);
    /** From any thread, and for good. */
    void interrupt();
    /** Why the last call failed. */
    QString error() const { return m_error; }

private:
    bool fail(const QString& why);
    bool waitFor(short events);
    bool connectTo(int socket, const void* address, unsigned length);

    int m_socket = -1; // owned
    int m_wakeRead = -1;
    int m_wakeWrite = -1;
    int m_patience = 2000;
    std::atomic<bool> m_interrupted{false};
    QByteArray m_buffer;
    QString m_error;
};

/**
 * A radio behind a rigctld, in its extended protocol, whose answers repeat the
 * command: one that comes late is never taken for the answer to another.
 */
class RigctldDevice : public RigDevice
{
public:
    RigctldDevice(const Endpoint& endpoint, const QList<Parameter>& parameters, int patience = 2000);

    hostkit::Answer open() override;
    void close() override;
    void interrupt() override;

    /** The model that the daemon at @p endpoint drives; 0, and why, if it does not tell. */
    static rig_model_t modelAt(const Endpoint& endpoint, int patience, QString* error);

protected:
    hostkit::Answer get(const Parameter& parameter) override;
    hostkit::Answer set(const Parameter& parameter, const QString& text) override;

private:
    hostkit::Answer ask(const QString& command, QStringList* lines);

    const Endpoint m_endpoint;
    const int m_patience;
    RigctldConnection m_connection;
};

} // namespace radio

#endif
