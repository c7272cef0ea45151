#include "effects.h"

#include "subject.h"

#include <QHash>
#include <QMap>

#include <algorithm>

namespace Orvane {
namespace Author {

namespace {

// A text of a million elements in each other must not be walked up from each.
constexpr int deepestOwned = 50;

QString ownerOf(const Subject& subject, int element)
{
    const bool isEntry = partOf(subject.element(element)) == Part::Entry;
    int levels = deepestOwned;
    for (int i = subject.element(element).parent; i >= 0 && levels-- > 0; i = subject.element(i).parent) {
        if (partOf(subject.element(i)) == (isEntry ? Part::Enumeration : Part::Row))
            return subject.element(i).value("name");
    }
    return QString();
}

QString nameOf(const Subject& subject, int element)
{
    if (partOf(subject.element(element)) != Part::Entry)
        return subject.element(element).value("name");
    const int shown = subject.description().child(element, "DisplayName");
    return shown < 0 ? QString() : subject.description().textOf(shown).trimmed();
}

Loss lossOf(const Subject& subject, int element)
{
    const SourceElement& lost = subject.element(element);
    return {element, lost.tag, nameOf(subject, element), lost.value("class"), ownerOf(subject, element)};
}

Losses collected(const Subject& subject, const QVector<int>& elements)
{
    Losses losses;
    for (const int element : elements) {
        switch (partOf(subject.element(element))) {
        case Part::Row:
            losses.rows.append(lossOf(subject, element));
            break;
        case Part::Enumeration:
            losses.enumerations.append(lossOf(subject, element));
            break;
        case Part::Entry:
            losses.entries.append(lossOf(subject, element));
            break;
        case Part::Script:
            losses.scripts.append(lossOf(subject, element));
            break;
        case Part::Property:
            losses.properties.append(lossOf(subject, element));
            break;
        case Part::None:
            break;
        }
    }
    return losses;
}

QString named(const Loss& loss)
{
    return loss.name.isEmpty() ? QStringLiteral("nameless") : loss.name;
}

/** "the row a", "2 rows (a, b)", "17 rows (a ... z)". */
QString counted(const QVector<Loss>& losses, const char* one, const char* many)
{
    if (losses.size() == 1)
        return QStringLiteral("the %1 %2").arg(QLatin1String(one), named(losses.first()));
    const QString names = losses.size() == 2
                              ? QStringLiteral("%1, %2").arg(named(losses.first()), named(losses.last()))
                              : QStringLiteral("%1 ... %2").arg(named(losses.first()), named(losses.last()));
    return QStringLiteral("%1 %2 (%3)").arg(losses.size()).arg(QLatin1String(many), names);
}

/** The losses that stand in none of @p outer: an enumeration that is gone takes its entries along. */
QVector<Loss> outside(const Subject& subject, const QVector<Loss>& inner, const QVector<Loss>& outer)
{
    QVector<Loss> found;
    for (const Loss& loss : inner) {
        const auto behind =
            std::upper_bound(outer.cbegin(), outer.cend(), loss.element,
                             [](int element, const Loss& candidate) { return element < candidate.element; });
        if (behind == outer.cbegin() ||
            !subject.description().isInside(loss.element, std::prev(behind)->element))
            found.append(loss);
    }
    return found;
}

QString listed(const QStringList& parts)
{
    if (parts.size() < 2)
        return parts.join(QString());
    return parts.mid(0, parts.size() - 1).join(QLatin1String(", ")) + QLatin1String(" and ") + parts.last();
}

QString effectText(const Subject& subject, const QVector<int>& elements)
{
    const Losses losses = collected(subject, elements);
    const QVector<Loss> entries = outside(subject, losses.entries, losses.enumerations);
    const QVector<Loss> properties = outside(subject, losses.properties, losses.rows);
    QStringList parts;
    if (!losses.rows.isEmpty())
        parts += counted(losses.rows, "row", "rows");
    if (!losses.enumerations.isEmpty())
        parts += counted(losses.enumerations, "enumeration", "enumerations");
    if (!entries.isEmpty())
        parts += counted(entries, "entry", "entries");
    if (!losses.scripts.isEmpty())
        parts += losses.scripts.size() == 1 ? QStringLiteral("the script")
                                            : QStringLiteral("%1 scripts").arg(losses.scripts.size());
    if (!properties.isEmpty())
        parts += counted(properties, "property", "properties");
    return parts.isEmpty() ? QString()
                           : QStringLiteral("because of this the form loses %1").arg(listed(parts));
}

/** Finds for each loss the finding that speaks of what caused it. */
class Attribution
{
public:
    explicit Attribution(Subject& subject)
        : m_subject(subject)
    {
        m_known = subject.findings().size();
        for (int i = 0; i < m_known; ++i)
            note(i);
    }

    void run()
    {
        for (const int element : m_subject.reading().lost())
            m_effects[findingFor(element)].append(element);
        for (auto effect = m_effects.cbegin(); effect != m_effects.cend(); ++effect) {
            Finding& finding = m_subject.findings()[effect.key()];
            if (finding.effect.isEmpty())
                finding.effect = effectText(m_subject, effect.value());
        }
    }

private:
    void note(int index)
    {
        const Finding& finding = m_subject.findings().at(index);
        if (finding.element >= 0 && (finding.severity == Severity::Error ||
                                     (finding.severity == Severity::Warning && isTwin(finding))))
            m_byElement.insert(finding.element, index);
        if (finding.severity != Severity::Error)
            return;
        const int line = m_subject.source().lineAt(finding.range.begin);
        m_firstErrorLine = m_firstErrorLine == 0 ? line : qMin(m_firstErrorLine, line);
        if (m_broken < 0 && finding.id == QLatin1String("not-well-formed"))
            m_broken = index;
        if (m_outside < 0 &&
            (finding.id == QLatin1String("no-form") || finding.id == QLatin1String("root-in-wrapper") ||
             finding.id == QLatin1String("several-roots")))
            m_outside = index;
        if (finding.id == QLatin1String("element-in-text") &&
            m_subject.element(finding.element).tag.end == m_subject.reading().stoppedAt())
            m_inText = index;
    }

    static bool isTwin(const Finding& finding)
    {
        return finding.id == QLatin1String("doubled-property") ||
               finding.id == QLatin1String("several-scripts");
    }

    int findingFor(int element)
    {
        const Fate& fate = m_subject.reading().fate(element);
        const int found = fate.isReplaced() ? replacedBy(element, fate) : causeOf(element, fate);
        if (found >= 0 && (fate.isReplaced() || hasErrorBefore(element)))
            return found;
        return added(element, fate);
    }

    int replacedBy(int element, const Fate& fate) const
    {
        // What replaces an enumeration replaces its entries.
        for (int i = element; i >= 0; i = m_subject.element(i).parent) {
            if (m_byElement.contains(i))
                return m_byElement.value(i);
        }
        return m_byElement.value(fate.by, -1);
    }

    int causeOf(int element, const Fate& fate) const
    {
        if (m_byElement.contains(element))
            return m_byElement.value(element);
        if (fate.by >= 0)
            return m_byElement.value(fate.by, -1);
        if (fate.cause == Cause::Outside)
            return m_outside;
        if (m_inText >= 0)
            return m_inText;
        return m_broken >= 0 ? m_broken : m_outside;
    }

    bool hasErrorBefore(int element) const
    {
        return m_firstErrorLine > 0 && m_firstErrorLine <= m_subject.lineOf(element);
    }

    static const char* twinRule(Part part)
    {
        if (part == Part::Script)
            return "several-scripts";
        return part == Part::Property ? "doubled-property" : "doubled-enumeration";
    }

    int added(int element, const Fate& fate)
    {
        const SourceElement& lost = m_subject.element(element);
        if (fate.isReplaced()) {
            m_subject.reportAt(twinRule(partOf(lost)), element,
                               QStringLiteral("this `%1` is replaced by the one in line %2")
                                   .arg(lost.name)
                                   .arg(m_subject.lineOf(fate.by)));
        } else if (partOf(lost) == Part::Script) {
            m_subject.reportAt("cut-script", element,
                               QStringLiteral("the text of this script does not reach the form as a whole"));
        } else {
            m_subject.reportAt("not-read", element,
                               QStringLiteral("nothing of this `%1` reaches the form").arg(lost.name));
        }
        const int index = m_subject.findings().size() - 1;
        note(index);
        return index;
    }

    Subject& m_subject;
    int m_known = 0;
    int m_firstErrorLine = 0;
    int m_inText = -1; // the element in a text at which the engine stops
    int m_broken = -1;
    int m_outside = -1;
    QHash<int, int> m_byElement; // finding by the element it is about
    QMap<int, QVector<int>> m_effects;
};

} // namespace

void addEffects(Subject& subject)
{
    Attribution(subject).run();
}

Losses lossesOf(const Subject& subject)
{
    return collected(subject, subject.reading().lost());
}

} // namespace Author
} // namespace Orvane
