#ifndef ZORVA_AUTHOR_TESTREPORTS_H
#define ZORVA_AUTHOR_TESTREPORTS_H

#include "scenario.h"

#include <QByteArray>
#include <QString>
#include <QVector>

namespace Orvane {
namespace Author {

/** A test with how it went. */
struct TestedScenario
{
    ScenarioTest test;
    ScenarioResult result;
};

/** One test in the Test Anything Protocol, with what is to be said about a failure. */
QString tapText(int number, const TestedScenario& tested);
/** For the servers that build and test; @p name is that of the form. */
QByteArray junitXml(const QString& name, const QVector<TestedScenario>& tested);
/** One object for the run; @p coverage is empty if nobody asked for it. */
QByteArray testsJson(const QVector<TestedScenario>& tested, const QString& coverage);

} // namespace Author
} // namespace Orvane

#endif
