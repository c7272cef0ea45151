#include "scriptnames_p.h"

#include <QScriptEngine>

#include <memory>

namespace Orvane {

namespace {

// The engine never deletes what it is given, and a row that a script deletes would
// be missed by everybody else.
QScriptValue wrapped(QScriptEngine& engine, QObject* object)
{
    return engine.newQObject(object, QScriptEngine::QtOwnership, QScriptEngine::ExcludeDeleteLater);
}

} // namespace

void ScriptNames::add(const QString& name, QObject* object)
{
    entries.append({name, object, object == nullptr});
}

void ScriptNames::publish(QScriptEngine& engine) const
{
    QScriptValue globals = engine.globalObject();
    for (const Entry& entry : qAsConst(entries)) {
        // Scripts find out that an object is gone, and that is something else than null.
        const auto gone = entry.object || entry.isNull ? nullptr : std::make_unique<QObject>();
        globals.setProperty(entry.name, wrapped(engine, gone ? gone.get() : entry.object.data()));
    }
}

} // namespace Orvane
