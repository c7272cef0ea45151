#include "overlaytrial.h"

#include <author/document/replay.h>
#include <author/kinds/kindtable.h>
#include <author/live/liveform.h>
#include <author/live/scriptbound.h>

#include <zorvaparser/zorvadelegate.h>
#include <zorvaparser/zorvaenum.h>

#include <QScriptValue>
#include <QSet>

#include <memory>

namespace Orvane {
namespace Author {

namespace {

/** What there is of one live row, by kind and name. */
using RowState = QMap<QPair<int, QString>, QString>;

QString textOf(const QVariant& value)
{
    const QString text = value.toString();
    return text.isNull() ? QStringLiteral("") : text; // null is for what is not there
}

RowState stateOf(ZorvaDelegate& row, const QSet<QString>& customNames)
{
    RowState state;
    for (const QByteArray& name : row.dynamicPropertyNames()) {
        const QString key = QString::fromLatin1(name);
        if (!KindTable::instance().isReservedProperty(key))
            state.insert({OverlayChange::Property, key}, textOf(row.property(name.constData())));
    }
    for (const QString& name : customNames) {
        const QVariant value = row.customProperty(name);
        if (value.isValid())
            state.insert({OverlayChange::CustomProperty, name}, textOf(value));
    }
    if (const values::ValueBase* const value = row.GetVTValue())
        state.insert({OverlayChange::Value, QString()}, textOf(value->GetStringValue()));
    state.insert({OverlayChange::Mark, QString()},
                 row.isModified() ? QStringLiteral("yes") : QStringLiteral("no"));
    return state;
}

QStringList entriesOf(const ZorvaEnum& enumeration)
{
    QStringList entries;
    for (int i = 0; i < enumeration.GetValueCount(); ++i)
        entries.append(QStringLiteral("%1 (%2)").arg(enumeration.GetValueAt(i).GetDisplayName(),
                                                     enumeration.GetValueAt(i).GetValue()));
    return entries;
}

/** Entries of a live enumeration that its script object does not have so, and what that has instead. */
QStringList staleIdentifiers(const QScriptValue& object, const ZorvaEnum& enumeration,
                             const ZorvaEnum& before)
{
    QStringList stale;
    QMap<QString, QString> now;
    for (int i = 0; i < enumeration.GetValueCount(); ++i)
        now.insert(enumeration.GetValueAt(i).GetEnumIdentifier(), enumeration.GetValueAt(i).GetValue());
    for (int i = 0; i < before.GetValueCount(); ++i) {
        const QString& identifier = before.GetValueAt(i).GetEnumIdentifier();
        const QString seen = object.property(identifier).toString();
        if (!identifier.isEmpty() && now.value(identifier) != seen)
            stale.append(QStringLiteral("%1 = \"%2\"").arg(identifier, seen));
    }
    for (auto entry = now.cbegin(); entry != now.cend(); ++entry) {
        if (!entry.key().isEmpty() && !object.property(entry.key()).isValid())
            stale.append(QStringLiteral("no %1").arg(entry.key()));
    }
    return stale;
}

/** The overlay as the engine reads it, against the text. */
class OverlayReading
{
public:
    OverlayReading(const Description& description, const QSet<QString>& rows)
        : m_description(description)
        , m_replay(description)
    {
        m_replay.runOverlay(rows);
    }

    const ReadForm& form() const { return m_replay.form(); }
    int lineOf(int element) const
    {
        return element < 0 ? 0 : m_description.source().lineAt(m_description.element(element).tag.begin);
    }

    QVector<OverlayLoss> losses() const
    {
        const QSet<int> alive = taken();
        QVector<OverlayLoss> losses;
        for (int i = 0; i < m_description.elements().size(); ++i) {
            const SourceElement& element = m_description.element(i);
            if (partOf(element) != Part::None && !alive.contains(i))
                losses.append({nameOf(element), reason(i), lineOf(i)});
        }
        return losses;
    }

private:
    QSet<int> taken() const
    {
        QSet<int> alive{form().script};
        const auto keep = [&alive](const QMap<QString, ReadProperty>& properties) {
            for (const ReadProperty& property : properties)
                alive.insert(property.element);
        };
        for (const ReadRow& row : form().rows) {
            alive.insert(row.element);
            keep(row.properties);
            keep(row.custom);
        }
        for (const ReadEnumeration& enumeration : form().enumerations) {
            alive.insert(enumeration.element);
            for (const ReadEntry& entry : enumeration.entries)
                alive.insert(entry.element);
        }
        return alive;
    }

    static QString nameOf(const SourceElement& element)
    {
        switch (partOf(element)) {
        case Part::Row:
            return QStringLiteral("row `%1`").arg(element.value("name"));
        case Part::Enumeration:
            return QStringLiteral("enumeration `%1`").arg(element.value("name"));
        case Part::Entry:
            return QStringLiteral("an entry");
        case Part::Script:
            return QStringLiteral("the script");
        default:
            return QStringLiteral("property `%1`").arg(element.value("name"));
        }
    }

    QString reason(int index) const
    {
        const Fate fate = m_replay.note(index);
        const bool isBehindError =
            m_replay.errorAt() >= 0 && m_description.element(index).tag.begin >= m_replay.errorAt();
        if (isBehindError)
            return QStringLiteral("the text is not well-formed before it");
        switch (fate.cause) {
        case Cause::Replaced:
            return QStringLiteral("line %1 comes later and counts").arg(lineOf(fate.by));
        case Cause::Cut:
            return QStringLiteral("line %1 cuts it off").arg(lineOf(fate.by));
        case Cause::Skipped:
            if (fate.by == index && partOf(m_description.element(index)) == Part::Row)
                return QStringLiteral("the form has no such row; all behind it is cut off");
            if (fate.by == index)
                return QStringLiteral("nothing is read of it here");
            return QStringLiteral("it is inside of what is skipped at line %1").arg(lineOf(fate.by));
        default:
            return m_replay.cut() >= 0 ? QStringLiteral("line %1 cuts it off").arg(lineOf(m_replay.cut()))
                                       : QStringLiteral("it stands in no overlay");
        }
    }

    const Description& m_description;
    Replay m_replay;
};

/** What an overlay writes to the rows, by name. */
class WrittenNames
{
public:
    explicit WrittenNames(const OverlayReading& reading)
    {
        for (const ReadRow& row : reading.form().rows) {
            add(reading, row.name, row.properties);
            add(reading, row.name, row.custom);
            for (const QString& name : row.custom.keys())
                m_custom[row.name].insert(name);
        }
    }

    QSet<QString> custom(const QString& row) const { return m_custom.value(row); }
    /** 0 for a property that it does not write. */
    int line(const QString& row, const QString& property) const { return m_lines.value({row, property}); }

private:
    void add(const OverlayReading& reading, const QString& row, const QMap<QString, ReadProperty>& properties)
    {
        for (auto property = properties.cbegin(); property != properties.cend(); ++property)
            m_lines.insert({row, property.key()}, reading.lineOf(property->element));
    }

    QHash<QString, QSet<QString>> m_custom;
    QHash<QPair<QString, QString>, int> m_lines;
};

QSet<QString> rowNames(const ZorvaSheet& sheet)
{
    QSet<QString> names;
    for (int i = 0; i < sheet.GetWidgetCount(); ++i)
        names.insert(sheet.GetWidgetAt(i)->GetName());
    return names;
}

QVector<RowState> statesOf(const ZorvaSheet& sheet, const WrittenNames& written)
{
    QVector<RowState> states;
    for (int i = 0; i < sheet.GetWidgetCount(); ++i) {
        const ZorvaSheet::WidgetPointer row = sheet.GetWidgetAt(i);
        states.append(stateOf(*row->GetDelegate(), written.custom(row->GetName())));
    }
    return states;
}

/** @p written is null for a row that the overlay does not reach. */
QVector<OverlayChange> changesOf(const QString& row, const RowState& before, const RowState& after,
                                 const WrittenNames* written)
{
    QVector<OverlayChange> changes;
    RowState all = before;
    for (auto entry = after.cbegin(); entry != after.cend(); ++entry)
        all.insert(entry.key(), QString());
    for (const auto& key : all.keys()) {
        const QString was = before.value(key);
        const QString is = after.value(key);
        if (was != is || was.isNull() != is.isNull())
            changes.append({static_cast<OverlayChange::Kind>(key.first), row, key.second, was, is,
                            written ? written->line(row, key.second) : 0});
    }
    return changes;
}

using Enumerations = QMap<QString, std::shared_ptr<const ZorvaEnum>>;

/** Those that the form has already, as they are now. */
Enumerations copiesOf(ZorvaFormular& form, const QStringList& names)
{
    Enumerations copies;
    for (const QString& name : names) {
        if (form.GetEnum(name) != form.GetEmptyEnum())
            copies.insert(name, std::make_shared<const ZorvaEnum>(*form.GetEnum(name)));
    }
    return copies;
}

/** @p before is null for one that the form did not have. */
OverlayEnumeration refilled(ZorvaFormular& form, const ReadEnumeration& filled, const ZorvaEnum* before,
                            const QScriptValue& object)
{
    OverlayEnumeration enumeration;
    const auto now = form.GetEnum(filled.name);
    enumeration.name = filled.name;
    enumeration.isNew = !before;
    enumeration.after = entriesOf(*now);
    if (before) {
        enumeration.before = entriesOf(*before);
        enumeration.stale = staleIdentifiers(object, *now, *before);
    }
    return enumeration;
}

} // namespace

OverlayTrial::OverlayTrial(const QByteArray& form, const QByteArray& overlay, int longest)
{
    LiveForm live(SourceText(form).engineBytes(), LiveForm::Read);
    m_exists = live.exists();
    if (!m_exists)
        return;
    QScriptEngine* const engine = live.engine();
    if (engine && longest > 0)
        ScriptBound::putOn(*engine, longest, [this] { m_wasStopped = true; });
    live.bring(LiveForm::Built);
    const Description description{SourceText(overlay)};
    const ZorvaSheet& sheet = live->GetSheet();
    const OverlayReading reading(description, rowNames(sheet));
    const WrittenNames written(reading);
    m_losses = reading.losses();
    m_scriptLine = reading.lineOf(reading.form().script);

    const QVector<RowState> before = statesOf(sheet, written);
    const Enumerations enumerations = copiesOf(live.form(), reading.form().enumerations.keys());
    live->SetChangedZORVA(description.source().text());
    const QVector<RowState> after = statesOf(sheet, written);

    QSet<QString> seen;
    for (int i = 0; i < sheet.GetWidgetCount(); ++i) {
        const QString& name = sheet.GetWidgetAt(i)->GetName();
        // Of several rows of one name an overlay reaches the first.
        m_changes += changesOf(name, before.at(i), after.at(i), seen.contains(name) ? nullptr : &written);
        seen.insert(name);
    }
    const QMap<QString, QScriptValue> globals = live->GetScriptValues();
    for (const ReadEnumeration& filled : reading.form().enumerations) {
        m_enumerations.append(
            refilled(live.form(), filled, enumerations.value(filled.name).get(), globals.value(filled.name)));
        m_enumerations.last().line = reading.lineOf(filled.element);
    }
}

} // namespace Author
} // namespace Orvane
