#ifndef ZORVA_HOSTKIT_DEVICE_H
#define ZORVA_HOSTKIT_DEVICE_H

#include <hostkit/hostkit_export.h>

#include <QString>
#include <QStringList>

namespace hostkit {

/** What a device said to a call. */
struct Answer
{
    /** How a call ended. */
    enum Outcome {
        Done,    ///< carried out; a reading's text is in `text`
        Refused, ///< the device answers, but not to this; its words are in `text`
        Lost     ///< the device does not answer, or not sensibly; why is in `text`
    };

    /** The answer of that outcome, with its text. */
    static Answer done(const QString& text = QString()) { return {Done, text}; }
    static Answer refused(const QString& why) { return {Refused, why}; } ///< Likewise.
    static Answer lost(const QString& why) { return {Lost, why}; }       ///< Likewise.

    Outcome outcome = Done; ///< how the call ended
    QString text;           ///< what the outcome says is in it
};

/**
 * A device as DeviceLink drives it: all calls but interrupt() come from the
 * link's own thread, one at a time, and may take their time. Parameters are named
 * by their path in parameter XML, values are the text that stands there.
 */
class HOSTKIT_EXPORT Device
{
public:
    virtual ~Device();

    /** Makes the connection. Anything but Done is tried again later. */
    virtual Answer open() = 0;
    /** Ends the connection, also a lost one; nothing without one. */
    virtual void close() = 0;
    /** Sets a parameter to the text. */
    virtual Answer write(const QString& parameter, const QString& text) = 0;
    /** Done with a null text: the parameter has no meaning at present and its row stays as it is. */
    virtual Answer read(const QString& parameter) = 0;
    /** Parameters that a write of @p parameter may change as well; they are read right after it. */
    virtual QStringList affectedBy(const QString& parameter) const;
    /**
     * Makes a call that is under way return soon, if that can be done, and every
     * later one at once. Comes from the GUI's thread.
     */
    virtual void interrupt();
};

} // namespace hostkit

#endif
