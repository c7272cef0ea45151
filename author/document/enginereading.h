#ifndef ZORVA_AUTHOR_ENGINEREADING_H
#define ZORVA_AUTHOR_ENGINEREADING_H

#include "description.h"

#include <QMap>
#include <QSet>
#include <QString>
#include <QVariant>
#include <QVector>

#include <optional>

namespace Orvane {
namespace Author {

class Replay;

/** The kinds of elements that a form is made of. */
enum class Part { None, Row, Enumeration, Entry, Script, Property };

/** What an element makes of a form; None for those that only hold others. */
Part partOf(const SourceElement& element);

/** Why the engine takes nothing from an element. */
enum class Cause {
    None,
    Outside,  // stands in no form: `by` is -1
    Skipped,  // inside `by`, which the engine does not know at its place
    Cut,      // behind `by`, whose end tag is taken for the end of more than itself
    Broken,   // behind the place where the text stops being well-formed, or cut by it
    Replaced, // `by` comes later and takes its place
};

/** What became of one element in the live form. */
struct Fate
{
    bool alive = false;
    Cause cause = Cause::None;
    int by = -1; // index of an element

    bool isLost() const { return !alive; }
    /** Nothing went wrong but that a later twin wins. */
    bool isReplaced() const { return !alive && cause == Cause::Replaced; }
};

/** One property that the engine sets, of a row or of the sheet. */
struct ReadProperty
{
    int element = -1;
    QVariant value;
};

struct ReadRow
{
    int element = -1;
    QString name; // made by the engine where the description gives none
    QString className;
    QMap<QString, ReadProperty> properties; // by name as Qt takes it
    QMap<QString, ReadProperty> custom;
    int customBlock =
        -1; // the last block of custom properties, which some kinds answer also when it is empty
};

struct ReadEntry
{
    int element = -1;
    QString displayName;
    QString identifier;
    QString value;
};

struct ReadEnumeration
{
    int element = -1;
    QString name;
    QVector<ReadEntry> entries;
};

/** What the engine makes of a description. */
struct ReadForm
{
    bool exists = false;
    int element = -1; // the root
    QString version;
    QString sheetName;
    QMap<QString, ReadProperty> sheetProperties;
    QMap<QString, ReadProperty> sheetCustom;
    QVector<ReadRow> rows;
    QMap<QString, ReadEnumeration> enumerations;
    int script = -1;
    QString code; // with the escapes replaced
    QVector<int> sheets;
    QVector<int> roots;
};

/**
 * The engine's reading of a description, step by step and with the same reader,
 * so that for each element of the text it is known what the live form has of it.
 * Nothing is built and nothing runs.
 */
class EngineReading
{
public:
    explicit EngineReading(const Description& description);

    bool hasForm() const { return m_form.exists; }
    const ReadForm& form() const { return m_form; }
    /** Meaningful for the elements that are a part of forms. */
    const Fate& fate(int element) const { return m_fates.at(element); }
    /** Elements that the live form lacks, in order of place. */
    const QVector<int>& lost() const { return m_lost; }
    /** True for a property element whose value reached the row or the sheet at least once. */
    bool wasSet(int element) const { return m_set.contains(element); }

    /** Where the engine's reader gives up, be it at broken XML or at an element in a text; -1 if it does not.
     */
    int stoppedAt() const { return m_stoppedAt; }
    /** Where the text stops being well-formed; -1 if it is. Holds behind the place where the engine stops,
     * too. */
    int brokenAt() const { return breakOfText().at; }
    /** The words of the XML reader for it. */
    const QString& brokenBy() const { return breakOfText().by; }

private:
    struct Break
    {
        int at = -1;
        QString by;
    };

    const Break& breakOfText() const;
    void settle(const Description& description, const Replay& replay);
    void settleScripts(const Description& description);
    Fate causeOf(const Description& description, const Replay& replay, int element) const;
    void keep(int element);
    void keepAll(const QMap<QString, ReadProperty>& properties);

    ReadForm m_form;
    QVector<Fate> m_fates;
    QVector<int> m_lost;
    QSet<int> m_set;
    int m_stoppedAt = -1;
    SourceText m_source;
    mutable std::optional<Break> m_break; // looked for when somebody asks
};

/** @p code as the engine runs it: the escapes for line ends replaced. */
QString withoutEscapes(QString code);

} // namespace Author
} // namespace Orvane

#endif
