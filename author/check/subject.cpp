#include "subject.h"

#include "families.h"
#include "scripttrial.h"
#include "writtenrow.h"

namespace Orvane {
namespace Author {

QString severityName(Severity severity)
{
    switch (severity) {
    case Severity::Error:
        return QStringLiteral("error");
    case Severity::Warning:
        return QStringLiteral("warning");
    case Severity::Note:
        break;
    }
    return QStringLiteral("note");
}

Subject::Subject(const SourceText& source, ScriptRunner* runner)
    : m_description(source)
    , m_reading(m_description)
    , m_runner(runner)
{
}

Subject::Subject(const Description& description)
    : m_description(description)
    , m_reading(m_description)
    , m_runner(nullptr)
{
}

const WrittenForm& Subject::written() const
{
    if (!m_written)
        m_written = std::make_shared<WrittenForm>(m_description);
    return *m_written;
}

ScriptTrial Subject::tryScript() const
{
    return m_runner ? m_runner->run(source().engineBytes()) : ScriptTrial();
}

int Subject::lineOf(int index) const
{
    return source().lineAt(element(index).tag.begin);
}

Finding& Subject::report(const char* id, Range range, const QString& message, int about, const QString& fix)
{
    const Rule* const rule = findRule(QLatin1String(id));
    Q_ASSERT(rule);
    Finding finding;
    finding.id = QLatin1String(id);
    finding.severity = rule ? rule->severity : Severity::Error;
    finding.range = range;
    finding.message = message;
    finding.fix = fix;
    finding.element = about;
    m_findings.append(finding);
    return m_findings.last();
}

Finding& Subject::reportAt(const char* id, int index, const QString& message, const QString& fix)
{
    const SourceElement& about = element(index);
    // The mark begins with the tag: that is where a lost element counts from.
    return report(id, {about.tag.begin, about.nameRange().end}, message, index, fix);
}

Range Subject::valueRange(const WrittenProperty& property) const
{
    return m_description.contentRange(property.type);
}

Finding& Subject::reportValue(const char* id, const WrittenProperty& property, const QString& message,
                              const QString& fix)
{
    return report(id, valueRange(property), message, -1, fix);
}

} // namespace Author
} // namespace Orvane
