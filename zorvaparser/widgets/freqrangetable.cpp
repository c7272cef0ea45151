#include "freqrangetable.h"

#include <guibase/suffixeddouble.h>
#include <guibase/unitprefix.h>
#include <valueframework/tree.h>
#include <vkbase/velk.h>
#include <zorvaparser/guardedrollback_p.h>

#include <QHeaderView>
#include <QItemSelectionModel>
#include <QPointer>
#include <QRegularExpression>

#include <algorithm>
#include <functional>

namespace Orvane {

namespace {

/** The first of K, M, G and H that @p upperText holds anywhere decides. */
double factorOf(const QString& upperText, double otherwise)
{
    for (int step = 1; step < UnitPrefix::Count; ++step) {
        if (upperText.contains(UnitPrefix::Text(step).toUpper()))
            return UnitPrefix::Factor(step);
    }
    if (upperText.contains(QLatin1Char('H')))
        return 1.0;
    return otherwise;
}

double hertzOf(const QString& text, double unitFactor)
{
    static const QRegularExpression letters(QStringLiteral("[A-Z]"));
    QString number = text.toUpper();
    const double factor = factorOf(number, unitFactor);
    bool ok = false;
    return Velk::toDoubleEx(number.remove(letters), &ok) * factor;
}

SuffixedDouble::ESuffix suffixOf(double unitFactor)
{
    for (int step = 1; step < UnitPrefix::Count; ++step) {
        if (unitFactor == UnitPrefix::Factor(step))
            return static_cast<SuffixedDouble::ESuffix>(SuffixedDouble::ekNone + step);
    }
    return SuffixedDouble::ekNone;
}

/** Changes of cells are the table's own while it lives. False once the table is gone. */
using OwnChange = GuardedRollback<QPointer<FreqRangeTable>, int>;

} // namespace

FreqRangeTable::FreqRangeTable(QWidget* parent)
    : QTableWidget(parent)
    , minRows(0)
    , maxRows(0)
    , updateDepth(0)
    , autoWrite(false)
    , unitFactor(1000.0)
    , rangeMap(nullptr)
    , deleteRowAction(nullptr)
    , newRowAction(nullptr)
{
    setObjectName(QStringLiteral("FreqRangeTable"));
    setTabKeyNavigation(false); // the arrows walk the cells
    setMinimumHeight(50);
    setMinimumWidth(50);
    setRowCount(0);
    setColumnCount(2);
    setHorizontalHeaderLabels({tr("min"), tr("max")});

    newRowAction = CreateAction(tr("&New row"), QStringLiteral("ListBoxNew"),
                                QKeySequence(Qt::CTRL + Qt::Key_W), tr("Create a new row in the list box"));
    deleteRowAction =
        CreateAction(tr("&Delete row"), QStringLiteral("ListBoxDelete"), QKeySequence(Qt::Key_Delete),
                     tr("Delete the selected element in the row"));
    for (QWidget* const place : {static_cast<QWidget*>(this), static_cast<QWidget*>(horizontalHeader()),
                                 static_cast<QWidget*>(verticalHeader())}) {
        place->setContextMenuPolicy(Qt::ActionsContextMenu);
        place->addActions({newRowAction, deleteRowAction});
    }
    connect(newRowAction, &QAction::triggered, this, &FreqRangeTable::SlotNew);
    connect(deleteRowAction, &QAction::triggered, this, &FreqRangeTable::SlotDelete);
    connect(this, &QTableWidget::cellChanged, this, &FreqRangeTable::SlotValueChanged);
    UpdateActions();
}

FreqRangeTable::~FreqRangeTable()
{
    Release();
}

QAction* FreqRangeTable::CreateAction(const QString& text, const QString& name, const QKeySequence& shortcut,
                                      const QString& statusTip)
{
    auto* const action = new QAction(text, this);
    action->setObjectName(name);
    action->setShortcut(shortcut);
    action->setStatusTip(statusTip);
    return action;
}

void FreqRangeTable::setColumnsAndLimits(const QStringList& headers, double newUnitFactor, int newMinRows,
                                         int newMaxRows)
{
    unitFactor = newUnitFactor;
    minRows = newMinRows;
    maxRows = newMaxRows;
    setColumnCount(headers.count());
    setHorizontalHeaderLabels(headers);
    UpdateActions();
}

bool FreqRangeTable::attachValue(const QString& path, bool writeAtOnce)
{
    auto* const value = values::Tree::Instance()->GetValue(path);
    return attachMap(dynamic_cast<values::ValueCommentedRangeMap*>(value), writeAtOnce);
}

bool FreqRangeTable::attachMap(values::ValueCommentedRangeMap* map, bool writeAtOnce)
{
    autoWrite = writeAtOnce;
    Release();
    rangeMap = map;
    if (!rangeMap) {
        setEnabled(false);
        return false;
    }
    rangeMap->AddObserver(this);
    Refresh();
    setEnabled(rangeMap->GetState() == ValueState::Normal);
    return true;
}

void FreqRangeTable::Release()
{
    if (rangeMap)
        rangeMap->DeleteObserver(this);
    rangeMap = nullptr;
}

void FreqRangeTable::applyToValue()
{
    Write(ReadRanges());
}

void FreqRangeTable::Write(const RangeList& ranges)
{
    if (rangeMap)
        rangeMap->Set(ranges, true, false, this);
}

void FreqRangeTable::WriteIfWanted()
{
    if (autoWrite)
        applyToValue();
}

void FreqRangeTable::Update(Observable* observable, TChangeCode code)
{
    if (!rangeMap || observable != rangeMap)
        return;
    switch (code) {
    case ChangeCode::Content:
    case ChangeCode::ItemChanged:
    case ChangeCode::BulkEnd:
    case ChangeCode::ItemsRemoved:
        Refresh();
        break;
    case ChangeCode::State:
        // The map is to outlive the table; a form closed under an open dialog breaks that.
        if (rangeMap->GetState() == ValueState::GoingAway)
            Release();
        break;
    default:
        break;
    }
}

void FreqRangeTable::SlotSortByStartFrequencies()
{
    // No range is shown as one of zeros, but it is not written as one.
    const RangeList ranges = ReadRanges();
    ShowRanges(ranges);
    if (autoWrite)
        Write(ranges);
}

void FreqRangeTable::SlotValueChanged(int row, int column)
{
    if (updateDepth != 0)
        return;
    {
        const OwnChange change(this, updateDepth, 1);
        WriteCell(row, column, ReadCell(row, column));
    }
    resizeRowsToContents();
    UpdateActions();
    WriteIfWanted();
}

void FreqRangeTable::SlotNew()
{
    const OwnChange change(this, updateDepth, updateDepth + 1);
    const int row = rowCount();
    insertRow(row);
    WriteCell(row, 0, 0.0);
    WriteCell(row, 1, 0.0);
    WriteIfWanted();
    if (change)
        UpdateActions();
}

void FreqRangeTable::SlotDelete()
{
    const OwnChange change(this, updateDepth, updateDepth + 1);
    // One entry for each selected cell: a row with both cells selected goes twice,
    // the second time as the row that moved up.
    QList<int> doomedRows;
    for (const QModelIndex& index : selectionModel()->selectedIndexes())
        doomedRows.append(index.row());
    std::sort(doomedRows.begin(), doomedRows.end(), std::greater<int>());
    for (const int row : qAsConst(doomedRows))
        removeRow(row);
    if (doomedRows.isEmpty())
        return;
    WriteIfWanted();
    if (change)
        UpdateActions();
}

double FreqRangeTable::ReadCell(int row, int column) const
{
    const QTableWidgetItem* const cell = item(row, column);
    return cell ? hertzOf(cell->text(), unitFactor) : 0.0;
}

void FreqRangeTable::WriteCell(int row, int column, double hertz)
{
    SuffixedDouble number(QStringLiteral("Hz"), 1000, false);
    number.SetSuffix(suffixOf(unitFactor));
    setItem(row, column, new QTableWidgetItem(number.GetString(hertz)));
}

FreqRangeTable::RangeList FreqRangeTable::ReadRanges() const
{
    RangeList ranges;
    for (int row = 0; row < rowCount(); ++row) {
        values::CommentedRange range;
        range.SetID(static_cast<unsigned int>(row));
        range.SetRangeStart(ReadCell(row, 0));
        range.SetRangeStop(ReadCell(row, 1));
        ranges.push_back(range);
    }
    ranges.sort();
    return ranges;
}

void FreqRangeTable::ShowRanges(const RangeList& ranges)
{
    const OwnChange change(this, updateDepth, updateDepth + 1);
    clearContents();
    // An empty list is shown as one range of zeros, and read back as one.
    static const RangeList oneEmptyRange(1);
    const RangeList& shown = ranges.empty() ? oneEmptyRange : ranges;
    setRowCount(static_cast<int>(shown.size()));
    int row = 0;
    for (const values::CommentedRange& range : shown) {
        WriteCell(row, 0, range.GetRangeStart());
        WriteCell(row, 1, range.GetRangeStop());
        ++row;
    }
    resizeRowsToContents();
    UpdateActions();
}

void FreqRangeTable::Refresh()
{
    RangeList ranges;
    if (rangeMap) {
        for (const auto& entry : rangeMap->data())
            ranges.push_back(entry.second);
    }
    ShowRanges(ranges);
}

void FreqRangeTable::UpdateActions()
{
    newRowAction->setEnabled(maxRows <= 0 || rowCount() < maxRows);
    deleteRowAction->setEnabled(rowCount() > 0 && rowCount() > minRows);
}

} // namespace Orvane
