#ifndef ZORVA_AUTHOR_DIFFERENCES_H
#define ZORVA_AUTHOR_DIFFERENCES_H

#include "settingsform.h"

#include <QString>
#include <QStringList>
#include <QVector>

namespace Orvane {
namespace Author {

/** What two sets of parameters say of one setting. */
struct Difference
{
    /**
     * Unknown: the form has no such row, whatever the sets say. NotSent: the form takes it
     * and never sends it, so no set of its own would have it.
     */
    enum Kind { Equal, Changed, OnlyInA, OnlyInB, Unknown, NotSent };

    Kind kind = Equal;
    QString key;
    QString name; // group and caption, or the key of what is unknown
    // Texts as they stand, and in the operator's words; null where a set has nothing.
    QString textA;
    QString textB;
    QString wordsA;
    QString wordsB;

    bool isDifferent = false; // also of what is unknown or not sent
};

/** "equal", "changed", "only-in-a", "only-in-b", "unknown", "not-sent". */
QString kindName(Difference::Kind kind);

/** Setting by setting: those of @p a in their order, then what only @p b has. */
QVector<Difference> differences(const SettingsForm& form, const ParameterSet& a, const ParameterSet& b);

/** Parameter XML that makes of a form with one set a form with the other. */
struct Patch
{
    QString xml;
    /** Names of rows that come out otherwise whatever is sent, since the script decides on them. */
    QStringList unreachable;
};

/**
 * The rows in which a form that took @p a differs from one that took @p b, with the
 * texts of the latter. Tried with the engine: rows that the script changes on the way
 * are in the patch, too.
 */
Patch patch(const SettingsForm& form, const QString& a, const QString& b);

} // namespace Author
} // namespace Orvane

#endif
