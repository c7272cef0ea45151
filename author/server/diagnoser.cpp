#include "diagnoser.h"

#include <author/check/scripttrial.h>

#include <QMutexLocker>

#include <algorithm>

namespace Orvane {
namespace Author {

Diagnoser::Diagnoser(const QString& program, const QStringList& arguments, Deliver deliver)
    : m_program(program)
    , m_arguments(arguments)
    , m_deliver(std::move(deliver))
    , m_thread(QThread::create([this] { work(); }))
{
    m_thread->start();
}

Diagnoser::~Diagnoser()
{
    {
        const QMutexLocker lock(&m_mutex);
        m_isOver = true;
        m_isUnwanted = true;
        m_awake.wakeOne();
    }
    m_thread->wait();
}

void Diagnoser::dropWaiting(const QString& uri)
{
    const auto isOfDocument = [&uri](const Task& task) { return task.uri == uri; };
    m_waiting.erase(std::remove_if(m_waiting.begin(), m_waiting.end(), isOfDocument), m_waiting.end());
    if (m_current.uri == uri)
        m_isUnwanted = true;
}

int Diagnoser::submit(const QString& uri, const QByteArray& stored)
{
    const QMutexLocker lock(&m_mutex);
    dropWaiting(uri);
    m_waiting.push_back({uri, ++m_lastNumber, stored});
    m_awake.wakeOne();
    return m_lastNumber;
}

void Diagnoser::forget(const QString& uri)
{
    const QMutexLocker lock(&m_mutex);
    dropWaiting(uri);
}

bool Diagnoser::takeTask()
{
    const QMutexLocker lock(&m_mutex);
    m_current = Task();
    while (m_waiting.empty() && !m_isOver)
        m_awake.wait(&m_mutex);
    if (m_isOver)
        return false;
    m_current = m_waiting.front();
    m_waiting.pop_front();
    m_isUnwanted = false;
    return true;
}

void Diagnoser::work()
{
    std::unique_ptr<ScriptRunner> scripts;
    if (!m_program.isEmpty()) {
        scripts = std::make_unique<ScriptRunner>(m_program, m_arguments);
        scripts->setUnwanted([this] { return m_isUnwanted.load(); });
    }
    while (takeTask()) {
        const Task task = m_current;
        const auto result = std::make_shared<const CheckedFile>(check(task.uri, task.stored, scripts.get()));
        if (m_isUnwanted)
            continue;
        QMetaObject::invokeMethod(
            this, [this, task, result] { m_deliver(task.uri, task.number, result); }, Qt::QueuedConnection);
    }
}

} // namespace Author
} // namespace Orvane
