#include "guardedtest.h"

#include <formfixture.h>
#include <recordingobserver.h>
#include <zorvaparser/widgets/zorvafrequencyedit.h>
#include <zorvaparser/zorvawidget.h>

#include <QGridLayout>
#include <QLineEdit>
#include <QSignalSpy>

using Orvane::ZorvaFrequencyEdit;

namespace {

/// A form with one frequency row of any name: "Frequency" gives the main form.
struct FrequencyForm
{
    explicit FrequencyForm(const char* rowName, const QList<FormProperty>& properties = {},
                           FormFixture::Stage stage = FormFixture::WithGui)
        : FrequencyForm(rowXml("FrequencyEdit", rowName, properties), rowName, stage)
    {
    }
    FrequencyForm(const QString& widgets, const char* rowName,
                  FormFixture::Stage stage = FormFixture::WithGui)
        : form(widgets, stage)
        , row(form.delegate<ZorvaFrequencyEdit>(rowName))
        , name(rowName)
    {
    }

    values::NumericDouble* value() const { return form.value<values::NumericDouble>(name.constData()); }
    VCFrequency* mainControl() const { return form.control<VCFrequency>("FrequencyControl"); }
    /// The main control has an edit of its own, which is not meant here.
    VCLineEdit* plainEdit() const
    {
        for (VCLineEdit* const edit : form.window()->findChildren<VCLineEdit*>(QString::fromLatin1(name))) {
            if (!mainControl() || !mainControl()->isAncestorOf(edit))
                return edit;
        }
        return nullptr;
    }
    QLineEdit* mainEdit() const { return mainControl()->findChild<QLineEdit*>(); }
    QPushButton* lock() const { return form.control<QPushButton>("LockFrequency"); }
    bool looksLocked() const
    {
        const QIcon locked(QStringLiteral(":/ZorvaParser/Locked.svg"));
        return lock()->icon().pixmap(16, 16).toImage() == locked.pixmap(16, 16).toImage();
    }

    FormFixture form;
    ZorvaFrequencyEdit* row;
    QByteArray name;
};

} // namespace

class tst_ZorvaFrequencyEdit : public GuardedTest
{
    Q_OBJECT

private Q_SLOTS:
    void formIsChosen_data();
    void formIsChosen();
    void mainFormIsPutTogether();
    void mainFormWithoutInput_data();
    void mainFormWithoutInput();
    void mainFormOpensLater_data();
    void mainFormOpensLater();
    void fractionIsCutOnTheWayIn();
    void equalWholeNumberIsSilent();
    void readingTellsFirst_data();
    void readingTellsFirst();
    void writesTheProperty_data();
    void writesTheProperty();
    void lockShowsWithTheFirstChange();
    void userTogglesTheLock();
    void lockOfTheDescriptionIsUnseen();
    void plainFormHasNoLock();
    void visibleReachesTheLockOnceShown();
    void inputGateAndLock_data();
    void inputGateAndLock();
    void limitsGoToTheValue();
    void unitsStopAtTheRow();
    void typingInThePlainForm();
    void typingInTheMainForm();
    void finishingIsForThePlainForm();
    void returnAppliesByMetaObjectOnly();
    void focus_data();
    void focus();
    void plainToolTip_data();
    void plainToolTip();
    void bandwidthBesideItIsUsed();
    void valueMayDie();
    void secondCreationOfValuesBindsAnew_data();
    void secondCreationOfValuesBindsAnew();
    void windowMayDieFirst_data();
    void windowMayDieFirst();
    void formMayDieFirst_data();
    void formMayDieFirst();
};

void tst_ZorvaFrequencyEdit::formIsChosen_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QString>("wish");
    QTest::addColumn<bool>("isMain");
    QTest::newRow("by tag") << QByteArray("Frequency") << "" << true;
    QTest::newRow("by another tag") << QByteArray("Center") << "" << false;
    QTest::newRow("tag in another case") << QByteArray("frequency") << "" << false;
    QTest::newRow("told plain") << QByteArray("Frequency") << "false" << false;
    QTest::newRow("told main") << QByteArray("Center") << "true" << true;
}

void tst_ZorvaFrequencyEdit::formIsChosen()
{
    QFETCH(QByteArray, name);
    QFETCH(QString, wish);
    QFETCH(bool, isMain);
    const QList<FormProperty> properties =
        wish.isEmpty() ? QList<FormProperty>()
                       : QList<FormProperty>{{"MainFreqEdit", wish == QLatin1String("true")}};
    FrequencyForm f(name.constData(), properties);
    QCOMPARE(f.mainControl() != nullptr, isMain);
    QCOMPARE(f.lock() != nullptr, isMain);
    QCOMPARE(f.plainEdit() != nullptr, !isMain);
    QCOMPARE(f.row->GetVTValue(), static_cast<values::ValueBase*>(f.value()));
}

void tst_ZorvaFrequencyEdit::mainFormIsPutTogether()
{
    FrequencyForm f("Frequency", {{"value", 98500000}});
    f.form.show();
    const QWidget* const container = f.form.control<QWidget>("FrequencyWidget");
    QCOMPARE(f.mainControl()->parentWidget(), container);
    QCOMPARE(f.lock()->parentWidget(), container);
    const auto* const grid = container->findChild<QGridLayout*>(QStringLiteral("FrequencyGrid"));
    QCOMPARE(grid->contentsMargins(), QMargins());
    QCOMPARE(grid->itemAtPosition(1, 1)->widget(), static_cast<QWidget*>(f.mainControl()));
    QCOMPARE(grid->itemAtPosition(1, 2)->widget(), static_cast<QWidget*>(f.lock()));
    QVERIFY(f.mainControl()->isVisible());
    QVERIFY(!f.mainControl()->GetTuneButton()->isVisible());
    QVERIFY(f.mainControl()->GetFrequencyButtonCtrl()->isEnabled());
    QVERIFY(!f.lock()->isVisible());
    QVERIFY(f.lock()->isCheckable() && f.lock()->isFlat());
    QCOMPARE(f.lock()->size(), QSize(20, 18));
    QCOMPARE(f.mainEdit()->text(), QStringLiteral("98.5 MHz"));
}

void tst_ZorvaFrequencyEdit::mainFormWithoutInput_data()
{
    QTest::addColumn<QString>("widgets");
    QTest::newRow("enabled is absent") << widgetXml("FrequencyEdit", "Frequency", {{"visible", true}});
    QTest::newRow("switched off") << rowXml("FrequencyEdit", "Frequency", {{"enabled", false}});
    QTest::newRow("read only") << rowXml("FrequencyEdit", "Frequency", {{"readOnly", true}});
}

void tst_ZorvaFrequencyEdit::mainFormWithoutInput()
{
    QFETCH(QString, widgets);
    FrequencyForm f(widgets, "Frequency");
    f.form.show();
    QVERIFY(!f.mainControl()->GetFrequencyButtonCtrl()->isEnabled());
    QVERIFY(!f.mainControl()->GetHistoryButtonCtrl()->isEnabled());
    const double before = f.value()->GetValue();
    QTest::keyClicks(f.mainEdit(), QStringLiteral("5 MHz"));
    QTest::keyClick(f.mainEdit(), Qt::Key_Return);
    QCOMPARE(f.value()->GetValue(), before);
}

void tst_ZorvaFrequencyEdit::mainFormOpensLater_data()
{
    QTest::addColumn<QString>("widgets");
    QTest::addColumn<bool>("both"); // or the second gate is all that is missing
    QTest::newRow("enabled is absent")
        << widgetXml("FrequencyEdit", "Frequency", {{"visible", true}}) << false;
    QTest::newRow("switched off") << rowXml("FrequencyEdit", "Frequency", {{"enabled", false}}) << false;
    QTest::newRow("read only") << rowXml("FrequencyEdit", "Frequency", {{"readOnly", true}}) << false;
    QTest::newRow("read only and off")
        << rowXml("FrequencyEdit", "Frequency", {{"readOnly", true}, {"enabled", false}}) << true;
}

void tst_ZorvaFrequencyEdit::mainFormOpensLater()
{
    QFETCH(QString, widgets);
    QFETCH(bool, both);
    FrequencyForm f(widgets, "Frequency");
    f.form.show();
    const auto isOpen = [&] {
        const double before = f.value()->GetValue();
        f.mainEdit()->selectAll();
        QTest::keyClicks(f.mainEdit(), before == 5e6 ? QStringLiteral("6 MHz") : QStringLiteral("5 MHz"));
        QTest::keyClick(f.mainEdit(), Qt::Key_Return);
        const bool takesInput = f.value()->GetValue() != before;
        const bool hasButtons = f.mainControl()->GetFrequencyButtonCtrl()->isEnabled() &&
                                f.mainControl()->GetHistoryButtonCtrl()->isEnabled();
        [&] { QCOMPARE(hasButtons, takesInput); }();
        return takesInput;
    };
    QVERIFY(!isOpen());
    f.row->setEnabled(true);
    if (both)
        QVERIFY(!isOpen());
    f.row->setReadOnly(false);
    QVERIFY(isOpen());
    f.row->setReadOnly(true);
    QVERIFY(!isOpen());
    f.row->setReadOnly(false);
    f.form.formular()->EnableInput(false);
    QVERIFY(!f.mainControl()->isEnabled());
    f.form.formular()->EnableInput(true);
    QVERIFY(isOpen());
    f.row->setEnabled(false);
    QVERIFY(!f.mainControl()->isEnabled());
}

void tst_ZorvaFrequencyEdit::fractionIsCutOnTheWayIn()
{
    FrequencyForm f("Center");
    QSignalSpy finished(f.row, &ZorvaFrequencyEdit::editingFinished);
    QSignalSpy changed(f.row, &ZorvaFrequencyEdit::valueChanged);
    double inTree = 0.0;
    connect(f.row, &ZorvaFrequencyEdit::valueChanged, [&] { inTree = f.value()->GetValue(); });
    f.value()->SetValue(1000.9, nullptr);
    QCOMPARE(f.row->property("value"), QVariant(1000LL));
    QCOMPARE(f.row->property("value").userType(), int(QMetaType::LongLong));
    QCOMPARE(changed.count(), 1);
    QCOMPARE(changed.at(0).at(0).toLongLong(), 1000LL);
    QCOMPARE(finished.count(), 1);
    QCOMPARE(inTree, 1000.0);
    QVERIFY(f.row->isModified());
}

void tst_ZorvaFrequencyEdit::equalWholeNumberIsSilent()
{
    FrequencyForm f("Center", {{"value", 1000}});
    QSignalSpy changed(f.row, &ZorvaFrequencyEdit::valueChanged);
    f.value()->SetValue(1000.7, nullptr);
    QCOMPARE(changed.count(), 0);
    QVERIFY(!f.row->isModified());
}

void tst_ZorvaFrequencyEdit::readingTellsFirst_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<qlonglong>("told");
    QTest::addColumn<double>("stored");
    QTest::newRow("number") << "98500000" << 98500000LL << 98500000.0;
    QTest::newRow("negative") << "-5" << 0LL << -5.0;
    QTest::newRow("no number") << "abc" << 0LL << 1.0;
    QTest::newRow("fraction") << "7.5" << 0LL << 7.5;
}

void tst_ZorvaFrequencyEdit::readingTellsFirst()
{
    QFETCH(QString, text);
    QFETCH(qlonglong, told);
    FrequencyForm f("Center", {{"value", 1}});
    QSignalSpy changed(f.row, &ZorvaFrequencyEdit::valueChanged);
    QSignalSpy finished(f.row, &ZorvaFrequencyEdit::editingFinished);
    double inTree = 0.0;
    connect(f.row, &ZorvaFrequencyEdit::valueChanged, [&] { inTree = f.value()->GetValue(); });
    QVERIFY(f.form.read("Center", QStringLiteral("<Center>%1</Center>").arg(text)));
    QCOMPARE(changed.count(), 1);
    QCOMPARE(changed.at(0).at(0).toLongLong(), told);
    QCOMPARE(inTree, 1.0);
    QCOMPARE(f.row->property("value"), QVariant(text));
    QTEST(f.value()->GetValue(), "stored");
    QCOMPARE(finished.count(), 0);
    QVERIFY(!f.row->isModified());
}

void tst_ZorvaFrequencyEdit::writesTheProperty_data()
{
    QTest::addColumn<QString>("widgets");
    QTest::addColumn<QString>("text");
    QTest::newRow("text of the description")
        << rowXml("FrequencyEdit", "Center", {{"value", "26500000000"}}) << "<Center>26500000000</Center>";
    QTest::newRow("unit") << rowXml("FrequencyEdit", "Center", {{"value", 5}, {"unit", "Hz"}})
                          << "<Center unit=\"Hz\">5</Center>";
    QTest::newRow("switched off") << rowXml("FrequencyEdit", "Center", {{"generateParameterXml", false}})
                                  << "";
}

void tst_ZorvaFrequencyEdit::writesTheProperty()
{
    QFETCH(QString, widgets);
    FrequencyForm f(widgets, "Center", FormFixture::WithValues);
    QTEST(f.form.writtenBy("Center"), "text");
}

void tst_ZorvaFrequencyEdit::lockShowsWithTheFirstChange()
{
    FrequencyForm f("Frequency");
    f.form.show();
    QSignalSpy toggled(f.row, &ZorvaFrequencyEdit::si_lockButtonToggled);
    f.row->setProperty("FrequencyLock", true);
    QVERIFY(f.lock()->isVisible());
    QVERIFY(f.lock()->isChecked());
    QVERIFY(f.looksLocked());
    QCOMPARE(f.lock()->toolTip(), QStringLiteral("Unlock frequency range"));
    f.row->setProperty("FrequencyLock", false);
    QVERIFY(f.lock()->isVisible());
    QVERIFY(!f.lock()->isChecked());
    QVERIFY(!f.looksLocked());
    QCOMPARE(f.lock()->toolTip(), QStringLiteral("Lock frequency range"));
    QCOMPARE(toggled.count(), 0);
}

void tst_ZorvaFrequencyEdit::userTogglesTheLock()
{
    FrequencyForm f("Frequency");
    f.form.show();
    f.row->setProperty("FrequencyLock", true);
    QSignalSpy toggled(f.row, &ZorvaFrequencyEdit::si_lockButtonToggled);
    QTest::mouseClick(f.lock(), Qt::LeftButton);
    QCOMPARE(toggled.count(), 1);
    QCOMPARE(toggled.at(0).at(0).toBool(), false);
    QVERIFY(f.looksLocked());
    QCOMPARE(f.lock()->toolTip(), QStringLiteral("Unlock frequency range"));
    QCOMPARE(f.row->property("FrequencyLock").toBool(), true);
}

void tst_ZorvaFrequencyEdit::lockOfTheDescriptionIsUnseen()
{
    FrequencyForm f("Frequency", {{"FrequencyLock", true}});
    f.form.show();
    QVERIFY(!f.lock()->isVisible());
    QVERIFY(!f.lock()->isChecked());
    QVERIFY(!f.looksLocked());
}

void tst_ZorvaFrequencyEdit::plainFormHasNoLock()
{
    FrequencyForm f("Center");
    f.row->setProperty("FrequencyLock", true);
    QVERIFY(!f.lock());
    QCOMPARE(f.row->property("FrequencyLock").toBool(), true);
}

void tst_ZorvaFrequencyEdit::visibleReachesTheLockOnceShown()
{
    FrequencyForm f("Frequency");
    f.form.show();
    f.row->setVisible(false);
    QVERIFY(!f.mainControl()->isVisible());
    f.row->setVisible(true);
    QVERIFY(f.mainControl()->isVisible());
    QVERIFY(!f.lock()->isVisible());

    f.row->setProperty("FrequencyLock", false);
    QVERIFY(f.lock()->isVisible());
    f.row->setVisible(false);
    QVERIFY(!f.lock()->isVisible());
    f.row->setVisible(true);
    QVERIFY(f.lock()->isVisible());
}

void tst_ZorvaFrequencyEdit::inputGateAndLock_data()
{
    QTest::addColumn<bool>("keepLock");
    QTest::newRow("whole row") << false;
    QTest::newRow("all but the lock") << true;
}

void tst_ZorvaFrequencyEdit::inputGateAndLock()
{
    QFETCH(bool, keepLock);
    FrequencyForm f("Frequency");
    f.row->EnableInput(false, keepLock);
    QVERIFY(!f.mainControl()->isEnabled());
    QCOMPARE(f.lock()->isEnabled(), keepLock);
    QCOMPARE(f.row->property("enabled").toBool(), true);
    f.row->EnableInput(true, keepLock);
    QVERIFY(f.mainControl()->isEnabled());
    QVERIFY(f.lock()->isEnabled());
}

void tst_ZorvaFrequencyEdit::limitsGoToTheValue()
{
    FrequencyForm f("Center", {{"minimum", 8000}, {"maximum", "26500000000"}, {"value", 1}});
    QCOMPARE(f.value()->GetMin(), 8000.0);
    QCOMPARE(f.value()->GetMax(), 26500000000.0);
    QCOMPARE(f.value()->GetValue(), 8000.0);
    f.form.evaluate(
        QStringLiteral("Center.setMinimum(20000); Center.setMaximum(30000); Center.setValue(50000)"));
    QCOMPARE(f.value()->GetMin(), 20000.0);
    QCOMPARE(f.value()->GetMax(), 30000.0);
    QCOMPARE(f.value()->GetValue(), 30000.0);
    QVERIFY(!f.row->isModified());
}

void tst_ZorvaFrequencyEdit::unitsStopAtTheRow()
{
    FrequencyForm f("Center", {{"value", 98500000}});
    const QString shown = f.plainEdit()->text();
    const QList<QByteArray> before = f.plainEdit()->dynamicPropertyNames();
    f.row->setUnitScale(QStringLiteral("k"));
    QCOMPARE(f.row->property("unitScale"), QVariant(QStringLiteral("k")));
    f.row->setUnitScale(qulonglong(1000000));
    QCOMPARE(f.row->property("unitScale"), QVariant(qulonglong(1000000)));
    f.row->setUnitHidden(true);
    f.row->setUseHistory(true);
    f.row->setMaxHistoryLength(5);
    f.row->setUseUniformHeights(true);
    f.row->setDisplayOutOfRangeValues(true);
    f.row->autosetUnitScale();
    QCOMPARE(f.row->property("unitScale"), QVariant(qulonglong(1000000)));
    QCOMPARE(f.row->property("unitHidden").toBool(), true);
    QCOMPARE(f.row->property("history").toBool(), true);
    QCOMPARE(f.row->property("maxHistoryLength").toInt(), 5);
    QCOMPARE(f.row->property("uniformHeights").toBool(), true);
    QCOMPARE(f.row->property("displayOutOfRangeValues").toBool(), true);
    QCOMPARE(f.plainEdit()->text(), shown);
    QCOMPARE(f.plainEdit()->dynamicPropertyNames(), before);
}

void tst_ZorvaFrequencyEdit::typingInThePlainForm()
{
    FrequencyForm f("Center", {{"value", 1000}});
    f.form.show();
    f.row->setFocus();
    QSignalSpy changed(f.row, &ZorvaFrequencyEdit::valueChanged);
    f.plainEdit()->selectAll();
    QTest::keyClicks(f.plainEdit(), QStringLiteral("98.5M"));
    QVERIFY(f.row->isModified());
    QCOMPARE(changed.count(), 0);
    QTest::keyClick(f.plainEdit(), Qt::Key_Return);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(f.value()->GetValue(), 98500000.0);
    QCOMPARE(f.plainEdit()->text(), QStringLiteral("98.5 MHz"));
    QCOMPARE(f.form.writtenBy("Center"), QStringLiteral("<Center>98500000</Center>"));
}

void tst_ZorvaFrequencyEdit::typingInTheMainForm()
{
    FrequencyForm f("Frequency", {{"value", 1000}});
    f.form.show();
    f.mainEdit()->setFocus();
    QSignalSpy changed(f.row, &ZorvaFrequencyEdit::valueChanged);
    f.mainEdit()->selectAll();
    QTest::keyClicks(f.mainEdit(), QStringLiteral("98.5 MHz"));
    QVERIFY(!f.row->isModified());
    QTest::keyClick(f.mainEdit(), Qt::Key_Return);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(changed.at(0).at(0).toLongLong(), 98500000LL);
    QVERIFY(f.row->isModified());
}

void tst_ZorvaFrequencyEdit::finishingIsForThePlainForm()
{
    FrequencyForm plain("Center", {{"value", 1000}});
    plain.form.show();
    plain.plainEdit()->selectAll();
    QTest::keyClicks(plain.plainEdit(), QStringLiteral("5k"));
    plain.row->forceFinishEditing();
    QCOMPARE(plain.value()->GetValue(), 5000.0);

    FrequencyForm mainForm("Frequency", {{"value", 1000}});
    mainForm.row->forceFinishEditing();
}

void tst_ZorvaFrequencyEdit::returnAppliesByMetaObjectOnly()
{
    FrequencyForm f("Center", {{"value", 1000}});
    f.form.show();
    QSignalSpy returned(f.row, &ZorvaFrequencyEdit::returnPressed);
    QSignalSpy applied(f.form.formular(), &Orvane::ZorvaFormular::si_parametersModified);
    f.plainEdit()->selectAll();
    QTest::keyClicks(f.plainEdit(), QStringLiteral("5k"));
    QTest::keyClick(f.plainEdit(), Qt::Key_Return);
    QCOMPARE(returned.count(), 0);
    QVERIFY(QMetaObject::invokeMethod(f.row, "SlotReturnPressed"));
    QCOMPARE(returned.count(), 1);
    QCOMPARE(applied.count(), 1);
}

void tst_ZorvaFrequencyEdit::focus_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::newRow("plain") << QByteArray("Center");
    QTest::newRow("main") << QByteArray("Frequency");
}

void tst_ZorvaFrequencyEdit::focus()
{
    QFETCH(QByteArray, name);
    FrequencyForm f(name.constData());
    f.form.show();
    f.row->setFocus();
    QWidget* const control = f.plainEdit() ? static_cast<QWidget*>(f.plainEdit()) : f.mainControl();
    QWidget* const focused = QApplication::focusWidget();
    QVERIFY(focused == control || control->isAncestorOf(focused));
}

void tst_ZorvaFrequencyEdit::plainToolTip_data()
{
    QTest::addColumn<QString>("widgets");
    QTest::addColumn<QString>("toolTip");
    QTest::newRow("label") << rowXml("FrequencyEdit", "Center", {{"labelText", "Center frequency"}})
                           << "Center frequency";
    QTest::newRow("none") << rowXml("FrequencyEdit", "Center") << "";
    QTest::newRow("told") << rowXml("FrequencyEdit", "Center",
                                    {{"labelText", "Center"}, {"toolTip", "In hertz"}})
                          << "In hertz";
}

void tst_ZorvaFrequencyEdit::plainToolTip()
{
    QFETCH(QString, widgets);
    FrequencyForm f(widgets, "Center");
    QTEST(f.plainEdit()->toolTip(), "toolTip");
}

void tst_ZorvaFrequencyEdit::bandwidthBesideItIsUsed()
{
    FrequencyForm f(rowXml("FrequencyEdit", "Frequency", {{"value", 1000000}}) +
                        rowXml("BandwidthEdit", "Bandwidth", {{"value", 9000}, {"maximum", 100000}}),
                    "Frequency");
    f.form.show();
    f.mainControl()->slotIncrement();
    QCOMPARE(f.value()->GetValue(), 1009000.0);
    QCOMPARE(f.row->property("value").toLongLong(), 1009000LL);
}

void tst_ZorvaFrequencyEdit::valueMayDie()
{
    FrequencyForm f("Center");
    QVERIFY(values::Tree::Instance()->RemoveValue(QStringLiteral("/test/Center")));
    QVERIFY(!f.row->GetVTValue());
    f.row->setValue(5);
    f.row->setMinimum(1);
    f.row->setMaximum(9);
    QCOMPARE(f.row->property("value").toLongLong(), 5LL);
    QCOMPARE(f.form.writtenBy("Center"), QStringLiteral("<Center>5</Center>"));
}

void tst_ZorvaFrequencyEdit::secondCreationOfValuesBindsAnew_data()
{
    focus_data();
}

void tst_ZorvaFrequencyEdit::secondCreationOfValuesBindsAnew()
{
    QFETCH(QByteArray, name);
    FrequencyForm f(name.constData(), {{"value", 1000}});
    f.form.show();
    f.form.createValues();
    f.value()->SetValue(7e6, nullptr);
    QCOMPARE(f.row->property("value").toLongLong(), 7000000LL);
    QCOMPARE((f.plainEdit() ? f.plainEdit() : f.mainEdit())->text(), QStringLiteral("7 MHz"));
}

void tst_ZorvaFrequencyEdit::windowMayDieFirst_data()
{
    focus_data();
}

void tst_ZorvaFrequencyEdit::windowMayDieFirst()
{
    QFETCH(QByteArray, name);
    FrequencyForm f(name.constData());
    f.form.deleteWindow();
    f.row->setValue(5000);
    f.row->setProperty("FrequencyLock", true);
    f.row->setVisible(false);
    f.row->EnableInput(false, false);
    f.row->setFocus();
    f.row->forceFinishEditing();
    QCOMPARE(f.value()->GetValue(), 5000.0);
}

void tst_ZorvaFrequencyEdit::formMayDieFirst_data()
{
    focus_data();
}

void tst_ZorvaFrequencyEdit::formMayDieFirst()
{
    QFETCH(QByteArray, name);
    FrequencyForm f(name.constData());
    f.form.show();
    f.form.deleteForm();
    QLineEdit* const edit = f.plainEdit() ? f.plainEdit() : f.mainEdit();
    QTest::keyClicks(edit, QStringLiteral("5k"));
    QTest::keyClick(edit, Qt::Key_Return);
    QVERIFY(values::Tree::Instance()->IsEmpty());
}

QTEST_MAIN(tst_ZorvaFrequencyEdit)
#include "tst_zorvafrequencyedit.moc"
