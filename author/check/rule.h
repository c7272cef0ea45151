#ifndef ZORVA_AUTHOR_RULE_H
#define ZORVA_AUTHOR_RULE_H

#include "finding.h"

#include <QString>
#include <QVector>

namespace Orvane {
namespace Author {

class Subject;

/**
 * One kind of finding. The texts are what --explain and the page of rules show, in
 * Markdown; a test checks every snippet: the bad one has this finding, the good one
 * has none. A snippet that is no whole description is the content of a sheet; a line
 * "..." is not allowed.
 */
struct Rule
{
    const char* id; // words with "-"; never renamed, since descriptions and CI refer to it
    Severity severity;
    const char* title;       // one line, what is wrong
    const char* explanation; // why it matters on the form and what to do
    const char* bad;
    const char* good;
};

/**
 * Rules that look at the same thing. To add a family:
 *
 * 1. Write author/check/NAMErules.cpp with a table of rules, a function that looks
 *    at a Subject and calls subject.report(ID, ...) for what it finds, and
 *    `const Family nameFamily = {"name", "Heading", rules, check};`.
 * 2. Declare it in families.h, add it to the list in families.cpp and the file to
 *    author/CMakeLists.txt.
 * 3. Write tests/author/check/tst_NAMErules.cpp, table-driven on CheckTest: for
 *    each rule a description that has it alone, at the exact place, and one close
 *    to it that is clean. Renew docs/checker.md (the test that fails says how).
 *
 * A family looks at the description as its author meant it, what the engine does not
 * read included, so that one mistake never hides another. What the form loses is
 * not its affair: effects are worked out once for all findings, from the element that
 * each error names.
 */
struct Family
{
    const char* name;
    const char* heading;
    QVector<Rule> rules;
    void (*check)(Subject& subject);
};

} // namespace Author
} // namespace Orvane

#endif
