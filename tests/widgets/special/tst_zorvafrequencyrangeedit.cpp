#include "guardedtest.h"

#include <basicvaluewidgets/vclineedit.h>
#include <formfixture.h>
#include <zorvaparser/widgets/zorvafrequencyrangeedit.h>

#include <QSignalSpy>

using Orvane::ZorvaFrequencyRangeEdit;
using Range = QPair<qint64, qint64>;

Q_DECLARE_METATYPE(QList<FormProperty>)

namespace {

const QList<FormProperty> tags{{"startFrequencyParameterXmlTag", "StartF"},
                               {"stopFrequencyParameterXmlTag", "StopF"}};
const QList<FormProperty> lowLimits = tags + QList<FormProperty>{{"minimum", 1}};

/// A form with one range row named "band".
struct RangeForm
{
    explicit RangeForm(const QList<FormProperty>& properties = tags,
                       FormFixture::Stage stage = FormFixture::WithGui)
        : form(rowXml("FrequencyRangeEdit", "band", properties), stage)
        , row(form.delegate<ZorvaFrequencyRangeEdit>("band"))
    {
    }

    values::NumericDouble* start() const { return form.value<values::NumericDouble>("band_1"); }
    values::NumericDouble* stop() const { return form.value<values::NumericDouble>("band_2"); }
    VCLineEdit* startEdit() const { return form.control<VCLineEdit>("band_StartFrequency"); }
    VCLineEdit* stopEdit() const { return form.control<VCLineEdit>("band_StopFrequency"); }
    Range stored() const { return {qint64(start()->GetValue()), qint64(stop()->GetValue())}; }
    Range properties() const
    {
        return {row->property("startFrequency").toLongLong(), row->property("stopFrequency").toLongLong()};
    }
    static void type(VCLineEdit* edit, const QString& text)
    {
        edit->setFocus();
        edit->selectAll();
        QTest::keyClicks(edit, text);
        QTest::keyClick(edit, Qt::Key_Return);
    }

    FormFixture form;
    ZorvaFrequencyRangeEdit* row;
};

} // namespace

class tst_ZorvaFrequencyRangeEdit : public GuardedTest
{
    Q_OBJECT

private Q_SLOTS:
    void limitsOfTheEnds_data();
    void limitsOfTheEnds();
    void limitsSurviveASecondCreation();
    void typedEndWins_data();
    void typedEndWins();
    void reportThatChangesNothingIsSilent();
    void fractionsAreCut();
    void setRangeStoresAsGiven();
    void laterLimits();
    void validBandsDoNothing();
    void finishing();
    void focusGoesToTheStart();
    void writes_data();
    void writes();
    void readsEitherTag();
    void answersToBothTags();
    void typingMarksTheRow();
    void leavingMarksTheRow();
    void controlsAreSetUp();
    void unitsAreOnlyPassedOn();
    void returnAppliesByMetaObjectOnly();
    void oneValueMayDie_data();
    void oneValueMayDie();
    void secondCreationOfValuesBindsAnew();
    void windowMayDieFirst();
    void formMayDieFirst();
};

void tst_ZorvaFrequencyRangeEdit::limitsOfTheEnds_data()
{
    QTest::addColumn<QList<FormProperty>>("limits");
    QTest::addColumn<Range>("start");
    QTest::addColumn<Range>("stop");
    QTest::newRow("none given") << QList<FormProperty>() << Range(8000, 26499999999)
                                << Range(8001, 26500000000);
    QTest::newRow("minimum given") << QList<FormProperty>{{"minimum", 10}} << Range(10, 26499999999)
                                   << Range(11, 26500000000);
    QTest::newRow("maximum given") << QList<FormProperty>{{"maximum", "20000"}} << Range(8000, 19999)
                                   << Range(8001, 20000);
    QTest::newRow("in display units")
        << QList<FormProperty>{{"minimum", 10000}, {"maximum", 20000}, {"displayScalingFactor", 10}}
        << Range(1000, 1999) << Range(1001, 2000);
    QTest::newRow("no numbers") << QList<FormProperty>{{"minimum", "low"}, {"maximum", "high"}}
                                << Range(8000, 26499999999) << Range(8001, 26500000000);
}

void tst_ZorvaFrequencyRangeEdit::limitsOfTheEnds()
{
    QFETCH(QList<FormProperty>, limits);
    RangeForm r(limits, FormFixture::WithValues);
    QTEST(Range(qint64(r.start()->GetMin()), qint64(r.start()->GetMax())), "start");
    QTEST(Range(qint64(r.stop()->GetMin()), qint64(r.stop()->GetMax())), "stop");
    QCOMPARE(r.start()->GetStep(), 1.0);
    QCOMPARE(r.stop()->GetStep(), 1.0);
}

void tst_ZorvaFrequencyRangeEdit::limitsSurviveASecondCreation()
{
    RangeForm unlimited(tags, FormFixture::WithValues);
    unlimited.form.createValues();
    QCOMPARE(unlimited.start()->GetMin(), 8000.0);
    QCOMPARE(unlimited.stop()->GetMax(), 26500000000.0);
}

void tst_ZorvaFrequencyRangeEdit::typedEndWins_data()
{
    QTest::addColumn<Range>("before");
    QTest::addColumn<bool>("atStart");
    QTest::addColumn<QString>("text");
    QTest::addColumn<Range>("after");
    QTest::newRow("start above stop") << Range(100, 300) << true << "500" << Range(500, 501);
    QTest::newRow("stop below start") << Range(300, 400) << false << "100" << Range(99, 100);
    QTest::newRow("start equal to stop") << Range(100, 300) << true << "300" << Range(300, 301);
    QTest::newRow("stop equal to start") << Range(300, 400) << false << "300" << Range(299, 300);
    QTest::newRow("start in order") << Range(100, 300) << true << "299" << Range(299, 300);
    QTest::newRow("stop in order") << Range(300, 400) << false << "301" << Range(300, 301);
    QTest::newRow("start at its upper end")
        << Range(100, 300) << true << "26.499999999 GHz" << Range(26499999999, 26500000000);
    QTest::newRow("stop at its lower end") << Range(300, 400) << false << "2" << Range(1, 2);
}

void tst_ZorvaFrequencyRangeEdit::typedEndWins()
{
    QFETCH(Range, before);
    QFETCH(bool, atStart);
    QFETCH(QString, text);
    QFETCH(Range, after);
    RangeForm r(lowLimits);
    r.row->setRange(before.first, before.second);
    r.form.show();
    QSignalSpy changed(r.row, &ZorvaFrequencyRangeEdit::rangeChanged);
    QSignalSpy finished(r.row, &ZorvaFrequencyRangeEdit::editingFinished);
    RangeForm::type(atStart ? r.startEdit() : r.stopEdit(), text);
    QCOMPARE(r.stored(), after);
    QCOMPARE(r.properties(), after);
    QCOMPARE(r.row->getCurrentRange(), after);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(changed.at(0), QVariantList({qlonglong(after.first), qlonglong(after.second)}));
    QCOMPARE(finished.count(), 1);
    QVERIFY(r.row->isModified());
}

void tst_ZorvaFrequencyRangeEdit::reportThatChangesNothingIsSilent()
{
    RangeForm r(lowLimits);
    r.row->setRange(100, 300);
    QSignalSpy changed(r.row, &ZorvaFrequencyRangeEdit::rangeChanged);
    r.start()->SetValue(100.4, nullptr);
    r.stop()->SetValue(300.9, nullptr);
    QCOMPARE(changed.count(), 0);
    QVERIFY(!r.row->isModified());
}

void tst_ZorvaFrequencyRangeEdit::fractionsAreCut()
{
    RangeForm r(lowLimits);
    r.row->setRange(100, 300);
    QStringList order;
    connect(r.row, &ZorvaFrequencyRangeEdit::rangeChanged,
            [&](qlonglong start, qlonglong stop) { order << QStringLiteral("%1-%2").arg(start).arg(stop); });
    connect(r.row, &ZorvaFrequencyRangeEdit::editingFinished, [&] { order << QStringLiteral("finished"); });
    r.start()->SetValue(300.5, nullptr);
    QCOMPARE(r.start()->GetValue(), 300.0);
    QCOMPARE(r.stop()->GetValue(), 301.0);
    QCOMPARE(order, QStringList({QStringLiteral("300-301"), QStringLiteral("finished")}));
}

void tst_ZorvaFrequencyRangeEdit::setRangeStoresAsGiven()
{
    RangeForm r(lowLimits);
    QSignalSpy changed(r.row, &ZorvaFrequencyRangeEdit::rangeChanged);
    r.form.evaluate(QStringLiteral("band.setRange(500, 300)"));
    QCOMPARE(r.stored(), Range(500, 300));
    QCOMPARE(changed.count(), 0);
    QVERIFY(!r.row->isModified());
}

void tst_ZorvaFrequencyRangeEdit::laterLimits()
{
    RangeForm r;
    r.row->setMinimum(1000);
    r.row->setMaximum(2000);
    QCOMPARE(r.start()->GetMin(), 1000.0);
    QCOMPARE(r.stop()->GetMin(), 1001.0);
    QCOMPARE(r.start()->GetMax(), 1999.0);
    QCOMPARE(r.stop()->GetMax(), 2000.0);
}

void tst_ZorvaFrequencyRangeEdit::validBandsDoNothing()
{
    RangeForm r(lowLimits);
    r.row->setRange(100, 300);
    const QList<QByteArray> before = r.row->dynamicPropertyNames();
    r.form.evaluate(QStringLiteral("band.addValidBand('HF', 0, 30000000); band.clearValidBands();"
                                   "band.autosetUnitScale()"));
    QCOMPARE(r.stored(), Range(100, 300));
    QCOMPARE(r.start()->GetMax(), 26499999999.0);
    QCOMPARE(r.row->dynamicPropertyNames(), before);
}

void tst_ZorvaFrequencyRangeEdit::finishing()
{
    RangeForm r(lowLimits);
    r.row->setRange(100, 300);
    r.form.show();
    QSignalSpy start(r.startEdit(), &VCLineEdit::signalTextFinallyChanged);
    QSignalSpy stop(r.stopEdit(), &VCLineEdit::signalTextFinallyChanged);
    r.row->forceFinishEditing();
    QCOMPARE(start.count() + stop.count(), 0);
    r.stopEdit()->setFocus();
    r.stopEdit()->selectAll();
    QTest::keyClicks(r.stopEdit(), QStringLiteral("5k"));
    r.row->forceFinishEditing();
    QCOMPARE(start.count(), 0);
    QCOMPARE(stop.count(), 1);
    QCOMPARE(r.stored(), Range(100, 5000));
}

void tst_ZorvaFrequencyRangeEdit::focusGoesToTheStart()
{
    RangeForm r;
    r.form.show();
    r.stopEdit()->setFocus();
    r.row->setFocus();
    QVERIFY(r.startEdit()->hasFocus());
    r.startEdit()->setEnabled(false);
    r.stopEdit()->clearFocus();
    r.row->setFocus();
    QVERIFY(!r.stopEdit()->hasFocus());
}

void tst_ZorvaFrequencyRangeEdit::writes_data()
{
    QTest::addColumn<QList<FormProperty>>("properties");
    QTest::addColumn<QString>("text");
    const QList<FormProperty> numbers{{"startFrequency", "9000"}, {"stopFrequency", "26500000000"}};
    QTest::newRow("two elements, no unit") << tags + numbers + QList<FormProperty>{{"unit", "Hz"}}
                                           << "<StartF>9000</StartF><StopF>26500000000</StopF>";
    QTest::newRow("switched off") << tags + numbers + QList<FormProperty>{{"generateParameterXml", false}}
                                  << "";
}

void tst_ZorvaFrequencyRangeEdit::writes()
{
    QFETCH(QList<FormProperty>, properties);
    RangeForm r(properties, FormFixture::WithValues);
    // The writer makes two roots of it, which is what a row may do inside its group.
    QTEST(r.form.writtenBy("band").remove(QLatin1Char('\n')), "text");
}

void tst_ZorvaFrequencyRangeEdit::readsEitherTag()
{
    RangeForm r(lowLimits);
    QSignalSpy changed(r.row, &ZorvaFrequencyRangeEdit::rangeChanged);
    QVERIFY(r.form.read("band", QStringLiteral("<StartF>700</StartF>")));
    QVERIFY(r.form.read("band", QStringLiteral("<StopF>200</StopF>")));
    QCOMPARE(r.stored(), Range(700, 200));
    QCOMPARE(r.row->property("startFrequency"), QVariant(QStringLiteral("700")));
    QVERIFY(!r.form.read("band", QStringLiteral("<Other>1</Other>")));
    QCOMPARE(r.stored(), Range(700, 200));
    QCOMPARE(changed.count(), 0);
}

void tst_ZorvaFrequencyRangeEdit::answersToBothTags()
{
    RangeForm r(lowLimits);
    QVERIFY(r.row->ContainsXmlTag(QStringLiteral("startf")));
    QVERIFY(r.row->ContainsXmlTag(QStringLiteral("StopF")));
    QVERIFY(r.row->HasSeveralXmlTags());
    r.row->setRange(200, 400);
    const QString text = r.form.formular()->GetXmlString(false);
    r.row->setRange(1, 2);
    r.form.formular()->SetXmlString(text);
    QCOMPARE(r.stored(), Range(200, 400));
    r.row->setStartFrequencyParameterXmlTag(QStringLiteral("Low"));
    r.row->setStopFrequencyParameterXmlTag(QStringLiteral("High"));
    QVERIFY(r.row->ContainsXmlTag(QStringLiteral("Low")));
    QVERIFY(r.row->ContainsXmlTag(QStringLiteral("High")));
}

void tst_ZorvaFrequencyRangeEdit::typingMarksTheRow()
{
    RangeForm r(lowLimits);
    r.row->setRange(100, 300);
    r.form.show();
    RangeForm::type(r.stopEdit(), QStringLiteral("900"));
    QVERIFY(r.row->isModified());
    QCOMPARE(r.form.formular()->GetXmlString(true).contains(QStringLiteral("<StopF>900</StopF>")), true);
}

void tst_ZorvaFrequencyRangeEdit::leavingMarksTheRow()
{
    RangeForm r(lowLimits);
    r.form.show();
    r.startEdit()->setFocus();
    QTest::keyClick(r.startEdit(), Qt::Key_Tab);
    QVERIFY(r.stopEdit()->hasFocus());
    QVERIFY(r.row->isModified());
}

void tst_ZorvaFrequencyRangeEdit::controlsAreSetUp()
{
    RangeForm r(tags + QList<FormProperty>{{"startFrequency", "98500000"}, {"stopFrequency", "108000000"}});
    r.form.show();
    QCOMPARE(r.startEdit()->toolTip(), QStringLiteral("Start Frequency"));
    QCOMPARE(r.stopEdit()->toolTip(), QStringLiteral("Stop Frequency"));
    QCOMPARE(r.startEdit()->text(), QStringLiteral("98.5 MHz"));
    QCOMPARE(r.stopEdit()->text(), QStringLiteral("108 MHz"));
    QCOMPARE(r.startEdit()->y(), r.stopEdit()->y());
    QCOMPARE(r.row->GetVTValue(), static_cast<values::ValueBase*>(r.start()));
    r.row->setEnabled(false);
    QVERIFY(!r.startEdit()->isEnabled() && !r.stopEdit()->isEnabled());
}

void tst_ZorvaFrequencyRangeEdit::unitsAreOnlyPassedOn()
{
    RangeForm r;
    const QString shown = r.startEdit()->text();
    r.row->setStartFrequencyUnitScale(QStringLiteral("M"));
    r.row->setStopFrequencyUnitScale(qulonglong(1000));
    r.row->setUnitHidden(true);
    for (const VCLineEdit* const edit : {r.startEdit(), r.stopEdit()}) {
        QCOMPARE(edit->property("startFrequencyUnitScale"), QVariant(QStringLiteral("M")));
        QCOMPARE(edit->property("stopFrequencyUnitScale"), QVariant(qulonglong(1000)));
        QVERIFY(!edit->property("unitHidden").isValid());
    }
    QCOMPARE(r.startEdit()->text(), shown);
}

void tst_ZorvaFrequencyRangeEdit::returnAppliesByMetaObjectOnly()
{
    RangeForm r(lowLimits);
    r.form.show();
    QSignalSpy returned(r.row, &ZorvaFrequencyRangeEdit::returnPressed);
    QSignalSpy applied(r.form.formular(), &Orvane::ZorvaFormular::si_parametersModified);
    RangeForm::type(r.startEdit(), QStringLiteral("500"));
    QCOMPARE(returned.count(), 0);
    QVERIFY(QMetaObject::invokeMethod(r.row, "SlotReturnPressed"));
    QCOMPARE(returned.count(), 1);
    QCOMPARE(applied.count(), 1);
}

void tst_ZorvaFrequencyRangeEdit::oneValueMayDie_data()
{
    QTest::addColumn<QString>("dying");
    QTest::addColumn<QByteArray>("other");
    QTest::newRow("start") << "/test/band_1" << QByteArray("band_2");
    QTest::newRow("stop") << "/test/band_2" << QByteArray("band_1");
}

void tst_ZorvaFrequencyRangeEdit::oneValueMayDie()
{
    QFETCH(QString, dying);
    QFETCH(QByteArray, other);
    RangeForm r(lowLimits);
    QVERIFY(values::Tree::Instance()->RemoveValue(dying));
    r.form.value<values::NumericDouble>(other.constData())->SetValue(5000, nullptr);
    r.row->setRange(7000, 8000);
    r.row->setMinimum(3);
    r.row->setMaximum(9000);
    const Range range = r.row->getCurrentRange();
    QCOMPARE(range, other == "band_2" ? Range(0, 8000) : Range(7000, 0));
}

void tst_ZorvaFrequencyRangeEdit::secondCreationOfValuesBindsAnew()
{
    RangeForm r(lowLimits);
    r.form.createValues();
    r.start()->SetValue(5e6, nullptr);
    QCOMPARE(r.startEdit()->text(), QStringLiteral("5 MHz"));
    QCOMPARE(r.stop()->GetValue(), 5000001.0);
}

void tst_ZorvaFrequencyRangeEdit::windowMayDieFirst()
{
    RangeForm r(lowLimits);
    r.form.deleteWindow();
    r.row->setRange(10, 20);
    r.row->setFocus();
    r.row->forceFinishEditing();
    QCOMPARE(r.stored(), Range(10, 20));
}

void tst_ZorvaFrequencyRangeEdit::formMayDieFirst()
{
    RangeForm r(lowLimits);
    r.form.show();
    r.form.deleteForm();
    RangeForm::type(r.startEdit(), QStringLiteral("5k"));
    QVERIFY(values::Tree::Instance()->IsEmpty());
}

QTEST_MAIN(tst_ZorvaFrequencyRangeEdit)
#include "tst_zorvafrequencyrangeedit.moc"
