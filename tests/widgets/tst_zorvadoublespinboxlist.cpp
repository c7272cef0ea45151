#include <formtest.h>

#include <basicvaluewidgets/vcnumericfloatspin.h>
#include <valueframework/valuenumeric.h>
#include <zorvaparser/widgets/zorvadoublespinboxlist.h>

#include <QLabel>

using namespace Orvane;

namespace {

QString shiftRow(const QList<FormProperty>& more = {})
{
    return rowXml("ShiftList", "shifts",
                  QList<FormProperty>{{"shiftCount", 3}, {"parameterListItemTag", "Shift"}} + more);
}

} // namespace

class TestZorvaDoubleSpinBoxList : public FormTest
{
    Q_OBJECT

private Q_SLOTS:
    void countComesFromTheDescription_data();
    void countComesFromTheDescription();
    void emptyListWritesAnEmptyElement();
    void writesItemsByDecimals();
    void limitsHoldForEveryItem();
    void readsInOrderAndByIndex_data();
    void readsInOrderAndByIndex();
    void readingMarks();
    void userStepsOneItem();
    void scriptSetsItems();
    void itemsOutOfRange();
    void wishesSurviveSwitchedOffInput();
    void laterChangesOfDisplayStayStored();
    void prefixReachesEveryControl();
    void setItemCountDoesNotResize();
    void valueGoingAwayLeavesTheList();
    void focusGoesToTheFirst();
};

void TestZorvaDoubleSpinBoxList::countComesFromTheDescription_data()
{
    QTest::addColumn<QString>("itemCount");
    QTest::addColumn<QString>("shiftCount");
    QTest::addColumn<int>("count");
    QTest::newRow("shiftCount alone") << QString() << "3" << 3;
    QTest::newRow("itemCount wins") << "2"
                                    << "3" << 2;
    QTest::newRow("itemCount wins as 0") << "0"
                                         << "3" << 0;
    QTest::newRow("none") << QString() << QString() << 0;
    QTest::newRow("negative") << "-4" << QString() << 0;
}

void TestZorvaDoubleSpinBoxList::countComesFromTheDescription()
{
    QFETCH(QString, itemCount);
    QFETCH(QString, shiftCount);
    QFETCH(int, count);
    QList<FormProperty> properties;
    if (!itemCount.isNull())
        properties << FormProperty("itemCount", itemCount);
    if (!shiftCount.isNull())
        properties << FormProperty("shiftCount", shiftCount);
    FormFixture form(rowXml("ShiftList", "shifts", properties));
    QCOMPARE(form.control<QWidget>("shifts")->findChildren<VCNumericFloatSpin*>().count(), count);
    QCOMPARE(bool(form.value<values::NumericDouble>("shifts_2")), count > 2);
}

void TestZorvaDoubleSpinBoxList::emptyListWritesAnEmptyElement()
{
    FormFixture form(rowXml("DoubleSpinBoxList", "shifts", {{"itemCount", 0}}));
    QCOMPARE(form.writtenBy("shifts"), QStringLiteral("<shifts/>"));
    form.row("shifts")->setFocus();
    form.row("shifts")->setGenerateParameterXml(false);
    QCOMPARE(form.writtenBy("shifts"), QString());
}

void TestZorvaDoubleSpinBoxList::writesItemsByDecimals()
{
    FormFixture form(shiftRow({{"decimals", 2}, {"value", 12}, {"unit", "Hz"}}));
    QCOMPARE(form.writtenBy("shifts"),
             QStringLiteral("<shifts><Shift unit=\"Hz\" index=\"0\">12.00</Shift>"
                            "<Shift unit=\"Hz\" index=\"1\">12.00</Shift>"
                            "<Shift unit=\"Hz\" index=\"2\">12.00</Shift></shifts>"));
}

void TestZorvaDoubleSpinBoxList::limitsHoldForEveryItem()
{
    FormFixture form(shiftRow({{"maximum", 5000}, {"displayScalingFactor", 1000}, {"value", 1}}));
    for (int i = 0; i < 3; ++i) {
        const QByteArray name = "shifts_" + QByteArray::number(i);
        QCOMPARE(form.value<values::NumericDouble>(name.constData())->GetMax(), 5.0);
        QCOMPARE(form.control<VCNumericFloatSpin>(name.constData())->value(), 1000.0);
        QCOMPARE(form.control<VCNumericFloatSpin>(name.constData())->maximum(), 5000.0);
    }
}

void TestZorvaDoubleSpinBoxList::readsInOrderAndByIndex_data()
{
    QTest::addColumn<QString>("items");
    QTest::addColumn<QString>("after");
    QTest::newRow("in order") << "<S>1.5</S><S>2</S>"
                              << "1.5 2 7";
    QTest::newRow("by index") << "<S index=\"2\">1</S><S index=\"0\">2</S><S>3</S>"
                              << "2 3 1";
    QTest::newRow("index out of range, and the one behind") << "<S index=\"5\">1</S><S>2</S>"
                                                            << "7 7 7";
    QTest::newRow("negative index counts on") << "<S index=\"-1\">1</S><S>2</S>"
                                              << "2 7 7";
    QTest::newRow("largest index") << "<S index=\"2147483647\">1</S><S>2</S>"
                                   << "7 7 7";
    QTest::newRow("no number is 0") << "<S>x</S>"
                                    << "0 7 7";
    QTest::newRow("comments are passed over") << "<!-- a --><S>1</S>"
                                              << "1 7 7";
}

void TestZorvaDoubleSpinBoxList::readsInOrderAndByIndex()
{
    QFETCH(QString, items);
    QFETCH(QString, after);
    FormFixture form(shiftRow({{"value", 7}}));
    auto* const row = form.delegate<ZorvaDoubleSpinBoxList>("shifts");
    QVERIFY(form.read("shifts", QStringLiteral("<shifts>%1</shifts>").arg(items)));
    QStringList numbers;
    for (int i = 0; i < 3; ++i)
        numbers << QString::number(row->itemValue(i));
    QCOMPARE(numbers.join(QLatin1Char(' ')), after);
}

void TestZorvaDoubleSpinBoxList::readingMarks()
{
    FormFixture form(shiftRow());
    auto* const row = form.delegate<ZorvaDoubleSpinBoxList>("shifts");
    QSignalSpy changed(row, &ZorvaDoubleSpinBoxList::valueChanged);
    QVERIFY(form.read("shifts", QStringLiteral("<shifts><S>0</S></shifts>")));
    QVERIFY(!row->isModified());
    QVERIFY(form.read("shifts", QStringLiteral("<shifts><S>1</S></shifts>")));
    QVERIFY(row->isModified());
    QCOMPARE(changed.count(), 1);
}

void TestZorvaDoubleSpinBoxList::userStepsOneItem()
{
    FormFixture form(shiftRow());
    form.show();
    auto* const row = form.delegate<ZorvaDoubleSpinBoxList>("shifts");
    QStringList order;
    connect(row, &ZorvaDoubleSpinBoxList::valueChanged, this, [&order](int index, double number) {
        order << QStringLiteral("value %1 %2").arg(index).arg(number);
    });
    connect(row, &ZorvaDoubleSpinBoxList::shiftValueChanged, this, [&order](int index, double number) {
        order << QStringLiteral("shift %1 %2").arg(index).arg(number);
    });
    QTest::keyClick(form.control<VCNumericFloatSpin>("shifts_1"), Qt::Key_Up);
    QCOMPARE(order, (QStringList{QStringLiteral("value 1 1"), QStringLiteral("shift 1 1")}));
    QVERIFY(row->isModified());
}

void TestZorvaDoubleSpinBoxList::scriptSetsItems()
{
    FormFixture form(shiftRow());
    auto* const row = form.delegate<ZorvaDoubleSpinBoxList>("shifts");
    form.evaluate(
        QStringLiteral("shifts.setItemValue(0, 2.5); shifts.setShiftValue(1, shifts.itemValue(0));"));
    QCOMPARE(row->shiftValue(0), 2.5);
    QCOMPARE(row->itemValue(1), 2.5);
    QVERIFY(row->isModified());
}

void TestZorvaDoubleSpinBoxList::itemsOutOfRange()
{
    FormFixture form(shiftRow({{"value", 7}}));
    auto* const row = form.delegate<ZorvaDoubleSpinBoxList>("shifts");
    for (const int index : {-1, 3}) {
        row->setItemValue(index, 1.0);
        row->setEnabled(index, false);
        QCOMPARE(row->itemValue(index), 0.0);
        QCOMPARE(row->shiftValue(index), 0.0);
        QVERIFY(!row->isEnabled(index));
    }
    QVERIFY(!row->isModified());
}

void TestZorvaDoubleSpinBoxList::wishesSurviveSwitchedOffInput()
{
    FormFixture form(shiftRow());
    auto* const row = form.delegate<ZorvaDoubleSpinBoxList>("shifts");
    const auto* const control = form.control<VCNumericFloatSpin>("shifts_1");
    row->EnableInput(false, false);
    row->setEnabled(1, false);
    row->setEnabled(0, true);
    QVERIFY(!row->isEnabled(0));
    row->EnableInput(true, false);
    QVERIFY(!control->isEnabled());
    QVERIFY(!row->isEnabled(1));
    QVERIFY(row->isEnabled(0));
    form.evaluate(QStringLiteral("shifts.setEnabled(1, true); shifts.setEnabled(0, false);"));
    QVERIFY(row->isEnabled(1));
    QVERIFY(!row->isEnabled(0));
    QVERIFY(row->isEnabled());
}

void TestZorvaDoubleSpinBoxList::laterChangesOfDisplayStayStored()
{
    FormFixture form(shiftRow({{"suffix", "Hz"}}));
    auto* const row = form.delegate<ZorvaDoubleSpinBoxList>("shifts");
    row->setSuffix(QStringLiteral("kHz"));
    row->setDecimals(3);
    QCOMPARE(row->property("suffix").toString(), QStringLiteral("kHz"));
    QCOMPARE(form.control<VCNumericFloatSpin>("shifts_0")->suffix(), QStringLiteral("Hz"));
    QCOMPARE(form.control<VCNumericFloatSpin>("shifts_0")->decimals(), 0);
}

void TestZorvaDoubleSpinBoxList::prefixReachesEveryControl()
{
    FormFixture form(shiftRow());
    auto* const row = form.delegate<ZorvaDoubleSpinBoxList>("shifts");
    row->setPrefix(QStringLiteral("+/- "));
    row->setSpecialValueText(QStringLiteral("off"));
    for (const char* name : {"shifts_0", "shifts_1", "shifts_2"}) {
        QCOMPARE(form.control<VCNumericFloatSpin>(name)->prefix(), QStringLiteral("+/- "));
        QCOMPARE(form.control<VCNumericFloatSpin>(name)->specialValueText(), QStringLiteral("off"));
    }
}

void TestZorvaDoubleSpinBoxList::setItemCountDoesNotResize()
{
    FormFixture form(shiftRow());
    auto* const row = form.delegate<ZorvaDoubleSpinBoxList>("shifts");
    row->setItemCount(5);
    row->setItemValue(4, 1.0);
    QCOMPARE(row->itemValue(4), 0.0);
}

void TestZorvaDoubleSpinBoxList::valueGoingAwayLeavesTheList()
{
    FormFixture form(shiftRow());
    auto* const row = form.delegate<ZorvaDoubleSpinBoxList>("shifts");
    row->setItemValue(1, 5.0);
    QVERIFY(values::Tree::Instance()->RemoveValue(QStringLiteral("/test/shifts_0")));
    QCOMPARE(row->itemValue(0), 5.0);
    QCOMPARE(row->itemValue(2), 0.0);
    QVERIFY(!form.control<VCNumericFloatSpin>("shifts_0")->isEnabled());
    form.createValues();
    QVERIFY(form.control<VCNumericFloatSpin>("shifts_0")->isEnabled());
    row->setItemValue(2, 3.0);
    QCOMPARE(form.control<VCNumericFloatSpin>("shifts_2")->value(), 3.0);
}

void TestZorvaDoubleSpinBoxList::focusGoesToTheFirst()
{
    FormFixture form(shiftRow());
    form.show();
    form.row("shifts")->setFocus();
    QTRY_VERIFY(form.control<VCNumericFloatSpin>("shifts_0")->hasFocus());
}

QTEST_MAIN(TestZorvaDoubleSpinBoxList)
#include "tst_zorvadoublespinboxlist.moc"
