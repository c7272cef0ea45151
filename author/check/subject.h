#ifndef ZORVA_AUTHOR_SUBJECT_H
#define ZORVA_AUTHOR_SUBJECT_H

#include "finding.h"

#include <author/document/description.h>
#include <author/document/enginereading.h>
#include <author/kinds/kindtable.h>

#include <QString>
#include <QVector>

#include <memory>

namespace Orvane {
namespace Author {

class ScriptRunner;
class WrittenForm;
struct ScriptTrial;
struct WrittenProperty;

/** One description under examination: what the rules look at, and where they report. */
class Subject
{
public:
    /** @p runner, which is not owned, runs the script; null leaves it unrun. */
    explicit Subject(const SourceText& source, ScriptRunner* runner = nullptr);
    /** One that is scanned already; its script is not run. */
    explicit Subject(const Description& description);

    const SourceText& source() const { return m_description.source(); }
    /** As the author meant it. */
    const Description& description() const { return m_description; }
    /** As the engine reads it. */
    const EngineReading& reading() const { return m_reading; }
    /** Its rows with their properties; made at the first use. */
    const WrittenForm& written() const;
    /** How the live form's script runs at start-up. */
    ScriptTrial tryScript() const;
    const KindTable& kinds() const { return KindTable::instance(); }

    const SourceElement& element(int index) const { return m_description.element(index); }
    /** Elements of that name wherever they stand, in order of place. */
    QVector<int> elements(const char* name) const { return m_description.elementsNamed(name); }
    /** Line in which an element begins. */
    int lineOf(int element) const;

    /** A finding of the rule @p id at @p range, about @p element if that is not -1. */
    Finding& report(const char* id, Range range, const QString& message, int element = -1,
                    const QString& fix = QString());
    /** The same at the name in the element's start tag. */
    Finding& reportAt(const char* id, int element, const QString& message, const QString& fix = QString());

    /** Where the text of the property's value stands; it has a type element. */
    Range valueRange(const WrittenProperty& property) const;
    /** A finding there. */
    Finding& reportValue(const char* id, const WrittenProperty& property, const QString& message,
                         const QString& fix = QString());

    const QVector<Finding>& findings() const { return m_findings; }
    QVector<Finding>& findings() { return m_findings; }

private:
    Description m_description;
    EngineReading m_reading;
    ScriptRunner* m_runner; // not owned
    mutable std::shared_ptr<WrittenForm> m_written;
    QVector<Finding> m_findings;
};

} // namespace Author
} // namespace Orvane

#endif
