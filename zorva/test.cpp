#include "subcommand.h"
#include "terminal.h"

#include <author/files/wholefile.h>
#include <author/scenario/coverage.h>
#include <author/scenario/testreports.h>
#include <author/scenario/testrun.h>

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QFileInfo>
#include <QRegularExpression>
#include <QThread>

using namespace Orvane::Author;

namespace {

const char* const help =
    "Usage: zorva test [OPTION...] FORM TESTS.js...\n"
    "Tests a form without a person. A source of tests is JavaScript, in the language of the\n"
    "forms' own scripts:\n"
    "\n"
    "    test(\"locked, the frequency cannot be entered\", function(form) {\n"
    "        form.click(\"tuningLock\");\n"
    "        form.expectEnabled(\"frequency\", false);\n"
    "    });\n"
    "\n"
    "Each test gets a form of its own, and runs in a process beside this one. The page\n"
    "author-tests.md of the documentation tells what a test can do and expect. One of the\n"
    "files may be \"-\" for the standard input.\n"
    "\n"
    "Options:\n"
    "  --filter PATTERN     only tests whose names have a match of this regular expression\n"
    "  --jobs N             run N tests at a time (as many as there are processors)\n"
    "  --timeout SECONDS    time of the processor that a test may take (10)\n"
    "  --format tap|json    how to say it (tap)\n"
    "  --junit FILE         write the results as JUnit XML, too\n"
    "  --coverage FILE      write which lines of the form's script were run, for genhtml\n"
    "\n"
    "Ends with 0 if all tests passed, 1 if some failed, 2 if nothing was tested.\n";

int failBecause(const QString& why)
{
    return fail(QStringLiteral("test: ") + why);
}

/** Likewise if that is the empty text. */
int written(const QString& path, const QString& problem)
{
    return problem.isEmpty() ? Clean : failBecause(QStringLiteral("cannot write %1: %2").arg(path, problem));
}

struct Wishes
{
    QRegularExpression filter;
    int jobs = 1;
    int timeout = 0; // milliseconds
    bool json = false;
    QString junit;
    QString coverage;
};

/** Runs the tests and tells of them; an exit code. */
class Session
{
public:
    Session(const ScenarioSetup& setup, const Wishes& wishes)
        : m_setup(setup)
        , m_wishes(wishes)
        , m_run(QCoreApplication::applicationFilePath(), {QStringLiteral("serve-tests")}, setup)
    {
        m_run.setBounds(wishes.timeout, wishes.jobs);
    }

    int run()
    {
        const QString problem = m_run.load();
        if (!problem.isEmpty())
            return failBecause(problem);
        QVector<int> numbers;
        for (int i = 0; i < m_run.tests().size(); ++i) {
            if (m_wishes.filter.match(m_run.tests().at(i).name).hasMatch())
                numbers.append(i);
        }
        if (numbers.isEmpty())
            return failBecause(QStringLiteral("there is no test%1")
                                   .arg(QLatin1String(m_run.tests().isEmpty() ? "" : " of that name")));
        if (!m_wishes.json)
            print(QStringLiteral("TAP version 13\n1..%1\n").arg(numbers.size()));
        m_run.run(numbers, [this](int number, const ScenarioResult& result) { take(number, result); });
        return tell();
    }

private:
    void take(int number, const ScenarioResult& result)
    {
        m_tested.append({m_run.tests().at(number), result});
        m_failed += result.passed ? 0 : 1;
        for (auto line = result.lines.cbegin(); line != result.lines.cend(); ++line)
            m_lines[line.key()] += line.value();
        if (!m_wishes.json)
            print(tapText(m_tested.size(), m_tested.last()));
    }

    int tell() const
    {
        QString coverage;
        int code = m_failed > 0 ? Findings : Clean;
        if (!m_wishes.coverage.isEmpty()) {
            const Coverage lines = coverageOf(TestedForm(m_setup.form), m_lines);
            const QString file = QFileInfo(m_setup.form.name).absoluteFilePath();
            coverage = lines.text();
            code =
                qMax(code, written(m_wishes.coverage, writeWhole(m_wishes.coverage, lcovText(file, lines))));
        }
        if (m_wishes.json)
            printBytes(testsJson(m_tested, coverage));
        else
            print(QStringLiteral("# %1 passed, %2 failed%3\n")
                      .arg(m_tested.size() - m_failed)
                      .arg(m_failed)
                      .arg(coverage.isEmpty() ? QString() : QStringLiteral(", script covered: ") + coverage));
        if (!m_wishes.junit.isEmpty())
            code = qMax(code, written(m_wishes.junit,
                                      writeWhole(m_wishes.junit, junitXml(m_setup.form.name, m_tested))));
        return code;
    }

    const ScenarioSetup& m_setup;
    const Wishes& m_wishes;
    TestRun m_run;
    QVector<TestedScenario> m_tested;
    QMap<int, int> m_lines;
    int m_failed = 0;
};

/** Empty if all is well, else what is wrong with the words. */
QString takeWishes(const QCommandLineParser& parser, Wishes& wishes)
{
    bool isJobs = false;
    bool isTime = false;
    wishes.filter.setPattern(parser.value(QStringLiteral("filter")));
    wishes.jobs = parser.value(QStringLiteral("jobs")).toInt(&isJobs);
    const double seconds = parser.value(QStringLiteral("timeout")).toDouble(&isTime);
    wishes.json = parser.value(QStringLiteral("format")) == QLatin1String("json");
    wishes.junit = parser.value(QStringLiteral("junit"));
    wishes.coverage = parser.value(QStringLiteral("coverage"));
    constexpr double longest = 86400; // seconds
    if (!wishes.filter.isValid())
        return QStringLiteral("\"%1\" is no regular expression").arg(wishes.filter.pattern());
    if (!isJobs || wishes.jobs < 1)
        return QStringLiteral("\"%1\" is nothing for --jobs").arg(parser.value(QStringLiteral("jobs")));
    if (!isTime || seconds <= 0 || seconds > longest)
        return QStringLiteral("\"%1\" is nothing for --timeout").arg(parser.value(QStringLiteral("timeout")));
    if (!wishes.json && parser.value(QStringLiteral("format")) != QLatin1String("tap"))
        return QStringLiteral("\"%1\" is nothing for --format").arg(parser.value(QStringLiteral("format")));
    wishes.timeout = static_cast<int>(seconds * 1000);
    return QString();
}

/** Empty if all files could be read. */
QString readAll(const QStringList& paths, ScenarioSetup& setup)
{
    for (const QString& path : paths) {
        const FileContent file = readWhole(path);
        if (!file.isRead())
            return QStringLiteral("cannot read %1: %2").arg(file.name, file.problem);
        setup.tests.append({file.name, file.bytes});
    }
    setup.form = setup.tests.takeFirst();
    return QString();
}

int run(const QStringList& arguments)
{
    QCommandLineParser parser;
    const auto option = [&parser](const char* name, const QString& fallback = QString()) {
        parser.addOption({QLatin1String(name), QString(), QStringLiteral("VALUE"), fallback});
    };
    option("filter");
    option("jobs", QString::number(qMax(1, QThread::idealThreadCount())));
    option("timeout", QStringLiteral("10"));
    option("format", QStringLiteral("tap"));
    option("junit");
    option("coverage");
    if (!parser.parse(QStringList(QStringLiteral("zorva")) + arguments))
        return failBecause(parser.errorText());
    const QStringList paths = parser.positionalArguments();
    Wishes wishes;
    ScenarioSetup setup;
    QString problem = takeWishes(parser, wishes);
    if (problem.isEmpty() && paths.size() < 2)
        problem = QStringLiteral("a form and tests are wanted; see \"zorva test --help\"");
    if (problem.isEmpty() && paths.count(QStringLiteral("-")) > 1)
        problem = QStringLiteral("the standard input can be one file only");
    if (problem.isEmpty() && !wishes.coverage.isEmpty() && paths.first() == QLatin1String("-"))
        problem = QStringLiteral("--coverage wants a form that has a file");
    if (problem.isEmpty())
        problem = readAll(paths, setup);
    if (!problem.isEmpty())
        return failBecause(problem);
    setup.coverage = !wishes.coverage.isEmpty();
    return Session(setup, wishes).run();
}

} // namespace

const Subcommand testCommand = {
    "test", "tests forms without a person", help, Subcommand::Core, run,
};
