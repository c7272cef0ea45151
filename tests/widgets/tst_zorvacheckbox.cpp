#include <formtest.h>

#include <basicvaluewidgets/vccheckbox.h>
#include <valueframework/value.h>
#include <zorvaparser/widgets/zorvacheckbox.h>

using namespace Orvane;

namespace {

QString squelchRow(const QList<FormProperty>& more = {})
{
    return rowXml("CheckBox", "squelch", more);
}

QList<FormProperty> onOff(const QString& on, const QString& off)
{
    QList<FormProperty> properties;
    if (!on.isNull())
        properties << FormProperty("checkedValue", on);
    if (!off.isNull())
        properties << FormProperty("uncheckedValue", off);
    return properties;
}

} // namespace

class TestZorvaCheckBox : public FormTest
{
    Q_OBJECT

private Q_SLOTS:
    void writesTheTextOfItsState_data();
    void writesTheTextOfItsState();
    void writesNeitherUnitNorWithoutParameterXml();
    void reads_data();
    void reads();
    void emptyCheckedValueMeansTheDefault();
    void userClicks();
    void scriptChecksSilently();
    void toolTip_data();
    void toolTip();
};

void TestZorvaCheckBox::writesTheTextOfItsState_data()
{
    QTest::addColumn<bool>("checked");
    QTest::addColumn<QString>("on");
    QTest::addColumn<QString>("off");
    QTest::addColumn<QString>("text");
    QTest::newRow("checked") << true << QString() << QString() << "true";
    QTest::newRow("unchecked") << false << QString() << QString() << "false";
    QTest::newRow("own word, checked") << true << "on"
                                       << "off"
                                       << "on";
    QTest::newRow("own word, unchecked") << false << "on"
                                         << "off"
                                         << "off";
    QTest::newRow("empty words count as absent, checked") << true << ""
                                                          << ""
                                                          << "true";
    QTest::newRow("empty words count as absent, unchecked") << false << ""
                                                            << ""
                                                            << "false";
}

void TestZorvaCheckBox::writesTheTextOfItsState()
{
    QFETCH(bool, checked);
    QFETCH(QString, on);
    QFETCH(QString, off);
    QFETCH(QString, text);
    FormFixture form(squelchRow(QList<FormProperty>{{"checked", checked}} + onOff(on, off)));
    QCOMPARE(form.writtenBy("squelch"), QStringLiteral("<squelch>%1</squelch>").arg(text));
    QCOMPARE(form.control<VCCheckBox>("squelch")->isChecked(), checked);
}

void TestZorvaCheckBox::writesNeitherUnitNorWithoutParameterXml()
{
    FormFixture form(squelchRow({{"unit", "dB"}}));
    QCOMPARE(form.writtenBy("squelch"), QStringLiteral("<squelch>false</squelch>"));
    form.row("squelch")->setGenerateParameterXml(false);
    QCOMPARE(form.writtenBy("squelch"), QString());
}

void TestZorvaCheckBox::reads_data()
{
    QTest::addColumn<bool>("before");
    QTest::addColumn<QString>("on");
    QTest::addColumn<QString>("off");
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("after");
    QTest::newRow("true") << false << QString() << QString() << "true" << true;
    QTest::newRow("present state tells too") << true << QString() << QString() << "true" << true;
    QTest::newRow("capital is another word") << true << QString() << QString() << "True" << false;
    QTest::newRow("own word") << false << "on"
                              << "off"
                              << "on" << true;
    QTest::newRow("own word for off") << true << "on"
                                      << "off"
                                      << "off" << false;
    QTest::newRow("any other word") << true << "on"
                                    << "off"
                                    << "maybe" << false;
    QTest::newRow("the default is no word any more") << true << "on"
                                                     << "off"
                                                     << "true" << false;
}

void TestZorvaCheckBox::reads()
{
    QFETCH(bool, before);
    QFETCH(QString, on);
    QFETCH(QString, off);
    QFETCH(QString, text);
    QFETCH(bool, after);
    FormFixture form(squelchRow(QList<FormProperty>{{"checked", before}} + onOff(on, off)));
    auto* const row = form.delegate<ZorvaCheckBox>("squelch");
    QSignalSpy toggled(row, &ZorvaCheckBox::toggled);
    QVERIFY(form.read("squelch", QStringLiteral("<squelch>%1</squelch>").arg(text)));
    QCOMPARE(toggled.count(), 1);
    QCOMPARE(toggled.at(0).at(0).toBool(), after);
    QCOMPARE(form.value<values::ValueBool>("squelch")->GetValue(), after);
    QCOMPARE(form.control<VCCheckBox>("squelch")->isChecked(), after);
    QVERIFY(!row->isModified());
}

void TestZorvaCheckBox::emptyCheckedValueMeansTheDefault()
{
    FormFixture form(squelchRow({{"checked", true}, {"checkedValue", "on"}}));
    auto* const row = form.delegate<ZorvaCheckBox>("squelch");
    row->setCheckedValue(QString());
    QCOMPARE(form.writtenBy("squelch"), QStringLiteral("<squelch>true</squelch>"));
    row->setChecked(false);
    row->setUncheckedValue(QStringLiteral("closed"));
    QCOMPARE(form.writtenBy("squelch"), QStringLiteral("<squelch>closed</squelch>"));
}

void TestZorvaCheckBox::userClicks()
{
    FormFixture form(squelchRow());
    form.show();
    auto* const row = form.delegate<ZorvaCheckBox>("squelch");
    auto* const control = form.control<VCCheckBox>("squelch");
    QSignalSpy toggled(row, &ZorvaCheckBox::toggled);
    QTest::mouseClick(control, Qt::LeftButton, Qt::NoModifier, QPoint(8, control->height() / 2));
    QCOMPARE(toggled.count(), 1);
    QVERIFY(row->property("checked").toBool());
    QVERIFY(row->isModified());
    QVERIFY(form.value<values::ValueBool>("squelch")->GetValue());
}

void TestZorvaCheckBox::scriptChecksSilently()
{
    FormFixture form(squelchRow());
    auto* const row = form.delegate<ZorvaCheckBox>("squelch");
    QSignalSpy toggled(row, &ZorvaCheckBox::toggled);
    form.evaluate(QStringLiteral("squelch.setChecked(true)"));
    QVERIFY(form.control<VCCheckBox>("squelch")->isChecked());
    QCOMPARE(toggled.count(), 0);
    QVERIFY(!row->isModified());
}

void TestZorvaCheckBox::toolTip_data()
{
    QTest::addColumn<QString>("label");
    QTest::addColumn<QString>("given");
    QTest::addColumn<QString>("shown");
    QTest::newRow("caption") << "Squelch"
                             << ""
                             << "Squelch";
    QTest::newRow("tag without caption") << ""
                                         << ""
                                         << "squelch";
    QTest::newRow("own text stops the fallback") << "Squelch"
                                                 << "mutes noise"
                                                 << "mutes noise";
}

void TestZorvaCheckBox::toolTip()
{
    QFETCH(QString, label);
    QFETCH(QString, given);
    QFETCH(QString, shown);
    FormFixture form(squelchRow({{"labelText", label}, {"toolTip", given}}));
    QCOMPARE(form.control<VCCheckBox>("squelch")->toolTip(), shown);
}

QTEST_MAIN(TestZorvaCheckBox)
#include "tst_zorvacheckbox.moc"
