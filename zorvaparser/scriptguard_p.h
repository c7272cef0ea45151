#ifndef ZORVASCRIPTGUARD_P_H
#define ZORVASCRIPTGUARD_P_H

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QScriptValue>

namespace Orvane {

class ZorvaDelegate;

/**
 * Keeps scripts from handing rows what they cannot take. The interpreter turns an
 * array into a list by calling itself for each level, before a slot is called:
 * one nested deep enough is the end of the program. Slots that take any value
 * are therefore wrapped by functions that look first, and throw a RangeError.
 */
class ScriptGuard
{
public:
    /** @p wrapper is what the script sees of @p row; wrapped by the next install(). */
    void add(const QScriptValue& wrapper, const ZorvaDelegate& row);
    /** To be called before code runs: many forms have none, and this costs time for each row. */
    void install();

private:
    struct Row
    {
        QScriptValue wrapper;
        const QMetaObject* kind;
    };

    QScriptValue checked(QScriptEngine* engine, const QByteArray& signature);

    QList<Row> pending;
    QHash<QByteArray, QScriptValue> functions; // by signature
};

} // namespace Orvane

#endif
