#ifndef ZORVA_AUTHOR_SCENARIO_H
#define ZORVA_AUTHOR_SCENARIO_H

#include <QByteArray>
#include <QMap>
#include <QString>
#include <QStringList>
#include <QVector>

namespace Orvane {
namespace Author {

/** One text with the name that messages call it by. */
struct NamedText
{
    QString name;
    QByteArray bytes;
};

/** What is to be tested, and by what. */
struct ScenarioSetup
{
    NamedText form;
    QVector<NamedText> tests; // sources
    bool coverage = false;
};

/** A place that a message speaks of; line 0 is none. */
struct ScenarioPlace
{
    QString file;
    int line = 0;

    /** "file:line", empty for no place. */
    QString text() const;
};

/** One test as its source declares it. */
struct ScenarioTest
{
    QString name;
    ScenarioPlace place;
};

/** How one test went. */
struct ScenarioResult
{
    bool passed = false;
    QString message;         // of a failure
    ScenarioPlace place;     // in the test
    ScenarioPlace formPlace; // in the description
    bool compared = false;   // whether the next two say anything
    QString expected;
    QString seen;
    QStringList notes;    // what the test printed
    QMap<int, int> lines; // with coverage: how often each line of the form's code ran, by line from 1
    int milliseconds = 0;
};

QDataStream& operator<<(QDataStream& stream, const ScenarioSetup& setup);
QDataStream& operator>>(QDataStream& stream, ScenarioSetup& setup);
QDataStream& operator<<(QDataStream& stream, const ScenarioTest& test);
QDataStream& operator>>(QDataStream& stream, ScenarioTest& test);
QDataStream& operator<<(QDataStream& stream, const ScenarioResult& result);
QDataStream& operator>>(QDataStream& stream, ScenarioResult& result);

} // namespace Author
} // namespace Orvane

#endif
