#ifndef ZORVA_AUTHOR_TESTEDFORM_H
#define ZORVA_AUTHOR_TESTEDFORM_H

#include "scenario.h"

#include <author/document/description.h>

#include <QByteArray>
#include <QString>
#include <QVector>

namespace Orvane {
namespace Author {

/** The description under test with the places of its rows and of the lines of its script. */
class TestedForm
{
public:
    explicit TestedForm(const NamedText& text);

    /** False if the engine makes no form of it. */
    bool exists() const { return m_exists; }
    /** What the engine reads. */
    const QByteArray& description() const { return m_bytes; }
    /** The code that runs at the start. */
    const QString& code() const { return m_code; }
    /** Line of the description in which the row at that position begins; 0 if that is not known. */
    int lineOfRow(int row) const { return m_rowLines.value(row); }
    /** Line of the description for line @p line of the code, from 1 on. */
    int lineOfCode(int line) const { return m_codeLines.value(line - 1); }
    ScenarioPlace place(int line) const { return {m_name, line}; }

private:
    QString m_name;
    QByteArray m_bytes;
    bool m_exists = false;
    QString m_code;
    QVector<int> m_rowLines;
    QVector<int> m_codeLines;
};

} // namespace Author
} // namespace Orvane

#endif
