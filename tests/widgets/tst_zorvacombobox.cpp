#include <formtest.h>

#include <basicvaluewidgets/vccomboboxclassic.h>
#include <valueframework/valueselection.h>
#include <zorvaparser/widgets/zorvacombobox.h>

#include <QLabel>
#include <QStandardItemModel>

using namespace Orvane;

namespace {

QString modes()
{
    return enumXml("Modes", {{"Amplitude", "AM", "am"}, {"Frequency", "FM", "fm"}, {"Upper", "USB", "usb"}});
}

QString widths()
{
    return enumXml("Widths",
                   {{"9 kHz", "W9", "9000"}, {"15 kHz", "W15", "15000"}, {"120 kHz", "W120", "120000"}});
}

QString modeRow(const QList<FormProperty>& more = {})
{
    return rowXml("ComboBox", "mode", QList<FormProperty>{{"enumName", "Modes"}} + more);
}

QString widthRow()
{
    return rowXml("ComboBox", "width", {{"enumName", "Widths"}, {"currentValue", "15000"}});
}

} // namespace

class TestZorvaComboBox : public FormTest
{
    Q_OBJECT

private Q_SLOTS:
    void startsFromTheDescription_data();
    void startsFromTheDescription();
    void startsFromAnyNumber_data();
    void startsFromAnyNumber();
    void userChoosesAnEntry();
    void scriptSetsValueSilently();
    void writesValueText();
    void writesNothingWithoutParameterXml();
    void readTellsAlways();
    void indexOutOfRangeIsRefused_data();
    void indexOutOfRangeIsRefused();
    void indexMarksTheRow();
    void indexInRangeHoldsWithoutAValue();
    void textThatIsNoValueSelectsByNumber_data();
    void textThatIsNoValueSelectsByNumber();
    void clearKeepsEmptyWithoutAMatch();
    void minimumSelects();
    void looksUpEntries();
    void disablesEntries();
    void unknownEnumerationGivesNoEntries();
    void resyncKeepsTheShownName();
    void resyncTakesAnotherEnumeration();
    void resyncTellsOnce();
    void vanishedNameLeavesTheChoiceBlank();
    void toolTip_data();
    void toolTip();
    void toleratesMissingValues();
};

void TestZorvaComboBox::startsFromTheDescription_data()
{
    QTest::addColumn<QString>("given");
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("shown");
    QTest::newRow("value text") << "fm"
                                << "fm"
                                << "Frequency";
    QTest::newRow("none takes the first") << ""
                                          << "am"
                                          << "Amplitude";
    QTest::newRow("unknown takes the first") << "cw"
                                             << "am"
                                             << "Amplitude";
}

void TestZorvaComboBox::startsFromTheDescription()
{
    QFETCH(QString, given);
    QFETCH(QString, value);
    QFETCH(QString, shown);
    FormFixture form(modeRow({{"currentValue", given}, {"labelText", "Mode"}}), modes());
    QCOMPARE(form.row("mode")->property("currentValue").toString(), value);
    QCOMPARE(form.control<VCComboBoxClassic>("mode")->currentText(), shown);
    QCOMPARE(form.control<QLabel>("labelmode")->text(), QStringLiteral("Mode"));
    QCOMPARE(form.row("mode")->GetVTValue(), form.value<values::ValueBase>("mode_Modes"));
    QVERIFY(!form.row("mode")->isModified());
}

void TestZorvaComboBox::startsFromAnyNumber_data()
{
    QTest::addColumn<QVariant>("start");
    QTest::newRow("text") << QVariant(QStringLiteral("26500000000"));
    QTest::newRow("double") << QVariant(26500000000.0);
    QTest::newRow("64 bits") << QVariant(26500000000LL);
}

void TestZorvaComboBox::startsFromAnyNumber()
{
    QFETCH(QVariant, start);
    const QString bands = enumXml("Bands", {{"low", "LOW", "8000"}, {"high", "HIGH", "26500000000"}});
    FormFixture form(rowXml("ComboBox", "band", {{"enumName", "Bands"}}), bands, QString(),
                     FormFixture::Parsed);
    form.row("band")->setProperty("currentValue", start);
    form.createValues();
    QCOMPARE(form.value<values::ValueSelection>("band_Bands")->GetStringValue(), QStringLiteral("high"));
    QCOMPARE(form.writtenBy("band"), QStringLiteral("<band>26500000000</band>"));
    form.row("band")->setProperty("currentValue", 8000.0);
    QCOMPARE(form.value<values::ValueSelection>("band_Bands")->GetStringValue(), QStringLiteral("low"));
    form.row("band")->setProperty("currentValue", start);
    QCOMPARE(form.value<values::ValueSelection>("band_Bands")->GetStringValue(), QStringLiteral("high"));
}

void TestZorvaComboBox::userChoosesAnEntry()
{
    FormFixture form(modeRow(), modes());
    form.show();
    auto* const row = form.delegate<ZorvaComboBox>("mode");
    QSignalSpy changed(row, &ZorvaComboBox::currentValueChanged);
    QTest::keyClick(form.control<VCComboBoxClassic>("mode"), Qt::Key_Down);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(changed.at(0).at(0).toString(), QStringLiteral("fm"));
    QCOMPARE(row->getCurrentEnumValue(), QStringLiteral("fm"));
    QCOMPARE(row->getCurrentIndex(), 1);
    QVERIFY(row->isModified());
}

void TestZorvaComboBox::scriptSetsValueSilently()
{
    FormFixture form(modeRow(), modes());
    auto* const row = form.delegate<ZorvaComboBox>("mode");
    QSignalSpy changed(row, &ZorvaComboBox::currentValueChanged);
    form.evaluate(QStringLiteral("mode.setCurrentValue(Modes.USB)"));
    QCOMPARE(form.control<VCComboBoxClassic>("mode")->currentText(), QStringLiteral("Upper"));
    QCOMPARE(changed.count(), 0);
    QVERIFY(!row->isModified());
}

void TestZorvaComboBox::writesValueText()
{
    FormFixture form(modeRow({{"currentValue", "usb"}, {"unit", "none"}, {"parameterXmlTag", "rx/demod"}}),
                     modes());
    QCOMPARE(form.writtenBy("mode"), QStringLiteral("<demod unit=\"none\">usb</demod>"));
}

void TestZorvaComboBox::writesNothingWithoutParameterXml()
{
    FormFixture form(modeRow({{"generateParameterXml", false}}), modes());
    QCOMPARE(form.writtenBy("mode"), QString());
}

void TestZorvaComboBox::readTellsAlways()
{
    FormFixture form(modeRow({{"currentValue", "fm"}}), modes());
    auto* const row = form.delegate<ZorvaComboBox>("mode");
    QSignalSpy changed(row, &ZorvaComboBox::currentValueChanged);
    QVERIFY(form.read("mode", QStringLiteral("<mode>fm</mode>")));
    QCOMPARE(changed.count(), 1);
    QVERIFY(form.read("mode", QStringLiteral("<mode>usb</mode>")));
    QCOMPARE(changed.count(), 2);
    QCOMPARE(form.control<VCComboBoxClassic>("mode")->currentText(), QStringLiteral("Upper"));
    QVERIFY(!row->isModified());
}

void TestZorvaComboBox::indexOutOfRangeIsRefused_data()
{
    QTest::addColumn<int>("index");
    QTest::newRow("below") << -1;
    QTest::newRow("count") << 3;
}

void TestZorvaComboBox::indexOutOfRangeIsRefused()
{
    QFETCH(int, index);
    FormFixture form(modeRow({{"currentValue", "fm"}}), modes());
    auto* const row = form.delegate<ZorvaComboBox>("mode");
    QVERIFY(!row->setCurrentIndex(index));
    QCOMPARE(row->getCurrentIndex(), 1);
    QVERIFY(!row->isModified());
}

void TestZorvaComboBox::indexMarksTheRow()
{
    FormFixture form(modeRow({{"currentValue", "fm"}}), modes());
    auto* const row = form.delegate<ZorvaComboBox>("mode");
    QVERIFY(row->setCurrentIndex(1));
    QVERIFY(!row->isModified());
    QVERIFY(row->setCurrentIndex(2));
    QVERIFY(row->isModified());
    QCOMPARE(row->getCurrentEnumValue(), QStringLiteral("usb"));
}

void TestZorvaComboBox::indexInRangeHoldsWithoutAValue()
{
    FormFixture form(modeRow({{"currentValue", "fm"}}), modes());
    auto* const row = form.delegate<ZorvaComboBox>("mode");
    values::Tree::Instance()->RemoveValue(row->GetVTValue()->GetPathName());
    QVERIFY(!row->GetVTValue());
    for (int index = 0; index < 3; ++index)
        QVERIFY(row->setCurrentIndex(index));
    QVERIFY(!row->setCurrentIndex(-1));
    QVERIFY(!row->setCurrentIndex(3));
    QVERIFY(!row->isModified());
}

void TestZorvaComboBox::textThatIsNoValueSelectsByNumber_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("shown");
    QTest::newRow("value text") << "120000"
                                << "120000"
                                << "120 kHz";
    QTest::newRow("number between entries takes the next") << "10000"
                                                           << "15000"
                                                           << "15 kHz";
    QTest::newRow("number above all stays") << "200000"
                                            << "200000"
                                            << "15 kHz";
    QTest::newRow("shown name counts as 0") << "120 kHz"
                                            << "9000"
                                            << "9 kHz";
    QTest::newRow("empty counts as 0") << ""
                                       << "9000"
                                       << "9 kHz";
}

void TestZorvaComboBox::textThatIsNoValueSelectsByNumber()
{
    QFETCH(QString, text);
    QFETCH(QString, value);
    QFETCH(QString, shown);
    FormFixture form(widthRow(), widths());
    auto* const row = form.delegate<ZorvaComboBox>("width");
    row->setCurrentValue(text);
    QCOMPARE(row->getCurrentEnumValue(), value);
    QCOMPARE(form.control<VCComboBoxClassic>("width")->currentText(), shown);
}

void TestZorvaComboBox::clearKeepsEmptyWithoutAMatch()
{
    FormFixture form(rowXml("ComboBox", "gain", {{"enumName", "Gains"}, {"currentValue", "-20"}}),
                     enumXml("Gains", {{"low", "LOW", "-40"}, {"high", "HIGH", "-20"}}));
    auto* const row = form.delegate<ZorvaComboBox>("gain");
    row->clearCurrentValue();
    QCOMPARE(row->getCurrentEnumValue(), QString());
    QCOMPARE(row->getCurrentIndex(), 1);
}

void TestZorvaComboBox::minimumSelects()
{
    FormFixture form(widthRow(), widths());
    auto* const row = form.delegate<ZorvaComboBox>("width");
    QVERIFY(row->setMinValueGreaterThanOrEqualTo(16000.0));
    QCOMPARE(row->getCurrentValue(), 120000.0);
    QCOMPARE(row->getCurrentEnumValue(), QStringLiteral("120000"));
    QVERIFY(row->isModified());
    QVERIFY(!row->setMinValueGreaterThanOrEqualTo(120001.0));
}

void TestZorvaComboBox::looksUpEntries()
{
    FormFixture form(modeRow(), modes());
    auto* const row = form.delegate<ZorvaComboBox>("mode");
    QCOMPARE(row->getValueCount(), quint64(3));
    QCOMPARE(row->itemValue(2), QStringLiteral("usb"));
    QCOMPARE(row->itemValue(3), QString());
    QCOMPARE(row->firstIndexOfValue(QStringLiteral("fm")), 1);
    QCOMPARE(row->firstIndexOfValue(QStringLiteral("Frequency")), -1);
}

void TestZorvaComboBox::disablesEntries()
{
    FormFixture form(modeRow(), modes());
    auto* const row = form.delegate<ZorvaComboBox>("mode");
    auto* const model = qobject_cast<QStandardItemModel*>(form.control<VCComboBoxClassic>("mode")->model());
    QVERIFY(model);
    row->setItemEnabled(QStringLiteral("cw"), false);
    row->setItemEnabled(7, false);
    for (int i = 0; i < 3; ++i)
        QVERIFY(model->item(i)->isEnabled());
    row->setItemEnabled(QStringLiteral("usb"), false);
    QVERIFY(!model->item(2)->isEnabled());
    row->setCurrentValue(QStringLiteral("usb"));
    QCOMPARE(row->getCurrentIndex(), 2);
    row->setItemEnabled(2, true);
    QVERIFY(model->item(2)->isEnabled());
}

void TestZorvaComboBox::unknownEnumerationGivesNoEntries()
{
    FormFixture form(rowXml("ComboBox", "mode", {{"enumName", "Nothing"}, {"currentValue", "x"}}), modes());
    auto* const row = form.delegate<ZorvaComboBox>("mode");
    QCOMPARE(row->getValueCount(), quint64(0));
    QCOMPARE(form.control<VCComboBoxClassic>("mode")->count(), 0);
    row->setCurrentValue(QStringLiteral("5"));
    QCOMPARE(row->getCurrentEnumValue(), QStringLiteral("5"));
    QVERIFY(!row->setCurrentIndex(0));
}

void TestZorvaComboBox::resyncKeepsTheShownName()
{
    FormFixture form(modeRow({{"currentValue", "fm"}}), modes());
    auto* const row = form.delegate<ZorvaComboBox>("mode");
    const auto enumeration = form.formular()->GetEnum(QStringLiteral("Modes"));
    enumeration->ClearValues();
    enumeration->AppendEnumValue(QStringLiteral("Pulse"), QStringLiteral("P"), QStringLiteral("p"));
    enumeration->AppendEnumValue(QStringLiteral("Frequency"), QStringLiteral("FM"), QStringLiteral("fm"));
    row->ResyncValueTree();
    const auto* const selection = form.value<values::ValueSelection>("mode_Modes");
    QCOMPARE(selection->GetItemCount(), 2L);
    QCOMPARE(selection->GetKeyForItemName(QStringLiteral("Pulse")), 1L);
    QCOMPARE(selection->GetKeyForItemName(QStringLiteral("Frequency")), 2L);
    QCOMPARE(row->getCurrentIndex(), 1);
    const auto* const combo = form.control<VCComboBoxClassic>("mode");
    QCOMPARE(combo->count(), 2);
    QCOMPARE(combo->currentText(), QStringLiteral("Frequency"));
    QVERIFY(!row->isModified());
}

void TestZorvaComboBox::resyncTakesAnotherEnumeration()
{
    FormFixture form(modeRow(), modes() + widths());
    auto* const row = form.delegate<ZorvaComboBox>("mode");
    row->setEnumName(QStringLiteral("Widths"));
    QCOMPARE(row->itemValue(0), QStringLiteral("am"));
    row->ResyncValueTree();
    QCOMPARE(row->itemValue(0), QStringLiteral("9000"));
    QCOMPARE(form.control<VCComboBoxClassic>("mode")->itemText(2), QStringLiteral("120 kHz"));
}

void TestZorvaComboBox::resyncTellsOnce()
{
    class Counter : public IObserver
    {
    public:
        void Update(Observable*, TChangeCode) override { ++count; }
        int count = 0;
    } counter;
    FormFixture form(modeRow(), modes());
    auto* const selection = form.value<values::ValueSelection>("mode_Modes");
    selection->AddObserver(&counter);
    form.row("mode")->ResyncValueTree();
    selection->DeleteObserver(&counter);
    QCOMPARE(counter.count, 1);
}

void TestZorvaComboBox::vanishedNameLeavesTheChoiceBlank()
{
    FormFixture form(modeRow({{"currentValue", "fm"}}), modes());
    auto* const row = form.delegate<ZorvaComboBox>("mode");
    form.formular()->GetEnum(QStringLiteral("Modes"))->ClearValues();
    row->ResyncValueTree();
    QCOMPARE(row->getCurrentIndex(), -1);
    QCOMPARE(form.control<VCComboBoxClassic>("mode")->count(), 0);
    QCOMPARE(row->getCurrentEnumValue(), QStringLiteral("fm"));
}

void TestZorvaComboBox::toolTip_data()
{
    QTest::addColumn<QString>("label");
    QTest::addColumn<QString>("given");
    QTest::addColumn<QString>("shown");
    QTest::newRow("caption") << "Mode"
                             << ""
                             << "Mode";
    QTest::newRow("tag without caption") << ""
                                         << ""
                                         << "mode";
    QTest::newRow("own text wins") << "Mode"
                                   << "choose"
                                   << "choose";
}

void TestZorvaComboBox::toolTip()
{
    QFETCH(QString, label);
    QFETCH(QString, given);
    QFETCH(QString, shown);
    QList<FormProperty> properties{{"labelText", label}};
    if (!given.isEmpty())
        properties << FormProperty("toolTip", given);
    FormFixture form(modeRow(properties), modes());
    QCOMPARE(form.control<VCComboBoxClassic>("mode")->toolTip(), shown);
}

void TestZorvaComboBox::toleratesMissingValues()
{
    FormFixture form(modeRow(), modes(), QString(), FormFixture::Parsed);
    auto* const row = form.delegate<ZorvaComboBox>("mode");
    row->setCurrentValue(QStringLiteral("fm"));
    row->setItemEnabled(QStringLiteral("fm"), false);
    row->setFocus();
    QVERIFY(!row->setCurrentIndex(0));
    QVERIFY(!row->setMinValueGreaterThanOrEqualTo(0.0));
    QCOMPARE(row->getCurrentIndex(), -1);
    QCOMPARE(row->getCurrentValue(), 0.0);
    QCOMPARE(row->getValueCount(), quint64(0));
    QCOMPARE(row->itemValue(0), QString());
    QCOMPARE(row->firstIndexOfValue(QStringLiteral("fm")), -1);
    QCOMPARE(row->GetVTValue(), nullptr);
    QCOMPARE(row->getCurrentEnumValue(), QStringLiteral("fm"));
}

QTEST_MAIN(TestZorvaComboBox)
#include "tst_zorvacombobox.moc"
