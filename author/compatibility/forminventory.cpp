#include "forminventory.h"

#include <author/document/enginereading.h>
#include <author/live/liveform.h>
#include <author/parameters/parameterset.h>

#include <valueframework/valuenumeric.h>
#include <zorvaparser/zorvadelegate.h>
#include <zorvaparser/zorvaenum.h>

#include <QScriptEngine>

namespace Orvane {
namespace Author {

namespace {

QString textOf(const ZorvaDelegate& row, std::initializer_list<const char*> names, const char* separator)
{
    QStringList texts;
    for (const char* const name : names) {
        const QString text = row.GetString(name, QString());
        if (!text.isEmpty())
            texts.append(QLatin1String(name) + QLatin1Char(' ') + text);
    }
    return texts.join(QLatin1String(separator));
}

QString pathOf(const ZorvaDelegate& row, const ControlClass& kind)
{
    const QString path = row.GetXmlPath().isEmpty() ? row.GetXmlTagName() : row.GetXmlPath();
    QStringList tags;
    if (kind.parameter.form == ParameterElement::Pair)
        tags = QStringList{row.GetString("startFrequencyParameterXmlTag", QString()),
                           row.GetString("stopFrequencyParameterXmlTag", QString())};
    else if (kind.parameter.form == ParameterElement::List)
        tags = QStringList{row.GetString("parameterListItemTag", QString())};
    tags.removeAll(QString());
    return tags.isEmpty() ? path : QStringLiteral("%1 (%2)").arg(path, tags.join(QLatin1String(", ")));
}

QMap<QString, int> roomOf(const ZorvaDelegate& row)
{
    QMap<QString, int> room;
    for (const char* const name : {"itemCount", "rowCount", "columnCount", "spacingsCount", "maxLength"}) {
        bool isNumber = false;
        const int count = row.property(name).toInt(&isNumber);
        if (isNumber && row.property(name).isValid())
            room.insert(QLatin1String(name), count);
    }
    return room;
}

InventoryRow inventoryRow(const ZorvaWidget& widget)
{
    const ZorvaDelegate& delegate = *widget.GetDelegate();
    const KindTable& kinds = KindTable::instance();
    const ControlClass* const known = kinds.findClass(widget.GetClass());
    InventoryRow row;
    row.name = widget.GetName();
    row.className = widget.GetClass();
    row.kind = known ? known : &kinds.unknownClass();
    row.path = pathOf(delegate, *row.kind);
    if (const auto* const number = dynamic_cast<const values::IValueNumeric*>(delegate.GetVTValue())) {
        row.minimum = number->GetMin();
        row.maximum = number->GetMax();
    }
    row.unit = delegate.GetString("unit", QString());
    row.scale = textOf(delegate, {"unitScale", "displayScalingFactor", "displayAdditiveOffset"}, ", ");
    row.decimals = delegate.GetInt("decimals", 0);
    if (row.kind->delegate == QLatin1String("ZorvaCheckBox"))
        row.states = delegate.GetString("checkedValue", QStringLiteral("true")) + QLatin1String(", ") +
                     delegate.GetString("uncheckedValue", QStringLiteral("false"));
    row.room = roomOf(delegate);
    row.enumeration = delegate.GetString("enumName", QString());
    return row;
}

} // namespace

FormInventory::FormInventory(const QByteArray& stored)
{
    const Description description{SourceText(stored)};
    const ReadForm read = EngineReading(description).form();
    LiveForm live(description.source().engineBytes(), LiveForm::Read);
    m_exists = live.exists();
    if (!m_exists)
        return;
    const auto lineOf = [&description](int element) {
        return description.source().lineAt(description.element(element).tag.begin);
    };
    const FormRows places(live.form());
    live.bring(LiveForm::Running);
    ZorvaSheet& sheet = live->GetSheet();
    for (int i = 0; i < sheet.GetWidgetCount(); ++i) {
        m_rows.append(inventoryRow(*sheet.GetWidgetAt(i)));
        if (i < read.rows.size())
            m_rows.last().line = lineOf(read.rows.at(i).element);
    }
    for (auto entry = read.enumerations.cbegin(); entry != read.enumerations.cend(); ++entry) {
        InventoryEnumeration& enumeration = m_enumerations[entry.key()];
        enumeration.line = lineOf(entry->element);
        for (const ReadEntry& choice : entry->entries)
            enumeration.choices.append({choice.displayName, choice.identifier, choice.value});
    }
    const ParameterSet sent(places, SourceText(live->GetXmlString(false).toUtf8()));
    for (const Setting& setting : sent.settings()) {
        if (setting.row < 0)
            continue;
        QString& defaults = m_rows[setting.row].defaults;
        defaults += (defaults.isEmpty() ? QString() : QStringLiteral(" ")) + setting.text();
        m_rows[setting.row].sent = true;
    }
    m_rootTag = places.rootTag();
    m_sheetName = sheet.GetName();
    m_globals = live->GetScriptValues().keys();
}

} // namespace Author
} // namespace Orvane
