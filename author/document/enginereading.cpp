#include "enginereading.h"

#include "replay.h"

#include <QHash>
#include <QXmlStreamReader>

#include <algorithm>

namespace Orvane {
namespace Author {

Part partOf(const SourceElement& element)
{
    static const QHash<QString, Part> parts{{QStringLiteral("Widget"), Part::Row},
                                            {QStringLiteral("Enum"), Part::Enumeration},
                                            {QStringLiteral("EnumValue"), Part::Entry},
                                            {QStringLiteral("Script"), Part::Script},
                                            {QStringLiteral("Property"), Part::Property}};
    return parts.value(element.name, Part::None);
}

QString withoutEscapes(QString code)
{
    code.replace(QLatin1String("{{CR}}"), QLatin1String("\r"));
    code.replace(QLatin1String("{{LF}}"), QLatin1String("\n"));
    return code;
}

EngineReading::EngineReading(const Description& description)
    : m_fates(description.elements().size())
    , m_source(description.source())
{
    Replay replay(description);
    replay.run();
    settle(description, replay);
}

void EngineReading::keep(int element)
{
    if (element >= 0)
        m_fates[element].alive = true;
}

void EngineReading::keepAll(const QMap<QString, ReadProperty>& properties)
{
    for (const ReadProperty& property : properties)
        keep(property.element);
}

void EngineReading::settle(const Description& description, const Replay& replay)
{
    m_form = replay.form();
    m_set = replay.set();
    m_stoppedAt = replay.errorAt();
    keepAll(m_form.sheetProperties);
    keepAll(m_form.sheetCustom);
    for (const ReadRow& row : qAsConst(m_form.rows)) {
        keep(row.element);
        keepAll(row.properties);
        keepAll(row.custom);
    }
    for (const ReadEnumeration& enumeration : qAsConst(m_form.enumerations)) {
        keep(enumeration.element);
        for (const ReadEntry& entry : enumeration.entries)
            keep(entry.element);
    }
    settleScripts(description);
    for (int i = 0; i < m_fates.size(); ++i) {
        Fate& fate = m_fates[i];
        if (fate.alive || partOf(description.element(i)) == Part::None)
            continue;
        m_lost.append(i);
        fate = causeOf(description, replay, i);
    }
}

Fate EngineReading::causeOf(const Description& description, const Replay& replay, int element) const
{
    // Of several roots only the last one lives.
    const auto behind = std::upper_bound(m_form.roots.cbegin(), m_form.roots.cend(), element);
    const int root = behind == m_form.roots.cbegin() ? -1 : *std::prev(behind);
    if (root >= 0 && root != m_form.element && description.isInside(element, root))
        return {false, Cause::Skipped, root};
    const Fate note = replay.note(element);
    if (note.cause != Cause::None)
        return note;
    const bool broken = replay.errorAt() >= 0;
    const bool isBehind = broken && description.element(element).tag.begin >= replay.errorAt();
    if (hasForm() && !isBehind && replay.cut() >= 0)
        return {false, Cause::Cut, replay.cut()};
    return {false, broken ? Cause::Broken : Cause::Outside, -1};
}

// A script is kept by its text: where two are alike, nobody can tell which one lives.
void EngineReading::settleScripts(const Description& description)
{
    if (!hasForm())
        return;
    for (int i = 0; i < m_fates.size(); ++i) {
        if (partOf(description.element(i)) == Part::Script)
            m_fates[i].alive = withoutEscapes(description.textOf(i)) == m_form.code;
    }
}

const EngineReading::Break& EngineReading::breakOfText() const
{
    if (m_break)
        return *m_break;
    m_break = Break();
    QXmlStreamReader reader(m_source.engineBytes());
    while (!reader.atEnd())
        reader.readNext();
    if (reader.hasError())
        m_break = Break{m_source.fromEngine(reader.characterOffset()), reader.errorString()};
    return *m_break;
}

} // namespace Author
} // namespace Orvane
