#include <formtest.h>

#include <basicvaluewidgets/vcnumericfloatspin.h>
#include <valueframework/valuenumeric.h>
#include <zorvaparser/widgets/zorvaspinboxlist.h>

using namespace Orvane;

namespace {

QString delayRow(const QList<FormProperty>& more = {})
{
    return rowXml("SpinBoxList", "delays",
                  QList<FormProperty>{{"itemCount", 2}, {"parameterListItemTag", "Delay"}} + more);
}

} // namespace

class TestZorvaSpinBoxList : public FormTest
{
    Q_OBJECT

private Q_SLOTS:
    void shiftCountPlaysNoPart();
    void writesItems();
    void reads();
    void limitsHoldForEveryItem();
    void userStepsOneItem();
    void itemsOutOfRange();
    void setEnabledGoesStraightToTheControl();
    void toolTipIsTheRange();
    void valueGoingAwayLeavesTheList();
    void manyItemsAreBounded();
};

void TestZorvaSpinBoxList::shiftCountPlaysNoPart()
{
    FormFixture form(rowXml("SpinBoxList", "delays", {{"shiftCount", 3}}));
    QCOMPARE(form.control<QWidget>("delays")->findChildren<VCNumericFloatSpin*>().count(), 0);
    QCOMPARE(form.writtenBy("delays"), QStringLiteral("<delays/>"));
}

void TestZorvaSpinBoxList::writesItems()
{
    FormFixture form(delayRow({{"value", -3}, {"decimals", 2}, {"unit", "ms"}}));
    QCOMPARE(form.writtenBy("delays"), QStringLiteral("<delays><Delay unit=\"ms\" index=\"0\">-3</Delay>"
                                                      "<Delay unit=\"ms\" index=\"1\">-3</Delay></delays>"));
    form.row("delays")->setGenerateParameterXml(false);
    QCOMPARE(form.writtenBy("delays"), QString());
}

void TestZorvaSpinBoxList::reads()
{
    FormFixture form(delayRow());
    auto* const row = form.delegate<ZorvaSpinBoxList>("delays");
    QVERIFY(form.read("delays", QStringLiteral("<delays><D>4</D><D>5.5</D><D>6</D></delays>")));
    QCOMPARE(row->itemValue(0), 4);
    QCOMPARE(row->itemValue(1), 0);
    QVERIFY(row->isModified());
}

void TestZorvaSpinBoxList::limitsHoldForEveryItem()
{
    FormFixture form(delayRow({{"minimum", 2}, {"maximum", 5}}));
    auto* const row = form.delegate<ZorvaSpinBoxList>("delays");
    for (int i = 0; i < 2; ++i) {
        QCOMPARE(row->itemValue(i), 2);
        row->setItemValue(i, 9);
        QCOMPARE(row->itemValue(i), 5);
    }
}

void TestZorvaSpinBoxList::userStepsOneItem()
{
    FormFixture form(delayRow());
    form.show();
    auto* const row = form.delegate<ZorvaSpinBoxList>("delays");
    QSignalSpy changed(row, &ZorvaSpinBoxList::valueChanged);
    QTest::keyClick(form.control<VCNumericFloatSpin>("delays_1"), Qt::Key_Up);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(changed.at(0).at(0).toInt(), 1);
    QCOMPARE(changed.at(0).at(1).toInt(), 1);
    QVERIFY(row->isModified());
}

void TestZorvaSpinBoxList::itemsOutOfRange()
{
    FormFixture form(delayRow({{"value", 7}}));
    auto* const row = form.delegate<ZorvaSpinBoxList>("delays");
    for (const int index : {-1, 2}) {
        row->setItemValue(index, 1);
        row->setEnabled(index, false);
        QCOMPARE(row->itemValue(index), 0);
        QVERIFY(!row->isEnabled(index));
    }
    QVERIFY(!row->isModified());
}

void TestZorvaSpinBoxList::setEnabledGoesStraightToTheControl()
{
    FormFixture form(delayRow());
    auto* const row = form.delegate<ZorvaSpinBoxList>("delays");
    row->EnableInput(false, false);
    row->setEnabled(1, false);
    QVERIFY(!form.control<VCNumericFloatSpin>("delays_1")->isEnabled());
    row->setEnabled(1, true);
    QVERIFY(row->isEnabled(1));
}

void TestZorvaSpinBoxList::toolTipIsTheRange()
{
    FormFixture form(delayRow({{"labelText", "Delay"}, {"minimum", 2}, {"maximum", 5}}));
    QCOMPARE(form.control<VCNumericFloatSpin>("delays_1")->toolTip(), QStringLiteral("<html>Delay<br>2...5"));
}

void TestZorvaSpinBoxList::valueGoingAwayLeavesTheList()
{
    FormFixture form(delayRow());
    auto* const row = form.delegate<ZorvaSpinBoxList>("delays");
    row->setItemValue(1, 5);
    QVERIFY(values::Tree::Instance()->RemoveValue(QStringLiteral("/test/delays_0")));
    QCOMPARE(row->itemValue(0), 5);
    QCOMPARE(row->itemValue(1), 0);
}

void TestZorvaSpinBoxList::manyItemsAreBounded()
{
    FormFixture form(delayRow({{"itemCount", 2000000000}}), FormFixture::WithValues);
    QVERIFY(form.value<values::NumericInt>("delays_999"));
    QVERIFY(!form.value<values::NumericInt>("delays_100000"));
}

QTEST_MAIN(TestZorvaSpinBoxList)
#include "tst_zorvaspinboxlist.moc"
