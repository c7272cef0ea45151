#include "zorvahiddenlist.h"

#include "listxml_p.h"

#include <zorvaparser/rowwatch_p.h>

#include <QXmlStreamWriter>

namespace Orvane {

ZorvaHiddenList::ZorvaHiddenList(ZorvaWidget* owner)
    : ZorvaDelegate(owner)
{
}

ZorvaHiddenList::~ZorvaHiddenList() = default;

void ZorvaHiddenList::CreateValueTree()
{
    ResizeList(items, GetInt("itemCount", 0), 1, 1);
}

void ZorvaHiddenList::GetXml(QXmlStreamWriter& writer) const
{
    if (!generateParameterXml)
        return;
    writer.writeStartElement(GetXmlTagName());
    ListItemWriter itemWriter(writer, *this, ListItemWriter::WithUnit);
    for (int i = 0; i < items.count(); ++i)
        itemWriter.write({{QLatin1String("index"), QString::number(i)}}, VariantText(items.at(i)));
    writer.writeEndElement();
}

void ZorvaHiddenList::ReadXml(QXmlStreamReader& reader)
{
    const RowWatch row(*this);
    clear();
    readIndexedItems(reader, [this](int index, const QString& text) { setItemValue(index, text); });
}

void ZorvaHiddenList::PropertyChanged(const QString& name, const QVariant& value)
{
    ZorvaDelegate::PropertyChanged(name, value);
    if (name == QLatin1String("itemCount"))
        ResizeList(items, GetInt(name, 0), 1, 1);
}

void ZorvaHiddenList::clear()
{
    items.clear();
}

void ZorvaHiddenList::setItemCount(int count)
{
    ChangeProperty("itemCount", count);
}

QString ZorvaHiddenList::itemValue(int index)
{
    return VariantText(GetListValue(items, index, 0, 1));
}

void ZorvaHiddenList::setItemValue(int index, QString value)
{
    if (index > items.count() && index < std::numeric_limits<int>::max())
        setItemCount(index + 1);
    if (!SetListValue(items, value, index, 0, 1))
        return;
    if (MarkModified())
        Raise(&ZorvaHiddenList::itemValueChanged, index, value);
}

} // namespace Orvane
