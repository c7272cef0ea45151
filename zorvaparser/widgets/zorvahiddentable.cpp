#include "zorvahiddentable.h"

#include "listxml_p.h"

#include <zorvaparser/rowwatch_p.h>

#include <QXmlStreamWriter>

namespace Orvane {

ZorvaHiddenTable::ZorvaHiddenTable(ZorvaWidget* owner)
    : ZorvaDelegate(owner)
    , rowCount(0)
    , columnCount(0)
{
}

ZorvaHiddenTable::~ZorvaHiddenTable() = default;

void ZorvaHiddenTable::CreateValueTree()
{
    const int rows = GetInt("rowCount", 0);
    const int columns = GetInt("columnCount", 0);
    if (!ResizeList(items, rows, columns, 0))
        return;
    rowCount = rows;
    columnCount = columns;
}

void ZorvaHiddenTable::GetXml(QXmlStreamWriter& writer) const
{
    if (!generateParameterXml)
        return;
    writer.writeStartElement(GetXmlTagName());
    ListItemWriter itemWriter(writer, *this, ListItemWriter::WithUnit);
    for (int i = 0; i < items.count(); ++i) {
        const QString row = QString::number(i / columnCount);
        const QString column = QString::number(i % columnCount);
        itemWriter.write({{QLatin1String("row"), row}, {QLatin1String("column"), column}},
                         VariantText(items.at(i)));
    }
    writer.writeEndElement();
}

void ZorvaHiddenTable::ReadXml(QXmlStreamReader& reader)
{
    const RowWatch watch(*this);
    clear();
    walkChildren(reader, [this, &reader] {
        const QXmlStreamAttributes attributes = reader.attributes();
        const int row = attributes.value(QLatin1String("row")).toInt();
        const int column = attributes.value(QLatin1String("column")).toInt();
        setItemValue(row, column, reader.readElementText());
    });
}

void ZorvaHiddenTable::clear()
{
    for (QVariant& cell : items)
        cell.clear();
    Raise(&ZorvaHiddenTable::tableCleared);
}

void ZorvaHiddenTable::setColumnCount(int columns)
{
    if (ResizeList(items, rowCount, columns, columnCount))
        columnCount = columns;
}

void ZorvaHiddenTable::setRowCount(int rows)
{
    if (ResizeList(items, rows, columnCount, columnCount))
        rowCount = rows;
}

QString ZorvaHiddenTable::itemValue(int row, int column)
{
    return VariantText(GetListValue(items, row, column, columnCount));
}

void ZorvaHiddenTable::setItemValue(int row, int column, QString value)
{
    if (!SetListValue(items, value, row, column, columnCount))
        return;
    if (MarkModified())
        Raise(&ZorvaHiddenTable::itemValueChanged, row, column, value);
}

} // namespace Orvane
