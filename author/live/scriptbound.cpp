#include "scriptbound.h"

#include <QAbstractEventDispatcher>
#include <QScopedValueRollback>
#include <QScriptEngine>

#include <utility>

namespace Orvane {
namespace Author {

namespace {

constexpr int often = 16;  // statements between two looks at the clock; one may take long by itself
constexpr int moment = 10; // milliseconds for what still runs once the time is over

} // namespace

ScriptBound* ScriptBound::putOn(QScriptEngine& engine, int longest, Stopped stopped)
{
    auto* const bound = new ScriptBound(engine, longest, std::move(stopped)); // owned by the engine
    engine.setAgent(bound);
    return bound;
}

ScriptBound::ScriptBound(QScriptEngine& engine, int longest, Stopped stopped)
    : QScriptEngineAgent(&engine)
    , m_longest(longest)
    , m_stopped(std::move(stopped))
{
    m_run.start();
    engine.setProcessEventsInterval(m_longest);
    auto* const loop = QAbstractEventDispatcher::instance();
    if (!loop)
        return;
    QObject::connect(loop, &QAbstractEventDispatcher::aboutToBlock, &m_receiver, [this] { m_isIdle = true; });
    QObject::connect(loop, &QAbstractEventDispatcher::awake, &m_receiver, [this] { turn(); });
}

void ScriptBound::functionEntry(qint64)
{
    if (m_depth++ > 0)
        return;
    m_isIdle = false;
    m_statements = 0;
    m_run.start();
}

void ScriptBound::functionExit(qint64, const QScriptValue&)
{
    if (m_depth > 0 && --m_depth == 0)
        m_spent += m_run.elapsed();
}

void ScriptBound::positionChange(qint64, int line, int)
{
    if (m_isEnding) {
        engine()->abortEvaluation();
        return;
    }
    m_line = line;
    if (++m_statements % often == 0)
        look();
}

// A loop with nothing in it has no statements, but the interpreter lets the event loop turn when code
// has been running for a while.
void ScriptBound::turn()
{
    if (m_isIdle || !isRunning())
        refresh();
    else
        look();
    m_isIdle = false;
}

void ScriptBound::refresh()
{
    m_depth = 0;
    if (std::exchange(m_isOver, false)) {
        engine()->setProcessEventsInterval(m_longest);
        engine()->evaluate(QString()); // till then the interpreter ends each loop
    }
    m_spent = 0;
}

void ScriptBound::look()
{
    if (!m_isEnding && m_spent + m_run.elapsed() >= m_longest)
        end();
}

// Between two statements of a handler the interpreter does not know that it runs, and would not obey:
// it is told from a statement of its own.
void ScriptBound::end()
{
    const QScopedValueRollback<bool> ending(m_isEnding, true);
    m_isOver = true;
    engine()->setProcessEventsInterval(moment);
    m_stopped();
    if (engine()->isEvaluating())
        engine()->abortEvaluation();
    else
        engine()->evaluate(QStringLiteral("0"));
}

} // namespace Author
} // namespace Orvane
