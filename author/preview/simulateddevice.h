#ifndef ZORVA_AUTHOR_SIMULATEDDEVICE_H
#define ZORVA_AUTHOR_SIMULATEDDEVICE_H

#include <hostkit/device.h>

#include <QMap>
#include <QString>

#include <condition_variable>
#include <mutex>

namespace Orvane {
namespace Author {

/** A device in memory that treats requests as it is told to. All calls may come from any thread. */
class SimulatedDevice : public hostkit::Device
{
public:
    enum Manner {
        Confirms, // takes what is asked for, at once
        Delays,   // takes it after a while
        Refuses,  // says no to every request
        Ignores   // says yes, and keeps what it has
    };

    /** @p values by parameter, as texts. */
    explicit SimulatedDevice(const QMap<QString, QString>& values);

    void setManner(Manner manner);
    /** Milliseconds that it takes its time when it delays. */
    void setDelay(int milliseconds);
    /** Somebody turns a knob at the device. */
    void set(const QString& parameter, const QString& text);
    QMap<QString, QString> values() const;

    hostkit::Answer open() override;
    void close() override;
    hostkit::Answer write(const QString& parameter, const QString& text) override;
    hostkit::Answer read(const QString& parameter) override;
    void interrupt() override;

private:
    mutable std::mutex m_mutex; // for all that follows
    std::condition_variable m_ended;
    QMap<QString, QString> m_values;
    Manner m_manner = Confirms;
    int m_delay = 1500;
    bool m_isOver = false;
};

} // namespace Author
} // namespace Orvane

#endif
