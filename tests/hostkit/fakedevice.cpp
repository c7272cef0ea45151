#include "fakedevice.h"

#include <chrono>

using hostkit::Answer;

using Lock = std::unique_lock<std::mutex>;

// False if the device does not answer.
bool FakeDevice::pass(Lock& lock)
{
    m_waiting = true;
    m_changed.notify_all();
    m_changed.wait(lock, [this] { return !m_held || (m_interrupted && !m_stubborn); });
    m_waiting = false;
    return !m_broken && !m_interrupted;
}

Answer FakeDevice::open()
{
    Lock lock(m_mutex);
    ++m_opens;
    return pass(lock) ? Answer::done() : Answer::lost(QStringLiteral("nobody there"));
}

void FakeDevice::close() {}

Answer FakeDevice::write(const QString& parameter, const QString& text)
{
    Lock lock(m_mutex);
    if (!pass(lock))
        return Answer::lost(QStringLiteral("gone"));
    m_writes.append(parameter + QLatin1Char('=') + text);
    if (m_refused.contains(parameter))
        return Answer::refused(m_refused.value(parameter));
    m_values.insert(parameter, m_bent.value(text, text));
    return Answer::done();
}

Answer FakeDevice::read(const QString& parameter)
{
    Lock lock(m_mutex);
    if (!pass(lock))
        return Answer::lost(QStringLiteral("gone"));
    if (!m_values.contains(parameter))
        return Answer::refused(QStringLiteral("no such thing"));
    return Answer::done(m_values.value(parameter));
}

void FakeDevice::interrupt()
{
    const Lock lock(m_mutex);
    m_interrupted = true;
    m_changed.notify_all();
}

void FakeDevice::set(const QString& parameter, const QString& text)
{
    const Lock lock(m_mutex);
    m_values.insert(parameter, text);
}

QString FakeDevice::value(const QString& parameter) const
{
    const Lock lock(m_mutex);
    return m_values.value(parameter);
}

QStringList FakeDevice::writes() const
{
    const Lock lock(m_mutex);
    return m_writes;
}

int FakeDevice::opens() const
{
    const Lock lock(m_mutex);
    return m_opens;
}

void FakeDevice::bend(const QString& wanted, const QString& taken)
{
    const Lock lock(m_mutex);
    m_bent.insert(wanted, taken);
}

void FakeDevice::refuse(const QString& parameter, const QString& why)
{
    const Lock lock(m_mutex);
    m_refused.insert(parameter, why);
}

void FakeDevice::breakDown()
{
    const Lock lock(m_mutex);
    m_broken = true;
}

void FakeDevice::repair()
{
    const Lock lock(m_mutex);
    m_broken = false;
}

void FakeDevice::hold(bool stubborn)
{
    const Lock lock(m_mutex);
    m_held = true;
    m_stubborn = stubborn;
}

void FakeDevice::release()
{
    const Lock lock(m_mutex);
    m_held = false;
    m_changed.notify_all();
}

bool FakeDevice::waitForCall()
{
    Lock lock(m_mutex);
    return m_changed.wait_for(lock, std::chrono::seconds(5), [this] { return m_held && m_waiting; });
}
