#include <formtest.h>

#include <valueframework/value.h>
#include <zorvaparser/widgets/zorvalabel.h>

#include <QLabel>

using namespace Orvane;

class TestZorvaLabel : public FormTest
{
    Q_OBJECT

private Q_SLOTS:
    void showsAndWritesItsText();
    void hasNoValueWithoutParameterXml();
    void readChangesTheTextOnly();
    void valueFromOutsideMarks();
    void scriptChangesTheText();
};

void TestZorvaLabel::showsAndWritesItsText()
{
    FormFixture form(rowXml("Label", "state", {{"text", "idle"}, {"unit", "x"}, {"labelText", "State"}}));
    QCOMPARE(form.control<QLabel>("state")->text(), QStringLiteral("idle"));
    QCOMPARE(form.control<QLabel>("labelstate")->text(), QStringLiteral("State"));
    QCOMPARE(form.writtenBy("state"), QStringLiteral("<state>idle</state>"));
}

void TestZorvaLabel::hasNoValueWithoutParameterXml()
{
    FormFixture form(widgetXml("Label", "state", {{"text", "idle"}}));
    QVERIFY(!form.value<values::ValueBase>("state"));
    QCOMPARE(form.writtenBy("state"), QString());
}

void TestZorvaLabel::readChangesTheTextOnly()
{
    FormFixture form(rowXml("Label", "state", {{"text", "idle"}}));
    QVERIFY(form.read("state", QStringLiteral("<state>busy</state>")));
    QCOMPARE(form.control<QLabel>("state")->text(), QStringLiteral("busy"));
    QCOMPARE(form.value<values::ValueString>("state")->GetValue(), QStringLiteral("idle"));
    QVERIFY(!form.row("state")->isModified());
}

void TestZorvaLabel::valueFromOutsideMarks()
{
    FormFixture form(rowXml("Label", "state", {{"text", "idle"}}));
    form.value<values::ValueString>("state")->SetValue(QStringLiteral("busy"), nullptr);
    QCOMPARE(form.control<QLabel>("state")->text(), QStringLiteral("busy"));
    QVERIFY(form.row("state")->isModified());
}

void TestZorvaLabel::scriptChangesTheText()
{
    FormFixture form(rowXml("Label", "state", {{"text", "idle"}}));
    form.evaluate(QStringLiteral("state.setText('scan')"));
    QCOMPARE(form.control<QLabel>("state")->text(), QStringLiteral("scan"));
    QVERIFY(!form.row("state")->isModified());
}

QTEST_MAIN(TestZorvaLabel)
#include "tst_zorvalabel.moc"
