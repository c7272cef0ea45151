#include <formtest.h>

#include <basicvaluewidgets/vclineedit.h>
#include <valueframework/value.h>
#include <zorvaparser/widgets/zorvalineedit.h>

using namespace Orvane;

namespace {

QString nameRow(const QList<FormProperty>& more = {})
{
    return rowXml("LineEdit", "station", QList<FormProperty>{{"text", "Alpha"}} + more);
}

} // namespace

class TestZorvaLineEdit : public FormTest
{
    Q_OBJECT

private Q_SLOTS:
    void bothClassNamesGiveIt();
    void showsAndWritesTheText();
    void typingChangesOnlyTheMark();
    void returnMakesTheTextFinal();
    void returnSignalComesBeforeTheApply();
    void finalTextComesInOrder();
    void presentTextAsFinalStillTells();
    void outsideTextDoesNotAutoApply();
    void readTellsAlways();
    void scriptSetsTextSilently();
    void finishesPendingText();
    void forwardsMaskAndLength();
    void toolTip_data();
    void toolTip();
    void readsItsProperties();
};

void TestZorvaLineEdit::bothClassNamesGiveIt()
{
    FormFixture form(nameRow() + rowXml("IPEdit", "address"));
    QVERIFY(form.delegate<ZorvaLineEdit>("station"));
    QVERIFY(form.delegate<ZorvaLineEdit>("address"));
}

void TestZorvaLineEdit::showsAndWritesTheText()
{
    FormFixture form(nameRow({{"unit", "id"}}));
    QCOMPARE(form.control<VCLineEdit>("station")->text(), QStringLiteral("Alpha"));
    QCOMPARE(form.writtenBy("station"), QStringLiteral("<station unit=\"id\">Alpha</station>"));
    form.row("station")->setGenerateParameterXml(false);
    QCOMPARE(form.writtenBy("station"), QString());
}

void TestZorvaLineEdit::typingChangesOnlyTheMark()
{
    FormFixture form(nameRow());
    form.show();
    auto* const row = form.delegate<ZorvaLineEdit>("station");
    QSignalSpy edited(row, &ZorvaLineEdit::textEdited);
    QSignalSpy changed(row, &ZorvaLineEdit::textChanged);
    QTest::keyClicks(form.control<VCLineEdit>("station"), QStringLiteral("12"));
    QCOMPARE(edited.count(), 2);
    QCOMPARE(changed.count(), 2);
    QVERIFY(row->isModified());
    QVERIFY(form.sheet().isModified());
    QCOMPARE(row->text(), QStringLiteral("Alpha"));
    QCOMPARE(form.value<values::ValueString>("station")->GetValue(), QStringLiteral("Alpha"));
    QCOMPARE(form.writtenBy("station"), QStringLiteral("<station>Alpha</station>"));
}

void TestZorvaLineEdit::returnMakesTheTextFinal()
{
    FormFixture form(nameRow());
    form.show();
    auto* const row = form.delegate<ZorvaLineEdit>("station");
    auto* const control = form.control<VCLineEdit>("station");
    QSignalSpy finished(row, &ZorvaLineEdit::editingFinished);
    QSignalSpy applied(form.formular(), &ZorvaFormular::si_parametersModified);
    control->selectAll();
    QTest::keyClicks(control, QStringLiteral("Beta"));
    QTest::keyClick(control, Qt::Key_Return);
    QCOMPARE(row->text(), QStringLiteral("Beta"));
    QCOMPARE(form.value<values::ValueString>("station")->GetValue(), QStringLiteral("Beta"));
    QCOMPARE(finished.count(), 1);
    QCOMPARE(applied.count(), 1);
}

void TestZorvaLineEdit::returnSignalComesBeforeTheApply()
{
    FormFixture form(nameRow());
    form.show();
    QStringList order;
    connect(form.delegate<ZorvaLineEdit>("station"), &ZorvaLineEdit::returnPressed, this,
            [&order] { order << QStringLiteral("return"); });
    connect(form.formular(), &ZorvaFormular::si_parametersModified, this,
            [&order] { order << QStringLiteral("apply"); });
    auto* const control = form.control<VCLineEdit>("station");
    QTest::keyClicks(control, QStringLiteral("x"));
    QTest::keyClick(control, Qt::Key_Return);
    QCOMPARE(order, (QStringList{QStringLiteral("return"), QStringLiteral("apply")}));
}

void TestZorvaLineEdit::finalTextComesInOrder()
{
    FormFixture form(nameRow());
    auto* const row = form.delegate<ZorvaLineEdit>("station");
    QStringList order;
    connect(row, &ZorvaLineEdit::textEdited, this,
            [&order, row](const QString& text) { order << QStringLiteral("edited ") + text + row->text(); });
    connect(row, &ZorvaLineEdit::editingFinished, this,
            [&order, row] { order << QStringLiteral("finished, marked %1").arg(row->isModified()); });
    QVERIFY(QMetaObject::invokeMethod(row, "SlotTextFinallyChanged", Q_ARG(QString, QStringLiteral("Beta"))));
    QCOMPARE(order, (QStringList{QStringLiteral("edited BetaBeta"), QStringLiteral("finished, marked 0")}));
    QVERIFY(row->isModified());
}

void TestZorvaLineEdit::presentTextAsFinalStillTells()
{
    FormFixture form(nameRow());
    auto* const row = form.delegate<ZorvaLineEdit>("station");
    QSignalSpy edited(row, &ZorvaLineEdit::textEdited);
    QSignalSpy finished(row, &ZorvaLineEdit::editingFinished);
    QVERIFY(
        QMetaObject::invokeMethod(row, "SlotTextFinallyChanged", Q_ARG(QString, QStringLiteral("Alpha"))));
    QCOMPARE(edited.count(), 1);
    QCOMPARE(finished.count(), 1);
    QVERIFY(row->isModified());
}

void TestZorvaLineEdit::outsideTextDoesNotAutoApply()
{
    FormFixture form(nameRow(), QString(), QString(), FormFixture::WithGui,
                     {{"autoApplyEnabled", true}, {"autoApplyTimeout", 1}});
    auto* const row = form.delegate<ZorvaLineEdit>("station");
    form.sheet().setAutoApplyEnabled(true);
    QSignalSpy changed(row, &ZorvaLineEdit::textChanged);
    QSignalSpy applied(form.formular(), &ZorvaFormular::si_parametersModified);
    form.value<values::ValueString>("station")->SetValue(QStringLiteral("Beta"), nullptr);
    QVERIFY(changed.count() >= 1);
    QVERIFY(row->isModified());
    QVERIFY(!applied.wait(50));
    QCOMPARE(row->text(), QStringLiteral("Beta"));
    QCOMPARE(form.control<VCLineEdit>("station")->text(), QStringLiteral("Beta"));
}

void TestZorvaLineEdit::readTellsAlways()
{
    FormFixture form(nameRow(), FormFixture::WithValues);
    auto* const row = form.delegate<ZorvaLineEdit>("station");
    QSignalSpy changed(row, &ZorvaLineEdit::textChanged);
    QVERIFY(form.read("station", QStringLiteral("<station>Alpha</station>")));
    QCOMPARE(changed.count(), 1);
    QVERIFY(form.read("station", QStringLiteral("<station/>")));
    QCOMPARE(changed.count(), 2);
    QCOMPARE(form.value<values::ValueString>("station")->GetValue(), QString());
    QVERIFY(!row->isModified());
}

void TestZorvaLineEdit::scriptSetsTextSilently()
{
    FormFixture form(nameRow());
    auto* const row = form.delegate<ZorvaLineEdit>("station");
    form.evaluate(QStringLiteral("station.setText('Gamma')"));
    QCOMPARE(form.value<values::ValueString>("station")->GetValue(), QStringLiteral("Gamma"));
    QCOMPARE(form.control<VCLineEdit>("station")->text(), QStringLiteral("Gamma"));
    QVERIFY(!row->isModified());
}

void TestZorvaLineEdit::finishesPendingText()
{
    FormFixture form(nameRow());
    form.show();
    auto* const row = form.delegate<ZorvaLineEdit>("station");
    row->forceFinishEditing();
    QVERIFY(!row->isModified());
    QTest::keyClicks(form.control<VCLineEdit>("station"), QStringLiteral("1"));
    row->forceFinishEditing();
    QCOMPARE(row->text(), form.control<VCLineEdit>("station")->text());
    QVERIFY(row->text() != QStringLiteral("Alpha"));
    form.deleteWindow();
    row->forceFinishEditing();
}

void TestZorvaLineEdit::forwardsMaskAndLength()
{
    FormFixture form(rowXml("LineEdit", "station", {{"maxLength", 5}}));
    auto* const row = form.delegate<ZorvaLineEdit>("station");
    const auto* const control = form.control<VCLineEdit>("station");
    QCOMPARE(control->maxLength(), 5);
    row->setMaxLength(7);
    row->setInputMask(QStringLiteral("999"));
    QCOMPARE(control->inputMask(), QStringLiteral("999"));
}

void TestZorvaLineEdit::toolTip_data()
{
    QTest::addColumn<QString>("label");
    QTest::addColumn<QString>("shown");
    QTest::newRow("caption") << "Station"
                             << "Station";
    QTest::newRow("nothing without caption") << ""
                                             << "";
}

void TestZorvaLineEdit::toolTip()
{
    QFETCH(QString, label);
    QFETCH(QString, shown);
    FormFixture form(nameRow({{"labelText", label}, {"toolTip", "own"}}));
    QCOMPARE(form.control<VCLineEdit>("station")->toolTip(), shown);
}

void TestZorvaLineEdit::readsItsProperties()
{
    FormFixture form(nameRow({{"maxLength", 9}, {"inputMask", "aaaaaa"}, {"readOnly", true}}),
                     FormFixture::WithValues);
    auto* const row = form.delegate<ZorvaLineEdit>("station");
    QCOMPARE(row->maxLength(), 9);
    QCOMPARE(row->inputMask(), QStringLiteral("aaaaaa"));
    QVERIFY(row->isReadOnly());
    QVERIFY(row->isEnabled());
}

QTEST_MAIN(TestZorvaLineEdit)
#include "tst_zorvalineedit.moc"
