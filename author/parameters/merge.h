#ifndef ZORVA_AUTHOR_MERGE_H
#define ZORVA_AUTHOR_MERGE_H

#include "settingsform.h"

#include <QString>
#include <QVector>

namespace Orvane {
namespace Author {

/** Whose word counts where both sides changed one setting. */
enum class Preference { Neither, Ours, Theirs };

/** A setting that both sides changed, each to something else; null texts where a side has dropped it. */
struct Conflict
{
    QString key;
    QString name;
    QString textBase;
    QString textOurs;
    QString textTheirs;
    QString wordsBase;
    QString wordsOurs;
    QString wordsTheirs;
};

/** What becomes of two sets that came of one. */
struct Merge
{
    QString xml; // with a conflict, the base's text stands unless somebody is preferred
    QVector<Conflict> conflicts;
};

/**
 * Takes what only one side changed, added or dropped, setting by setting; what both changed
 * alike is no conflict. Settings that the form does not know are merged by their texts.
 */
Merge merge(const SettingsForm& form, const ParameterSet& base, const ParameterSet& ours,
            const ParameterSet& theirs, Preference preference);

} // namespace Author
} // namespace Orvane

#endif
