#include "scripttrial.h"

#include <zorvaparser/zorvaformular.h>
#include <zorvaparser/zorvaparser.h>

#include <QDataStream>
#include <QElapsedTimer>
#include <QFile>

#include <cstdio>

#ifdef Q_OS_UNIX
#include <fcntl.h>
#include <unistd.h>
#endif

namespace Orvane {
namespace Author {

namespace {

constexpr int defaultTime = 5000;                   // milliseconds
constexpr qint64 defaultMemory = qint64(768) << 20; // bytes
constexpr int look = 20;                            // milliseconds between two looks at the memory
constexpr int patience = 12;                        // on a busy machine a script waits more than it runs
constexpr int moment = 250;                         // milliseconds in which scripts end that end at all
constexpr int farewell = 1000;                      // milliseconds for an end by itself
constexpr quint32 largest = quint32(1) << 30;       // bytes of one message

QByteArray framed(const QByteArray& content)
{
    QByteArray frame;
    QDataStream stream(&frame, QIODevice::WriteOnly);
    stream << content;
    return frame;
}

/** True, and @p content taken from the front of @p bytes, if a whole message is there. */
bool takeFrame(QByteArray& bytes, QByteArray& content)
{
    constexpr int head = static_cast<int>(sizeof(quint32));
    if (bytes.size() < head)
        return false;
    quint32 size = 0;
    QDataStream(bytes) >> size;
    if (size > largest || bytes.size() - head < static_cast<int>(size))
        return false;
    content = bytes.mid(head, static_cast<int>(size));
    bytes.remove(0, head + static_cast<int>(size));
    return true;
}

QByteArray encoded(const ScriptTrial& trial)
{
    QByteArray content;
    QDataStream stream(&content, QIODevice::WriteOnly);
    stream << static_cast<qint32>(trial.end) << trial.message << static_cast<qint32>(trial.line);
    return framed(content);
}

ScriptTrial decoded(const QByteArray& content)
{
    qint32 end = ScriptTrial::NotRun;
    qint32 line = 0;
    ScriptTrial trial;
    QDataStream stream(content);
    stream >> end >> trial.message >> line;
    trial.end = static_cast<ScriptTrial::End>(end);
    trial.line = line;
    return trial;
}

QScriptEngine* engineOf(ZorvaFormular& form)
{
    for (const QScriptValue& global : form.GetScriptValues()) {
        if (global.engine())
            return global.engine();
    }
    return nullptr;
}

ScriptTrial tried(const QByteArray& description)
{
    ScriptTrial trial;
    const QExplicitlySharedDataPointer<ZorvaFormular> form(ZorvaParser().ParseZORVA(description));
    if (!form)
        return trial;
    const QScriptEngine* const engine = engineOf(*form);
    form->CreateValueTree(QStringLiteral("/check"));
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

qint64 ScriptRunner::memoryInUse() const
{
#ifdef Q_OS_LINUX
    QFile file(QStringLiteral("/proc/%1/statm").arg(m_process.processId()));
    if (file.open(QIODevice::ReadOnly))
        return file.readAll().split(' ').value(1).toLongLong() * sysconf(_SC_PAGESIZE);
#endif
    return 0;
}

qint64 ScriptRunner::processorTime() const
{
#ifdef Q_OS_LINUX
    QFile file(QStringLiteral("/proc/%1/stat").arg(m_process.processId()));
    if (file.open(QIODevice::ReadOnly)) {
        const QByteArray status = file.readAll();
        // The name in brackets may hold blanks; user and system time are the 12th and 13th behind it.
        const QList<QByteArray> fields = status.mid(status.lastIndexOf(')') + 2).split(' ');
        return (fields.value(11).toLongLong() + fields.value(12).toLongLong()) * 1000 / sysconf(_SC_CLK_TCK);
    }
#endif
    return -1;
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
    const qint64 before = processorTime();
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
        else if (memoryInUse() > m_memory)
            trial.end = ScriptTrial::Hungry;
        else if (timer.elapsed() > (before < 0 ? m_time : patience * m_time) ||
                 processorTime() - before > m_time)
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
    QFile input;
    QFile output;
#ifdef Q_OS_UNIX
    // What a script prints must not get between the answers.
    const int answers = dup(STDOUT_FILENO);
    const int nowhere = ::open("/dev/null", O_WRONLY);
    dup2(nowhere, STDOUT_FILENO);
    close(nowhere);
    const bool isOpen =
        input.open(STDIN_FILENO, QIODevice::ReadOnly | QIODevice::Unbuffered) &&
        output.open(answers, QIODevice::WriteOnly | QIODevice::Unbuffered, QFileDevice::AutoCloseHandle);
#else
    const bool isOpen = input.open(stdin, QIODevice::ReadOnly) && output.open(stdout, QIODevice::WriteOnly);
#endif
    constexpr int head = static_cast<int>(sizeof(quint32));
    while (isOpen) {
        QByteArray bytes;
        int wanted = head;
        while (bytes.size() < wanted) {
            const QByteArray piece = input.read(wanted - bytes.size());
            if (piece.isEmpty())
                return;
            bytes += piece;
            if (bytes.size() == head) {
                quint32 size = 0;
                QDataStream(bytes) >> size;
                wanted = size > largest ? head : head + static_cast<int>(size);
            }
        }
        QByteArray description;
        if (!takeFrame(bytes, description))
            return;
        output.write(encoded(tried(description)));
    }
}

} // namespace Author
} // namespace Orvane
