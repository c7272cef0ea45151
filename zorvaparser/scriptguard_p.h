#ifndef ZORVASCRIPTGUARD_P_H
#define ZORVASCRIPTGUARD_P_H

#include <QByteArray>
#include <QHash>
#include <QScriptValue>

namespace Orvane {

class ZorvaSheet;

/**
 * Keeps scripts from handing rows what they cannot take. The interpreter turns an
 * array into a list by calling itself for each level, before a slot is called:
 * one nested deep enough is the end of the program. Slots that take any value
 * are therefore wrapped by functions that look first, and throw a RangeError.
 */
class ScriptGuard
{
public:
    /**
     * Guards the sheet's object and the rows that came since the last call. To be called before code runs:
     * many forms have none, and this costs time for each row.
     */
    void install(ZorvaSheet& sheet, QScriptEngine& engine);

private:
    void guard(const QString& globalName, const QObject* object, QScriptEngine& engine);
    QScriptValue checked(QScriptEngine& engine, const QByteArray& signature);

    bool isSheetGuarded = false;
    int guardedRows = 0;
    QHash<QByteArray, QScriptValue> functions; // by signature
};

} // namespace Orvane

#endif
