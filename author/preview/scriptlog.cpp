#include "scriptlog.h"

#include <QAbstractEventDispatcher>
#include <QElapsedTimer>
#include <QPointer>
#include <QScriptContext>
#include <QScriptEngine>
#include <QScriptEngineAgent>

#include <utility>

namespace Orvane {
namespace Author {

namespace {

/**
 * Ends code that runs for too long. The interpreter lets the event loop turn when code has
 * been running for a while; a turn that waited for nothing is one of those. Knows the line, too, which
 * exceptions that are no Error do not.
 */
class Bound : public QScriptEngineAgent
{
public:
    Bound(QScriptEngine& engine, ScriptLog* log)
        : QScriptEngineAgent(&engine)
        , m_log(log)
    {
        m_turn.start();
        auto* const loop = QAbstractEventDispatcher::instance();
        if (!loop)
            return;
        QObject::connect(loop, &QAbstractEventDispatcher::aboutToBlock, &m_receiver,
                         [this] { m_isIdle = true; });
        QObject::connect(loop, &QAbstractEventDispatcher::awake, &m_receiver, [this] { turn(); });
    }

    void scriptLoad(qint64, const QString&, const QString&, int) override { m_turn.start(); }

    void positionChange(qint64, int line, int) override
    {
        if (m_log)
            m_log->setLine(line);
        constexpr int often = 256; // statements between two looks at the clock
        if (++m_statements % often == 0)
            look();
    }

private:
    void turn()
    {
        if (m_isIdle || !engine()->isEvaluating())
            m_turn.start();
        m_isIdle = false;
        look();
    }

    void look()
    {
        if (!m_log || m_turn.elapsed() < m_log->bound() || !engine()->isEvaluating())
            return;
        m_turn.start();
        m_log->stop(*engine());
    }

    QPointer<ScriptLog> m_log;
    QObject m_receiver; // ends the connections when it goes
    QElapsedTimer m_turn;
    int m_statements = 0;
    bool m_isIdle = false;
};

QScriptValue printTo(QScriptContext* context, QScriptEngine* engine)
{
    QStringList words;
    for (int i = 0; i < context->argumentCount(); ++i)
        words << context->argument(i).toString();
    // Null once nobody listens any more.
    if (auto* const log = qobject_cast<ScriptLog*>(context->callee().data().toQObject()))
        Q_EMIT log->printed(words.join(QLatin1Char(' ')));
    return engine->undefinedValue();
}

} // namespace

void ScriptLog::listenTo(QScriptEngine& engine)
{
    const QString name = QStringLiteral("print");
    QScriptValue globals = engine.globalObject();
    if (globals.property(name).isFunction()) {
        QScriptValue function = engine.newFunction(printTo);
        function.setData(engine.newQObject(this));
        globals.setProperty(name, function);
    }
    engine.setAgent(new Bound(engine, this)); // owned by the engine
    engine.setProcessEventsInterval(m_bound);
    connect(&engine, &QScriptEngine::signalHandlerException, this, &ScriptLog::tellThrown);
}

void ScriptLog::tellUncaught(QScriptEngine& engine)
{
    if (engine.hasUncaughtException())
        tellThrown(engine.uncaughtException());
    m_isStopping = false;
}

void ScriptLog::tellThrown(const QScriptValue& exception)
{
    // Told already, with better words.
    if (std::exchange(m_isStopping, false))
        return;
    const QScriptValue line = exception.property(QStringLiteral("lineNumber"));
    Q_EMIT threw(exception.toString(), line.isNumber() ? line.toInt32() : m_line);
}

void ScriptLog::stop(QScriptEngine& engine)
{
    m_hasStopped = true;
    // It goes on until the interpreter looks, perhaps for as long again.
    if (!std::exchange(m_isStopping, true))
        Q_EMIT threw(
            QStringLiteral("stopped: it ran for more than %1 seconds without an end").arg(m_bound / 1000.0),
            m_line);
    engine.abortEvaluation();
}

} // namespace Author
} // namespace Orvane
