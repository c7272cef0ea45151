#include <formtest.h>

#include <basicvaluewidgets/vcnumericfloatspin.h>
#include <valueframework/valuenumeric.h>
#include <zorvaparser/widgets/zorvaint64spinbox.h>

using namespace Orvane;

namespace {

QString widthRow(const QList<FormProperty>& more = {})
{
    return rowXml("BandwidthEdit", "width", more);
}

} // namespace

class TestZorvaInt64SpinBox : public FormTest
{
    Q_OBJECT

private Q_SLOTS:
    void bothClassNamesGiveIt();
    void unitScaleChoosesSuffixAndDecimals_data();
    void unitScaleChoosesSuffixAndDecimals();
    void unitScaleActsBeforeTheValueExists();
    void textScaleResets_data();
    void textScaleResets();
    void numberScaleReachesTheControl();
    void scriptReachesBothScaleSlots();
    void writesWholeHertz_data();
    void writesWholeHertz();
    void reads_data();
    void reads();
    void userTypesInTheUnitShown();
    void tellsTruncated();
    void newLimitClampsValueAndProperty();
    void toolTipShowsTheOddUpperBound();
    void storesWhatNothingReads();
};

void TestZorvaInt64SpinBox::bothClassNamesGiveIt()
{
    FormFixture form(widthRow() + rowXml("FrequencyOffsetEdit", "offset"));
    QVERIFY(form.delegate<ZorvaInt64SpinBox>("width"));
    QVERIFY(form.delegate<ZorvaInt64SpinBox>("offset"));
}

void TestZorvaInt64SpinBox::unitScaleChoosesSuffixAndDecimals_data()
{
    QTest::addColumn<QString>("scale");
    QTest::addColumn<QString>("suffix");
    QTest::addColumn<int>("decimals");
    QTest::newRow("Hz") << "1"
                        << "Hz" << 0;
    QTest::newRow("kHz") << "1000"
                         << "kHz" << 3;
    QTest::newRow("MHz") << "1000000"
                         << "MHz" << 6;
    QTest::newRow("GHz") << "1000000000"
                         << "GHz" << 9;
    QTest::newRow("any other") << "5"
                               << "own" << 4;
    QTest::newRow("no number") << "kHz"
                               << "own" << 4;
}

void TestZorvaInt64SpinBox::unitScaleChoosesSuffixAndDecimals()
{
    QFETCH(QString, scale);
    QFETCH(QString, suffix);
    QFETCH(int, decimals);
    FormFixture form(widthRow({{"suffix", "own"}, {"decimals", 4}, {"unitScale", scale}}));
    QCOMPARE(form.row("width")->property("suffix").toString(), suffix);
    QCOMPARE(form.row("width")->property("decimals").toInt(), decimals);
    const auto* const control = form.control<VCNumericFloatSpin>("width");
    QCOMPARE(control->suffix(), suffix);
    QCOMPARE(control->decimals(), decimals);
}

void TestZorvaInt64SpinBox::unitScaleActsBeforeTheValueExists()
{
    FormFixture form(widthRow({{"unitScale", 1000}}), FormFixture::Parsed);
    QCOMPARE(form.row("width")->property("suffix").toString(), QStringLiteral("kHz"));
    QCOMPARE(form.row("width")->property("decimals").toInt(), 3);
}

void TestZorvaInt64SpinBox::textScaleResets_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("suffix");
    QTest::addColumn<int>("decimals");
    QTest::newRow("kHz") << "kHz"
                         << "Hz" << 0;
    QTest::newRow("MHz") << "MHz"
                         << "Hz" << 0;
    QTest::newRow("GHz") << "GHz"
                         << "Hz" << 0;
    QTest::newRow("Hz") << "Hz"
                        << "Hz" << 0;
    QTest::newRow("empty changes nothing") << ""
                                           << "kHz" << 3;
}

void TestZorvaInt64SpinBox::textScaleResets()
{
    QFETCH(QString, text);
    QFETCH(QString, suffix);
    QFETCH(int, decimals);
    FormFixture form(widthRow({{"unitScale", 1000}}));
    form.delegate<ZorvaInt64SpinBox>("width")->setUnitScale(text);
    const auto* const control = form.control<VCNumericFloatSpin>("width");
    QCOMPARE(control->suffix(), suffix);
    QCOMPARE(control->decimals(), decimals);
}

void TestZorvaInt64SpinBox::numberScaleReachesTheControl()
{
    FormFixture form(widthRow({{"value", 25000}, {"unitScale", 1}}));
    const auto* const control = form.control<VCNumericFloatSpin>("width");
    QCOMPARE(control->value(), 25000.0);
    form.delegate<ZorvaInt64SpinBox>("width")->setUnitScale(qulonglong(1000));
    QCOMPARE(control->value(), 25.0);
    QCOMPARE(control->suffix(), QStringLiteral("kHz"));
    QCOMPARE(form.writtenBy("width"), QStringLiteral("<width>25000</width>"));
}

void TestZorvaInt64SpinBox::scriptReachesBothScaleSlots()
{
    FormFixture form(widthRow());
    form.evaluate(QStringLiteral("width.setUnitScale(1000000)"));
    QCOMPARE(form.row("width")->property("suffix").toString(), QStringLiteral("MHz"));
    form.evaluate(QStringLiteral("width.setUnitScale('GHz')"));
    QCOMPARE(form.row("width")->property("suffix").toString(), QStringLiteral("Hz"));
}

void TestZorvaInt64SpinBox::writesWholeHertz_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QString>("text");
    QTest::newRow("text") << QVariant(QStringLiteral("26500000000")) << "26500000000";
    QTest::newRow("number") << QVariant(26500000000.0) << "26500000000";
    QTest::newRow("full 64 bits") << QVariant(qlonglong(9007199254740993)) << "9007199254740993";
    QTest::newRow("text with exponent is no number") << QVariant(QStringLiteral("1e6")) << "0";
    QTest::newRow("out of range") << QVariant(1e300) << "0";
}

void TestZorvaInt64SpinBox::writesWholeHertz()
{
    QFETCH(QVariant, value);
    QFETCH(QString, text);
    FormFixture form(widthRow(), FormFixture::WithValues);
    form.row("width")->setProperty("value", value);
    QCOMPARE(form.writtenBy("width"), QStringLiteral("<width>%1</width>").arg(text));
}

void TestZorvaInt64SpinBox::reads_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<qlonglong>("number");
    QTest::newRow("number") << "26500000000" << 26500000000LL;
    QTest::newRow("no number is 0") << "wide" << 0LL;
}

void TestZorvaInt64SpinBox::reads()
{
    QFETCH(QString, text);
    QFETCH(qlonglong, number);
    FormFixture form(widthRow({{"value", 7}}));
    auto* const row = form.delegate<ZorvaInt64SpinBox>("width");
    QSignalSpy changed(row, &ZorvaInt64SpinBox::valueChanged);
    QVERIFY(form.read("width", QStringLiteral("<width>%1</width>").arg(text)));
    QCOMPARE(changed.count(), 1);
    QCOMPARE(changed.at(0).at(0).toLongLong(), number);
    QCOMPARE(form.value<values::NumericDouble>("width")->GetValue(), double(number));
    QVERIFY(!row->isModified());
}

void TestZorvaInt64SpinBox::userTypesInTheUnitShown()
{
    FormFixture form(widthRow({{"value", 25000}, {"unitScale", 1000}}));
    form.show();
    auto* const row = form.delegate<ZorvaInt64SpinBox>("width");
    auto* const control = form.control<VCNumericFloatSpin>("width");
    QSignalSpy changed(row, &ZorvaInt64SpinBox::valueChanged);
    QSignalSpy finished(row, &ZorvaInt64SpinBox::editingFinished);
    row->setFocus();
    QTRY_VERIFY(control->hasFocus());
    control->selectAll();
    QTest::keyClicks(control, QStringLiteral("12.5"));
    QTest::keyClick(control, Qt::Key_Return);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(changed.at(0).at(0).toLongLong(), 12500LL);
    QCOMPARE(finished.count(), 1);
    QVERIFY(row->isModified());
    QCOMPARE(form.writtenBy("width"), QStringLiteral("<width>12500</width>"));
}

void TestZorvaInt64SpinBox::tellsTruncated()
{
    FormFixture form(widthRow(), FormFixture::WithValues);
    auto* const row = form.delegate<ZorvaInt64SpinBox>("width");
    QSignalSpy changed(row, &ZorvaInt64SpinBox::valueChanged);
    form.value<values::NumericDouble>("width")->SetValue(-2.7, nullptr);
    QCOMPARE(changed.takeFirst().at(0).toLongLong(), -2LL);
    form.value<values::NumericDouble>("width")->SetValue(1e300, nullptr);
    QCOMPARE(changed.takeFirst().at(0).toLongLong(), std::numeric_limits<qint64>::min());
}

void TestZorvaInt64SpinBox::newLimitClampsValueAndProperty()
{
    FormFixture form(widthRow({{"value", 70}}));
    auto* const row = form.delegate<ZorvaInt64SpinBox>("width");
    row->setMinimum(100);
    QCOMPARE(form.value<values::NumericDouble>("width")->GetValue(), 100.0);
    QCOMPARE(form.writtenBy("width"), QStringLiteral("<width>100</width>"));
    QVERIFY(!row->isModified());
}

void TestZorvaInt64SpinBox::toolTipShowsTheOddUpperBound()
{
    FormFixture form(widthRow({{"labelText", "Width"}, {"minimum", 0}, {"maximum", 100}}));
    auto* const row = form.delegate<ZorvaInt64SpinBox>("width");
    const auto* const control = form.control<VCNumericFloatSpin>("width");
    QCOMPARE(control->toolTip(), QStringLiteral("<html>Width<br>0...100"));
    row->setMinimum(20);
    QCOMPARE(control->toolTip(), QStringLiteral("<html>Width<br>20...100"));
}

void TestZorvaInt64SpinBox::storesWhatNothingReads()
{
    FormFixture form(widthRow());
    auto* const row = form.delegate<ZorvaInt64SpinBox>("width");
    row->setMaxHistoryLength(5);
    row->setUseHistory(true);
    row->setUnitHidden(true);
    QCOMPARE(row->property("maxHistoryLength").toInt(), 5);
    QVERIFY(row->property("useHistory").toBool());
    QVERIFY(row->property("unitHidden").toBool());
}

QTEST_MAIN(TestZorvaInt64SpinBox)
#include "tst_zorvaint64spinbox.moc"
