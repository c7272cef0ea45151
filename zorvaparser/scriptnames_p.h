#ifndef ZORVASCRIPTNAMES_P_H
#define ZORVASCRIPTNAMES_P_H

#include <QPointer>
#include <QScriptValue>
#include <QString>
#include <QVector>

class QScriptEngine;

namespace Orvane {

/**
 * The form's own objects under the names by which scripts know them, kept until
 * somebody can look: a form whose script is empty spares the engine one for each row.
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
    /** Makes them globals of @p engine, in the order in which they came. */
    void publish(QScriptEngine& engine) const;

private:
    struct Entry
    {
        QString name;
        QPointer<QObject> object;
    };

    QVector<Entry> entries;
};

} // namespace Orvane

#endif
