#include "guardedtest.h"
#include "tableuser.h"

#include <formfixture.h>
#include <zorvaparser/widgets/zorvatable.h>

#include <QHeaderView>
#include <QLineEdit>
#include <QSignalSpy>

using Orvane::ZorvaTable;

namespace {

QString tableXml(int rows, int columns)
{
    return rowXml("TableWidget", "grid",
                  {{"rowCount", rows}, {"columnCount", columns}, {"parameterListItemTag", "Cell"}});
}

/// A form with one table, 2 by 3 unless said otherwise.
struct TableForm
{
    explicit TableForm(const QString& widgets = tableXml(2, 3),
                       FormFixture::Stage stage = FormFixture::WithGui)
        : form(widgets, stage)
        , row(form.delegate<ZorvaTable>("grid"))
    {
    }

    QTableWidget* table() const { return form.control<QTableWidget>("grid"); }
    QString at(int line, int column) const { return row->itemValue(line, column).toString(); }
    void fill() const
    {
        for (int i = 0; i < 6; ++i)
            row->setItemValue(i / 3, i % 3, QString(QLatin1Char(char('a' + i))));
    }
    QString flat() const
    {
        QString text;
        for (int i = 0; row->itemValue(0, i).isValid() || i < 6; ++i)
            text += at(0, i).isEmpty() ? QStringLiteral("-") : at(0, i);
        return text;
    }

    FormFixture form;
    ZorvaTable* row;
};

} // namespace

class tst_ZorvaTable : public GuardedTest
{
    Q_OBJECT

private Q_SLOTS:
    void flatIndexCountsAlone();
    void outOfRangeIsIgnored();
    void writesEveryCell();
    void writesNothingWhenSwitchedOff();
    void readsCellsSilently();
    void cellWithoutPlaceGoesToTheFirst();
    void readRoundTrip();
    void clearTellsOnce();
    void growsByRows();
    void shapesThatKeepTheirSize_data();
    void shapesThatKeepTheirSize();
    void absurdSizeIsRefused();
    void headersCountFromZero();
    void typingBesideAnEmptyFirstCellIsLost();
    void typingIntoTheFirstCellIsStored();
    void typingElsewhereStoresTheFirstCellByRow();
    void codeIsNoEdit();
    void reportOfAnUnknownRowIsIgnored();
    void keyboardMovesAndEdits();
    void gridSignalsAreForwarded();
    void focusAndVisibility();
    void secondCreationOfValuesKeepsTheGrid();
    void windowMayDieFirst();
    void formMayDieFirst();
};

void tst_ZorvaTable::flatIndexCountsAlone()
{
    TableForm t;
    t.row->setItemValue(1, 2, QStringLiteral("last"));
    t.row->setItemValue(1, 0, QStringLiteral("second row"));
    QCOMPARE(t.at(1, 2), QStringLiteral("last"));
    QCOMPARE(t.at(0, 5), QStringLiteral("last"));
    QCOMPARE(t.at(0, 3), QStringLiteral("second row"));
}

void tst_ZorvaTable::outOfRangeIsIgnored()
{
    TableForm t;
    t.fill();
    t.row->setItemValue(2, 0, QStringLiteral("x"));
    t.row->setItemValue(-1, 0, QStringLiteral("x"));
    t.row->setItemValue(0, -1, QStringLiteral("x"));
    QCOMPARE(t.flat(), QStringLiteral("abcdef"));
    QVERIFY(!t.row->itemValue(2, 0).isValid());
    QVERIFY(!t.row->itemValue(-1, 0).isValid());
}

void tst_ZorvaTable::writesEveryCell()
{
    TableForm t(
        rowXml("TableWidget", "grid",
               {{"rowCount", 2}, {"columnCount", 3}, {"parameterListItemTag", "Cell"}, {"unit", "dB"}}),
        FormFixture::WithValues);
    t.row->setItemValue(1, 2, QStringLiteral("x"));
    QCOMPARE(t.form.writtenBy("grid"),
             QStringLiteral("<grid><Cell unit=\"dB\" row=\"0\" column=\"0\"></Cell>"
                            "<Cell unit=\"dB\" row=\"0\" column=\"1\"></Cell>"
                            "<Cell unit=\"dB\" row=\"0\" column=\"2\"></Cell>"
                            "<Cell unit=\"dB\" row=\"1\" column=\"0\"></Cell>"
                            "<Cell unit=\"dB\" row=\"1\" column=\"1\"></Cell>"
                            "<Cell unit=\"dB\" row=\"1\" column=\"2\">x</Cell></grid>"));
}

void tst_ZorvaTable::writesNothingWhenSwitchedOff()
{
    TableForm t;
    t.row->setGenerateParameterXml(false);
    QCOMPARE(t.form.writtenBy("grid"), QString());
}

void tst_ZorvaTable::readsCellsSilently()
{
    TableForm t;
    t.form.show();
    typeIntoCell<QLineEdit>(t.table(), 0, 0, QStringLiteral("typed"));
    t.form.resetModified();
    t.row->setItemValue(1, 1, QStringLiteral("old"));
    QSignalSpy cleared(t.row, &ZorvaTable::tableCleared);
    QSignalSpy changed(t.row, &ZorvaTable::cellChanged);
    QVERIFY(t.form.read("grid", QStringLiteral("<grid><Cell row='1' column='2'>x</Cell>"
                                               "<Any row='0' column='1'>y</Any></grid>")));
    QCOMPARE(t.flat(), QStringLiteral("-y---x"));
    QCOMPARE(cleared.count(), 0);
    QCOMPARE(changed.count(), 0);
    QVERIFY(!t.row->isModified());
}

void tst_ZorvaTable::cellWithoutPlaceGoesToTheFirst()
{
    TableForm t;
    QVERIFY(t.form.read("grid",
                        QStringLiteral("<grid><Cell>no place</Cell><Cell row='x'>bad row</Cell></grid>")));
    QCOMPARE(t.at(0, 0), QStringLiteral("bad row"));
}

void tst_ZorvaTable::readRoundTrip()
{
    TableForm t;
    t.fill();
    const QString written = t.form.writtenBy("grid");
    t.row->clear();
    QVERIFY(t.form.read("grid", written));
    QCOMPARE(t.flat(), QStringLiteral("abcdef"));
}

void tst_ZorvaTable::clearTellsOnce()
{
    TableForm t;
    t.fill();
    QSignalSpy spy(t.row, &ZorvaTable::tableCleared);
    t.form.evaluate(QStringLiteral("grid.clear()"));
    QCOMPARE(spy.count(), 1);
    QCOMPARE(t.flat(), QStringLiteral("------"));
    QVERIFY(t.form.writtenBy("grid").contains(QStringLiteral("row=\"1\" column=\"2\"")));
}

void tst_ZorvaTable::growsByRows()
{
    TableForm t;
    t.fill();
    t.row->setRowCount(4);
    QCOMPARE(t.table()->rowCount(), 4);
    QCOMPARE(t.flat().left(6), QStringLiteral("abcdef"));
    QVERIFY(!t.row->itemValue(3, 2).isValid());
    QCOMPARE(t.form.writtenBy("grid").count(QStringLiteral("<Cell")), 12);
}

void tst_ZorvaTable::shapesThatKeepTheirSize_data()
{
    QTest::addColumn<int>("rows");
    QTest::addColumn<int>("columns");
    QTest::addColumn<QString>("change");
    QTest::newRow("no cell yet, columns first") << 0 << 0 << "grid.setColumnCount(3); grid.setRowCount(2)";
    QTest::newRow("no cell yet, rows first") << 0 << 0 << "grid.setRowCount(2); grid.setColumnCount(3)";
    QTest::newRow("negative") << 2 << 3 << "grid.setRowCount(-1)";
    QTest::newRow("equal") << 2 << 3 << "grid.setRowCount(2)";
}

void tst_ZorvaTable::shapesThatKeepTheirSize()
{
    QFETCH(int, rows);
    QFETCH(int, columns);
    QFETCH(QString, change);
    TableForm t(tableXml(rows, columns));
    t.form.evaluate(change);
    QCOMPARE(t.table()->rowCount(), rows);
    QCOMPARE(t.table()->columnCount(), columns);
}

void tst_ZorvaTable::absurdSizeIsRefused()
{
    TableForm t(tableXml(2000000000, 2000000000));
    QCOMPARE(t.table()->rowCount(), 0);
}

void tst_ZorvaTable::headersCountFromZero()
{
    TableForm t;
    QStringList texts;
    for (int i = 0; i < 3; ++i)
        texts << t.table()->horizontalHeaderItem(i)->text();
    for (int i = 0; i < 2; ++i)
        texts << t.table()->verticalHeaderItem(i)->text();
    QCOMPARE(texts.join(QLatin1Char(' ')), QStringLiteral("0 1 2 0 1"));
    QCOMPARE(t.table()->horizontalHeader()->sectionResizeMode(0), QHeaderView::Stretch);
    QVERIFY(!t.table()->isSortingEnabled());
}

void tst_ZorvaTable::typingBesideAnEmptyFirstCellIsLost()
{
    TableForm t;
    t.form.show();
    QSignalSpy spy(t.row, &ZorvaTable::cellChanged);
    typeIntoCell<QLineEdit>(t.table(), 1, 1, QStringLiteral("x"));
    QCOMPARE(t.table()->item(1, 1)->text(), QStringLiteral("x"));
    QCOMPARE(spy.count(), 0);
    QCOMPARE(t.flat(), QStringLiteral("------"));
    QVERIFY(!t.row->isModified());
}

void tst_ZorvaTable::typingIntoTheFirstCellIsStored()
{
    TableForm t;
    t.form.show();
    QSignalSpy spy(t.row, &ZorvaTable::cellChanged);
    typeIntoCell<QLineEdit>(t.table(), 0, 0, QStringLiteral("x"));
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.at(0), QVariantList({0, 0}));
    QCOMPARE(t.flat(), QStringLiteral("x-----"));
    QVERIFY(t.row->isModified());
    QVERIFY(t.form.sheet().isModified());
}

void tst_ZorvaTable::typingElsewhereStoresTheFirstCellByRow()
{
    TableForm t;
    t.form.show();
    typeIntoCell<QLineEdit>(t.table(), 0, 0, QStringLiteral("f"));
    QSignalSpy spy(t.row, &ZorvaTable::cellChanged);
    typeIntoCell<QLineEdit>(t.table(), 1, 2, QStringLiteral("x"));
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.at(0), QVariantList({1, 2}));
    QCOMPARE(t.flat(), QStringLiteral("ff----"));
}

void tst_ZorvaTable::codeIsNoEdit()
{
    TableForm t;
    t.form.show();
    typeIntoCell<QLineEdit>(t.table(), 0, 0, QStringLiteral("f"));
    t.form.resetModified();
    QSignalSpy spy(t.row, &ZorvaTable::cellChanged);
    t.row->setItemValue(1, 2, QStringLiteral("x"));
    QCOMPARE(t.table()->item(0, 0)->text(), QStringLiteral("x"));
    QCOMPARE(t.flat(), QStringLiteral("f----x"));
    t.row->clear();
    QCOMPARE(t.table()->item(0, 0)->text(), QString());
    QCOMPARE(spy.count(), 0);
    QVERIFY(!t.row->isModified());
}

void tst_ZorvaTable::reportOfAnUnknownRowIsIgnored()
{
    TableForm t;
    t.form.show();
    typeIntoCell<QLineEdit>(t.table(), 0, 0, QStringLiteral("f"));
    QSignalSpy spy(t.row, &ZorvaTable::cellChanged);
    // Still a pixel of the first cell, but no row of the list.
    QVERIFY(QMetaObject::invokeMethod(t.row, "sl_cellChanged", Q_ARG(int, 10), Q_ARG(int, 0)));
    QCOMPARE(spy.count(), 0);
    QVERIFY(QMetaObject::invokeMethod(t.row, "sl_cellChanged", Q_ARG(int, 4), Q_ARG(int, 0)));
    QCOMPARE(spy.count(), 1);
    QCOMPARE(t.flat(), QStringLiteral("f---f-"));
}

void tst_ZorvaTable::keyboardMovesAndEdits()
{
    TableForm t;
    t.form.show();
    clickCell(t.table(), 0, 0);
    QSignalSpy spy(t.row, &ZorvaTable::currentCellChanged);
    QTest::keyClick(t.table(), Qt::Key_Right);
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.at(0), QVariantList({0, 1, 0, 0}));
    QTest::keyClick(t.table(), Qt::Key_Home);
    QTest::keyClick(t.table(), Qt::Key_F2);
    auto* const editor = qobject_cast<QLineEdit*>(QApplication::focusWidget());
    QVERIFY(editor);
    QTest::keyClicks(editor, QStringLiteral("by key"));
    QTest::keyClick(editor, Qt::Key_Tab);
    QTRY_COMPARE(t.at(0, 0), QStringLiteral("by key"));
    QTRY_COMPARE(t.table()->currentColumn(), 1);
}

void tst_ZorvaTable::gridSignalsAreForwarded()
{
    TableForm t;
    t.form.show();
    QSignalSpy pressed(t.row, &ZorvaTable::cellPressed);
    QSignalSpy clicked(t.row, &ZorvaTable::cellClicked);
    QSignalSpy doubleClicked(t.row, &ZorvaTable::cellDoubleClicked);
    QSignalSpy entered(t.row, &ZorvaTable::cellEntered);
    QSignalSpy activated(t.row, &ZorvaTable::cellActivated);
    t.table()->setEditTriggers(QAbstractItemView::NoEditTriggers);
    t.table()->setMouseTracking(true);
    QTest::mouseMove(t.table()->viewport(), cellCenter(t.table(), 1, 1));
    clickCell(t.table(), 1, 2);
    QTest::mouseDClick(t.table()->viewport(), Qt::LeftButton, Qt::NoModifier, cellCenter(t.table(), 1, 2));
    QTest::keyClick(t.table(), Qt::Key_Return);
    QTRY_VERIFY(entered.count() > 0);
    QVERIFY(pressed.count() > 0);
    QCOMPARE(clicked.at(0), QVariantList({1, 2}));
    QCOMPARE(doubleClicked.at(0), QVariantList({1, 2}));
    QCOMPARE(activated.last(), QVariantList({1, 2}));
}

void tst_ZorvaTable::focusAndVisibility()
{
    TableForm t;
    t.form.show();
    t.row->setFocus();
    QVERIFY(t.table()->hasFocus());
    t.row->setVisible(false);
    QVERIFY(!t.table()->isVisible());
    t.row->setEnabled(false);
    QVERIFY(!t.table()->isEnabled());
}

void tst_ZorvaTable::secondCreationOfValuesKeepsTheGrid()
{
    TableForm t;
    t.fill();
    t.form.createValues();
    QCOMPARE(t.flat(), QStringLiteral("abcdef"));
    QCOMPARE(t.table()->rowCount(), 2);
}

void tst_ZorvaTable::windowMayDieFirst()
{
    TableForm t;
    t.form.deleteWindow();
    t.fill();
    t.row->setRowCount(3);
    t.row->clear();
    t.row->setFocus();
    QCOMPARE(t.flat(), QStringLiteral("------"));
}

void tst_ZorvaTable::formMayDieFirst()
{
    TableForm t;
    t.form.show();
    const QPointer<QTableWidget> table = t.table();
    t.form.deleteForm();
    QVERIFY(table);
    typeIntoCell<QLineEdit>(table, 0, 0, QStringLiteral("x"));
}

QTEST_MAIN(tst_ZorvaTable)
#include "tst_zorvatable.moc"
