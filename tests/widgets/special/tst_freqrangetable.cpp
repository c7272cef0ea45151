#include "guardedtest.h"
#include "tableuser.h"

#include <recordingobserver.h>
#include <valueframework/tree.h>
#include <valueframework/value.h>
#include <zorvaparser/widgets/freqrangetable.h>

#include <QHeaderView>
#include <QLineEdit>
#include <QPointer>

using Orvane::FreqRangeTable;
using values::CommentedRange;
using values::ValueCommentedRangeMap;
using Range = QPair<double, double>;
using Ranges = QList<Range>;

namespace {

std::list<CommentedRange> rangeList(const Ranges& ranges)
{
    std::list<CommentedRange> list;
    for (const Range& range : ranges) {
        CommentedRange entry;
        entry.SetRangeStart(range.first);
        entry.SetRangeStop(range.second);
        list.push_back(entry);
    }
    return list;
}

/// A shown table over a map of the value tree.
struct BoundTable
{
    explicit BoundTable(const Ranges& ranges = {}, bool writeAtOnce = false)
        : map(new ValueCommentedRangeMap(QStringLiteral("ranges"), ValueState::Normal))
        , table(new FreqRangeTable(nullptr))
    {
        values::Tree::Instance()->AddValue(QStringLiteral("/test"), map);
        map->Set(rangeList(ranges), true, false, nullptr);
        table->attachValue(QStringLiteral("/test/ranges"), writeAtOnce);
        table->resize(400, 300);
        table->show();
        table->activateWindow();
        [this] { QVERIFY(QTest::qWaitForWindowActive(table)); }();
    }
    ~BoundTable()
    {
        delete table;
        values::Tree::Instance()->RemoveValue(QStringLiteral("/test/ranges"));
    }

    QString text(int row, int column) const
    {
        const QTableWidgetItem* const cell = table->item(row, column);
        return cell ? cell->text() : QString();
    }
    Ranges stored() const
    {
        Ranges ranges;
        for (const auto& entry : map->data())
            ranges << Range(entry.second.GetRangeStart(), entry.second.GetRangeStop());
        return ranges;
    }
    void type(int row, int column, const QString& typed) const
    {
        typeIntoCell<QLineEdit>(table, row, column, typed);
    }
    QAction* newRow() const { return table->findChild<QAction*>(QStringLiteral("ListBoxNew")); }
    QAction* deleteRow() const { return table->findChild<QAction*>(QStringLiteral("ListBoxDelete")); }

    ValueCommentedRangeMap* map;
    QPointer<FreqRangeTable> table;
};

} // namespace

class tst_FreqRangeTable : public GuardedTest
{
    Q_OBJECT

private Q_SLOTS:
    void looksAsBuilt();
    void unitGrammar_data();
    void unitGrammar();
    void unitOfTheTable_data();
    void unitOfTheTable();
    void emptyMapShowsOneRowOfZeros();
    void missingMapDisablesTheTable_data();
    void missingMapDisablesTheTable();
    void disabledWhileTheStateIsNotNormal();
    void deletingTheOnlyRow();
    void rowCountLimits();
    void bothCellsOfTheLastRow();
    void wholeRowTakesTheOneBelow();
    void currentButNotSelectedIsKept();
    void shortcutsWork();
    void unsortedRowsAreWrittenSorted();
    void sortingShowsTheOrder();
    void sortingAnEmptyListWritesNoRange();
    void deletedRowsAreTheSelectedOnes();
    void treeChangeDiscardsEdits_data();
    void treeChangeDiscardsEdits();
    void editsWaitUnlessToldOtherwise();
    void automaticWriting();
    void attachingAgainLeavesTheOldMap();
    void mapMayDieFirst();
    void observersMayDeleteTheTable_data();
    void observersMayDeleteTheTable();
};

void tst_FreqRangeTable::looksAsBuilt()
{
    FreqRangeTable table(nullptr);
    QCOMPARE(table.objectName(), QStringLiteral("FreqRangeTable"));
    QCOMPARE(table.minimumSize(), QSize(50, 50));
    QCOMPARE(table.rowCount(), 0);
    QCOMPARE(table.columnCount(), 2);
    QCOMPARE(table.horizontalHeaderItem(0)->text(), QStringLiteral("min"));
    QCOMPARE(table.horizontalHeaderItem(1)->text(), QStringLiteral("max"));
    const QList<QWidget*> places{&table, table.horizontalHeader(), table.verticalHeader()};
    for (const QWidget* const place : places) {
        QCOMPARE(place->contextMenuPolicy(), Qt::ActionsContextMenu);
        QCOMPARE(place->actions().count(), 2);
    }
    const QAction* const newRow = table.actions().at(0);
    const QAction* const deleteRow = table.actions().at(1);
    QCOMPARE(newRow->text(), QStringLiteral("&New row"));
    QCOMPARE(newRow->shortcut(), QKeySequence(QStringLiteral("Ctrl+W")));
    QCOMPARE(newRow->statusTip(), QStringLiteral("Create a new row in the list box"));
    QCOMPARE(newRow->objectName(), QStringLiteral("ListBoxNew"));
    QCOMPARE(deleteRow->text(), QStringLiteral("&Delete row"));
    QCOMPARE(deleteRow->shortcut(), QKeySequence(Qt::Key_Delete));
    QCOMPARE(deleteRow->statusTip(), QStringLiteral("Delete the selected element in the row"));
    QCOMPARE(deleteRow->objectName(), QStringLiteral("ListBoxDelete"));
    QVERIFY(newRow->isEnabled());
    QVERIFY(!deleteRow->isEnabled());
}

void tst_FreqRangeTable::unitGrammar_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<double>("hertz");
    QTest::addColumn<QString>("shown");
    QTest::newRow("bare number") << "100" << 1e5 << "100 kHz";
    QTest::newRow("megahertz") << "5 MHz" << 5e6 << "5000 kHz";
    QTest::newRow("m is mega") << "5m" << 5e6 << "5000 kHz";
    QTest::newRow("kilo") << "5000 k" << 5e6 << "5000 kHz";
    QTest::newRow("hertz") << "5 Hz" << 5.0 << "0.005 kHz";
    QTest::newRow("gigahertz") << "5 GHz" << 5e9 << "5000000 kHz";
    QTest::newRow("an exponent is none") << "1e3" << 13000.0 << "13 kHz";
    QTest::newRow("letters alone") << "abc" << 0.0 << "0 kHz";
    QTest::newRow("another letter vanishes") << "100 x" << 1e5 << "100 kHz";
    QTest::newRow("k before m") << "1 km" << 1000.0 << "1 kHz";
    QTest::newRow("negative") << "-3 Hz" << -3.0 << "-0.003 kHz";
    QTest::newRow("comma") << "1,5 MHz" << 1.5e6 << "1500 kHz";
    QTest::newRow("nothing") << "" << 0.0 << "0 kHz";
}

void tst_FreqRangeTable::unitGrammar()
{
    QFETCH(QString, typed);
    QFETCH(double, hertz);
    BoundTable t({{7, 8}}, true);
    t.type(0, 0, typed.isEmpty() ? QStringLiteral(" ") : typed);
    QTEST(t.text(0, 0), "shown");
    QCOMPARE(t.stored(), Ranges({Range(hertz, 8)}));
}

void tst_FreqRangeTable::unitOfTheTable_data()
{
    QTest::addColumn<double>("unitFactor");
    QTest::addColumn<double>("hertz");
    QTest::addColumn<QString>("shown");
    QTest::newRow("kilo") << 1e3 << 5e3 << "5 kHz";
    QTest::newRow("mega") << 1e6 << 5e6 << "5 MHz";
    QTest::newRow("giga") << 1e9 << 5e9 << "5 GHz";
    QTest::newRow("hertz") << 1.0 << 5.0 << "5 Hz";
    QTest::newRow("odd") << 10.0 << 50.0 << "50 Hz";
}

void tst_FreqRangeTable::unitOfTheTable()
{
    QFETCH(double, unitFactor);
    QFETCH(double, hertz);
    BoundTable t({{7, 8}}, true);
    t.table->setColumnsAndLimits({QStringLiteral("from"), QStringLiteral("to")}, unitFactor, 0, 0);
    t.type(0, 0, QStringLiteral("5"));
    QTEST(t.text(0, 0), "shown");
    QCOMPARE(t.map->data().begin()->second.GetRangeStart(), hertz);
    QCOMPARE(t.table->horizontalHeaderItem(0)->text(), QStringLiteral("from"));
}

void tst_FreqRangeTable::emptyMapShowsOneRowOfZeros()
{
    BoundTable t;
    QCOMPARE(t.table->rowCount(), 1);
    QCOMPARE(t.text(0, 0), QStringLiteral("0 kHz"));
    QCOMPARE(t.text(0, 1), QStringLiteral("0 kHz"));
    t.table->applyToValue();
    QCOMPARE(t.stored(), Ranges({Range(0, 0)}));
}

void tst_FreqRangeTable::missingMapDisablesTheTable_data()
{
    QTest::addColumn<bool>("otherValue");
    QTest::newRow("nothing there") << false;
    QTest::newRow("a value of another type") << true;
}

void tst_FreqRangeTable::missingMapDisablesTheTable()
{
    QFETCH(bool, otherValue);
    if (otherValue)
        values::Tree::Instance()->AddValue(QStringLiteral("/test"),
                                           new values::ValueString(QStringLiteral("other")));
    FreqRangeTable table(nullptr);
    QVERIFY(!table.attachValue(QStringLiteral("/test/other"), true));
    QVERIFY(!table.isEnabled());
    table.applyToValue();
    values::Tree::Instance()->RemoveValue(QStringLiteral("/test/other"));
}

void tst_FreqRangeTable::disabledWhileTheStateIsNotNormal()
{
    BoundTable t;
    t.map->SetState(5, nullptr);
    QVERIFY(t.table->isEnabled());
    QVERIFY(t.table->attachValue(QStringLiteral("/test/ranges"), false));
    QVERIFY(!t.table->isEnabled());
}

void tst_FreqRangeTable::deletingTheOnlyRow()
{
    BoundTable t({{1000, 2000}});
    clickCell(t.table, 0, 0);
    t.deleteRow()->trigger();
    QCOMPARE(t.table->rowCount(), 0);
    QVERIFY(!t.deleteRow()->isEnabled());
    t.newRow()->trigger();
    QCOMPARE(t.table->rowCount(), 1);
    QCOMPARE(t.text(0, 1), QStringLiteral("0 kHz"));
    QVERIFY(t.deleteRow()->isEnabled());
}

void tst_FreqRangeTable::rowCountLimits()
{
    BoundTable t({{1000, 2000}, {3000, 4000}});
    t.table->setColumnsAndLimits({QStringLiteral("a"), QStringLiteral("b")}, 1000, 2, 3);
    QVERIFY(!t.deleteRow()->isEnabled());
    QVERIFY(t.newRow()->isEnabled());
    t.newRow()->trigger();
    QVERIFY(t.deleteRow()->isEnabled());
    QVERIFY(!t.newRow()->isEnabled());
}

void tst_FreqRangeTable::bothCellsOfTheLastRow()
{
    BoundTable t({{1000, 2000}, {3000, 4000}, {5000, 6000}});
    clickCell(t.table, 2, 0);
    clickCell(t.table, 2, 1, Qt::ControlModifier);
    t.deleteRow()->trigger();
    t.table->applyToValue();
    QCOMPARE(t.stored(), Ranges({Range(1000, 2000), Range(3000, 4000)}));
}

void tst_FreqRangeTable::wholeRowTakesTheOneBelow()
{
    BoundTable t({{1000, 2000}, {3000, 4000}, {5000, 6000}});
    const QHeaderView* const header = t.table->verticalHeader();
    QTest::mouseClick(header->viewport(), Qt::LeftButton, Qt::NoModifier,
                      QPoint(5, header->sectionViewportPosition(0) + 5));
    QCOMPARE(t.table->selectedItems().count(), 2);
    t.deleteRow()->trigger();
    t.table->applyToValue();
    QCOMPARE(t.stored(), Ranges({Range(5000, 6000)}));
}

void tst_FreqRangeTable::currentButNotSelectedIsKept()
{
    BoundTable t({{1000, 2000}, {3000, 4000}}, true);
    t.table->setCurrentCell(1, 0, QItemSelectionModel::NoUpdate);
    t.deleteRow()->trigger();
    QCOMPARE(t.table->rowCount(), 2);
    QCOMPARE(t.stored().count(), 2);
}

void tst_FreqRangeTable::shortcutsWork()
{
    BoundTable t({{1000, 2000}});
    clickCell(t.table, 0, 0);
    QTest::keyClick(t.table, Qt::Key_W, Qt::ControlModifier);
    QCOMPARE(t.table->rowCount(), 2);
    clickCell(t.table, 1, 0);
    QTest::keyClick(t.table, Qt::Key_Delete);
    QCOMPARE(t.table->rowCount(), 1);

    // In an open editor the key deletes a character.
    auto* const editor = openEditor<QLineEdit>(t.table, 0, 0);
    QVERIFY(editor);
    editor->setCursorPosition(0);
    editor->deselect();
    QTest::keyClick(editor, Qt::Key_Delete);
    QCOMPARE(editor->text(), QStringLiteral(" kHz"));
    QCOMPARE(t.table->rowCount(), 1);
}

void tst_FreqRangeTable::unsortedRowsAreWrittenSorted()
{
    BoundTable t({{1000, 2000}, {3000, 4000}});
    t.type(0, 0, QStringLiteral("9"));
    t.type(0, 1, QStringLiteral("10"));
    t.table->applyToValue();
    QCOMPARE(t.stored(), Ranges({Range(3000, 4000), Range(9000, 10000)}));
    QCOMPARE(t.text(0, 0), QStringLiteral("9 kHz"));
    t.map->NotifyObservers(ChangeCode::Content, nullptr);
    QCOMPARE(t.text(0, 0), QStringLiteral("3 kHz"));
}

void tst_FreqRangeTable::sortingAnEmptyListWritesNoRange()
{
    BoundTable t({{1000, 2000}}, true);
    t.table->selectRow(0);
    t.deleteRow()->trigger();
    QCOMPARE(t.stored(), Ranges());
    t.table->SlotSortByStartFrequencies();
    QCOMPARE(t.stored(), Ranges());
    QCOMPARE(t.table->rowCount(), 1);
}

// From the last row up: taken the other way round, each would move those behind it.
void tst_FreqRangeTable::deletedRowsAreTheSelectedOnes()
{
    const Ranges ranges{{1000, 1500}, {2000, 2500}, {3000, 3500}, {4000, 4500}, {5000, 5500}};
    BoundTable t(ranges, true);
    for (const int row : {0, 3, 1}) {
        t.table->selectionModel()->select(t.table->model()->index(row, 0), QItemSelectionModel::Select);
    }
    t.deleteRow()->trigger();
    QCOMPARE(t.stored(), (Ranges{{3000, 3500}, {5000, 5500}}));
}

void tst_FreqRangeTable::sortingShowsTheOrder()
{
    BoundTable t({{1000, 2000}, {3000, 4000}});
    t.type(0, 0, QStringLiteral("9"));
    t.table->SlotSortByStartFrequencies();
    QCOMPARE(t.text(0, 0), QStringLiteral("3 kHz"));
    QCOMPARE(t.text(1, 0), QStringLiteral("9 kHz"));
    QCOMPARE(t.stored(), Ranges({Range(1000, 2000), Range(3000, 4000)}));
}

void tst_FreqRangeTable::treeChangeDiscardsEdits_data()
{
    QTest::addColumn<TChangeCode>("code");
    QTest::addColumn<bool>("redraws");
    QTest::newRow("state") << ChangeCode::State << false;
    QTest::newRow("content") << ChangeCode::Content << true;
    QTest::newRow("name") << ChangeCode::Name << false;
    QTest::newRow("item changed") << ChangeCode::ItemChanged << true;
    QTest::newRow("limits") << ChangeCode::Limits << false;
    QTest::newRow("end of a bulk") << ChangeCode::BulkEnd << true;
    QTest::newRow("items removed") << ChangeCode::ItemsRemoved << true;
}

void tst_FreqRangeTable::treeChangeDiscardsEdits()
{
    QFETCH(TChangeCode, code);
    QFETCH(bool, redraws);
    BoundTable t({{1000, 2000}});
    t.type(0, 0, QStringLiteral("9"));
    t.map->NotifyObservers(code, nullptr);
    QCOMPARE(t.text(0, 0), redraws ? QStringLiteral("1 kHz") : QStringLiteral("9 kHz"));
}

void tst_FreqRangeTable::editsWaitUnlessToldOtherwise()
{
    BoundTable t({{1000, 2000}});
    t.type(0, 0, QStringLiteral("0.5"));
    t.newRow()->trigger();
    QCOMPARE(t.stored(), Ranges({Range(1000, 2000)}));
    RecordingObserver observer;
    observer.watch(t.map);
    t.table->applyToValue();
    QCOMPARE(t.stored(), Ranges({Range(0, 0), Range(500, 2000)}));
    QCOMPARE(observer.codes(), QList<TChangeCode>({ChangeCode::Content}));
}

void tst_FreqRangeTable::automaticWriting()
{
    BoundTable t({{1000, 2000}}, true);
    t.type(0, 1, QStringLiteral("3"));
    QCOMPARE(t.stored(), Ranges({Range(1000, 3000)}));
    t.newRow()->trigger();
    QCOMPARE(t.stored(), Ranges({Range(0, 0), Range(1000, 3000)}));
    clickCell(t.table, 0, 0);
    t.deleteRow()->trigger();
    QCOMPARE(t.stored(), Ranges({Range(0, 0)}));
    t.table->SlotSortByStartFrequencies();
    QCOMPARE(t.stored(), Ranges({Range(0, 0)}));
}

void tst_FreqRangeTable::attachingAgainLeavesTheOldMap()
{
    BoundTable t({{1000, 2000}});
    auto* const other = new ValueCommentedRangeMap(QStringLiteral("other"));
    values::Tree::Instance()->AddValue(QStringLiteral("/test"), other);
    other->Set(rangeList({{5000, 6000}}), true, false, nullptr);
    QVERIFY(t.table->attachValue(QStringLiteral("/test/other"), false));
    QCOMPARE(t.text(0, 0), QStringLiteral("5 kHz"));
    t.map->Set(rangeList({{8000, 9000}}), true, false, nullptr);
    QCOMPARE(t.text(0, 0), QStringLiteral("5 kHz"));
    values::Tree::Instance()->RemoveValue(QStringLiteral("/test/other"));
}

void tst_FreqRangeTable::mapMayDieFirst()
{
    BoundTable t({{1000, 2000}}, true);
    values::Tree::Instance()->RemoveValue(QStringLiteral("/test/ranges"));
    t.type(0, 0, QStringLiteral("9"));
    t.table->applyToValue();
    QCOMPARE(t.text(0, 0), QStringLiteral("9 kHz"));
}

void tst_FreqRangeTable::observersMayDeleteTheTable_data()
{
    QTest::addColumn<QString>("action");
    QTest::newRow("new row") << QStringLiteral("ListBoxNew");
    QTest::newRow("delete row") << QStringLiteral("ListBoxDelete");
}

void tst_FreqRangeTable::observersMayDeleteTheTable()
{
    QFETCH(QString, action);
    BoundTable t({{1000, 2000}, {3000, 4000}}, true);
    clickCell(t.table, 0, 0);
    RecordingObserver observer;
    observer.watch(t.map);
    observer.onUpdate = [&](Observable*, TChangeCode) { delete t.table; };
    t.table->findChild<QAction*>(action)->trigger();
    QVERIFY(!t.table);
    QCOMPARE(observer.codes(), QList<TChangeCode>({ChangeCode::Content}));
}

QTEST_MAIN(tst_FreqRangeTable)
#include "tst_freqrangetable.moc"
