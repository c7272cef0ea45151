#include "processfigures.h"

#include <QByteArray>
#include <QFile>
#include <QtDebug>

#include <ctime>

#include <malloc.h>

#if defined(__SANITIZE_ADDRESS__)
#define ZORVA_INSTRUMENTED 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define ZORVA_INSTRUMENTED 1
#endif
#endif

namespace {

#ifdef ZORVA_INSTRUMENTED
constexpr bool isInstrumented = true;
#else
constexpr bool isInstrumented = false;
#endif

/// A line of /proc/self/status, in bytes; 0 if there is none.
qint64 statusBytes(const QByteArray& name)
{
    QFile file(QStringLiteral("/proc/self/status"));
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    const QList<QByteArray> lines = file.readAll().split('\n');
    for (const QByteArray& line : lines) {
        if (line.startsWith(name + ':'))
            return line.mid(name.size() + 1).trimmed().split(' ').first().toLongLong() * 1024;
    }
    return 0;
}

} // namespace

namespace ProcessFigures {

qint64 residentBytes()
{
    return statusBytes("VmRSS");
}

qint64 peakBytes()
{
    return statusBytes("VmHWM");
}

void resetPeak()
{
    malloc_trim(0);
    QFile file(QStringLiteral("/proc/self/clear_refs"));
    if (file.open(QIODevice::WriteOnly))
        file.write("5");
}

qint64 allocatedBytes()
{
    if (isInstrumented)
        return 0;
    const struct mallinfo2 figures = mallinfo2();
    return static_cast<qint64>(figures.uordblks) + static_cast<qint64>(figures.hblkhd);
}

qint64 processorMicroseconds()
{
    timespec spent = {};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &spent);
    return qint64(spent.tv_sec) * 1000000 + spent.tv_nsec / 1000;
}

int slowness()
{
    return isInstrumented ? 8 : 1;
}

int bulkiness()
{
    return isInstrumented ? 5 : 1;
}

} // namespace ProcessFigures

CostMeter::CostMeter()
{
    ProcessFigures::resetPeak();
    m_residentAtStart = ProcessFigures::residentBytes();
    m_processorAtStart = ProcessFigures::processorMicroseconds();
}

qint64 CostMeter::milliseconds() const
{
    return (ProcessFigures::processorMicroseconds() - m_processorAtStart) / 1000;
}

qint64 CostMeter::extraPeakBytes() const
{
    return ProcessFigures::peakBytes() - m_residentAtStart;
}

QString CostMeter::excess(qint64 allowedMilliseconds, qint64 allowedMegabytes) const
{
    const qint64 took = milliseconds();
    const qint64 megabytes = extraPeakBytes() / (1024 * 1024);
    qInfo("%lld ms, at most %lld MB more", took, megabytes);
    if (took > allowedMilliseconds * ProcessFigures::slowness())
        return QStringLiteral("took %1 ms, allowed are %2").arg(took).arg(allowedMilliseconds);
    if (megabytes > allowedMegabytes * ProcessFigures::bulkiness())
        return QStringLiteral("held %1 MB more, allowed are %2").arg(megabytes).arg(allowedMegabytes);
    return QString();
}
