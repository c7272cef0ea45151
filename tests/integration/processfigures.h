#ifndef ZORVA_TESTS_PROCESSFIGURES_H
#define ZORVA_TESTS_PROCESSFIGURES_H

#include <QString>

/// What this process costs the machine.
namespace ProcessFigures {

/// Memory that the process holds, in bytes.
qint64 residentBytes();
/// The most it held since resetPeak(), in bytes.
qint64 peakBytes();
void resetPeak();
/// Bytes that the program has allocated and not freed. 0 where an instrumented
/// build keeps its own accounts.
qint64 allocatedBytes();
/// Processor time of the process, in microseconds.
qint64 processorMicroseconds();
/// How much longer things may take in this build: more than 1 under sanitizers.
int slowness();
/// How much more memory things may take in this build.
int bulkiness();

} // namespace ProcessFigures

/// Measures from its construction on.
class CostMeter
{
public:
    CostMeter();

    /// Of processor time: what else the machine has to do does not count.
    qint64 milliseconds() const;
    /// The most memory held above what was held at the start, in bytes.
    qint64 extraPeakBytes() const;
    /// Empty if both stayed within bounds, else what went over. The bounds are
    /// those of an ordinary build.
    QString excess(qint64 allowedMilliseconds, qint64 allowedMegabytes) const;

private:
    qint64 m_processorAtStart; // microseconds
    qint64 m_residentAtStart;
};

#endif
