#include "zorvatable.h"

#include "listxml_p.h"
#include "tablefield_p.h"

#include <layout/floatgrouplayout.h>
#include <zorvaparser/bounds_p.h>
#include <zorvaparser/guardedrollback_p.h>
#include <zorvaparser/rowwatch_p.h>

#include <QHeaderView>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>

namespace Orvane {

namespace {

int cellAttribute(const QXmlStreamReader& reader, const QString& name)
{
    return reader.attributes().value(name).toInt();
}

} // namespace

ZorvaTable::ZorvaTable(ZorvaWidget* ownerWidget)
    : ZorvaDelegate(ownerWidget)
    , rows(0)
    , columns(0)
    , suppressSignals(false)
{
}

void ZorvaTable::CreateValueTree()
{
    Resize(GetInt("rowCount", 0), GetInt("columnCount", 0), 0);
}

void ZorvaTable::CreateGUI(FloatGroupLayout* layout)
{
    ZorvaDelegate::CreateGUI(layout);
    tableWidget = new TableField(0, 1, layout->parentWidget());
    tableWidget->setObjectName(ControlName());
    tableWidget->setSortingEnabled(false);
    tableWidget->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    Refill();
    PlaceControl(layout, tableWidget);

    connect(tableWidget.data(), &QTableWidget::cellChanged, this, &ZorvaTable::sl_cellChanged);
    Relay(tableWidget, &QTableWidget::currentCellChanged, &ZorvaTable::currentCellChanged);
    Relay(tableWidget, &QTableWidget::cellActivated, &ZorvaTable::cellActivated);
    Relay(tableWidget, &QTableWidget::cellClicked, &ZorvaTable::cellClicked);
    Relay(tableWidget, &QTableWidget::cellDoubleClicked, &ZorvaTable::cellDoubleClicked);
    Relay(tableWidget, &QTableWidget::cellEntered, &ZorvaTable::cellEntered);
    Relay(tableWidget, &QTableWidget::cellPressed, &ZorvaTable::cellPressed);
}

void ZorvaTable::GetXml(QXmlStreamWriter& writer) const
{
    if (!generateParameterXml)
        return;
    writer.writeStartElement(GetXmlTagName());
    ListItemWriter items(writer, *this, ListItemWriter::WithUnit);
    for (int i = 0; i < cells.count(); ++i) {
        items.write({{QLatin1String("row"), QString::number(i / columns)},
                     {QLatin1String("column"), QString::number(i % columns)}},
                    VariantText(cells.at(i)));
    }
    writer.writeEndElement();
}

void ZorvaTable::ReadXml(QXmlStreamReader& reader)
{
    const GuardedRollback<RowWatch, bool> guard(*this, suppressSignals, true);
    clear();
    walkChildren(reader, [&] {
        const int row = cellAttribute(reader, QStringLiteral("row"));
        const int column = cellAttribute(reader, QStringLiteral("column"));
        setItemValue(row, column, reader.readElementText());
    });
}

void ZorvaTable::clear()
{
    const RowWatch alive(*this);
    // Whoever hears of a cell may make the table another size.
    for (int row = 0; alive && row < rows; ++row) {
        for (int column = 0; alive && row < rows && column < columns; ++column) {
            cells[row * columns + column] = QVariant();
            ShowCell(row, column, QVariant());
        }
    }
    if (alive && !suppressSignals)
        Raise(&ZorvaTable::tableCleared);
}

void ZorvaTable::setColumnCount(int newColumns)
{
    ChangeProperty("columnCount", newColumns);
}

void ZorvaTable::setRowCount(int newRows)
{
    ChangeProperty("rowCount", newRows);
}

void ZorvaTable::setFocus()
{
    FocusControl(tableWidget);
}

void ZorvaTable::sl_cellChanged(int row, int column)
{
    if (suppressSignals)
        return;
    const QTableWidgetItem* const item = ItemAtPixel(row, column);
    if (!item || row < 0 || row >= cells.count())
        return;
    // By row alone: forms in the field count on the list looking like this.
    cells[row] = item->data(Qt::DisplayRole);
    if (MarkModified())
        Raise(&ZorvaTable::cellChanged, row, column);
}

QVariant ZorvaTable::itemValue(int row, int column)
{
    return GetListValue(cells, row, column, columns);
}

void ZorvaTable::setItemValue(int row, int column, QVariant value)
{
    if (SetListValue(cells, value, row, column, columns))
        ShowCell(row, column, value);
}

void ZorvaTable::Update(Observable*, TChangeCode) {}

void ZorvaTable::PropertyChanged(const QString& name, const QVariant& value)
{
    ZorvaDelegate::PropertyChanged(name, value);
    if (name == QLatin1String("columnCount")) {
        Resize(rows, value.toInt(), columns);
        Refill();
    } else if (name == QLatin1String("rowCount")) {
        Resize(value.toInt(), columns, columns);
        Refill();
    }
    PropagateProperty(name, tableWidget);
}

bool ZorvaTable::Resize(int newRows, int newColumns, int oldColumns)
{
    if (qint64(newRows) * newColumns > mostCells || !ResizeList(cells, newRows, newColumns, oldColumns))
        return false;
    rows = newRows;
    columns = newColumns;
    return true;
}

void ZorvaTable::Refill()
{
    if (!tableWidget)
        return;
    const GuardedRollback<RowWatch, bool> guard(*this, suppressSignals, true);
    tableWidget->setColumnCount(columns);
    tableWidget->setRowCount(rows);
    tableWidget->updateGeometry(); // its hint counts the columns
    for (int column = 0; column < columns; ++column)
        tableWidget->setHorizontalHeaderItem(column, new QTableWidgetItem(QString::number(column)));
    int next = 0; // moves only where an item was found
    for (int row = 0; guard && tableWidget && row < rows; ++row) {
        tableWidget->setVerticalHeaderItem(row, new QTableWidgetItem(QString::number(row)));
        for (int column = 0; guard && next < cells.count() && column < columns; ++column) {
            if (QTableWidgetItem* const item = ItemAtPixel(row, column))
                item->setData(Qt::DisplayRole, cells.at(next++));
        }
    }
}

QTableWidgetItem* ZorvaTable::ItemAtPixel(int row, int column) const
{
    // x is the row and y the column, both in pixels: with small numbers this is the first cell.
    return tableWidget ? tableWidget->itemAt(QPoint(row, column)) : nullptr;
}

void ZorvaTable::ShowCell(int row, int column, const QVariant& value)
{
    QTableWidgetItem* const item = ItemAtPixel(row, column);
    if (!item)
        return;
    // What code writes is no edit: without the guard it would come back as one.
    const GuardedRollback<RowWatch, bool> guard(*this, suppressSignals, true);
    item->setData(Qt::DisplayRole, value);
}

} // namespace Orvane
