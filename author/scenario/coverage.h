#ifndef ZORVA_AUTHOR_COVERAGE_H
#define ZORVA_AUTHOR_COVERAGE_H

#include "scenario.h"
#include "testedform.h"

#include <QByteArray>
#include <QMap>
#include <QScriptEngineAgent>
#include <QSet>

namespace Orvane {
namespace Author {

/** Counts how often each line of a form's own script is run, from the start of the form on. */
class CoverageAgent : public QScriptEngineAgent
{
public:
    /** @p engine must outlive this, and must not have run @p code yet. */
    CoverageAgent(QScriptEngine* engine, const QString& code);

    /** By line of the code, from 1 on. */
    const QMap<int, int>& lines() const { return m_lines; }

    void scriptLoad(qint64 id, const QString& program, const QString& fileName, int baseLine) override;
    void positionChange(qint64 script, int line, int column) override;

private:
    const QString m_code;
    QSet<qint64> m_scripts;
    QMap<int, int> m_lines;
};

/** How much of a script the tests ran; lines are those of the description. */
struct Coverage
{
    QMap<int, int> lines; // every line that can run, with how often it did

    int covered() const;
    /** "93.5 % of 62 lines"; a script without lines is covered whole. */
    QString text() const;
};

/** @p counts by line of the code. */
Coverage coverageOf(const TestedForm& form, const QMap<int, int>& counts);
/** For lcov and genhtml; @p file is the path of the description. */
QByteArray lcovText(const QString& file, const Coverage& coverage);

} // namespace Author
} // namespace Orvane

#endif
