#include "scripttrial.h"

#include <author/child/childuse.h>
#include <author/child/frames.h>
#include <author/live/liveform.h>

#include <QElapsedTimer>

namespace Orvane {
namespace Author {

namespace {

constexpr int defaultTime = 5000;                   // milliseconds
constexpr qint64 defaultMemory = qint64(768) << 20; // bytes
constexpr int look = 20;                            // milliseconds between two looks at the memory
constexpr int patience = 12;                        // on a busy machine a script waits more than it runs
constexpr int moment = 250;                         // milliseconds in which scripts end that end at all
constexpr int farewell = 1000;                      // milliseconds for an end by itself

QByteArray encoded(const ScriptTrial& trial)
{
    return packed(static_cast<qint32>(trial.end), trial.message, static_cast<qint32>(trial.line));
}

ScriptTrial decoded(const QByteArray& content)
{
    qint32 end = ScriptTrial::NotRun;
    ScriptTrial trial;
    unpack(content, end, trial.message, trial.line);
    trial.end = static_cast<ScriptTrial::End>(end);
    return trial;
}

ScriptTrial tried(const QByteArray& description)
{
    ScriptTrial trial;
    LiveForm form(description, LiveForm::Read);
    if (!form.exists())
        return trial;
    const QScriptEngine* const engine = form.engine();
    form.bring(LiveForm::Running);
    trial.end = ScriptTrial::Done;
    if (engine && engine->hasUncaughtException()) {
        trial.end = ScriptTrial::Failed;
        trial.message = engine->uncaughtException().toString();
        trial.line = engine->uncaughtExceptionLineNumber();
    }
    return trial;
}

} // namespace

ScriptRunner::ScriptRunner(const QString& program, const QStringList& arguments)
    : m_program(program)
    , m_arguments(arguments)
    , m_time(defaultTime)
    , m_memory(defaultMemory)
{
    m_process.setStandardErrorFile(QProcess::nullDevice());
}

ScriptRunner::~ScriptRunner()
{
    if (m_process.state() == QProcess::NotRunning)
        return;
    m_process.closeWriteChannel();
    if (!m_process.waitForFinished(farewell))
        stop();
}

void ScriptRunner::setBounds(int time, qint64 memory)
{
    m_time = time;
    m_memory = memory;
}

void ScriptRunner::setUnwanted(std::function<bool()> isUnwanted)
{
    m_isUnwanted = std::move(isUnwanted);
}

bool ScriptRunner::start()
{
    if (m_process.state() != QProcess::NotRunning)
        return true;
    m_process.start(m_program, m_arguments);
    return m_process.waitForStarted();
}

void ScriptRunner::stop()
{
    m_process.kill();
    m_process.waitForFinished();
}

ScriptTrial ScriptRunner::run(const QByteArray& description)
{
    if (!start())
        return ScriptTrial();
    m_process.write(framed(description));
    return await();
}

ScriptTrial ScriptRunner::await()
{
    QElapsedTimer timer;
    timer.start();
    const qint64 before = processorTimeOf(m_process.processId());
    QByteArray received;
    QByteArray content;
    ScriptTrial trial;
    while (!takeFrame(received, content)) {
        const bool more = m_process.waitForReadyRead(look);
        received += m_process.readAllStandardOutput();
        if (more)
            continue;
        if (m_isUnwanted && timer.elapsed() > moment && m_isUnwanted()) {
            stop();
            return trial;
        }
        if (m_process.state() == QProcess::NotRunning)
            trial.end = ScriptTrial::Crashed;
        else if (memoryOf(m_process.processId()) > m_memory)
            trial.end = ScriptTrial::Hungry;
        else if (timer.elapsed() > (before < 0 ? m_time : patience * m_time) ||
                 processorTimeOf(m_process.processId()) - before > m_time)
            trial.end = ScriptTrial::Endless;
        if (trial.end != ScriptTrial::NotRun) {
            stop();
            return trial;
        }
    }
    return decoded(content);
}

void serveScripts()
{
    ParentLink parent;
    QByteArray description;
    while (parent.receive(description))
        parent.send(encoded(tried(description)));
}

} // namespace Author
} // namespace Orvane
