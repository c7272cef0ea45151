#include "coverage.h"

#include "statementlines.h"

#include <QScriptEngine>

namespace Orvane {
namespace Author {

CoverageAgent::CoverageAgent(QScriptEngine* engine, const QString& code)
    : QScriptEngineAgent(engine)
    , m_code(code)
{
    engine->setAgent(this);
}

void CoverageAgent::scriptLoad(qint64 id, const QString& program, const QString&, int)
{
    if (program == m_code)
        m_scripts.insert(id);
}

void CoverageAgent::positionChange(qint64 script, int line, int)
{
    if (m_scripts.contains(script))
        ++m_lines[line];
}

int Coverage::covered() const
{
    int count = 0;
    for (const int times : lines)
        count += times > 0 ? 1 : 0;
    return count;
}

QString Coverage::text() const
{
    const double share = lines.isEmpty() ? 1.0 : double(covered()) / lines.size();
    return QStringLiteral("%1 % of %2 lines").arg(share * 100, 0, 'f', 1).arg(lines.size());
}

Coverage coverageOf(const TestedForm& form, const QMap<int, int>& counts)
{
    Coverage coverage;
    for (const int line : statementLines(form.code()))
        coverage.lines.insert(form.lineOfCode(line), 0);
    for (auto count = counts.cbegin(); count != counts.cend(); ++count) {
        // The interpreter also reports the ends of functions, where nothing stands that could be left out.
        const auto line = coverage.lines.find(form.lineOfCode(count.key()));
        if (line != coverage.lines.end())
            *line += count.value();
    }
    return coverage;
}

QByteArray lcovText(const QString& file, const Coverage& coverage)
{
    QByteArray text = "TN:\nSF:" + file.toUtf8() + '\n';
    for (auto line = coverage.lines.cbegin(); line != coverage.lines.cend(); ++line)
        text += "DA:" + QByteArray::number(line.key()) + ',' + QByteArray::number(line.value()) + '\n';
    return text + "LF:" + QByteArray::number(coverage.lines.size()) +
           "\nLH:" + QByteArray::number(coverage.covered()) + "\nend_of_record\n";
}

} // namespace Author
} // namespace Orvane
