#include "scriptnames_p.h"

#include <zorvaparser/zorvaenum.h>

#include <QScriptEngine>

namespace Orvane {

QScriptValue ScriptNames::toScript(QScriptEngine& engine, QObject* object)
{
    return engine.newQObject(object, QScriptEngine::QtOwnership, QScriptEngine::ExcludeDeleteLater);
}

QScriptValue ScriptNames::toScript(QScriptEngine& engine, const QPointer<QObject>& object)
{
    if (object)
        return toScript(engine, object.data());
    // Scripts find out that an object is gone, and that is something else than null.
    QObject gone;
    return toScript(engine, &gone);
}

QScriptValue ScriptNames::toScript(QScriptEngine& engine, const Constants& constants)
{
    QScriptValue object = engine.newObject();
    for (const QPair<QString, QString>& constant : constants)
        object.setProperty(constant.first, QScriptValue(constant.second));
    return object;
}

void ScriptNames::add(const QString& name, QObject* object)
{
    entries.append({name, QPointer<QObject>(object)});
}

void ScriptNames::add(const ZorvaEnum& enumeration)
{
    Constants constants;
    constants.reserve(enumeration.GetValueCount());
    for (int i = 0; i < enumeration.GetValueCount(); ++i) {
        const ZorvaEnumValue& entry = enumeration.GetValueAt(i);
        constants.append({entry.GetEnumIdentifier(), entry.GetValue()});
    }
    entries.append({enumeration.GetName(), constants});
}

void ScriptNames::publish(QScriptEngine& engine) const
{
    QScriptValue globals = engine.globalObject();
    for (const Entry& entry : qAsConst(entries)) {
        const auto show = [&](const auto& content) { return toScript(engine, content); };
        globals.setProperty(entry.name, std::visit(show, entry.content));
    }
}

} // namespace Orvane
