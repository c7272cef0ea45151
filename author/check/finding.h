#ifndef ZORVA_AUTHOR_FINDING_H
#define ZORVA_AUTHOR_FINDING_H

#include <author/document/sourcetext.h>

#include <QString>
#include <QVector>

namespace Orvane {
namespace Author {

/** Error: something is lost or dead. Warning: it works otherwise than meant. Note: without effect, or odd. */
enum class Severity { Note, Warning, Error };

/** "error", "warning" or "note". */
QString severityName(Severity severity);

/** One thing to say about a description, at its place. */
struct Finding
{
    QString id;
    Severity severity = Severity::Error;
    Range range;
    QString message;  // what is wrong, and what to do; Markdown code marks around names
    QString effect;   // what the live form lacks because of it; may be empty
    QString fix;      // a replacement for the text at the range; may be empty
    int element = -1; // the element that it is about, if any: what is lost by the element is its effect
};

/** One element of a description that the live form has nothing of. */
struct Loss
{
    int element = -1;
    Range range; // its start tag
    QString name;
    QString className; // of a row
    QString owner;     // row of a property (empty: the sheet), enumeration of an entry
};

/** All that a form lacks, by kind and in order of place. */
struct Losses
{
    QVector<Loss> rows;
    QVector<Loss> enumerations;
    QVector<Loss> entries;
    QVector<Loss> scripts;
    QVector<Loss> properties;
};

} // namespace Author
} // namespace Orvane

#endif
