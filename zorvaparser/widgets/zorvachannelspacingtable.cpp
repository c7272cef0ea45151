#include "zorvachannelspacingtable.h"

#include "listxml_p.h"
#include "tablefield_p.h"

#include <layout/floatgrouplayout.h>
#include <zorvaparser/bounds_p.h>
#include <zorvaparser/guardedrollback_p.h>
#include <zorvaparser/numbertext_p.h>
#include <zorvaparser/rowwatch_p.h>

#include <QAction>
#include <QDoubleSpinBox>
#include <QHeaderView>
#include <QMenu>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>

namespace Orvane {

namespace {

constexpr int rowHeight = 20;

} // namespace

ChannelSpacingItemDelegate::ChannelSpacingItemDelegate(ZorvaDelegate* ownerDelegate)
    : owner(ownerDelegate)
{
}

QWidget* ChannelSpacingItemDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                                                  const QModelIndex& index) const
{
    QWidget* const editor = QStyledItemDelegate::createEditor(parent, option, index);
    auto* const spinBox = qobject_cast<QDoubleSpinBox*>(editor);
    if (spinBox && owner) {
        spinBox->setMinimum(owner->GetDouble("minimum", 0));
        spinBox->setMaximum(owner->GetDouble("maximum", 1000));
        spinBox->setSingleStep(owner->GetDouble("singleStep", 1));
        spinBox->setDecimals(owner->GetInt("decimals", 0));
    }
    return editor;
}

ZorvaChannelSpacingTable::ZorvaChannelSpacingTable(ZorvaWidget* ownerWidget)
    : ZorvaDelegate(ownerWidget)
    , menuRow(0)
    , updating(false)
{
}

ZorvaChannelSpacingTable::~ZorvaChannelSpacingTable()
{
    Drop(tableWidget, MayBeAtWork(tableWidget));
}

void ZorvaChannelSpacingTable::CreateValueTree()
{
    Resize(GetInt("spacingsCount", 0));
}

void ZorvaChannelSpacingTable::CreateGUI(FloatGroupLayout* layout)
{
    ZorvaDelegate::CreateGUI(layout);
    tableWidget = new TableField(0, 1, layout->parentWidget());
    tableWidget->setObjectName(ControlName());
    tableWidget->setSortingEnabled(false);
    ShowHeaderLabel();
    tableWidget->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    // Styles with a larger minimum would not let a row be this low.
    tableWidget->verticalHeader()->setMinimumSectionSize(rowHeight);
    // The table may outlive the row for a moment, and paints with it.
    auto* const cells = new ChannelSpacingItemDelegate(this);
    cells->setParent(tableWidget);
    tableWidget->setItemDelegate(cells);
    tableWidget->setContextMenuPolicy(Qt::CustomContextMenu);
    Refill();
    SetDoubleTooltip(tableWidget);
    PlaceControl(layout, tableWidget);
    ConnectTable();
}

void ZorvaChannelSpacingTable::ConnectTable()
{
    // cellChanged stays unconnected on purpose: an edit is taken over by whoever calls the slot.
    using Self = ZorvaChannelSpacingTable;
    QTableWidget* const table = tableWidget;
    connect(table, &QTableWidget::currentCellChanged, this, &Self::sl_currentCellChanged);
    connect(table, &QTableWidget::cellActivated, this, &Self::sl_cellActivated);
    connect(table, &QTableWidget::cellClicked, this, &Self::sl_cellClicked);
    connect(table, &QTableWidget::cellDoubleClicked, this, &Self::sl_cellDoubleClicked);
    connect(table, &QTableWidget::cellEntered, this, &Self::sl_cellEntered);
    connect(table, &QTableWidget::cellPressed, this, &Self::sl_cellPressed);
    connect(table, &QWidget::customContextMenuRequested, this, &Self::sl_customContextMenuRequested);
}

void ZorvaChannelSpacingTable::GetXml(QXmlStreamWriter& writer) const
{
    if (!generateParameterXml)
        return;
    const int decimals = qMin(property("decimals").toInt(), lastDecimal);
    writer.writeStartElement(GetXmlTagName());
    ListItemWriter items(writer, *this, ListItemWriter::WithUnit);
    for (int i = 0; i < spacings.count(); ++i) {
        items.write({{QLatin1String("index"), QString::number(i)}}, fixedText(spacings.at(i), decimals));
    }
    writer.writeEndElement();
}

void ZorvaChannelSpacingTable::ReadXml(QXmlStreamReader& reader)
{
    const GuardedRollback<RowWatch, bool> guard(*this, updating, true);
    readIndexedItems(reader,
                     [this](int index, const QString& text) { setSpacingValue(index, text.toDouble()); });
}

void ZorvaChannelSpacingTable::setAllSpacingValues(double value)
{
    const RowWatch row(*this);
    for (int i = 0; row && i < spacings.count(); ++i)
        setSpacingValue(i, value);
}

void ZorvaChannelSpacingTable::setHeaderLabel(QString value)
{
    ChangeProperty("headerLabel", value);
}

void ZorvaChannelSpacingTable::setSpacingsCount(int value)
{
    ChangeProperty("spacingsCount", value);
}

void ZorvaChannelSpacingTable::setDecimals(int value)
{
    ChangeProperty("decimals", value);
}

void ZorvaChannelSpacingTable::setMaximum(double value)
{
    ChangeProperty("maximum", value);
}

void ZorvaChannelSpacingTable::setMinimum(double value)
{
    ChangeProperty("minimum", value);
}

void ZorvaChannelSpacingTable::setSingleStep(double value)
{
    ChangeProperty("singleStep", value);
}

void ZorvaChannelSpacingTable::setFocus()
{
    FocusControl(tableWidget);
}

void ZorvaChannelSpacingTable::sl_cellChanged(int row, int)
{
    if (updating || !tableWidget || !HasSpacing(row))
        return;
    const QTableWidgetItem* const item = tableWidget->item(row, 0);
    if (!item)
        return;
    const double value = item->data(Qt::DisplayRole).toDouble();
    spacings[row] = value;
    if (MarkModified() && Raise(&ZorvaChannelSpacingTable::spacingChanged, row))
        Raise(&ZorvaChannelSpacingTable::spacingValueChanged, row, value);
}

void ZorvaChannelSpacingTable::sl_currentCellChanged(int currentRow, int, int previousRow, int)
{
    Raise(&ZorvaChannelSpacingTable::currentSpacingChanged, currentRow, previousRow);
}

void ZorvaChannelSpacingTable::sl_cellActivated(int row, int)
{
    Raise(&ZorvaChannelSpacingTable::spacingActivated, row);
}

void ZorvaChannelSpacingTable::sl_cellClicked(int row, int)
{
    Raise(&ZorvaChannelSpacingTable::spacingClicked, row);
}

void ZorvaChannelSpacingTable::sl_cellDoubleClicked(int row, int)
{
    Raise(&ZorvaChannelSpacingTable::spacingDoubleClicked, row);
}

void ZorvaChannelSpacingTable::sl_cellEntered(int row, int)
{
    Raise(&ZorvaChannelSpacingTable::spacingEntered, row);
}

void ZorvaChannelSpacingTable::sl_cellPressed(int row, int)
{
    Raise(&ZorvaChannelSpacingTable::spacingPressed, row);
}

void ZorvaChannelSpacingTable::sl_customContextMenuRequested(QPoint pt)
{
    if (!tableWidget)
        return;
    menuRow = tableWidget->rowAt(pt.y());
    if (menuRow < 0 || spacings.count() <= 1)
        return;
    // The table may die while its menu is open, and the menu with it.
    const QPointer<QMenu> menu = new QMenu(tableWidget);
    const QAction* const setToAll = menu->addAction(tr("Set to all"));
    connect(setToAll, &QAction::triggered, this, &ZorvaChannelSpacingTable::sl_setToAll);
    // The request of a scroll area comes in the coordinates of its viewport.
    menu->exec(tableWidget->viewport()->mapToGlobal(pt));
    delete menu.data();
}

void ZorvaChannelSpacingTable::sl_setToAll()
{
    if (HasSpacing(menuRow))
        setAllSpacingValues(spacings.at(menuRow));
}

double ZorvaChannelSpacingTable::spacingValue(int index)
{
    return spacings.value(index, 0.0);
}

void ZorvaChannelSpacingTable::setSpacingValue(int index, double value)
{
    if (!HasSpacing(index) || spacings.at(index) == value)
        return;
    const RowWatch row(*this); // whoever hears of the cell may let the form go
    spacings[index] = value;
    if (QTableWidgetItem* const item = tableWidget ? tableWidget->item(index, 0) : nullptr)
        item->setData(Qt::DisplayRole, value);
}

void ZorvaChannelSpacingTable::Update(Observable*, TChangeCode) {}

void ZorvaChannelSpacingTable::PropertyChanged(const QString& name, const QVariant& value)
{
    ZorvaDelegate::PropertyChanged(name, value);
    if (name == QLatin1String("headerLabel")) {
        ShowHeaderLabel();
    } else if (name == QLatin1String("spacingsCount")) {
        Resize(value.toInt());
        Refill();
    }
    PropagateProperty(name, tableWidget);
}

void ZorvaChannelSpacingTable::ShowHeaderLabel()
{
    if (tableWidget)
        tableWidget->setHorizontalHeaderItem(0, new QTableWidgetItem(GetTranslated("headerLabel")));
}

void ZorvaChannelSpacingTable::Resize(int count)
{
    const int wanted = qBound(0, count, mostSpacings);
    while (spacings.count() > wanted)
        spacings.removeLast();
    spacings.reserve(wanted);
    while (spacings.count() < wanted)
        spacings.append(0.0);
}

void ZorvaChannelSpacingTable::Refill()
{
    if (!tableWidget)
        return;
    const GuardedRollback<RowWatch, bool> guard(*this, updating, true);
    QHeaderView* const header = tableWidget->verticalHeader();
    header->setUpdatesEnabled(false);
    // Resizing one section at a time costs a walk through all of them.
    header->setDefaultSectionSize(rowHeight);
    tableWidget->setRowCount(spacings.count());
    for (int i = 0; i < spacings.count(); ++i) {
        tableWidget->setVerticalHeaderItem(i, new QTableWidgetItem(QString::number(i + 1)));
        if (header->sectionSize(i) != rowHeight)
            header->resizeSection(i, rowHeight);
        auto* const item = new QTableWidgetItem;
        item->setData(Qt::DisplayRole, spacings.at(i));
        tableWidget->setItem(i, 0, item);
    }
    header->setUpdatesEnabled(true);
    tableWidget->adjustSize();
}

} // namespace Orvane
