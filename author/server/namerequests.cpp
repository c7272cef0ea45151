#include "namerequests.h"

#include "formnames.h"

#include <author/check/scriptnames.h>

#include <QRegularExpression>

namespace Orvane {
namespace Author {

namespace {

bool isIdentifier(const QString& name)
{
    static const QRegularExpression pattern(QStringLiteral("\\A[\\p{L}_$][\\p{L}\\p{N}_$]*\\z"),
                                            QRegularExpression::UseUnicodePropertiesOption);
    return pattern.match(name).hasMatch() && !KindTable::instance().script().words.contains(name);
}

/** Whether one name may be given in place of another, and what has to be written for it. */
class Renaming
{
public:
    Renaming(const OpenDocument& document, int offset)
        : m_document(document)
        , m_names(document.description())
        , m_use(m_names.useAt(offset))
    {
        if (m_use)
            m_all = m_names.usesOf(m_use->thing);
    }

    const NameUse* use() const { return m_use; }

    /** Why nothing here can be renamed; empty if it can. */
    QString hindrance() const
    {
        if (!m_use)
            return QStringLiteral("nothing here has a name that stands elsewhere, too");
        const NamedThing& thing = m_use->thing;
        if (thing.kind == NamedThing::Entry)
            return QStringLiteral("devices and stored settings know the value `%1`").arg(thing.name);
        const int count = m_names.definitionsOf(thing).size();
        if (count == 0)
            return QStringLiteral("nothing is called `%1`").arg(thing.name);
        return count == 1 || thing.kind == NamedThing::Variable
                   ? QString()
                   : QStringLiteral("`%1` is there %2 times, so nobody can tell which is meant")
                         .arg(thing.name)
                         .arg(count);
    }

    /** Why it cannot get this name; empty if it can. */
    QString objection(const QString& name) const
    {
        static const QRegularExpression control(QStringLiteral("[\\x00-\\x1f]"));
        if (name.trimmed().isEmpty() || name.contains(control))
            return QStringLiteral("that is no name");
        if (isTaken(name))
            return QStringLiteral("there is a `%1` already").arg(name);
        if (!isInCode())
            return QString();
        if (!isIdentifier(name))
            return QStringLiteral("the script speaks of `%1`, and `%2` is no name for a script")
                .arg(m_use->thing.name, name);
        return isHidden(name) ? QStringLiteral("the script has a `%1` of its own where it speaks of `%2`")
                                    .arg(name, m_use->thing.name)
                              : QString();
    }

    QJsonArray edits(const QString& name) const
    {
        QJsonArray edits;
        for (const NameUse& use : m_all) {
            if (use.where != NameUse::Path)
                edits.append(textEditJson(m_document, use.range,
                                          use.where == NameUse::Code ? name : escapedText(name)));
        }
        return edits;
    }

private:
    bool isInCode() const
    {
        for (const NameUse& use : m_all) {
            if (use.where == NameUse::Code)
                return true;
        }
        return false;
    }

    bool isTaken(const QString& name) const
    {
        const NamedThing& thing = m_use->thing;
        if (thing.kind == NamedThing::Identifier)
            return !m_names.definitionsOf({thing.kind, name, thing.owner}).isEmpty();
        if (thing.kind == NamedThing::Variable)
            return !m_names.definitionsOf({thing.kind, name, thing.owner}).isEmpty();
        for (const NamedThing::Kind kind : {NamedThing::Row, NamedThing::Sheet, NamedThing::Enumeration}) {
            if (!m_names.definitionsOf({kind, name, QString()}).isEmpty())
                return true;
        }
        return KindTable::instance().script().globals().contains(name);
    }

    /** True if a function, or the script as a whole, gives the new name another meaning at one of the uses.
     */
    bool isHidden(const QString& name) const
    {
        if (m_use->thing.kind == NamedThing::Identifier)
            return false;
        if (m_use->thing.kind == NamedThing::Variable && m_names.findObject(name))
            return true;
        for (const int script : m_document.description().elementsNamed("Script")) {
            const ScriptNames names(m_document.description().textOf(script));
            for (const NameUse& use : m_all) {
                if (use.script == script && names.declaredAt(use.token).contains(name))
                    return true;
            }
        }
        return false;
    }

    const OpenDocument& m_document;
    const FormNames m_names;
    const NameUse* m_use; // null if nothing is named
    QVector<NameUse> m_all;
};

QJsonArray locations(const OpenDocument& document, const QVector<NameUse>& uses)
{
    QJsonArray found;
    for (const NameUse& use : uses)
        found.append(locationJson(document, use.range));
    return found;
}

} // namespace

QJsonArray definitionsAt(const OpenDocument& document, int offset)
{
    const FormNames names(document.description());
    const NameUse* const use = names.useAt(offset);
    return use ? locations(document, names.definitionsOf(use->thing)) : QJsonArray();
}

QJsonArray referencesAt(const OpenDocument& document, int offset, bool withDefinitions)
{
    const FormNames names(document.description());
    const NameUse* const use = names.useAt(offset);
    QVector<NameUse> uses;
    for (const NameUse& candidate : use ? names.usesOf(use->thing) : QVector<NameUse>()) {
        if (withDefinitions || !candidate.isDefinition)
            uses.append(candidate);
    }
    return locations(document, uses);
}

QJsonArray highlightsAt(const OpenDocument& document, int offset)
{
    constexpr int read = 2;
    constexpr int written = 3;
    const FormNames names(document.description());
    const NameUse* const use = names.useAt(offset);
    QJsonArray found;
    for (const NameUse& candidate : use ? names.usesOf(use->thing) : QVector<NameUse>())
        found.append(QJsonObject{{QStringLiteral("range"), rangeJson(document, candidate.range)},
                                 {QStringLiteral("kind"), candidate.isDefinition ? written : read}});
    return found;
}

Reply renamableAt(const OpenDocument& document, int offset)
{
    const Renaming renaming(document, offset);
    const QString hindrance = renaming.hindrance();
    if (!hindrance.isEmpty())
        return Reply::failure(RequestFailed, hindrance);
    return Reply(QJsonObject{{QStringLiteral("range"), rangeJson(document, renaming.use()->range)},
                             {QStringLiteral("placeholder"), renaming.use()->thing.name}});
}

Reply renameAt(const OpenDocument& document, int offset, const QString& newName)
{
    const Renaming renaming(document, offset);
    QString problem = renaming.hindrance();
    if (problem.isEmpty() && newName == renaming.use()->thing.name)
        return Reply(workspaceEditJson(document, QJsonArray()));
    if (problem.isEmpty())
        problem = renaming.objection(newName);
    if (!problem.isEmpty())
        return Reply::failure(RequestFailed, problem);
    return Reply(workspaceEditJson(document, renaming.edits(newName)));
}

} // namespace Author
} // namespace Orvane
