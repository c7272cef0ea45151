#include "allocations.h"
#include "comparisons.h"
#include "footprint.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QMap>
#include <QTextStream>

#include <cmath>
#include <limits>

namespace {

constexpr double none = 0.0;

/// A bar that a ratio (ours / theirs) has to stay below; 0 for none.
struct Goal
{
    const char* number;
    const char* comparison;
    int rows;
    double must;
    double stretch;
};

const std::vector<Goal>& timeGoals()
{
    static const std::vector<Goal> goals{
        {"1", "parse", 100, 1.20, 1.05},
        {"1", "parse", 1000, 1.20, 1.05},
        {"1", "parse", 10000, 1.20, 1.05},
        {"2", "parse-dom", 1000, 0.90, 0.75},
        {"2", "parse-dom", 10000, 0.55, 0.42},
        {"3", "parse-uiloader", 1000, 0.30, 0.25},
        {"4", "values", 1000, 1.2, 1.0},
        {"4", "values", 10000, 1.2, 1.0},
        {"5", "show", 10, 1.5, 1.2},
        {"5", "show", 100, 1.0, 0.85},
        {"5", "show", 1000, 0.85, 0.72},
        {"5", "show", 10000, 0.85, 0.72},
        {"6", "show-uiloader", 1000, 1 / 1.7, 1 / 2.1},
        {"6", "show-uiloader", 10000, 1 / 1.6, 1 / 1.9},
        {"7", "life-uiloader", 10, 0.9, 0.75},
        {"7", "life-uiloader", 100, 1.1, 0.95},
        {"7", "life-uiloader", 1000, 0.85, 0.72},
        {"7", "life-uiloader", 10000, 0.85, 0.72},
        {"8", "life-qml", 1000, 0.4, 0.3},
        {"8", "life-qml", 10000, 0.15, 0.1},
        {"9", "resize", 1000, 1.3, 1.1},
        {"9", "resize", 10000, 1.3, 0.9},
        {"11", "group", 10000, 2.0, 1.2},
        {"12", "collapse", 10000, 2.0, 1.3},
        {"12", "collapse-plain", 10000, 1 / 25.0, 1 / 50.0},
        {"12", "input", 10000, 2.0, 1.3},
        {"12", "input-plain", 10000, 1 / 25.0, 1 / 50.0},
        {"13", "write", 100, 1.6, 1.35},
        {"13", "write", 1000, 1.6, 1.35},
        {"13", "write", 10000, 1.6, 1.35},
        {"13", "write-protocol", 10000, 1.25, 1.0},
        {"14", "write-modified", 1000, 0.05, 0.02},
        {"14", "write-modified", 10000, 0.01, 0.002},
        {"15", "read", 100, 1.7, 1.4},
        {"15", "read", 1000, 1.7, 1.4},
        {"15", "read", 10000, 1.7, 1.4},
        {"15", "read-protocol", 10000, 1.25, 1.0},
        {"16", "read-shown", 10000, 2.0, 1.3},
        {"16", "read-shown-plain", 10000, 1 / 20.0, 1 / 35.0},
        {"17", "parse-flat", 10000, 1.3, 1.1},
        {"17", "parse-perrow", 10000, 1.3, 1.1},
        {"17", "read-flat", 10000, 1.3, 1.1},
        {"17", "read-perrow", 10000, 1.25, 1.1},
        {"20", "formular", 10, 1.15, none},
        {"21", "spins", 1000, 1.3, 1.1},
        {"22", "teardown", 1000, 1.2, 1.05},
        {"22", "teardown", 10000, 1.2, 1.05},
        {"edit", "edit", 10000, 1.5, 1.1},
        {"edit", "edit-painted", 10000, 3.0, 1.5},
    };
    return goals;
}

/// Ten times the rows may cost this much more time and memory.
constexpr double mostGrowth = 12.0;

struct Options
{
    QList<int> rows;
    QStringList only;
    int rounds = 0; // 0: fifteen, five at 10,000 rows
};

QTextStream& out()
{
    static QTextStream stream(stdout);
    return stream;
}

QString figure(double number)
{
    return QString::number(number, 'f', number < 0.1 ? 3 : 2);
}

QString duration(double seconds)
{
    if (seconds < 1e-3)
        return QString::number(seconds * 1e6, 'f', seconds < 1e-5 ? 2 : 0) + QStringLiteral(" us");
    return QString::number(seconds * 1e3, 'f', seconds < 1e-2 ? 2 : 0) + QStringLiteral(" ms");
}

QString verdict(double measured, double must, double stretch)
{
    if (stretch > 0.0 && measured <= stretch)
        return QStringLiteral("stretch");
    if (must <= 0.0)
        return QString();
    return measured <= must ? QStringLiteral("must") : QStringLiteral("**missed**");
}

QString bar(double limit)
{
    return limit > 0.0 ? figure(limit) : QString();
}

bool isWanted(const Options& options, const char* name)
{
    return options.only.isEmpty() || options.only.contains(QLatin1String(name));
}

/// A single round of what takes minutes: nothing but the order of magnitude is asked there.
int roundsFor(const Options& options, const ComparisonKind& kind, int rows)
{
    const QLatin1String name(kind.name);
    if (rows >= 10000 && (name.endsWith(QLatin1String("-plain")) || name == QLatin1String("life-qml")))
        return 1;
    if (options.rounds > 0)
        return options.rounds;
    return rows >= 10000 ? 5 : 15;
}

using Timings = QMap<QPair<QString, int>, Timing>;

Timings measureAll(const Options& options)
{
    Timings timings;
    for (const ComparisonKind& kind : comparisonKinds()) {
        for (const int rows : options.rows) {
            if (!isWanted(options, kind.name) || !isAvailable(kind))
                continue;
            const Comparison comparison = kind.make(Load::ofSize(rows));
            timings[{QLatin1String(kind.name), rows}] =
                compareTimes(comparison, roundsFor(options, kind, rows));
            QTextStream(stderr) << kind.name << ' ' << rows << '\n';
        }
    }
    return timings;
}

void printGoals(const Timings& timings)
{
    out() << "| # | ours / theirs | rows | must | stretch | measured [min, max] | verdict |\n"
          << "|---|---|---|---|---|---|---|\n";
    for (const Goal& goal : timeGoals()) {
        const QString name = QLatin1String(goal.comparison);
        const auto found = timings.constFind({name, goal.rows});
        if (found == timings.constEnd())
            continue;
        const Spread& ratio = found->ratio;
        out() << "| " << goal.number << " | " << findComparison(name)->title << " | " << goal.rows << " | "
              << bar(goal.must) << " | " << bar(goal.stretch) << " | " << figure(ratio.median) << " ["
              << figure(ratio.least) << ", " << figure(ratio.most) << "] | "
              << verdict(ratio.median, goal.must, goal.stretch) << " |\n";
    }
    out() << '\n';
}

void printTimes(const Timings& timings)
{
    out() << "| ours / theirs | rows | theirs | ours | ratio [min, max] |\n|---|---|---|---|---|\n";
    for (const ComparisonKind& kind : comparisonKinds()) {
        for (auto timing = timings.cbegin(); timing != timings.cend(); ++timing) {
            if (timing.key().first != QLatin1String(kind.name))
                continue;
            const Spread& ratio = timing->ratio;
            out() << "| " << kind.title << " | " << timing.key().second << " | " << duration(timing->floor)
                  << " | " << duration(timing->ours) << " | " << figure(ratio.median) << " ["
                  << figure(ratio.least) << ", " << figure(ratio.most) << "] |\n";
        }
    }
    out() << '\n';
}

void printGrowth(const Timings& timings)
{
    out() << "| ours, ten times the rows | to 100 | to 1000 | to 10,000 | theirs, worst | verdict |\n"
          << "|---|---|---|---|---|---|\n";
    for (const ComparisonKind& kind : comparisonKinds()) {
        const QString name = QLatin1String(kind.name);
        QString line;
        bool grown = false;
        double theirs = 0.0;
        for (const int rows : {100, 1000, 10000}) {
            const auto less = timings.constFind({name, rows / 10});
            const auto more = timings.constFind({name, rows});
            if (less != timings.constEnd() && more != timings.constEnd()) {
                const double factor = more->ours / less->ours;
                grown = grown || factor > mostGrowth;
                theirs = qMax(theirs, more->floor / less->floor);
                line += figure(factor);
            }
            line += QStringLiteral(" | ");
        }
        if (theirs > 0.0)
            out() << "| " << kind.title << " | " << line << figure(theirs) << " | "
                  << (grown ? "**more than 12**" : "at most 12") << " |\n";
    }
    out() << '\n';
}

struct Bound
{
    const char* number;
    QString what;
    double measured;
    double must;
    double stretch;
};

void printBounds(const std::vector<Bound>& bounds)
{
    out() << "| # | what | must | stretch | measured | verdict |\n|---|---|---|---|---|---|\n";
    for (const Bound& bound : bounds) {
        out() << "| " << bound.number << " | " << bound.what << " | " << bar(bound.must) << " | "
              << bar(bound.stretch) << " | " << figure(bound.measured) << " | "
              << verdict(bound.measured, bound.must, bound.stretch) << " |\n";
    }
    out() << '\n';
}

std::vector<Bound> arrangementBounds(const Timings& timings)
{
    std::vector<Bound> bounds;
    for (const int rows : {1000, 10000}) {
        const auto found = timings.constFind({QStringLiteral("arrange"), rows});
        if (found != timings.constEnd())
            bounds.push_back({"10", QStringLiteral("nanoseconds a row, one arrangement of %1 rows").arg(rows),
                              found->ours * 1e9 / rows, 50.0, 30.0});
    }
    const Arrangements counted = countArrangements(1000);
    bounds.push_back({"10", QStringLiteral("arrangements per resize"), double(counted.perResize), 1.0, 1.0});
    bounds.push_back(
        {"11", QStringLiteral("arrangements per group toggled"), double(counted.perGroup), 1.0, none});
    return bounds;
}

void printMemory(int rows)
{
    QMap<QString, Footprint> prints;
    out() << "| memory at " << rows
          << " rows | heap per row | resident per row | heap of a tenth of the rows | grown "
             "|\n|---|---|---|---|---|\n";
    for (const QString& name : footprintNames()) {
        prints[name] = takeFootprint(name, rows);
        const Footprint tenth = takeFootprint(name, rows / 10);
        const double growth = double(prints[name].heap) / double(tenth.heap);
        out() << "| " << name << " | " << prints[name].heap / rows << " B | " << prints[name].resident / rows
              << " B | " << tenth.heap * 10 / rows << " B | " << figure(growth) << ", "
              << (growth > mostGrowth ? "**more than 12**" : "at most 12") << " |\n";
    }
    out() << '\n';
    const auto heap = [&](const char* name) { return double(prints[QLatin1String(name)].heap); };
    const auto resident = [&](const char* name) { return double(prints[QLatin1String(name)].resident); };
    printBounds({{"19", QStringLiteral("heap, parsed / parse floor"),
                  heap("ours-parsed") / heap("floor-parsed"), 1.35, 1.2},
                 {"19", QStringLiteral("heap, whole form / floor, values and hand-built form"),
                  heap("ours-whole") / heap("floor-whole"), 1.1, 1.05},
                 {"19", QStringLiteral("heap of a whole form, KB a row"), heap("ours-whole") / rows / 1000,
                  10.5, 9.5},
                 {"19", QStringLiteral("resident, whole form / QUiLoader"),
                  resident("ours-whole") / resident("uiloader-whole"), 0.95, 0.8}});
}

/// What repeats is counted: forms with a window too, if somebody asks for them by name.
bool isCounted(const Options& options, const ComparisonKind& kind)
{
    return options.only.isEmpty() ? kind.counted : isWanted(options, kind.name);
}

template <typename Count>
void countAll(const Options& options, Count count)
{
    for (const ComparisonKind& kind : comparisonKinds()) {
        for (const int rows : options.rows) {
            if (isCounted(options, kind) && isAvailable(kind))
                count(kind.make(Load::ofSize(rows)), kind.name, rows);
        }
    }
}

void countInstructionsOf(const Comparison& comparison, const char* name, int rows)
{
    const QByteArray title = name + QByteArray(" ") + QByteArray::number(rows);
    countInstructions(comparison, title.constData());
}

void printAllocationsOf(const Comparison& comparison, const char* name, int rows)
{
    const Allocations counted = countAllocations(comparison);
    out() << name << ' ' << rows << ' ' << counted.floor << ' ' << counted.ours << '\n';
}

/// What is one number and no ratio.
void printCounts()
{
    const Arrangements counted = countArrangements(1000);
    out() << "arrangements-per-resize " << counted.perResize << '\n'
          << "arrangements-per-group " << counted.perGroup << '\n';
}

QList<int> numbers(const QString& text)
{
    QList<int> result;
    for (const QString& part : text.split(QLatin1Char(','), Qt::SkipEmptyParts))
        result.append(part.toInt());
    return result;
}

void runGoals(const Options& options, bool withMemory)
{
    const Timings timings = measureAll(options);
    printGoals(timings);
    if (isWanted(options, "arrange"))
        printBounds(arrangementBounds(timings));
    if (withMemory)
        printMemory(options.rows.last());
    printGrowth(timings);
    printTimes(timings);
}

} // namespace

int main(int argc, char* argv[])
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    QCommandLineParser parser;
    parser.addHelpOption();
    const QCommandLineOption rows(QStringLiteral("rows"), QStringLiteral("Sizes, ascending."),
                                  QStringLiteral("list"), QStringLiteral("10,30,100,1000,10000"));
    const QCommandLineOption only(QStringLiteral("only"), QStringLiteral("Comparisons by name."),
                                  QStringLiteral("list"));
    const QCommandLineOption rounds(QStringLiteral("rounds"), QStringLiteral("Rounds of each."),
                                    QStringLiteral("number"));
    const QCommandLineOption instructions(QStringLiteral("instructions"),
                                          QStringLiteral("One run each, for callgrind."));
    const QCommandLineOption allocations(QStringLiteral("allocations"),
                                         QStringLiteral("Blocks of memory that one run each asks for."));
    const QCommandLineOption counts(QStringLiteral("counts"), QStringLiteral("Arrangements."));
    const QCommandLineOption memory(QStringLiteral("memory"), QStringLiteral("Memory too."));
    const QCommandLineOption footprint(QStringLiteral("footprint"), QStringLiteral("Memory of one thing."),
                                       QStringLiteral("name"));
    const QCommandLineOption list(QStringLiteral("list"), QStringLiteral("Names of the comparisons."));
    parser.addOptions({rows, only, rounds, instructions, allocations, counts, memory, footprint, list});
    parser.process(application);

    Options options;
    options.rows = numbers(parser.value(rows));
    options.only = parser.value(only).split(QLatin1Char(','), Qt::SkipEmptyParts);
    options.rounds = parser.value(rounds).toInt();
    if (parser.isSet(list)) {
        for (const ComparisonKind& kind : comparisonKinds())
            out() << kind.name << "  " << kind.title << '\n';
    } else if (parser.isSet(footprint)) {
        return printFootprint(parser.value(footprint), options.rows.last());
    } else if (parser.isSet(instructions)) {
        countAll(options, countInstructionsOf);
    } else if (parser.isSet(allocations)) {
        countAll(options, printAllocationsOf);
    } else if (parser.isSet(counts)) {
        printCounts();
    } else {
        runGoals(options, parser.isSet(memory));
    }
    return 0;
}
