#include "comparison.h"

#include <valgrind/callgrind.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace {

Spread spreadOf(std::vector<double> numbers)
{
    std::sort(numbers.begin(), numbers.end());
    return {numbers[numbers.size() / 2], numbers.front(), numbers.back()};
}

// The process's own time does not count what other programs take meanwhile. All
// its threads count: Qt Quick loads its types in one of its own.
double processorSeconds()
{
    timespec now;
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return double(now.tv_sec) + double(now.tv_nsec) * 1e-9;
}

void runOnce(const Work& work)
{
    work.before();
    work.run();
    work.after();
}

[[noreturn]] void countRun(const Work& work, const std::string& name)
{
    CALLGRIND_START_INSTRUMENTATION;
    CALLGRIND_ZERO_STATS;
    work.run();
    CALLGRIND_DUMP_STATS_AT(name.c_str());
    CALLGRIND_STOP_INSTRUMENTATION;
    std::_Exit(EXIT_SUCCESS);
}

// In a process of its own: the switch discards all code that valgrind has translated,
// and here the next preparation still needs it.
void countSide(const Work& work, const std::string& name)
{
    runOnce(work);
    work.before();
    const pid_t child = fork();
    if (child == 0)
        countRun(work, name);
    int status = -1;
    if (child < 0 || waitpid(child, &status, 0) != child || status != 0) {
        std::fprintf(stderr, "%s could not be counted\n", name.c_str());
        std::exit(EXIT_FAILURE);
    }
    work.run();
    work.after();
}

} // namespace

void countInstructions(const Comparison& comparison, const char* name)
{
    countSide(comparison.floor, std::string(name) + " floor");
    countSide(comparison.ours, std::string(name) + " ours");
}

double timeOf(const Work& work)
{
    work.before();
    const double start = processorSeconds();
    work.run();
    const double end = processorSeconds();
    work.after();
    return end - start;
}

Timing compareTimes(const Comparison& comparison, int rounds)
{
    runOnce(comparison.floor);
    runOnce(comparison.ours);
    std::vector<double> floors;
    std::vector<double> ours;
    std::vector<double> ratios;
    for (int round = 0; round < rounds; ++round) {
        floors.push_back(timeOf(comparison.floor));
        ours.push_back(timeOf(comparison.ours));
        ratios.push_back(ours.back() / floors.back());
    }
    return {spreadOf(ratios), spreadOf(floors).median, spreadOf(ours).median};
}
