#include "zorvaenum.h"

#include "xmlwalk_p.h"

namespace Orvane {

namespace {

/** Of entries that look the same, the first one is found. */
void addIfNew(QHash<QString, int>& indexByText, const QString& text, int index)
{
    const int count = indexByText.count();
    int& first = indexByText[text];
    if (indexByText.count() > count)
        first = index;
}

} // namespace

ZorvaEnumValue::ZorvaEnumValue(const QString& name, const QString& identifier, const QString& valueText)
    : displayName(name)
    , enumIdentifier(identifier)
{
    SetValue(valueText);
}

void ZorvaEnumValue::ParseZORVA(QXmlStreamReader& reader)
{
    walkChildren(reader, [&] {
        if (reader.name() == QLatin1String("DisplayName"))
            displayName = reader.readElementText();
        else if (reader.name() == QLatin1String("EnumIdentifier"))
            enumIdentifier = reader.readElementText();
        else if (reader.name() == QLatin1String("Value"))
            SetValue(reader.readElementText());
        else
            reader.skipCurrentElement();
    });
}

void ZorvaEnumValue::SetValue(const QString& text)
{
    value = text;
    number = value.toDouble(&isNumber);
}

double ZorvaEnumValue::GetDoubleValue(double defaultValue) const
{
    return isNumber ? number : defaultValue;
}

ZorvaEnum::ZorvaEnum(const QString& enumName)
    : name(enumName)
{
}

void ZorvaEnum::ParseZORVA(QXmlStreamReader& reader)
{
    name = reader.attributes().value(QLatin1String("name")).toString();
    walkChildren(reader, [&] {
        if (reader.name() != QLatin1String("EnumValue")) {
            reader.skipCurrentElement();
            return;
        }
        ZorvaEnumValue entry;
        entry.ParseZORVA(reader);
        Append(entry);
    });
}

void ZorvaEnum::AppendEnumValue(const QString& displayName, const QString& enumIdentifier,
                                const QString& valueText)
{
    Append(ZorvaEnumValue(displayName, enumIdentifier, valueText));
}

void ZorvaEnum::Append(const ZorvaEnumValue& entry)
{
    const int index = values.count();
    values.append(entry);
    addIfNew(indexByName, entry.GetDisplayName(), index);
    addIfNew(indexByValue, entry.GetValue(), index);
}

void ZorvaEnum::ClearValues()
{
    values.clear();
    indexByName.clear();
    indexByValue.clear();
}

const ZorvaEnumValue& ZorvaEnum::GetValueAt(int index) const
{
    if (index < 0 || index >= values.count())
        return emptyValue;
    return values.at(index);
}

int ZorvaEnum::firstIndexOfName(const QString& displayName) const
{
    return indexByName.value(displayName, -1);
}

int ZorvaEnum::firstIndexOfValue(const QString& valueText) const
{
    return indexByValue.value(valueText, -1);
}

const ZorvaEnumValue& ZorvaEnum::FindName(const QString& displayName) const
{
    return GetValueAt(qMax(firstIndexOfName(displayName), 0));
}

const ZorvaEnumValue& ZorvaEnum::FindValue(const QString& valueText, bool* found) const
{
    const int index = firstIndexOfValue(valueText);
    if (found)
        *found = index >= 0;
    return GetValueAt(qMax(index, 0));
}

} // namespace Orvane
