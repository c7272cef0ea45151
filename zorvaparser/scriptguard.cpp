#include "scriptguard_p.h"

#include "bounds_p.h"

#include <zorvaparser/zorvadelegate.h>
#include <zorvaparser/zorvasheet.h>
#include <zorvaparser/zorvawidget.h>

#include <QMetaMethod>
#include <QPair>
#include <QScriptEngine>
#include <QScriptValueIterator>
#include <QVector>

namespace Orvane {

namespace {

/** Counts what a value of a script would become; a part that stands in two places counts twice. */
class NestedSize
{
public:
    bool isBounded(const QScriptValue& value, int depth = 0)
    {
        if (++parts > mostCells || depth > deepestScriptValue)
            return false;
        if (value.isArray())
            return isArrayBounded(value, depth);
        const bool isPlainObject = value.isObject() && !value.isVariant() && !value.isQObject() &&
                                   !value.isDate() && !value.isRegExp() && !value.isQMetaObject();
        return !isPlainObject || isObjectBounded(value, depth);
    }

private:
    // Holes count too: the list has a place for each.
    bool isArrayBounded(const QScriptValue& array, int depth)
    {
        const quint32 length = array.property(QStringLiteral("length")).toUInt32();
        if (length > mostCells)
            return false;
        for (quint32 i = 0; i < length; ++i) {
            if (!isBounded(array.property(i), depth + 1))
                return false;
        }
        return true;
    }

    bool isObjectBounded(const QScriptValue& object, int depth)
    {
        QScriptValueIterator member(object);
        while (member.hasNext()) {
            member.next();
            // A function's prototype leads back to it.
            if (member.flags() & QScriptValue::SkipInEnumeration)
                continue;
            if (!isBounded(member.value(), depth + 1))
                return false;
        }
        return true;
    }

    qint64 parts = 0;
};

QScriptValue callChecked(QScriptContext* context, QScriptEngine*)
{
    QScriptValueList arguments;
    for (int i = 0; i < context->argumentCount(); ++i) {
        if (!NestedSize().isBounded(context->argument(i)))
            return context->throwError(QScriptContext::RangeError,
                                       QStringLiteral("Value too large or nested too deep"));
        arguments.append(context->argument(i));
    }
    const QScriptValue self = context->thisObject();
    return self.property(context->callee().data().toString()).call(self, arguments);
}

/** Name and signature of each slot or invokable that takes any value. */
QVector<QPair<QString, QByteArray>> openMethods(const QMetaObject* kind)
{
    QVector<QPair<QString, QByteArray>> methods;
    for (int i = 0; i < kind->methodCount(); ++i) {
        const QMetaMethod method = kind->method(i);
        if (method.methodType() != QMetaMethod::Signal && method.access() == QMetaMethod::Public &&
            method.parameterTypes().contains("QVariant"))
            methods.append({QString::fromLatin1(method.name()), method.methodSignature()});
    }
    return methods;
}

} // namespace

void ScriptGuard::install(ZorvaSheet& sheet, QScriptEngine& engine)
{
    if (!isSheetGuarded)
        guard(sheet.GetName(), sheet.GetDelegate(), engine);
    isSheetGuarded = true;
    // A row of the host's own that moves the others along is guarded in vain, and they twice.
    for (; guardedRows < sheet.GetWidgetCount(); ++guardedRows) {
        const ZorvaSheet::WidgetPointer row = sheet.GetWidgetAt(guardedRows);
        guard(row->GetName(), row->GetDelegate(), engine);
    }
}

void ScriptGuard::guard(const QString& globalName, const QObject* object, QScriptEngine& engine)
{
    static QHash<const QMetaObject*, QVector<QPair<QString, QByteArray>>> methodsOfKind;
    QScriptValue seen = engine.globalObject().property(globalName);
    if (!object || seen.toQObject() != object)
        return;
    const QMetaObject* const kind = object->metaObject();
    auto methods = methodsOfKind.constFind(kind);
    if (methods == methodsOfKind.cend())
        methods = methodsOfKind.insert(kind, openMethods(kind));
    for (const auto& method : methods.value())
        seen.setProperty(method.first, checked(engine, method.second));
}

QScriptValue ScriptGuard::checked(QScriptEngine& engine, const QByteArray& signature)
{
    QScriptValue& function = functions[signature];
    if (!function.isValid()) {
        function = engine.newFunction(callChecked);
        function.setData(QScriptValue(QString::fromLatin1(signature)));
    }
    return function;
}

} // namespace Orvane
