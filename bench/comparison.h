#ifndef ZORVA_BENCH_COMPARISON_H
#define ZORVA_BENCH_COMPARISON_H

#include <functional>

/// One step to be measured; what goes before and after it is not timed.
struct Work
{
    std::function<void()> before = [] {};
    std::function<void()> run = [] {};
    std::function<void()> after = [] {};
};

/// The same step twice: the bare minimum (or a peer) and ours.
struct Comparison
{
    Work floor;
    Work ours;
};

struct Spread
{
    double median = 0.0;
    double least = 0.0;
    double most = 0.0;
};

struct Timing
{
    Spread ratio;       ///< ours / floor, of each round
    double floor = 0.0; ///< median in seconds
    double ours = 0.0;  ///< median in seconds
};

/// Instructions of one run each; needs valgrind, which collects them.
void countInstructions(const Comparison& comparison, const char* name);
/// One warm-up of each side, then rounds of floor and ours in turn.
Timing compareTimes(const Comparison& comparison, int rounds);
/// Seconds of processor time of one run, its preparation left out.
double timeOf(const Work& work);

#endif
