#ifndef ZORVA_HOSTKIT_REQUESTQUEUE_H
#define ZORVA_HOSTKIT_REQUESTQUEUE_H

#include <hostkit/hostkit_export.h>

#include <QHash>
#include <QList>
#include <QMap>
#include <QString>

namespace hostkit {

/** What somebody wants a parameter of a device to become. */
struct Request
{
    QString parameter;  ///< its path in parameter XML
    QString text;       ///< what it is to become
    quint64 number = 0; ///< counts all requests of a queue from 1; tells an older from a newer one
};

/**
 * Requests that wait to be sent, in the order in which their parameters were
 * first asked for. A newer request for a parameter takes the place of an older
 * one that has not been sent. Not for several threads at once: DeviceLink holds
 * one below its own lock.
 */
class HOSTKIT_EXPORT RequestQueue
{
public:
    /** The number of the new request. */
    quint64 put(const QString& parameter, const QString& text);
    /** Takes the oldest out; false, and @p request (not null) as it was, if there is none. */
    bool take(Request* request);
    /** Takes all out, oldest first. */
    QList<Request> withdraw();

    /** Whether requests wait, and how many. */
    bool isEmpty() const { return m_waiting.isEmpty(); }
    int count() const { return m_waiting.size(); } ///< Likewise.
    /** Whether a request for @p parameter waits. */
    bool contains(const QString& parameter) const { return m_places.contains(parameter); }

private:
    quint64 m_lastNumber = 0;
    quint64 m_lastPlace = 0;
    QMap<quint64, Request> m_waiting; // by place
    QHash<QString, quint64> m_places;
};

} // namespace hostkit

#endif
