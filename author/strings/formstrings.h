#ifndef ZORVA_AUTHOR_FORMSTRINGS_H
#define ZORVA_AUTHOR_FORMSTRINGS_H

#include <QByteArray>
#include <QString>
#include <QVector>

namespace Orvane {
namespace Author {

/** A text that a form looks up among the translators. */
struct FormString
{
    QString context;    // name of a row or an enumeration
    QString source;     // as in the description
    QVector<int> lines; // where it stands in the description, from 1 on; empty if the engine adds it
};

struct FormStrings
{
    bool hasForm = false;
    QVector<FormString> strings; // in the order in which the form asks for them, each once
};

/**
 * What the running form asks for, with the contexts that it asks with: the engine itself
 * builds the form, collapses and opens its groups and changes the language, while a
 * translator notes what it is asked. What the script gives to a row counts if it stands in the
 * script as one text; what is computed does not. Needs an application with widgets.
 */
FormStrings formStrings(const QByteArray& description);

} // namespace Author
} // namespace Orvane

#endif
