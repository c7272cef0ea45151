#ifndef ZORVA_AUTHOR_CHECKER_H
#define ZORVA_AUTHOR_CHECKER_H

#include "finding.h"

#include <author/document/sourcetext.h>

#include <QByteArray>
#include <QString>
#include <QVector>

namespace Orvane {
namespace Author {

class ScriptRunner;

/** What is to be said about one description. */
struct CheckedFile
{
    QString file; // as the user wrote it
    SourceText source;
    bool form = false;         // whether the engine makes a form of it
    QVector<Finding> findings; // in order of place
    Losses lost;

    /** Findings of at least that severity. */
    bool has(Severity severity) const;
};

/**
 * Looks at the bytes of a description with every rule. Gives findings for any bytes whatsoever.
 * @p runner runs the script; without one it is only read.
 */
CheckedFile check(const QString& file, const QByteArray& bytes, ScriptRunner* runner = nullptr);

} // namespace Author
} // namespace Orvane

#endif
