#ifndef ZORVA_AUTHOR_MANUAL_H
#define ZORVA_AUTHOR_MANUAL_H

#include <QPair>
#include <QString>
#include <QStringList>
#include <QVector>

namespace Orvane {

class ZorvaFormular;

namespace Author {

class SettingsForm;

/** One thing that is said of a row: what, and the words. Several words are choices. */
struct ManualFact
{
    enum Kind { Plain, Choices, Path };

    QString name;
    QStringList words;
    Kind kind = Plain;
    int chosen = -1; // the word that is the default
};

struct ManualRow
{
    QString name;    // in the description
    QString caption; // as the operator reads it
    QString help;    // may be empty
    QVector<ManualFact> facts;
};

struct ManualGroup
{
    QString name;  // of the headline; empty for the rows above the first
    QString title; // as the operator reads it
    QVector<ManualRow> rows;
};

/** What an operator's reference of a form says, in the language of the moment. */
struct Manual
{
    QString title;
    QVector<ManualGroup> groups; // those with rows
};

/**
 * The rows that an operator works with or looks at, group by group: range and step in the
 * unit that he reads, default as the form comes up, choices by their names.
 */
Manual manualOf(const SettingsForm& form, const QString& title);

} // namespace Author
} // namespace Orvane

#endif
