#include <formtest.h>

#include <zorvaparser/widgets/zorvahiddentable.h>

using namespace Orvane;

namespace {

QString gridRow(const QList<FormProperty>& shape)
{
    return rowXml("HiddenTable", "grid", QList<FormProperty>{{"parameterListItemTag", "Cell"}} + shape);
}

QString twoByTwo()
{
    return gridRow({{"rowCount", 2}, {"columnCount", 2}});
}

} // namespace

class TestZorvaHiddenTable : public FormTest
{
    Q_OBJECT

private Q_SLOTS:
    void writesEveryCell();
    void writesUnit();
    void clearKeepsTheShape();
    void oneCountAloneGivesNoCells();
    void emptyTableStaysEmpty();
    void moreRowsKeepTheCells();
    void moreColumnsReadOn();
    void equalTotalIsRefused();
    void setItemTellsAndMarks();
    void cellsOutsideAreDropped();
    void reads();
};

void TestZorvaHiddenTable::writesEveryCell()
{
    FormFixture form(twoByTwo(), FormFixture::WithValues);
    form.evaluate(QStringLiteral("grid.setItemValue(1, 0, 'x')"));
    QCOMPARE(
        form.writtenBy("grid"),
        QStringLiteral("<grid><Cell row=\"0\" column=\"0\"></Cell><Cell row=\"0\" column=\"1\"></Cell>"
                       "<Cell row=\"1\" column=\"0\">x</Cell><Cell row=\"1\" column=\"1\"></Cell></grid>"));
    form.row("grid")->setGenerateParameterXml(false);
    QCOMPARE(form.writtenBy("grid"), QString());
}

void TestZorvaHiddenTable::writesUnit()
{
    FormFixture form(gridRow({{"rowCount", 1}, {"columnCount", 1}, {"unit", "m"}}), FormFixture::WithValues);
    QCOMPARE(form.writtenBy("grid"),
             QStringLiteral("<grid><Cell unit=\"m\" row=\"0\" column=\"0\"></Cell></grid>"));
}

void TestZorvaHiddenTable::clearKeepsTheShape()
{
    FormFixture form(twoByTwo(), FormFixture::WithValues);
    auto* const row = form.delegate<ZorvaHiddenTable>("grid");
    row->setItemValue(1, 1, QStringLiteral("x"));
    row->resetModified();
    QSignalSpy cleared(row, &ZorvaHiddenTable::tableCleared);
    row->clear();
    QCOMPARE(cleared.count(), 1);
    QCOMPARE(row->itemValue(1, 1), QString());
    QCOMPARE(form.writtenBy("grid").count(QStringLiteral("</Cell>")), 4);
    QVERIFY(!row->isModified());
}

void TestZorvaHiddenTable::oneCountAloneGivesNoCells()
{
    FormFixture form(gridRow({{"rowCount", 2}}), FormFixture::WithValues);
    QCOMPARE(form.writtenBy("grid"), QStringLiteral("<grid/>"));
    auto* const row = form.delegate<ZorvaHiddenTable>("grid");
    row->setColumnCount(3);
    row->setRowCount(2);
    QCOMPARE(form.writtenBy("grid"), QStringLiteral("<grid/>"));
}

void TestZorvaHiddenTable::emptyTableStaysEmpty()
{
    FormFixture form(twoByTwo(), FormFixture::WithValues);
    auto* const row = form.delegate<ZorvaHiddenTable>("grid");
    row->setColumnCount(0);
    QCOMPARE(form.writtenBy("grid"), QStringLiteral("<grid/>"));
    row->setItemValue(0, 0, QStringLiteral("x"));
    QCOMPARE(row->itemValue(0, 0), QString());
}

void TestZorvaHiddenTable::moreRowsKeepTheCells()
{
    FormFixture form(gridRow({{"rowCount", 2}, {"columnCount", 3}}), FormFixture::WithValues);
    auto* const row = form.delegate<ZorvaHiddenTable>("grid");
    row->setItemValue(1, 2, QStringLiteral("x"));
    row->setRowCount(3);
    QCOMPARE(row->itemValue(1, 2), QStringLiteral("x"));
    QCOMPARE(row->itemValue(2, 2), QString());
    QCOMPARE(form.writtenBy("grid").count(QStringLiteral("</Cell>")), 9);
}

void TestZorvaHiddenTable::moreColumnsReadOn()
{
    FormFixture form(twoByTwo(), FormFixture::WithValues);
    auto* const row = form.delegate<ZorvaHiddenTable>("grid");
    row->setItemValue(1, 0, QStringLiteral("x"));
    row->setColumnCount(3);
    // The new column of a row shows what followed it before.
    QCOMPARE(row->itemValue(0, 2), QStringLiteral("x"));
    QCOMPARE(row->itemValue(1, 0), QStringLiteral("x"));
}

void TestZorvaHiddenTable::equalTotalIsRefused()
{
    FormFixture form(twoByTwo(), FormFixture::WithValues);
    auto* const row = form.delegate<ZorvaHiddenTable>("grid");
    row->setItemValue(1, 1, QStringLiteral("x"));
    row->setRowCount(2);
    row->setRowCount(-1);
    row->setColumnCount(2147483647);
    QCOMPARE(row->itemValue(1, 1), QStringLiteral("x"));
    row->setProperty("rowCount", 7);
    QCOMPARE(form.writtenBy("grid").count(QStringLiteral("</Cell>")), 4);
}

void TestZorvaHiddenTable::setItemTellsAndMarks()
{
    FormFixture form(twoByTwo(), FormFixture::WithValues);
    auto* const row = form.delegate<ZorvaHiddenTable>("grid");
    QSignalSpy changed(row, &ZorvaHiddenTable::itemValueChanged);
    row->setItemValue(0, 1, QStringLiteral("x"));
    QCOMPARE(changed.takeFirst(), (QVariantList{0, 1, QStringLiteral("x")}));
    QVERIFY(row->isModified());
    row->resetModified();
    row->setItemValue(0, 1, QStringLiteral("x"));
    QCOMPARE(changed.count(), 0);
    QVERIFY(!row->isModified());
}

void TestZorvaHiddenTable::cellsOutsideAreDropped()
{
    FormFixture form(twoByTwo(), FormFixture::WithValues);
    auto* const row = form.delegate<ZorvaHiddenTable>("grid");
    row->setItemValue(2, 0, QStringLiteral("x"));
    row->setItemValue(-1, 0, QStringLiteral("x"));
    row->setItemValue(0, -1, QStringLiteral("x"));
    row->setItemValue(2147483647, 2147483647, QStringLiteral("x"));
    QVERIFY(!row->isModified());
    QCOMPARE(row->itemValue(2147483647, 2147483647), QString());
}

void TestZorvaHiddenTable::reads()
{
    FormFixture form(twoByTwo(), FormFixture::WithValues);
    auto* const row = form.delegate<ZorvaHiddenTable>("grid");
    row->setItemValue(0, 1, QStringLiteral("old"));
    QVERIFY(form.read("grid", QStringLiteral("<grid><C row=\"1\" column=\"1\">d</C><C>a</C>"
                                             "<C row=\"5\" column=\"0\">lost</C></grid>")));
    QCOMPARE(row->itemValue(0, 0), QStringLiteral("a"));
    QCOMPARE(row->itemValue(0, 1), QString());
    QCOMPARE(row->itemValue(1, 1), QStringLiteral("d"));
}

QTEST_MAIN(TestZorvaHiddenTable)
#include "tst_zorvahiddentable.moc"
