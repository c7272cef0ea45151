#ifndef ZORVA_TESTS_PROCESSORCOST_H
#define ZORVA_TESTS_PROCESSORCOST_H

#include <algorithm>
#include <ctime>

/// Nanoseconds of this thread's processor time that `work` takes: however busy the machine is, what
/// others do meanwhile does not count. For claims on growth, with a wide margin for caches.
template <typename Work>
double processorCost(Work work)
{
    const auto spent = [] {
        timespec time = {};
        clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
        return double(time.tv_sec) * 1e9 + double(time.tv_nsec);
    };
    const double before = spent();
    work();
    return spent() - before;
}

/// The least of five measures: what disturbs one only ever adds to it.
template <typename Measure>
double leastOf(Measure measure)
{
    double least = measure();
    for (int i = 1; i < 5; ++i)
        least = std::min(least, double(measure()));
    return least;
}

#endif
