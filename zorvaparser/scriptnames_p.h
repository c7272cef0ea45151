#ifndef ZORVASCRIPTNAMES_P_H
#define ZORVASCRIPTNAMES_P_H

#include <QPair>
#include <QPointer>
#include <QScriptValue>
#include <QString>
#include <QVector>

#include <variant>

class QScriptEngine;

namespace Orvane {

class ZorvaEnum;

/**
 * The form's own objects and enumerations under the names by which scripts know them, kept
 * until somebody can look: a form whose script is empty spares the engine, and one for each row.
 */
class ScriptNames
{
public:
    /**
     * What scripts see of @p object, which may be null. The engine never deletes it, and
     * neither does a script: it would be missed by everybody else.
     */
    static QScriptValue toScript(QScriptEngine& engine, QObject* object);

    /** @p object is not owned, never null, and may go before it is published. */
    void add(const QString& name, QObject* object);
    /** An object with the values of @p enumeration by identifier, as they are now. */
    void add(const ZorvaEnum& enumeration);
    /** Makes them globals of @p engine, in the order in which they came. */
    void publish(QScriptEngine& engine) const;

private:
    using Constants = QVector<QPair<QString, QString>>; // value by identifier
    struct Entry
    {
        QString name;
        std::variant<QPointer<QObject>, Constants> content;
    };

    static QScriptValue toScript(QScriptEngine& engine, const QPointer<QObject>& object);
    static QScriptValue toScript(QScriptEngine& engine, const Constants& constants);

    QVector<Entry> entries;
};

} // namespace Orvane

#endif
