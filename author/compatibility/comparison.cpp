#include "comparison.h"

#include <QHash>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSet>

#include <algorithm>

namespace Orvane {
namespace Author {

namespace {

/** Raised when a reader of the old form would stumble over the new one. */
constexpr int formatVersion = 1;

enum Effect { Compatible, Breaking };

QString numberText(double number)
{
    return QString::number(number, 'g', 15);
}

QString orNone(const QString& text)
{
    return text.isEmpty() ? QStringLiteral("none") : QStringLiteral("\"%1\"").arg(text);
}

class FormComparison
{
public:
    FormComparison(const FormInventory& oldForm, const FormInventory& newForm)
        : m_old(oldForm)
        , m_new(newForm)
        , m_newGlobals(newForm.globals().cbegin(), newForm.globals().cend())
    {
        for (const InventoryRow& row : oldForm.rows())
            m_oldNames.insert(row.name);
        for (int i = newForm.rows().size() - 1; i >= 0; --i) {
            const InventoryRow& row = newForm.rows().at(i);
            m_byName.insert(row.name, &row);
            if (row.sent)
                m_byPath.insert(row.path, &row);
        }
    }

    QVector<FormChange> run()
    {
        if (m_old.rootTag() != m_new.rootTag())
            report("root-changed", Breaking, m_new.rootTag(),
                   QStringLiteral(
                       "the root of parameter XML was <%1> and is <%2>: none that are stored are read")
                       .arg(m_old.rootTag(), m_new.rootTag()));
        for (const InventoryRow& row : m_old.rows())
            compareRow(row);
        for (auto one = m_old.enumerations().cbegin(); one != m_old.enumerations().cend(); ++one)
            compareEnumeration(one.key(), *one);
        for (const QString& global : m_old.globals()) {
            if (!m_newGlobals.contains(global) && !m_told.contains(global))
                report("script-object-gone", Breaking, global,
                       QStringLiteral("scripts find no `%1` any more").arg(global));
        }
        for (const InventoryRow& row : m_new.rows()) {
            if (!m_taken.contains(&row))
                report("row-added", Compatible, row.name, QStringLiteral("row `%1` is new").arg(row.name), 0,
                       row.line);
        }
        for (auto one = m_new.enumerations().cbegin(); one != m_new.enumerations().cend(); ++one) {
            if (!m_old.enumerations().contains(one.key()))
                report("enumeration-added", Compatible, one.key(),
                       QStringLiteral("enumeration `%1` is new").arg(one.key()), 0, one->line);
        }
        return m_changes;
    }

private:
    void report(const char* id, Effect effect, const QString& name, const QString& message, int oldLine = 0,
                int newLine = 0)
    {
        m_changes.append({QLatin1String(id), effect == Breaking, name, message, oldLine, newLine});
    }
    void report(const char* id, Effect effect, const InventoryRow& before, const InventoryRow& after,
                const QString& message)
    {
        report(id, effect, after.name, QStringLiteral("row `%1`: %2").arg(after.name, message), before.line,
               after.line);
    }

    void compareRow(const InventoryRow& before)
    {
        const InventoryRow* after = m_byName.value(before.name);
        if (!after && before.sent) {
            // Under another name, but in the same place of parameter XML.
            const InventoryRow* const renamed = m_byPath.value(before.path);
            if (renamed && !m_oldNames.contains(renamed->name)) {
                after = renamed;
                m_told.insert(before.name);
                report("script-object-gone", Breaking, before.name,
                       QStringLiteral("row `%1` is now `%2`: scripts and hosts find no `%1` any more")
                           .arg(before.name, after->name),
                       before.line, after->line);
            }
        }
        if (!after) {
            m_told.insert(before.name);
            const QString loss =
                before.sent ? QStringLiteral(", and with it %1 in stored parameters").arg(before.path)
                            : QString();
            report("row-gone", Breaking, before.name,
                   QStringLiteral("row `%1` is gone%2").arg(before.name, loss), before.line);
            return;
        }
        m_taken.insert(after);
        comparePlace(before, *after);
        compareKind(before, *after);
        compareNumbers(before, *after);
        compareTexts(before, *after);
        compareRoom(before, *after);
        compareChoices(before, *after);
        if (before.sent && after->sent && before.defaults != after->defaults)
            report("default-changed", Compatible, before, *after,
                   QStringLiteral("comes up with %1 instead of %2")
                       .arg(orNone(after->defaults), orNone(before.defaults)));
    }

    void comparePlace(const InventoryRow& before, const InventoryRow& after)
    {
        if (before.sent && !after.sent)
            report("no-longer-sent", Breaking, before, after,
                   QStringLiteral("%1 is no longer sent").arg(before.path));
        else if (!before.sent && after.sent)
            report("newly-sent", Compatible, before, after, QStringLiteral("%1 is sent now").arg(after.path));
        else if (before.sent && before.path != after.path)
            report("path-moved", Breaking, before, after,
                   QStringLiteral("%1 in stored parameters is now %2").arg(before.path, after.path));
    }

    void compareKind(const InventoryRow& before, const InventoryRow& after)
    {
        if (before.className == after.className)
            return;
        const bool isAlias = before.kind->delegate == after.kind->delegate;
        report("class-changed", isAlias ? Compatible : Breaking, before, after,
               QStringLiteral("was %1 and is %2").arg(orNone(before.className), orNone(after.className)) +
                   QLatin1String(isAlias ? ", which is the same" : ""));
    }

    void compareNumbers(const InventoryRow& before, const InventoryRow& after)
    {
        if (before.minimum && after.minimum) {
            const bool isNarrower = *after.minimum > *before.minimum || *after.maximum < *before.maximum;
            const bool isWider = *after.minimum < *before.minimum || *after.maximum > *before.maximum;
            const QString message = QStringLiteral("was %1 to %2 and is %3 to %4")
                                        .arg(numberText(*before.minimum), numberText(*before.maximum),
                                             numberText(*after.minimum), numberText(*after.maximum));
            if (isNarrower)
                report("limits-narrowed", Breaking, before, after, message);
            if (isWider)
                report("limits-widened", Compatible, before, after, message);
        }
        if (before.unit != after.unit)
            report("unit-changed", Breaking, before, after,
                   QStringLiteral("the unit of its parameter was %1 and is %2")
                       .arg(orNone(before.unit), orNone(after.unit)));
        if (before.scale != after.scale)
            report("scale-changed", Compatible, before, after,
                   QStringLiteral("was shown with %1 and is with %2; what is stored means the same")
                       .arg(orNone(before.scale), orNone(after.scale)));
        if (before.decimals > after.decimals && after.kind->delegate == QLatin1String("ZorvaDoubleSpinBox"))
            report("decimals-fewer", Breaking, before, after,
                   QStringLiteral("had %1 decimals and has %2").arg(before.decimals).arg(after.decimals));
    }

    void compareTexts(const InventoryRow& before, const InventoryRow& after)
    {
        if (!before.states.isEmpty() && !after.states.isEmpty() && before.states != after.states)
            report("states-changed", Breaking, before, after,
                   QStringLiteral("its texts were %1 and are %2").arg(before.states, after.states));
    }

    void compareRoom(const InventoryRow& before, const InventoryRow& after)
    {
        for (auto one = before.room.cbegin(); one != before.room.cend(); ++one) {
            const auto other = after.room.constFind(one.key());
            if (other == after.room.cend() || *other == *one)
                continue;
            report(*other < *one ? "limits-narrowed" : "limits-widened",
                   *other < *one ? Breaking : Compatible, before, after,
                   QStringLiteral("%1 was %2 and is %3").arg(one.key()).arg(*one).arg(*other));
        }
    }

    static int indexOfValue(const QVector<InventoryChoice>& choices, const QString& value)
    {
        const auto found =
            std::find_if(choices.cbegin(), choices.cend(),
                         [&value](const InventoryChoice& choice) { return choice.value == value; });
        return found == choices.cend() ? -1 : static_cast<int>(found - choices.cbegin());
    }

    // Rows of one enumeration lose what it loses; this is for one that has another.
    void compareChoices(const InventoryRow& before, const InventoryRow& after)
    {
        if (before.enumeration == after.enumeration)
            return;
        const auto& choices = m_new.enumerations().value(after.enumeration).choices;
        for (const InventoryChoice& choice : m_old.enumerations().value(before.enumeration).choices) {
            if (indexOfValue(choices, choice.value) < 0)
                report("choice-gone", Breaking, before, after,
                       QStringLiteral("choice \"%1\" (%2) is gone").arg(choice.value, choice.shown));
        }
    }

    void compareEnumeration(const QString& name, const InventoryEnumeration& before)
    {
        const auto found = m_new.enumerations().constFind(name);
        if (found == m_new.enumerations().cend()) {
            m_told.insert(name);
            report("script-object-gone", Breaking, name,
                   QStringLiteral("enumeration `%1` is gone: scripts find it no more").arg(name),
                   before.line);
            return;
        }
        const InventoryEnumeration& after = *found;
        const auto tell = [&](const char* id, Effect effect, const QString& message) {
            report(id, effect, name, QStringLiteral("enumeration `%1`: %2").arg(name, message), before.line,
                   after.line);
        };
        QVector<int> order;
        for (const InventoryChoice& choice : before.choices) {
            const int index = indexOfValue(after.choices, choice.value);
            if (index < 0) {
                tell("choice-gone", Breaking,
                     QStringLiteral("choice \"%1\" (%2) is gone").arg(choice.value, choice.shown));
                continue;
            }
            order.append(index);
            const InventoryChoice& now = after.choices.at(index);
            if (now.shown != choice.shown)
                tell("choice-renamed", Compatible,
                     QStringLiteral("choice \"%1\" was shown as \"%2\" and is as \"%3\"")
                         .arg(choice.value, choice.shown, now.shown));
            if (now.identifier != choice.identifier)
                tell("choice-identifier-changed", Breaking,
                     QStringLiteral("scripts know choice \"%1\" as %2 instead of %3")
                         .arg(choice.value, orNone(now.identifier), orNone(choice.identifier)));
        }
        if (!std::is_sorted(order.cbegin(), order.cend()))
            tell("choices-reordered", Compatible, QStringLiteral("the choices stand in another order"));
        for (const InventoryChoice& choice : after.choices) {
            if (indexOfValue(before.choices, choice.value) < 0)
                tell("choice-added", Compatible,
                     QStringLiteral("choice \"%1\" (%2) is new").arg(choice.value, choice.shown));
        }
    }

    const FormInventory& m_old;
    const FormInventory& m_new;
    const QSet<QString> m_newGlobals;
    QSet<QString> m_oldNames;                     // of rows
    QHash<QString, const InventoryRow*> m_byName; // the first of its name
    QHash<QString, const InventoryRow*> m_byPath;
    QSet<const InventoryRow*> m_taken;
    QSet<QString> m_told; // names whose loss is told already
    QVector<FormChange> m_changes;
};

QString placeText(const QString& file, int line)
{
    return line > 0 ? QStringLiteral("%1:%2").arg(file).arg(line) : file;
}

} // namespace

QVector<FormChange> compareForms(const FormInventory& oldForm, const FormInventory& newForm)
{
    return FormComparison(oldForm, newForm).run();
}

QString changesText(const QString& oldName, const QString& newName, const QVector<FormChange>& changes)
{
    QString text;
    int breaking = 0;
    for (const FormChange& change : changes) {
        breaking += change.breaking ? 1 : 0;
        const QString place = change.newLine > 0 || change.oldLine == 0 ? placeText(newName, change.newLine)
                                                                        : placeText(oldName, change.oldLine);
        text += QStringLiteral("%1: %2: %3 [%4]\n")
                    .arg(place, QLatin1String(change.breaking ? "breaking" : "compatible"), change.message,
                         change.id);
    }
    return text + QStringLiteral("%1 breaking, %2 compatible\n").arg(breaking).arg(changes.size() - breaking);
}

QByteArray changesJson(const QVector<FormChange>& changes)
{
    QJsonArray array;
    for (const FormChange& change : changes)
        array.append(QJsonObject{{QStringLiteral("id"), change.id},
                                 {QStringLiteral("breaking"), change.breaking},
                                 {QStringLiteral("name"), change.name},
                                 {QStringLiteral("message"), change.message},
                                 {QStringLiteral("oldLine"), change.oldLine},
                                 {QStringLiteral("newLine"), change.newLine}});
    return QJsonDocument(
               QJsonObject{{QStringLiteral("version"), formatVersion}, {QStringLiteral("changes"), array}})
        .toJson();
}

} // namespace Author
} // namespace Orvane
