#include "scriptlog.h"

#include <author/live/scriptbound.h>

#include <QPointer>
#include <QScriptContext>
#include <QScriptEngine>

#include <utility>

namespace Orvane {
namespace Author {

namespace {

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
    m_code = ScriptBound::putOn(engine, m_bound, [log = QPointer<ScriptLog>(this)] {
        if (log)
            log->tellStopped();
    });
    connect(&engine, &QScriptEngine::signalHandlerException, this, &ScriptLog::tellThrown);
}

void ScriptLog::tellUncaught(QScriptEngine& engine)
{
    if (engine.hasUncaughtException())
        tellThrown(engine.uncaughtException());
    m_isStopping = false;
}

bool ScriptLog::isRunning() const
{
    return m_code && m_code->isRunning();
}

void ScriptLog::tellThrown(const QScriptValue& exception)
{
    // Told already, with better words.
    if (std::exchange(m_isStopping, false))
        return;
    const QScriptValue line = exception.property(QStringLiteral("lineNumber"));
    Q_EMIT threw(exception.toString(), line.isNumber() ? line.toInt32() : m_code->line());
}

void ScriptLog::tellStopped()
{
    m_hasStopped = true;
    // It goes on until the interpreter looks, perhaps for as long again.
    if (!std::exchange(m_isStopping, true))
        Q_EMIT threw(stoppedText(m_bound), m_code->line());
}

QString ScriptLog::stoppedText(int bound)
{
    return QStringLiteral("stopped: it ran for more than %1 seconds without an end").arg(bound / 1000.0);
}

} // namespace Author
} // namespace Orvane
