#include "zorvahiddenmap.h"

#include "listxml_p.h"

#include <QXmlStreamWriter>

namespace Orvane {

ZorvaHiddenMap::ZorvaHiddenMap(ZorvaWidget* owner)
    : ZorvaDelegate(owner)
{
}

ZorvaHiddenMap::~ZorvaHiddenMap() = default;

void ZorvaHiddenMap::GetXml(QXmlStreamWriter& writer) const
{
    if (!generateParameterXml)
        return;
    writer.writeStartElement(GetXmlTagName());
    ListItemWriter itemWriter(writer, *this, ListItemWriter::WithoutUnit);
    for (auto it = items.cbegin(); it != items.cend(); ++it)
        itemWriter.write({{QLatin1String("key"), it.key()}}, it.value());
    writer.writeEndElement();
}

void ZorvaHiddenMap::ReadXml(QXmlStreamReader& reader)
{
    clear();
    walkChildren(reader, [this, &reader] {
        const QString key = reader.attributes().value(QLatin1String("key")).toString();
        items.insert(key, reader.readElementText());
    });
}

void ZorvaHiddenMap::clear()
{
    items.clear();
}

QList<QString> ZorvaHiddenMap::keys()
{
    return items.keys();
}

QString ZorvaHiddenMap::value(QString key)
{
    return items.value(key);
}

bool ZorvaHiddenMap::contains(QString key)
{
    return items.contains(key);
}

void ZorvaHiddenMap::remove(QString key)
{
    const auto it = items.find(key);
    if (it == items.end())
        return;
    const QString oldText = it.value();
    items.erase(it);
    if (Raise(&ZorvaHiddenMap::valueRemoved, key, oldText))
        MarkModified();
}

void ZorvaHiddenMap::setValue(QString key, QString value)
{
    const bool known = items.contains(key);
    items.insert(key, value);
    if (Raise(known ? &ZorvaHiddenMap::valueChanged : &ZorvaHiddenMap::valueAdded, key, value))
        MarkModified();
}

} // namespace Orvane
