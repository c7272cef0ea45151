#ifndef ZORVA_AUTHOR_KINDPAGE_H
#define ZORVA_AUTHOR_KINDPAGE_H

#include <QString>
#include <QStringList>

namespace Orvane {
namespace Author {

/**
 * The tables of a Markdown page made anew from the table of the language. They stand
 * between "<!-- kinds: NAME... -->" and "<!-- kinds end -->", where the names are
 * classes that are told of together, or "rows" (the properties that all rows share),
 * "row-object" (what a script finds on all of them), "sheet" and "sheet-object".
 */
struct KindPage
{
    QString text;        // the page with its tables renewed
    QStringList classes; // those that it tells of
    QString problem;     // a marker without its end or with an unknown name; empty if there is none
};

KindPage renewKindPage(const QString& page);

} // namespace Author
} // namespace Orvane

#endif
