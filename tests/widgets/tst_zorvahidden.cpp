#include <formtest.h>

#include <valueframework/value.h>
#include <zorvaparser/widgets/zorvahidden.h>

#include <QLabel>

using namespace Orvane;

namespace {

QString tokenRow(const QList<FormProperty>& more = {})
{
    return rowXml("HiddenParameter", "token", QList<FormProperty>{{"value", "abc"}} + more);
}

} // namespace

class TestZorvaHidden : public FormTest
{
    Q_OBJECT

private Q_SLOTS:
    void writesItsText();
    void presentTextIsSilent();
    void newTextMarksAndTells();
    void readTellsTwiceAndMarks();
    void readBeforeTheValueTellsOnce();
    void readOfThePresentTextIsSilent();
    void valueFromOutsideTellsWithoutMark();
    void showsNothingButALabel();
};

void TestZorvaHidden::writesItsText()
{
    FormFixture form(tokenRow({{"unit", "x"}}));
    QCOMPARE(form.writtenBy("token"), QStringLiteral("<token>abc</token>"));
    QCOMPARE(form.row("token")->GetVTValue(), form.value<values::ValueBase>("token"));
    form.row("token")->setGenerateParameterXml(false);
    QCOMPARE(form.writtenBy("token"), QString());
}

void TestZorvaHidden::presentTextIsSilent()
{
    FormFixture form(tokenRow());
    auto* const row = form.delegate<ZorvaHidden>("token");
    QSignalSpy changed(row, &ZorvaHidden::valueChanged);
    row->setValue(QStringLiteral("abc"));
    QCOMPARE(changed.count(), 0);
    QVERIFY(!row->isModified());
}

void TestZorvaHidden::newTextMarksAndTells()
{
    FormFixture form(tokenRow());
    auto* const row = form.delegate<ZorvaHidden>("token");
    QSignalSpy changed(row, &ZorvaHidden::valueChanged);
    form.evaluate(QStringLiteral("token.setValue('def')"));
    QCOMPARE(changed.count(), 1);
    QCOMPARE(form.value<values::ValueString>("token")->GetValue(), QStringLiteral("def"));
    QVERIFY(row->isModified());
}

void TestZorvaHidden::readTellsTwiceAndMarks()
{
    FormFixture form(tokenRow());
    auto* const row = form.delegate<ZorvaHidden>("token");
    QSignalSpy changed(row, &ZorvaHidden::valueChanged);
    QVERIFY(form.read("token", QStringLiteral("<token>def</token>")));
    QCOMPARE(changed.count(), 2);
    QVERIFY(row->isModified());
}

void TestZorvaHidden::readBeforeTheValueTellsOnce()
{
    FormFixture form(tokenRow(), FormFixture::Parsed);
    auto* const row = form.delegate<ZorvaHidden>("token");
    QSignalSpy changed(row, &ZorvaHidden::valueChanged);
    QVERIFY(form.read("token", QStringLiteral("<token>def</token>")));
    QCOMPARE(changed.count(), 1);
    QVERIFY(!row->isModified());
}

void TestZorvaHidden::readOfThePresentTextIsSilent()
{
    FormFixture form(tokenRow());
    auto* const row = form.delegate<ZorvaHidden>("token");
    QSignalSpy changed(row, &ZorvaHidden::valueChanged);
    QVERIFY(form.read("token", QStringLiteral("<token>abc</token>")));
    QCOMPARE(changed.count(), 0);
    QVERIFY(!row->isModified());
}

void TestZorvaHidden::valueFromOutsideTellsWithoutMark()
{
    FormFixture form(tokenRow());
    auto* const row = form.delegate<ZorvaHidden>("token");
    QSignalSpy changed(row, &ZorvaHidden::valueChanged);
    form.value<values::ValueString>("token")->SetValue(QStringLiteral("def"), nullptr);
    QCOMPARE(changed.count(), 1);
    QVERIFY(!row->isModified());
    QCOMPARE(form.writtenBy("token"), QStringLiteral("<token>def</token>"));
}

void TestZorvaHidden::showsNothingButALabel()
{
    FormFixture form(tokenRow({{"labelText", "Token"}}));
    QVERIFY(form.control<QLabel>("labeltoken"));
    QVERIFY(!form.control<QWidget>("token"));
}

QTEST_MAIN(TestZorvaHidden)
#include "tst_zorvahidden.moc"
