#ifndef ZORVASCRIPTNAMES_P_H
#define ZORVASCRIPTNAMES_P_H

#include <QPointer>
#include <QString>
#include <QVector>

class QScriptEngine;

namespace Orvane {

/**
 * Objects under the names by which scripts know them, kept until somebody can look:
 * a form whose script is empty spares the engine an object for each row.
 */
class ScriptNames
{
public:
    /** @p object is not owned; it may be null, and may go before it is published. */
    void add(const QString& name, QObject* object);
    /** Makes them globals of @p engine, in the order in which they came. */
    void publish(QScriptEngine& engine) const;

private:
    struct Entry
    {
        QString name;
        QPointer<QObject> object;
        bool isNull; // from the beginning
    };

    QVector<Entry> entries;
};

} // namespace Orvane

#endif
