#include "scriptnames_p.h"

#include <QScriptEngine>

#include <memory>

namespace Orvane {

QScriptValue ScriptNames::toScript(QScriptEngine& engine, QObject* object)
{
    return engine.newQObject(object, QScriptEngine::QtOwnership, QScriptEngine::ExcludeDeleteLater);
}

void ScriptNames::add(const QString& name, QObject* object)
{
    entries.append({name, object});
}

void ScriptNames::publish(QScriptEngine& engine) const
{
    QScriptValue globals = engine.globalObject();
    for (const Entry& entry : qAsConst(entries)) {
        // Scripts find out that an object is gone, and that is something else than null.
        const auto gone = entry.object ? nullptr : std::make_unique<QObject>();
        globals.setProperty(entry.name, toScript(engine, gone ? gone.get() : entry.object.data()));
    }
}

} // namespace Orvane
