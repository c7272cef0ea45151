#include <formtest.h>
#include <formtext.h>

#include <zorvaparser/zorvaformularmanager.h>
#include <zorvaparser/zorvaparser.h>

#include <functional>

using Orvane::ZorvaFormular;
using Orvane::ZorvaFormularManager;

namespace {

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

using Gift = std::function<void(FormFixture&)>;

QString rows()
{
    return rowXml("ComboBox", "mode", {{"enumName", "Modes"}, {"currentValue", "2"}}) +
           rowXml("DoubleSpinBox", "gain",
                  {{"value", 5}, {"minimum", 10}, {"maximum", 90}, {"displayScalingFactor", 10.0}}) +
           rowXml("LineEdit", "line", {{"text", "abc"}});
}

QString modes()
{
    return enumXml("Modes",
                   {{"Slow", "MODE_SLOW", "1"}, {"Fast", "MODE_FAST", "2"}, {"Best", "MODE_BEST", "3"}});
}

} // namespace

Q_DECLARE_METATYPE(Gift)

/// Whatever a form gives out, a host may give back to it.
class TestGivenToItself : public FormTest
{
    Q_OBJECT

private Q_SLOTS:
    void nothingChanges_data();
    void nothingChanges();
    void aFormTwiceInAManager();
    void aWindowAsARowOfItself();
};

void TestGivenToItself::nothingChanges_data()
{
    QTest::addColumn<Gift>("give");
    for (const char* const name : {"mode", "gain", "line"}) {
        const QString row = text(name);
        const auto add = [name](const char* what, const Gift& give) {
            QTest::newRow(qPrintable(text("%1: %2").arg(text(name), text(what)))) << give;
        };
        add("range or items", [row](FormFixture& form) {
            form.formular()->InitVTValue(row, form.formular()->GetVTValue(row));
        });
        add("as like itself", [row](FormFixture& form) {
            values::ValueBase* const value = form.formular()->GetVTValue(row);
            ZorvaFormular::InitVTValue(value, value, nullptr);
        });
        add("as target", [row](FormFixture& form) {
            values::ValueBase* const value = form.formular()->GetVTValue(row);
            form.formular()->GetVTValue(value, nullptr, true, value);
        });
        add("as source", [row](FormFixture& form) {
            QVERIFY(!form.formular()->SetVTValue(row, form.formular()->GetVTValue(row)->GetStringValue(),
                                                 nullptr, true));
        });
    }
    QTest::newRow("parameters") << Gift(
        [](FormFixture& form) { form.formular()->SetXmlString(form.formular()->GetXmlString(false)); });
    QTest::newRow("script value") << Gift([](FormFixture& form) {
        form.formular()->SetScriptValue(text("itself"), form.formular());
        form.formular()->SetScriptValue(text("line2"), form.row("line"));
        form.evaluate(text("itself.objectName; line2.setText('abc')"));
    });
    QTest::newRow("configuration object") << Gift([](FormFixture& form) {
        form.formular()->SetConfigObject(form.row("line"), text("key"));
        form.formular()->ApplyConfiguration();
        form.formular()->SetConfigObject(form.formular(), text("key"));
        form.formular()->ApplyConfiguration();
    });
}

void TestGivenToItself::nothingChanges()
{
    QFETCH(Gift, give);
    FormFixture form(rows(), modes());
    const QString before = form.formular()->GetXmlString(false);
    auto* const items = dynamic_cast<values::ValueSelection*>(form.formular()->GetVTValue(text("mode")));
    auto* const gain = form.value<values::NumericDouble>("gain");
    const double least = gain->GetMin();
    give(form);
    QCOMPARE(form.formular()->GetXmlString(false), before);
    QCOMPARE(items->GetItemCount(), 3l);
    QCOMPARE(items->GetStringValue(), text("Fast"));
    QCOMPARE(gain->GetMin(), least);
}

void TestGivenToItself::aFormTwiceInAManager()
{
    ZorvaFormularManager manager;
    QExplicitlySharedDataPointer<ZorvaFormular> form(
        Orvane::ZorvaParser().ParseZORVA(formXml(rows(), modes())));
    form->SetName(text("form"));
    manager.AddFormular(form.data());
    manager.AddFormular(form.data());
    QVERIFY(manager.ShowFormular(text("form")));
    manager.AddFormular(manager.GetCurrentFormular().data());
    manager.Reset();
    QCOMPARE(form->ref.loadRelaxed(), 1);
}

void TestGivenToItself::aWindowAsARowOfItself()
{
    FormFixture form{QString()};
    form.sheet().InsertWidget(text("itself"), text("Caption"), form.window(), 0);
    form.createGui();
    QVERIFY(!form.window()->parentWidget());
}

QTEST_MAIN(TestGivenToItself)
#include "tst_giventoitself.moc"
