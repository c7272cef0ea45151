#ifndef ZORVA_HOSTKIT_DEVICELINK_H
#define ZORVA_HOSTKIT_DEVICELINK_H

#include <hostkit/device.h>
#include <hostkit/hostkit_export.h>
#include <hostkit/requestqueue.h>

#include <QList>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QTimer>

#include <memory>
#include <thread>

namespace hostkit {

/** How a link stands. */
enum class LinkState {
    Closed,  ///< not started, or stopped
    Opening, ///< on the way to the device for the first time
    Up,      ///< the device answers
    Slow,    ///< a call has been without an answer for long
    Down     ///< the device is gone; the link tries again by itself
};

/** What was read, or that it could not be read. */
struct Reading
{
    QString parameter;  ///< its path in parameter XML
    Answer answer;      ///< never Lost
    quint64 number = 0; ///< the last request for the parameter that was carried out before; 0 for none
};

/**
 * A device behind a thread of its own, so that the GUI's thread never waits for
 * it. Requests are sent in order and read back at once; between them parameters
 * are read in turn, and readings that are new are told. A link that is lost is
 * made anew, with growing pauses; requests not sent by then are given back and
 * never sent by themselves. Lives on the GUI's thread.
 */
class HOSTKIT_EXPORT DeviceLink : public QObject
{
    Q_OBJECT

public:
    /** The link and its thread share @p device, which must not be null. */
    explicit DeviceLink(std::shared_ptr<Device> device, QObject* parent = nullptr);
    /** Stops as stop() does. */
    ~DeviceLink() override;

    /**
     * What is read in turn: @p live each time round, of @p others a share that
     * takes a good part of @p interval (milliseconds, the time of a round).
     * Before start() only.
     */
    void setPolled(const QStringList& live, const QStringList& others, int interval);
    /** The pause before a lost link is tried again: @p first, doubled up to @p last (milliseconds). */
    void setPauses(int first, int last);
    /** How long (milliseconds) a call may be without an answer before the link counts as slow. */
    void setPatience(int patience);

    /** Starts the thread, which connects at once. Nothing if it runs. */
    void start();
    /**
     * Ends the thread, interrupting a call that hangs. A thread that is not back
     * within @p wait milliseconds is left to itself (false): it touches nothing but
     * the device any more, and the program may end without it.
     */
    bool stop(int wait = 700);

    /** Where the connection is. */
    LinkState state() const { return m_state; }
    /** Why the link is down; empty while it is up. */
    QString reason() const { return m_reason; }

    /** Asks for a parameter; the number tells the answers to older requests from this one's. */
    quint64 request(const QString& parameter, const QString& text);

Q_SIGNALS:
    /** The connection came, went or became slow; @p reason is empty while it is up. */
    void stateChanged(hostkit::LinkState state, const QString& reason);
    /** Readings that are new, that were asked for by a request, or the first since the link is up. */
    void read(const QList<hostkit::Reading>& readings);
    /** Everything has been read once since the link is up; told after what was read. */
    void readAll();
    /** The device does not take what request @p number asks for; a reading follows. */
    void refused(const QString& parameter, const QString& why, quint64 number);
    /** The link was lost before these were sent. */
    void givenBack(const QList<hostkit::Request>& requests);

private:
    class Worker;

    void takeNews();
    void setState(LinkState state, const QString& reason);
    void watchCall();

    std::shared_ptr<Worker> m_worker; // shared with the thread, which may outlive this
    std::thread m_thread;
    QTimer m_watch;
    LinkState m_state = LinkState::Closed;
    LinkState m_beforeSlow = LinkState::Up;
    QString m_reason;
    int m_patience = 1500;
};

} // namespace hostkit

Q_DECLARE_METATYPE(hostkit::LinkState)

#endif
