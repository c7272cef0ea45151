#include "comparisons.h"

#include <benchmark/benchmark.h>

#include <QApplication>

#include <string>

namespace {

void measure(benchmark::State& state, const ComparisonKind& kind, bool ours)
{
    const int rows = int(state.range(0));
    const Comparison comparison = kind.make(Load::ofSize(rows));
    const Work& work = ours ? comparison.ours : comparison.floor;
    timeOf(work);
    for (auto _ : state)
        state.SetIterationTime(timeOf(work));
    state.counters["per row"] =
        benchmark::Counter(rows, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

void enter(const ComparisonKind& kind, bool ours)
{
    const std::string name = std::string(kind.name) + (ours ? "/ours" : "/theirs");
    benchmark::RegisterBenchmark(name.c_str(),
                                 [&kind, ours](benchmark::State& state) { measure(state, kind, ours); })
        ->Arg(10)
        ->Arg(30)
        ->Arg(100)
        ->Arg(1000)
        ->Arg(10000)
        ->UseManualTime()
        ->Unit(benchmark::kMicrosecond);
}

} // namespace

int main(int argc, char* argv[])
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    for (const ComparisonKind& kind : comparisonKinds()) {
        if (!isAvailable(kind))
            continue;
        enter(kind, false);
        enter(kind, true);
    }
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
