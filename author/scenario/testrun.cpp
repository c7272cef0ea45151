#include "testrun.h"

#include <author/child/childuse.h>
#include <author/child/frames.h>

#include <QTimer>

#include <algorithm>

namespace Orvane {
namespace Author {

namespace {

constexpr int defaultTime = 10000;             // milliseconds
constexpr int look = 100;                      // milliseconds between two looks at what a test takes
constexpr int patience = 3;                    // on a busy machine a test waits more than it runs
constexpr int farewell = 1000;                 // milliseconds for an end by itself
constexpr qint64 mostMemory = qint64(1) << 30; // bytes

} // namespace

struct TestRun::Worker
{
    enum State { Loading, Idle, Running };

    QProcess process;
    State state = Loading;
    int number = -1; // of the test that runs
    QByteArray received;
    qint64 before = 0; // processor time when it began
    QElapsedTimer since;
};

TestRun::TestRun(const QString& program, const QStringList& arguments, const ScenarioSetup& setup)
    : m_program(program)
    , m_arguments(arguments)
    , m_setup(packed(setup))
    , m_time(defaultTime)
{
}

TestRun::~TestRun()
{
    for (const auto& worker : m_workers) {
        worker->process.disconnect();
        worker->process.closeWriteChannel();
        if (!worker->process.waitForFinished(farewell)) {
            worker->process.kill();
            worker->process.waitForFinished();
        }
    }
}

void TestRun::setBounds(int time, int jobs)
{
    m_time = time;
    m_jobs = qMax(1, jobs);
}

QString TestRun::load()
{
    addWorker();
    QTimer clock;
    QObject::connect(&clock, &QTimer::timeout, &clock, [this] { watch(); });
    clock.start(look);
    m_loop.exec();
    return m_problem;
}

void TestRun::run(const QVector<int>& numbers, const std::function<void(int, const ScenarioResult&)>& done)
{
    m_queue = numbers;
    m_done = done;
    m_next = 0;
    m_told = 0;
    m_results.clear();
    if (numbers.isEmpty())
        return;
    while (static_cast<int>(m_workers.size()) < qMin(m_jobs, numbers.size()))
        addWorker();
    for (const auto& worker : m_workers) {
        if (worker->state == Worker::Idle)
            feed(*worker);
    }
    QTimer clock;
    QObject::connect(&clock, &QTimer::timeout, &clock, [this] { watch(); });
    clock.start(look);
    m_loop.exec();
}

TestRun::Worker* TestRun::addWorker()
{
    m_workers.push_back(std::make_unique<Worker>());
    Worker* const worker = m_workers.back().get();
    worker->process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    QObject::connect(&worker->process, &QProcess::readyReadStandardOutput, &worker->process,
                     [this, worker] { read(*worker); });
    QObject::connect(&worker->process, &QProcess::errorOccurred, &worker->process,
                     [this, worker](QProcess::ProcessError error) {
                         if (error == QProcess::FailedToStart)
                             lose(*worker, QStringLiteral("the program for the tests does not start"));
                     });
    QObject::connect(&worker->process, qOverload<int, QProcess::ExitStatus>(&QProcess::finished),
                     &worker->process, [this, worker] {
                         read(*worker);
                         lose(*worker, QStringLiteral("the process of the test came to an end before it"));
                     });
    startWorker(*worker);
    return worker;
}

void TestRun::startWorker(Worker& worker)
{
    worker.state = Worker::Loading;
    worker.number = -1;
    worker.received.clear();
    worker.before = 0;
    worker.since.start();
    worker.process.start(m_program, m_arguments);
    worker.process.write(framed(m_setup));
}

void TestRun::feed(Worker& worker)
{
    worker.state = Worker::Idle;
    if (m_next >= m_queue.size())
        return;
    worker.state = Worker::Running;
    worker.number = m_queue.at(m_next++);
    worker.before = processorTimeOf(worker.process.processId());
    worker.since.start();
    worker.process.write(framed(packed(worker.number)));
}

void TestRun::read(Worker& worker)
{
    worker.received += worker.process.readAllStandardOutput();
    QByteArray answer;
    while (takeFrame(worker.received, answer))
        take(worker, answer);
}

void TestRun::take(Worker& worker, const QByteArray& answer)
{
    if (worker.state == Worker::Loading) {
        if (m_tests.isEmpty())
            unpack(answer, m_problem, m_tests);
        if (m_queue.isEmpty()) {
            worker.state = Worker::Idle;
            m_loop.quit();
            return;
        }
        feed(worker);
        return;
    }
    ScenarioResult result;
    unpack(answer, result);
    const int number = worker.number;
    feed(worker);
    finish(number, result);
}

void TestRun::watch()
{
    for (const auto& worker : m_workers) {
        if (worker->state == Worker::Idle || worker->process.state() != QProcess::Running)
            continue;
        const qint64 id = worker->process.processId();
        const qint64 used = processorTimeOf(id) - worker->before;
        const bool isKnown = worker->before >= 0;
        // A program that starts has more to do than a test.
        const int bound = worker->state == Worker::Loading ? qMax(m_time, defaultTime) : m_time;
        if (memoryOf(id) > mostMemory)
            lose(*worker, QStringLiteral("it took more than %1 MiB of memory").arg(mostMemory >> 20));
        else if ((isKnown && used > bound) ||
                 worker->since.elapsed() > (isKnown ? patience : 1) * qint64(bound))
            lose(*worker, QStringLiteral("it did not end within %1 s").arg(bound / 1000.0));
    }
}

void TestRun::lose(Worker& worker, const QString& reason)
{
    const Worker::State state = worker.state;
    const int number = worker.number;
    worker.state = Worker::Idle;
    worker.number = -1;
    {
        const QSignalBlocker silence(&worker.process);
        worker.process.kill();
        worker.process.waitForFinished();
    }
    if (state == Worker::Loading) {
        giveUp(reason);
        return;
    }
    if (m_next < m_queue.size())
        startWorker(worker);
    if (state != Worker::Running)
        return;
    ScenarioResult result;
    result.message = reason;
    result.place = m_tests.at(number).place;
    finish(number, result);
}

// One that cannot load is not tried again; without any, what is left to do has failed.
void TestRun::giveUp(const QString& reason)
{
    const QString problem = QStringLiteral("the tests cannot be loaded: %1").arg(reason);
    if (m_queue.isEmpty() || m_tests.isEmpty()) {
        m_problem = problem;
        m_loop.quit();
        return;
    }
    const bool isAnyLeft = std::any_of(m_workers.cbegin(), m_workers.cend(), [](const auto& worker) {
        return worker->process.state() != QProcess::NotRunning;
    });
    while (!isAnyLeft && m_next < m_queue.size()) {
        const int number = m_queue.at(m_next++);
        ScenarioResult result;
        result.message = problem;
        result.place = m_tests.at(number).place;
        finish(number, result);
    }
}

void TestRun::finish(int number, const ScenarioResult& result)
{
    m_results.insert(number, result);
    while (m_told < m_queue.size() && m_results.contains(m_queue.at(m_told))) {
        const int told = m_queue.at(m_told++);
        m_done(told, m_results.take(told));
    }
    if (m_told == m_queue.size())
        m_loop.quit();
}

} // namespace Author
} // namespace Orvane
