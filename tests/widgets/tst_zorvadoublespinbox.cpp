#include <formtest.h>

#include <basicvaluewidgets/vcnumericfloatspin.h>
#include <valueframework/valuenumeric.h>
#include <zorvaparser/widgets/zorvadoublespinbox.h>

using namespace Orvane;

namespace {

QString levelRow(const QList<FormProperty>& more = {})
{
    return rowXml("DoubleSpinBox", "level", more);
}

} // namespace

class TestZorvaDoubleSpinBox : public FormTest
{
    Q_OBJECT

private Q_SLOTS:
    void writesByDecimals_data();
    void writesByDecimals();
    void writesUnit();
    void writesNothingWithoutParameterXml();
    void reads_data();
    void reads();
    void equalValueDoesNothing();
    void userSteps();
    void userTypes();
    void descriptionReachesTheControl();
    void changesReachTheControl();
    void showsDisplayNumbers();
    void limitsAreConvertedOnce();
    void newLimitClampsValueAndProperty();
    void outsideChangeMarks();
    void toolTipIsTheRange();
    void manyDecimalsAreBounded();
};

void TestZorvaDoubleSpinBox::writesByDecimals_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<int>("decimals");
    QTest::addColumn<QString>("text");
    QTest::newRow("one decimal, whole number") << "12" << 1 << "12";
    QTest::newRow("one decimal, fraction") << "12.5" << 1 << "12.5";
    QTest::newRow("one decimal, rounded away") << "0.04" << 1 << "0";
    QTest::newRow("one decimal, text judged after rounding") << "100.05" << 1 << "100";
    QTest::newRow("one decimal, rounded up") << "100.06" << 1 << "100.1";
    QTest::newRow("minus zero") << "-0" << 0 << "0";
    QTest::newRow("minus zero with decimals") << "-0.0" << 2 << "0.00";
    QTest::newRow("rounded to zero") << "-0.001" << 1 << "0";
    QTest::newRow("negative") << "-0.05" << 2 << "-0.05";
    QTest::newRow("no decimals") << "12.7" << 0 << "13";
    QTest::newRow("two decimals keep a zero") << "2.5" << 2 << "2.50";
    QTest::newRow("two decimals keep both zeros") << "12" << 2 << "12.00";
}

void TestZorvaDoubleSpinBox::writesByDecimals()
{
    QFETCH(QString, value);
    QFETCH(int, decimals);
    QFETCH(QString, text);
    FormFixture form(levelRow({{"value", value}, {"decimals", decimals}}), FormFixture::WithValues);
    QCOMPARE(form.writtenBy("level"), QStringLiteral("<level>%1</level>").arg(text));
}

void TestZorvaDoubleSpinBox::writesUnit()
{
    FormFixture form(levelRow({{"value", 3}, {"unit", "dB"}}));
    QCOMPARE(form.writtenBy("level"), QStringLiteral("<level unit=\"dB\">3</level>"));
}

void TestZorvaDoubleSpinBox::writesNothingWithoutParameterXml()
{
    FormFixture form(widgetXml("DoubleSpinBox", "level", {{"value", 3}}));
    QCOMPARE(form.writtenBy("level"), QString());
}

void TestZorvaDoubleSpinBox::reads_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<double>("number");
    QTest::newRow("number") << "2.5" << 2.5;
    QTest::newRow("the present one") << "7" << 7.0;
    QTest::newRow("no number is 0") << "loud" << 0.0;
    QTest::newRow("nothing is 0") << "" << 0.0;
}

void TestZorvaDoubleSpinBox::reads()
{
    QFETCH(QString, text);
    QFETCH(double, number);
    FormFixture form(levelRow({{"value", 7}}));
    auto* const row = form.delegate<ZorvaDoubleSpinBox>("level");
    QSignalSpy changed(row, &ZorvaDoubleSpinBox::valueChanged);
    QVERIFY(form.read("level", QStringLiteral("<level>%1</level>").arg(text)));
    QCOMPARE(changed.count(), 1);
    QCOMPARE(changed.at(0).at(0).toDouble(), number);
    QCOMPARE(form.value<values::NumericDouble>("level")->GetValue(), number);
    QVERIFY(!row->isModified());
}

void TestZorvaDoubleSpinBox::equalValueDoesNothing()
{
    FormFixture form(levelRow({{"value", 7}}));
    auto* const row = form.delegate<ZorvaDoubleSpinBox>("level");
    QSignalSpy changed(row, &ZorvaDoubleSpinBox::valueChanged);
    row->setValue(7.0);
    QCOMPARE(row->property("value").userType(), int(QMetaType::QString));
    QCOMPARE(changed.count(), 0);
    QVERIFY(!row->isModified());
}

void TestZorvaDoubleSpinBox::userSteps()
{
    FormFixture form(levelRow({{"value", 7}, {"singleStep", 2}}));
    form.show();
    auto* const row = form.delegate<ZorvaDoubleSpinBox>("level");
    QStringList order;
    connect(row, &ZorvaDoubleSpinBox::valueChanged, this,
            [&order](double number) { order << QString::number(number); });
    connect(row, &ZorvaDoubleSpinBox::editingFinished, this,
            [&order, row] { order << QStringLiteral("finished, marked %1").arg(row->isModified()); });
    QTest::keyClick(form.control<VCNumericFloatSpin>("level"), Qt::Key_Up);
    QCOMPARE(order, (QStringList{QStringLiteral("9"), QStringLiteral("finished, marked 0")}));
    QCOMPARE(row->property("value").toDouble(), 9.0);
    QVERIFY(row->isModified());
}

void TestZorvaDoubleSpinBox::userTypes()
{
    FormFixture form(levelRow({{"value", 7}, {"decimals", 2}}));
    form.show();
    auto* const row = form.delegate<ZorvaDoubleSpinBox>("level");
    auto* const control = form.control<VCNumericFloatSpin>("level");
    row->setFocus();
    QTRY_VERIFY(control->hasFocus());
    control->selectAll();
    QTest::keyClicks(control, QStringLiteral("3.25"));
    QCOMPARE(row->property("value").toDouble(), 7.0);
    QTest::keyClick(control, Qt::Key_Return);
    QCOMPARE(row->property("value").toDouble(), 3.25);
    QCOMPARE(form.writtenBy("level"), QStringLiteral("<level>3.25</level>"));
}

void TestZorvaDoubleSpinBox::descriptionReachesTheControl()
{
    FormFixture form(levelRow({{"value", 7},
                               {"minimum", -10},
                               {"maximum", 20},
                               {"prefix", "about "},
                               {"suffix", "dB"},
                               {"specialValueText", "off"},
                               {"decimals", 3},
                               {"wrapping", true}}));
    const auto* const control = form.control<VCNumericFloatSpin>("level");
    QCOMPARE(control->minimum(), -10.0);
    QCOMPARE(control->maximum(), 20.0);
    QCOMPARE(control->prefix(), QStringLiteral("about "));
    QCOMPARE(control->suffix(), QStringLiteral("dB"));
    QCOMPARE(control->specialValueText(), QStringLiteral("off"));
    QCOMPARE(control->decimals(), 3);
    QVERIFY(control->wrapping());
    QCOMPARE(control->value(), 7.0);
    QVERIFY(control->sizeHint().width() < 1000);
}

void TestZorvaDoubleSpinBox::changesReachTheControl()
{
    FormFixture form(levelRow({{"value", 7}}));
    auto* const row = form.delegate<ZorvaDoubleSpinBox>("level");
    const auto* const control = form.control<VCNumericFloatSpin>("level");
    row->setMinimum(1.0);
    row->setMaximum(50.0);
    row->setPrefix(QStringLiteral("p "));
    row->setSuffix(QStringLiteral("V"));
    row->setSpecialValueText(QStringLiteral("none"));
    row->setDecimals(2);
    row->setWrapping(true);
    row->setSingleStep(5.0);
    row->setValue(8.5);
    QCOMPARE(control->minimum(), 1.0);
    QCOMPARE(control->maximum(), 50.0);
    QCOMPARE(control->prefix(), QStringLiteral("p "));
    QCOMPARE(control->suffix(), QStringLiteral("V"));
    QCOMPARE(control->specialValueText(), QStringLiteral("none"));
    QCOMPARE(control->decimals(), 2);
    QVERIFY(control->wrapping());
    QCOMPARE(control->value(), 8.5);
    QCOMPARE(form.value<values::NumericDouble>("level")->GetStep(), 5.0);
    QVERIFY(!row->isModified());
}

void TestZorvaDoubleSpinBox::showsDisplayNumbers()
{
    FormFixture form(levelRow({{"value", 10},
                               {"displayScalingFactor", 2},
                               {"displayAdditiveOffset", 4},
                               {"unitScale", 3},
                               {"minimum", 4},
                               {"maximum", 64}}));
    const auto* const control = form.control<VCNumericFloatSpin>("level");
    QCOMPARE(control->value(), 8.0);
    QCOMPARE(form.value<values::NumericDouble>("level")->GetMin(), 0.0);
    QCOMPARE(form.value<values::NumericDouble>("level")->GetMax(), 30.0);
    QCOMPARE(form.writtenBy("level"), QStringLiteral("<level>10</level>"));
}

void TestZorvaDoubleSpinBox::limitsAreConvertedOnce()
{
    FormFixture form(levelRow({{"displayScalingFactor", 1000}, {"minimum", 5000}, {"value", 6}}));
    auto* const row = form.delegate<ZorvaDoubleSpinBox>("level");
    const auto* const value = form.value<values::NumericDouble>("level");
    QCOMPARE(row->property("minimum").toDouble(), 5.0);
    QCOMPARE(value->GetMin(), 5.0);
    row->setMinimum(4000.0);
    QCOMPARE(row->property("minimum").toDouble(), 4.0);
    QCOMPARE(value->GetMin(), 4.0);
}

void TestZorvaDoubleSpinBox::newLimitClampsValueAndProperty()
{
    FormFixture form(levelRow({{"value", 70}}));
    auto* const row = form.delegate<ZorvaDoubleSpinBox>("level");
    row->setMaximum(50.0);
    QCOMPARE(form.value<values::NumericDouble>("level")->GetValue(), 50.0);
    QCOMPARE(form.control<VCNumericFloatSpin>("level")->value(), 50.0);
    QCOMPARE(form.writtenBy("level"), QStringLiteral("<level>50</level>"));
    QVERIFY(!row->isModified());
}

void TestZorvaDoubleSpinBox::outsideChangeMarks()
{
    FormFixture form(levelRow({{"value", 7}}), FormFixture::WithValues);
    auto* const row = form.delegate<ZorvaDoubleSpinBox>("level");
    QSignalSpy changed(row, &ZorvaDoubleSpinBox::valueChanged);
    form.value<values::NumericDouble>("level")->SetValue(2.0, nullptr);
    QCOMPARE(changed.count(), 1);
    QVERIFY(row->isModified());
}

void TestZorvaDoubleSpinBox::toolTipIsTheRange()
{
    FormFixture form(levelRow({{"labelText", "Level"}, {"minimum", 1}, {"maximum", 9}, {"toolTip", "own"}}));
    auto* const row = form.delegate<ZorvaDoubleSpinBox>("level");
    const auto* const control = form.control<VCNumericFloatSpin>("level");
    QCOMPARE(control->toolTip(), QStringLiteral("<html>Level<br>1...9"));
    row->setMaximum(7.0);
    QCOMPARE(control->toolTip(), QStringLiteral("<html>Level<br>1...7"));
}

void TestZorvaDoubleSpinBox::manyDecimalsAreBounded()
{
    FormFixture form(levelRow({{"value", 1}, {"decimals", 2000000000}}), FormFixture::WithValues);
    QVERIFY(form.writtenBy("level").size() < 2000);
}

QTEST_MAIN(TestZorvaDoubleSpinBox)
#include "tst_zorvadoublespinbox.moc"
