#ifndef ZORVA_TESTS_FAKEDEVICE_H
#define ZORVA_TESTS_FAKEDEVICE_H

#include <hostkit/device.h>

#include <QMap>
#include <QString>
#include <QStringList>

#include <condition_variable>
#include <mutex>

/// A device in memory that a test turns knobs of, breaks and holds up. All
/// calls may come from any thread.
class FakeDevice : public hostkit::Device
{
public:
    hostkit::Answer open() override;
    void close() override;
    hostkit::Answer write(const QString& parameter, const QString& text) override;
    hostkit::Answer read(const QString& parameter) override;
    void interrupt() override;

    /// The knob at the device.
    void set(const QString& parameter, const QString& text);
    QString value(const QString& parameter) const;
    /// The writes so far, as "parameter=text".
    QStringList writes() const;
    int opens() const;

    /// From now on a write of `wanted` makes the parameter `taken`.
    void bend(const QString& wanted, const QString& taken);
    /// From now on writes of the parameter are refused with `why`.
    void refuse(const QString& parameter, const QString& why);
    /// From now on no call is answered, and opening fails.
    void breakDown();
    void repair();
    /// Calls wait from now on until they are released; `stubborn` ones even when they are interrupted.
    void hold(bool stubborn = false);
    void release();
    /// True once a call waits; false if none does within the usual time of a test.
    bool waitForCall();

private:
    bool pass(std::unique_lock<std::mutex>& lock);

    mutable std::mutex m_mutex;
    std::condition_variable m_changed;
    QMap<QString, QString> m_values;
    QMap<QString, QString> m_bent;
    QMap<QString, QString> m_refused;
    QStringList m_writes;
    int m_opens = 0;
    bool m_broken = false;
    bool m_held = false;
    bool m_stubborn = false;
    bool m_interrupted = false;
    bool m_waiting = false;
};

#endif
