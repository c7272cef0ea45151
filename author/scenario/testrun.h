#ifndef ZORVA_AUTHOR_TESTRUN_H
#define ZORVA_AUTHOR_TESTRUN_H

#include "scenario.h"

#include <QElapsedTimer>
#include <QEventLoop>
#include <QProcess>
#include <QStringList>

#include <functional>
#include <memory>
#include <vector>

namespace Orvane {
namespace Author {

/**
 * Runs tests in processes of their own, several at a time, each of which runs one test after
 * the other. One that does not end, eats memory or dies costs its test, and is replaced.
 */
class TestRun
{
public:
    /** @p program with @p arguments must call serveTests(). */
    TestRun(const QString& program, const QStringList& arguments, const ScenarioSetup& setup);
    ~TestRun();
    TestRun(const TestRun&) = delete;
    TestRun& operator=(const TestRun&) = delete;

    /** Milliseconds of the processor that a test may take, and how many run at a time. */
    void setBounds(int time, int jobs);
    /** Loads the sources; gives why they cannot be used, empty if they can. */
    QString load();
    const QVector<ScenarioTest>& tests() const { return m_tests; }
    /** Runs the tests with these numbers; @p done hears of each in this order, as soon as that can be. */
    void run(const QVector<int>& numbers, const std::function<void(int, const ScenarioResult&)>& done);

private:
    struct Worker;

    Worker* addWorker();
    void startWorker(Worker& worker);
    void feed(Worker& worker);
    void read(Worker& worker);
    void take(Worker& worker, const QByteArray& answer);
    void watch();
    /** The worker is lost to its test, for that reason. */
    void lose(Worker& worker, const QString& reason);
    void giveUp(const QString& reason);
    void finish(int number, const ScenarioResult& result);

    const QString m_program;
    const QStringList m_arguments;
    const QByteArray m_setup;
    int m_time;
    int m_jobs = 1;
    QString m_problem;
    QVector<ScenarioTest> m_tests;
    QVector<int> m_queue;
    int m_next = 0; // in the queue: to be handed out
    int m_told = 0; // in the queue: how many were told of
    QMap<int, ScenarioResult> m_results;
    std::function<void(int, const ScenarioResult&)> m_done;
    std::vector<std::unique_ptr<Worker>> m_workers;
    QEventLoop m_loop;
};

} // namespace Author
} // namespace Orvane

#endif
