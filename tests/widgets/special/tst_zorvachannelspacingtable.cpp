#include "guardedtest.h"
#include "tableuser.h"

#include <formfixture.h>
#include <zorvaparser/widgets/zorvachannelspacingtable.h>

#include <QContextMenuEvent>
#include <QDoubleSpinBox>
#include <QHeaderView>
#include <QMenu>
#include <QSignalSpy>
#include <QTimer>

using Orvane::ZorvaChannelSpacingTable;

namespace {

QString spacingsXml(int count, const QList<FormProperty>& more = {})
{
    return rowXml("ChannelSpacingTable", "spacings",
                  QList<FormProperty>{{"spacingsCount", count}, {"parameterListItemTag", "Spacing"}} + more);
}

/// A form with one channel spacing table.
struct SpacingForm
{
    explicit SpacingForm(const QString& widgets = spacingsXml(3),
                         FormFixture::Stage stage = FormFixture::WithGui)
        : form(widgets, stage)
        , row(form.delegate<ZorvaChannelSpacingTable>("spacings"))
    {
    }

    QTableWidget* table() const { return form.control<QTableWidget>("spacings"); }
    /// The list, an entry past its end read as 0.
    QList<double> list(int count) const
    {
        QList<double> numbers;
        for (int i = 0; i < count; ++i)
            numbers << row->spacingValue(i);
        return numbers;
    }
    void set(const QList<double>& numbers) const
    {
        for (int i = 0; i < numbers.count(); ++i)
            row->setSpacingValue(i, numbers.at(i));
    }
    double shown(int line) const { return table()->item(line, 0)->data(Qt::DisplayRole).toDouble(); }
    /// Asks for the context menu there, and takes its first entry if it opens.
    bool takeFirstMenuEntryAt(const QPoint& point) const
    {
        bool opened = false;
        QTimer::singleShot(0, qApp, [&opened] {
            auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
            if (!menu)
                return;
            opened = menu->actions().count() == 1 &&
                     menu->actions().first()->text() == QStringLiteral("Set to all");
            QTest::keyClick(menu, Qt::Key_Down);
            QTest::keyClick(menu, Qt::Key_Return);
        });
        QContextMenuEvent event(QContextMenuEvent::Mouse, point, table()->viewport()->mapToGlobal(point));
        QApplication::sendEvent(table()->viewport(), &event);
        QCoreApplication::processEvents();
        return opened;
    }

    FormFixture form;
    ZorvaChannelSpacingTable* row;
};

} // namespace

class tst_ZorvaChannelSpacingTable : public GuardedTest
{
    Q_OBJECT

private Q_SLOTS:
    void rowsCountFromOneAndAreLow();
    void headerLabelFollows();
    void countsOutOfTheOrdinary_data();
    void countsOutOfTheOrdinary();
    void absurdCountIsCut();
    void shrinkingKeepsTheFirst();
    void indexesOutOfRange();
    void setAllReachesTheGrid();
    void typingStaysInTheGrid();
    void slotTakesTheGridOver();
    void slotIgnoresRowsThatTheListDoesNotHave();
    void editorTakesTheLimits_data();
    void editorTakesTheLimits();
    void editorTakesLimitsThatCameLater();
    void menuSpreadsTheListsValue();
    void menuComesByKeyboard();
    void menuStaysAway_data();
    void menuStaysAway();
    void menuSurvivesTheEndOfItsForm();
    void setToAllWithoutAMenuIsHarmless();
    void writesEntries_data();
    void writesEntries();
    void readsEntries_data();
    void readsEntries();
    void readingIsSilent();
    void rowSignals();
    void rangeToolTip();
    void limitsAreSlotsOfTheScript();
    void itsTableGoesWithTheForm();
    void windowMayDieFirst();
};

void tst_ZorvaChannelSpacingTable::rowsCountFromOneAndAreLow()
{
    SpacingForm s;
    s.form.show();
    QCOMPARE(s.table()->rowCount(), 3);
    QCOMPARE(s.table()->columnCount(), 1);
    for (int i = 0; i < 3; ++i) {
        QCOMPARE(s.table()->verticalHeaderItem(i)->text(), QString::number(i + 1));
        QCOMPARE(s.table()->rowHeight(i), 20);
        QCOMPARE(s.table()->item(i, 0)->data(Qt::DisplayRole), QVariant(0.0));
    }
    QCOMPARE(s.table()->horizontalHeader()->sectionResizeMode(0), QHeaderView::Stretch);
}

void tst_ZorvaChannelSpacingTable::headerLabelFollows()
{
    SpacingForm s(spacingsXml(3, {{"headerLabel", "Spacing [kHz]"}}));
    QCOMPARE(s.table()->horizontalHeaderItem(0)->text(), QStringLiteral("Spacing [kHz]"));
    s.row->setHeaderLabel(QStringLiteral("Raster"));
    QCOMPARE(s.table()->horizontalHeaderItem(0)->text(), QStringLiteral("Raster"));
}

void tst_ZorvaChannelSpacingTable::countsOutOfTheOrdinary_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("rows");
    QTest::newRow("negative") << -5 << 0;
    QTest::newRow("none") << 0 << 0;
}

void tst_ZorvaChannelSpacingTable::countsOutOfTheOrdinary()
{
    QFETCH(int, count);
    SpacingForm s(spacingsXml(count));
    QTEST(s.table()->rowCount(), "rows");
}

void tst_ZorvaChannelSpacingTable::absurdCountIsCut()
{
    SpacingForm s(spacingsXml(2000000000), FormFixture::WithValues);
    s.row->setSpacingValue(99999, 1);
    s.row->setSpacingValue(100000, 1);
    QCOMPARE(s.row->spacingValue(99999), 1.0);
    QCOMPARE(s.row->spacingValue(100000), 0.0);
}

void tst_ZorvaChannelSpacingTable::shrinkingKeepsTheFirst()
{
    SpacingForm s(spacingsXml(5));
    s.set({1, 2, 3, 4, 5});
    s.row->setSpacingsCount(2);
    QCOMPARE(s.table()->rowCount(), 2);
    QCOMPARE(s.shown(1), 2.0);
    s.row->setSpacingsCount(5);
    QCOMPARE(s.list(5), QList<double>({1, 2, 0, 0, 0}));
    QCOMPARE(s.shown(4), 0.0);
}

void tst_ZorvaChannelSpacingTable::indexesOutOfRange()
{
    SpacingForm s;
    s.set({1, 2, 3});
    s.row->setSpacingValue(7, 1);
    s.row->setSpacingValue(-1, 1);
    QCOMPARE(s.list(8), QList<double>({1, 2, 3, 0, 0, 0, 0, 0}));
    QCOMPARE(s.row->spacingValue(-1), 0.0);
}

void tst_ZorvaChannelSpacingTable::setAllReachesTheGrid()
{
    SpacingForm s;
    QSignalSpy spy(s.row, &ZorvaChannelSpacingTable::spacingChanged);
    s.form.evaluate(QStringLiteral("spacings.setAllSpacingValues(12.5)"));
    QCOMPARE(s.list(3), QList<double>({12.5, 12.5, 12.5}));
    QCOMPARE(s.shown(2), 12.5);
    QCOMPARE(spy.count(), 0);
    QVERIFY(!s.row->isModified());
}

void tst_ZorvaChannelSpacingTable::typingStaysInTheGrid()
{
    SpacingForm s;
    s.form.show();
    QSignalSpy changed(s.row, &ZorvaChannelSpacingTable::spacingChanged);
    QSignalSpy value(s.row, &ZorvaChannelSpacingTable::spacingValueChanged);
    typeIntoCell<QDoubleSpinBox>(s.table(), 1, 0, QStringLiteral("25"));
    QCOMPARE(s.shown(1), 25.0);
    QCOMPARE(s.row->spacingValue(1), 0.0);
    QCOMPARE(changed.count() + value.count(), 0);
    QVERIFY(!s.row->isModified());
    QVERIFY(s.form.writtenBy("spacings").contains(QStringLiteral("<Spacing index=\"1\">0</Spacing>")));
}

void tst_ZorvaChannelSpacingTable::slotTakesTheGridOver()
{
    SpacingForm s;
    s.form.show();
    typeIntoCell<QDoubleSpinBox>(s.table(), 1, 0, QStringLiteral("25"));
    QStringList order;
    connect(s.row, &ZorvaChannelSpacingTable::spacingChanged,
            [&](int line) { order << QStringLiteral("changed %1").arg(line); });
    connect(s.row, &ZorvaChannelSpacingTable::spacingValueChanged, [&](int line, double value) {
        order << QStringLiteral("value %1 %2 %3").arg(line).arg(value).arg(s.row->isModified());
    });
    // The column does not count.
    QVERIFY(QMetaObject::invokeMethod(s.row, "sl_cellChanged", Q_ARG(int, 1), Q_ARG(int, 9)));
    QCOMPARE(order, QStringList({QStringLiteral("changed 1"), QStringLiteral("value 1 25 1")}));
    QCOMPARE(s.row->spacingValue(1), 25.0);
}

void tst_ZorvaChannelSpacingTable::slotIgnoresRowsThatTheListDoesNotHave()
{
    SpacingForm s;
    QSignalSpy spy(s.row, &ZorvaChannelSpacingTable::spacingChanged);
    s.table()->setRowCount(10);
    s.table()->setItem(7, 0, new QTableWidgetItem(QStringLiteral("5")));
    for (const int line : {-1, 3, 7, 2000000000})
        QVERIFY(QMetaObject::invokeMethod(s.row, "sl_cellChanged", Q_ARG(int, line), Q_ARG(int, 0)));
    QCOMPARE(spy.count(), 0);
    QVERIFY(!s.row->isModified());
}

void tst_ZorvaChannelSpacingTable::editorTakesTheLimits_data()
{
    QTest::addColumn<QString>("widgets");
    QTest::addColumn<double>("minimum");
    QTest::addColumn<double>("maximum");
    QTest::addColumn<double>("step");
    QTest::addColumn<int>("decimals");
    QTest::newRow("absent") << spacingsXml(3) << 0.0 << 1000.0 << 1.0 << 0;
    QTest::newRow("given") << spacingsXml(
                                  3,
                                  {{"minimum", 2.5}, {"maximum", 50}, {"singleStep", 0.25}, {"decimals", 2}})
                           << 2.5 << 50.0 << 0.25 << 2;
}

void tst_ZorvaChannelSpacingTable::editorTakesTheLimits()
{
    QFETCH(QString, widgets);
    SpacingForm s(widgets);
    s.form.show();
    const auto* const editor = openEditor<QDoubleSpinBox>(s.table(), 0, 0);
    QVERIFY(editor);
    QTEST(editor->decimals(), "decimals");
    QTEST(editor->maximum(), "maximum");
    QTEST(editor->singleStep(), "step");
    if (editor->decimals() > 0)
        QTEST(editor->minimum(), "minimum");
}

void tst_ZorvaChannelSpacingTable::editorTakesLimitsThatCameLater()
{
    SpacingForm s;
    s.form.show();
    s.row->setMaximum(10);
    typeIntoCell<QDoubleSpinBox>(s.table(), 0, 0, QStringLiteral("99"));
    QVERIFY(s.shown(0) <= 10.0);
    s.set({500, 0, 0});
    QCOMPARE(s.row->spacingValue(0), 500.0);
}

void tst_ZorvaChannelSpacingTable::menuSpreadsTheListsValue()
{
    SpacingForm s;
    s.form.show();
    s.set({10, 20, 30});
    typeIntoCell<QDoubleSpinBox>(s.table(), 1, 0, QStringLiteral("999"));
    QVERIFY(s.takeFirstMenuEntryAt(cellCenter(s.table(), 1, 0)));
    QCOMPARE(s.list(3), QList<double>({20, 20, 20}));
    QCOMPARE(s.shown(0), 20.0);
    QVERIFY(!s.table()->findChild<QMenu*>());
}

void tst_ZorvaChannelSpacingTable::menuComesByKeyboard()
{
    SpacingForm s;
    s.form.show();
    s.set({10, 20, 30});
    clickCell(s.table(), 2, 0);
    QPoint asked;
    connect(s.table(), &QWidget::customContextMenuRequested, [&](const QPoint& point) { asked = point; });
    QTimer::singleShot(0, qApp, [] {
        auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        QVERIFY(menu);
        QTest::keyClick(menu, Qt::Key_Down);
        QTest::keyClick(menu, Qt::Key_Return);
    });
    const QPoint cursor = s.table()->inputMethodQuery(Qt::ImCursorRectangle).toRect().center();
    QContextMenuEvent event(QContextMenuEvent::Keyboard, cursor, s.table()->mapToGlobal(cursor));
    QApplication::sendEvent(s.table(), &event);
    QCOMPARE(s.list(3), QList<double>({30, 30, 30}));
}

void tst_ZorvaChannelSpacingTable::menuStaysAway_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<QPoint>("point");
    QTest::newRow("one row") << 1 << QPoint(5, 5);
    QTest::newRow("below the last row") << 3 << QPoint(5, 100);
    QTest::newRow("no rows") << 0 << QPoint(5, 5);
}

void tst_ZorvaChannelSpacingTable::menuStaysAway()
{
    QFETCH(int, count);
    QFETCH(QPoint, point);
    SpacingForm s(spacingsXml(count));
    s.form.show();
    QVERIFY(!s.takeFirstMenuEntryAt(point));
}

void tst_ZorvaChannelSpacingTable::menuSurvivesTheEndOfItsForm()
{
    SpacingForm s;
    s.form.show();
    QTimer::singleShot(0, qApp, [&s] {
        QVERIFY(QApplication::activePopupWidget());
        s.form.deleteForm();
    });
    const QPoint point = cellCenter(s.table(), 1, 0);
    QContextMenuEvent event(QContextMenuEvent::Mouse, point, s.table()->viewport()->mapToGlobal(point));
    QApplication::sendEvent(s.table()->viewport(), &event);
    QVERIFY(!s.table());
}

void tst_ZorvaChannelSpacingTable::setToAllWithoutAMenuIsHarmless()
{
    SpacingForm s(spacingsXml(0));
    QVERIFY(QMetaObject::invokeMethod(s.row, "sl_setToAll"));
    s.row->setSpacingsCount(2);
    s.row->setSpacingValue(0, 5);
    QVERIFY(QMetaObject::invokeMethod(s.row, "sl_setToAll"));
    QCOMPARE(s.list(2), QList<double>({5, 5}));
}

void tst_ZorvaChannelSpacingTable::writesEntries_data()
{
    QTest::addColumn<QString>("widgets");
    QTest::addColumn<QString>("text");
    QTest::newRow("two decimals") << spacingsXml(2, {{"decimals", 2}})
                                  << "<spacings><Spacing index=\"0\">12.50</Spacing>"
                                     "<Spacing index=\"1\">0.00</Spacing></spacings>";
    QTest::newRow("none") << spacingsXml(2)
                          << "<spacings><Spacing index=\"0\">13</Spacing>"
                             "<Spacing index=\"1\">0</Spacing></spacings>";
    QTest::newRow("with unit") << spacingsXml(1, {{"decimals", 1}, {"unit", "kHz"}})
                               << "<spacings><Spacing unit=\"kHz\" index=\"0\">12.5</Spacing></spacings>";
    QTest::newRow("empty") << spacingsXml(0) << "<spacings/>";
    QTest::newRow("switched off") << spacingsXml(2, {{"generateParameterXml", false}}) << "";
}

void tst_ZorvaChannelSpacingTable::writesEntries()
{
    QFETCH(QString, widgets);
    SpacingForm s(widgets, FormFixture::WithValues);
    s.row->setSpacingValue(0, 12.5);
    QTEST(s.form.writtenBy("spacings"), "text");
}

void tst_ZorvaChannelSpacingTable::readsEntries_data()
{
    QTest::addColumn<QString>("entries");
    QTest::addColumn<QList<double>>("list");
    QTest::newRow("in order") << "<a>1</a><b>2</b>" << QList<double>({1, 2, 9, 9, 9});
    QTest::newRow("index, then none") << "<a index='2'>1</a><a>2</a>" << QList<double>({9, 9, 1, 2, 9});
    QTest::newRow("does not grow") << "<a index='4'>1</a><a>2</a><a index='7'>3</a>"
                                   << QList<double>({9, 9, 9, 9, 1});
    QTest::newRow("no number") << "<a>x</a>" << QList<double>({0, 9, 9, 9, 9});
    QTest::newRow("index before the first")
        << "<a index='-1'>1</a><a>2</a>" << QList<double>({2, 9, 9, 9, 9});
    QTest::newRow("largest index") << "<a index='2147483647'>1</a><a>2</a>" << QList<double>({9, 9, 9, 9, 9});
}

void tst_ZorvaChannelSpacingTable::readsEntries()
{
    QFETCH(QString, entries);
    SpacingForm s(spacingsXml(5));
    s.row->setAllSpacingValues(9);
    QVERIFY(s.form.read("spacings", QStringLiteral("<spacings>%1</spacings>").arg(entries)));
    QTEST(s.list(5), "list");
    QCOMPARE(s.shown(0), s.row->spacingValue(0));
}

void tst_ZorvaChannelSpacingTable::readingIsSilent()
{
    SpacingForm s;
    // An application that connects what the table leaves open.
    QVERIFY(connect(s.table(), SIGNAL(cellChanged(int, int)), s.row, SLOT(sl_cellChanged(int, int))));
    QSignalSpy spy(s.row, &ZorvaChannelSpacingTable::spacingChanged);
    s.form.read("spacings", QStringLiteral("<spacings><a>5</a></spacings>"));
    s.row->setSpacingsCount(4);
    QCOMPARE(spy.count(), 0);
    s.table()->item(0, 0)->setData(Qt::DisplayRole, 6.0);
    QCOMPARE(spy.count(), 1);
}

void tst_ZorvaChannelSpacingTable::rowSignals()
{
    SpacingForm s;
    s.form.show();
    using Table = ZorvaChannelSpacingTable;
    QSignalSpy current(s.row, &Table::currentSpacingChanged);
    QSignalSpy pressed(s.row, &Table::spacingPressed);
    QSignalSpy clicked(s.row, &Table::spacingClicked);
    QSignalSpy doubleClicked(s.row, &Table::spacingDoubleClicked);
    QSignalSpy entered(s.row, &Table::spacingEntered);
    QSignalSpy activated(s.row, &Table::spacingActivated);
    s.table()->setEditTriggers(QAbstractItemView::NoEditTriggers);
    s.table()->setMouseTracking(true);
    QTest::mouseMove(s.table()->viewport(), cellCenter(s.table(), 2, 0));
    QTRY_VERIFY(entered.count() > 0);
    clickCell(s.table(), 0, 0);
    clickCell(s.table(), 2, 0);
    QTest::mouseDClick(s.table()->viewport(), Qt::LeftButton, Qt::NoModifier, cellCenter(s.table(), 2, 0));
    QTest::keyClick(s.table(), Qt::Key_Return);
    QCOMPARE(current.last(), QVariantList({2, 0}));
    QCOMPARE(pressed.at(0), QVariantList({0}));
    QCOMPARE(clicked.at(1), QVariantList({2}));
    QCOMPARE(doubleClicked.at(0), QVariantList({2}));
    QCOMPARE(activated.last(), QVariantList({2}));
}

void tst_ZorvaChannelSpacingTable::rangeToolTip()
{
    SpacingForm s(
        spacingsXml(3, {{"labelText", "Raster"}, {"minimum", 1}, {"maximum", 50}, {"toolTip", "other"}}));
    QCOMPARE(s.table()->toolTip(), QStringLiteral("<html>Raster<br>1...50"));
}

void tst_ZorvaChannelSpacingTable::limitsAreSlotsOfTheScript()
{
    SpacingForm s;
    s.form.evaluate(QStringLiteral("spacings.setMinimum(1); spacings.setMaximum(2.5);"
                                   "spacings.setSingleStep(0.5); spacings.setDecimals(3);"));
    QCOMPARE(s.row->GetDouble(QStringLiteral("minimum"), -1), 1.0);
    QCOMPARE(s.row->GetDouble(QStringLiteral("maximum"), -1), 2.5);
    QCOMPARE(s.row->GetDouble(QStringLiteral("singleStep"), -1), 0.5);
    QCOMPARE(s.row->GetInt(QStringLiteral("decimals"), -1), 3);
}

void tst_ZorvaChannelSpacingTable::itsTableGoesWithTheForm()
{
    SpacingForm s;
    const QPointer<QTableWidget> table = s.table();
    s.form.deleteForm();
    QVERIFY(!table);
}

void tst_ZorvaChannelSpacingTable::windowMayDieFirst()
{
    SpacingForm s;
    s.form.deleteWindow();
    s.row->setSpacingsCount(5);
    s.row->setAllSpacingValues(1);
    s.row->setHeaderLabel(QStringLiteral("x"));
    s.row->setFocus();
    QMetaObject::invokeMethod(s.row, "sl_cellChanged", Q_ARG(int, 0), Q_ARG(int, 0));
    QCOMPARE(s.row->spacingValue(4), 1.0);
}

QTEST_MAIN(tst_ZorvaChannelSpacingTable)
#include "tst_zorvachannelspacingtable.moc"
