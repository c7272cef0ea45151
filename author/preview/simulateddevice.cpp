#include "simulateddevice.h"

#include <chrono>

namespace Orvane {
namespace Author {

using hostkit::Answer;
using Lock = std::unique_lock<std::mutex>;

SimulatedDevice::SimulatedDevice(const QMap<QString, QString>& values)
    : m_values(values)
{
}

void SimulatedDevice::setManner(Manner manner)
{
    const Lock lock(m_mutex);
    m_manner = manner;
}

void SimulatedDevice::setDelay(int milliseconds)
{
    const Lock lock(m_mutex);
    m_delay = milliseconds;
}

void SimulatedDevice::set(const QString& parameter, const QString& text)
{
    const Lock lock(m_mutex);
    m_values.insert(parameter, text);
}

QMap<QString, QString> SimulatedDevice::values() const
{
    const Lock lock(m_mutex);
    return m_values;
}

Answer SimulatedDevice::open()
{
    return Answer::done();
}

void SimulatedDevice::close() {}

Answer SimulatedDevice::write(const QString& parameter, const QString& text)
{
    Lock lock(m_mutex);
    if (m_manner == Delays)
        m_ended.wait_for(lock, std::chrono::milliseconds(m_delay), [this] { return m_isOver; });
    if (m_isOver)
        return Answer::lost(QStringLiteral("the device was switched off"));
    if (m_manner == Refuses)
        return Answer::refused(QStringLiteral("the simulated device refuses everything"));
    if (m_manner != Ignores)
        m_values.insert(parameter, text);
    return Answer::done();
}

Answer SimulatedDevice::read(const QString& parameter)
{
    const Lock lock(m_mutex);
    const auto value = m_values.constFind(parameter);
    return value == m_values.cend() ? Answer::refused(QStringLiteral("the device has no such value"))
                                    : Answer::done(*value);
}

void SimulatedDevice::interrupt()
{
    const Lock lock(m_mutex);
    m_isOver = true;
    m_ended.notify_all();
}

} // namespace Author
} // namespace Orvane
