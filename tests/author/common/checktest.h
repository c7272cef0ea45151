#ifndef ZORVA_TESTS_AUTHOR_CHECKTEST_H
#define ZORVA_TESTS_AUTHOR_CHECKTEST_H

#include <author/check/checker.h>

#include <QString>

/// What the check says about `description`, in order: "id line:column, id line:column".
QString placesIn(const QString& description);
/// The effects of its findings, in order and with "; " between; only those that are not empty.
QString effectsIn(const QString& description);
/// A whole description of rows that need no enumerations and no script.
QString formOf(const char* rows);
/// What breaks the promises about losses in a check; empty if nothing does: each has an
/// error on its line or before it, or, where a later twin wins, a warning at one of the two.
QString lossesWithoutFinding(const Orvane::Author::CheckedFile& checked);

#endif
