#include "testedform.h"

#include <author/document/enginereading.h>
#include <author/document/scriptlines.h>

namespace Orvane {
namespace Author {

TestedForm::TestedForm(const NamedText& text)
    : m_name(text.name)
{
    const Description description{SourceText(text.bytes)};
    const EngineReading reading(description);
    m_bytes = description.source().engineBytes();
    m_exists = reading.hasForm();
    m_code = reading.form().code;
    for (const ReadRow& row : reading.form().rows)
        m_rowLines.append(description.source().lineAt(description.element(row.element).tag.begin));
    if (reading.form().script >= 0)
        m_codeLines = scriptLinesInFile(description, reading.form().script);
}

} // namespace Author
} // namespace Orvane
