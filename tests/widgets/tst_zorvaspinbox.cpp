#include <formtest.h>

#include <basicvaluewidgets/vcnumericfloatspin.h>
#include <valueframework/valuenumeric.h>
#include <zorvaparser/widgets/zorvaspinbox.h>

using namespace Orvane;

namespace {

QString countRow(const QList<FormProperty>& more = {})
{
    return rowXml("SpinBox", "count", more);
}

} // namespace

class TestZorvaSpinBox : public FormTest
{
    Q_OBJECT

private Q_SLOTS:
    void writes();
    void reads_data();
    void reads();
    void equalValueDoesNothing();
    void userSteps();
    void controlIsNamedAfterTheValue();
    void changesReachTheControl();
    void decimalsStayAsCreated();
    void newLimitClampsValueAndProperty();
    void toolTipIsTheRange();
    void hugeNumbersAreNoNumbers();
};

void TestZorvaSpinBox::writes()
{
    FormFixture form(countRow({{"value", -12}, {"unit", "pcs"}}));
    QCOMPARE(form.writtenBy("count"), QStringLiteral("<count unit=\"pcs\">-12</count>"));
    form.row("count")->setGenerateParameterXml(false);
    QCOMPARE(form.writtenBy("count"), QString());
}

void TestZorvaSpinBox::reads_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("number");
    QTest::newRow("number") << "25" << 25;
    QTest::newRow("the present one") << "7" << 7;
    QTest::newRow("fraction is no number") << "2.5" << 0;
    QTest::newRow("no number is 0") << "many" << 0;
}

void TestZorvaSpinBox::reads()
{
    QFETCH(QString, text);
    QFETCH(int, number);
    FormFixture form(countRow({{"value", 7}}));
    auto* const row = form.delegate<ZorvaSpinBox>("count");
    QSignalSpy changed(row, &ZorvaSpinBox::valueChanged);
    QVERIFY(form.read("count", QStringLiteral("<count>%1</count>").arg(text)));
    QCOMPARE(changed.count(), 1);
    QCOMPARE(changed.at(0).at(0).toInt(), number);
    QCOMPARE(form.value<values::NumericInt>("count")->GetValue(), number);
    QVERIFY(!row->isModified());
}

void TestZorvaSpinBox::equalValueDoesNothing()
{
    FormFixture form(countRow({{"value", 7}}));
    auto* const row = form.delegate<ZorvaSpinBox>("count");
    QSignalSpy changed(row, &ZorvaSpinBox::valueChanged);
    row->setValue(7);
    QCOMPARE(changed.count(), 0);
    QVERIFY(!row->isModified());
}

void TestZorvaSpinBox::userSteps()
{
    FormFixture form(countRow({{"value", 7}, {"maximum", 8}}));
    form.show();
    auto* const row = form.delegate<ZorvaSpinBox>("count");
    auto* const control = form.control<VCNumericFloatSpin>("count");
    QSignalSpy changed(row, &ZorvaSpinBox::valueChanged);
    QSignalSpy finished(row, &ZorvaSpinBox::editingFinished);
    QTest::keyClick(control, Qt::Key_Up);
    QTest::keyClick(control, Qt::Key_Up);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(finished.count(), 1);
    QCOMPARE(row->property("value").toInt(), 8);
    QVERIFY(row->isModified());
}

void TestZorvaSpinBox::controlIsNamedAfterTheValue()
{
    FormFixture form(countRow({{"parameterXmlTag", "rx/number"}}));
    QVERIFY(form.control<VCNumericFloatSpin>("number"));
    QVERIFY(!form.control<VCNumericFloatSpin>("count"));
}

void TestZorvaSpinBox::changesReachTheControl()
{
    FormFixture form(countRow({{"value", 7}, {"displayAdditiveOffset", 100}}));
    auto* const row = form.delegate<ZorvaSpinBox>("count");
    const auto* const control = form.control<VCNumericFloatSpin>("count");
    QCOMPARE(control->value(), 107.0);
    row->setDisplayAdditiveOffset(10);
    QCOMPARE(control->value(), 17.0);
    row->setPrefix(QStringLiteral("p "));
    row->setSuffix(QStringLiteral("V"));
    row->setWrapping(true);
    row->setSpecialValueText(QStringLiteral("none"));
    QCOMPARE(control->prefix(), QStringLiteral("p "));
    QCOMPARE(control->suffix(), QStringLiteral("V"));
    QVERIFY(control->wrapping());
    QCOMPARE(control->specialValueText(), QStringLiteral("none"));
    row->setSingleStep(3);
    QCOMPARE(form.value<values::NumericInt>("count")->GetStep(), 3);
}

void TestZorvaSpinBox::decimalsStayAsCreated()
{
    FormFixture form(countRow({{"decimals", 1}}));
    form.row("count")->setProperty("decimals", 3);
    QCOMPARE(form.control<VCNumericFloatSpin>("count")->decimals(), 1);
}

void TestZorvaSpinBox::newLimitClampsValueAndProperty()
{
    FormFixture form(countRow({{"value", 70}}));
    auto* const row = form.delegate<ZorvaSpinBox>("count");
    row->setMaximum(50);
    QCOMPARE(form.value<values::NumericInt>("count")->GetValue(), 50);
    QCOMPARE(row->property("value").toInt(), 50);
    QVERIFY(!row->isModified());
}

void TestZorvaSpinBox::toolTipIsTheRange()
{
    FormFixture form(countRow({{"labelText", "Count"}, {"minimum", 1}, {"unitScale", 2}}));
    const auto* const control = form.control<VCNumericFloatSpin>("count");
    QVERIFY2(control->toolTip().startsWith(QStringLiteral("<html>Count<br>0...")),
             qPrintable(control->toolTip()));
    form.delegate<ZorvaSpinBox>("count")->setMinimum(4);
    QVERIFY(control->toolTip().startsWith(QStringLiteral("<html>Count<br>2...")));
}

void TestZorvaSpinBox::hugeNumbersAreNoNumbers()
{
    FormFixture form(countRow({{"value", 7}}));
    form.row("count")->setProperty("value", 1e300);
    QCOMPARE(form.value<values::NumericInt>("count")->GetValue(), 0);
    QCOMPARE(form.writtenBy("count"), QStringLiteral("<count>0</count>"));
}

QTEST_MAIN(TestZorvaSpinBox)
#include "tst_zorvaspinbox.moc"
