#include "guardedtest.h"

#include <formfixture.h>
#include <zorvaparser/widgets/zorvascriptcontrol.h>

#include <QPushButton>
#include <QSignalSpy>

using Orvane::ZorvaScriptControl;

namespace {

const QList<FormProperty> allSix{{"enabledLoad", true}, {"enabledEdit", true}, {"enabledClear", true},
                                 {"visibleLoad", true}, {"visibleEdit", true}, {"visibleClear", true}};

/// A form with one script control, and its parts at hand.
struct ScriptForm
{
    explicit ScriptForm(const QList<FormProperty>& properties,
                        FormFixture::Stage stage = FormFixture::WithGui)
        : form(rowXml("ScriptControl", "script", properties), stage)
        , row(form.delegate<ZorvaScriptControl>("script"))
    {
    }

    QLabel* light() const { return form.control<QLabel>("scriptStatusLabel"); }
    QPushButton* load() const { return form.control<QPushButton>("script_LoadButton"); }
    QPushButton* edit() const { return form.control<QPushButton>("script_EditButton"); }
    QPushButton* clear() const { return form.control<QPushButton>("scriptClearButton"); }
    QList<QPushButton*> buttons() const { return {load(), edit(), clear()}; }
    void setLoaded(bool loaded) const { row->setCustomProperty(QStringLiteral("scriptloaded"), loaded); }
    bool isLightOn() const
    {
        return light()->pixmap(Qt::ReturnByValue).toImage() ==
               QPixmap(QStringLiteral(":/ZorvaParser/Loaded_ON.png")).toImage();
    }

    FormFixture form;
    ZorvaScriptControl* row;
};

} // namespace

class tst_ZorvaScriptControl : public GuardedTest
{
    Q_OBJECT

private Q_SLOTS:
    void freshControlWithAllSix();
    void withoutTheSixOnlyTheLightShows();
    void lightFollowsTheScript();
    void statusUpdateOverrulesEnabledClear();
    void otherCustomPropertiesAreIgnored();
    void toolTips();
    void descriptionToolTipWinsUntilTheLightChanges();
    void invisibleRowKeepsItsContainer();
    void slotsBeforeTheControlAreForgotten();
    void slotsActOnTheButtonsAlone_data();
    void slotsActOnTheButtonsAlone();
    void propertiesReachTheButtons();
    void clicksAreReported();
    void partsStandInARow();
    void windowMayDieFirst();
};

void tst_ZorvaScriptControl::freshControlWithAllSix()
{
    ScriptForm control(allSix);
    QVERIFY(!control.isLightOn());
    QCOMPARE(control.light()->toolTip(), QStringLiteral("NO Script loaded"));
    QVERIFY(control.clear()->isEnabled());
    for (QPushButton* const button : control.buttons()) {
        QVERIFY(button->isEnabled());
        QVERIFY(!button->isHidden());
        QVERIFY(!button->icon().isNull());
    }
    QCOMPARE(control.load()->minimumWidth(), 80);
    QCOMPARE(control.edit()->minimumWidth(), 0);
    QCOMPARE(control.form.writtenBy("script"), QString());
}

void tst_ZorvaScriptControl::withoutTheSixOnlyTheLightShows()
{
    ScriptForm control({});
    control.form.show();
    QVERIFY(control.light()->isVisible());
    for (QPushButton* const button : control.buttons()) {
        QVERIFY(!button->isVisible());
        QVERIFY(!button->isEnabled());
    }
}

void tst_ZorvaScriptControl::lightFollowsTheScript()
{
    ScriptForm control(allSix);
    control.setLoaded(true);
    QVERIFY(control.isLightOn());
    QCOMPARE(control.light()->toolTip(), QStringLiteral("Script loaded"));
    QVERIFY(control.clear()->isEnabled());
    control.setLoaded(false);
    QVERIFY(!control.isLightOn());
    QCOMPARE(control.light()->toolTip(), QStringLiteral("NO Script loaded"));
    QVERIFY(!control.clear()->isEnabled());
    QVERIFY(control.load()->isEnabled());
}

void tst_ZorvaScriptControl::statusUpdateOverrulesEnabledClear()
{
    ScriptForm control(allSix);
    control.setLoaded(false);
    QVERIFY(!control.clear()->isEnabled());
    control.row->setProperty("enabledClear", false);
    control.row->setProperty("enabledClear", true);
    QVERIFY(control.clear()->isEnabled());
    control.setLoaded(true);
    control.setLoaded(false);
    QVERIFY(!control.clear()->isEnabled());
}

void tst_ZorvaScriptControl::otherCustomPropertiesAreIgnored()
{
    ScriptForm control(allSix);
    control.row->setCustomProperty(QStringLiteral("scriptLoaded"), true);
    QVERIFY(!control.isLightOn());
}

void tst_ZorvaScriptControl::toolTips()
{
    ScriptForm control(QList<FormProperty>{{"labelText", "Mission"}} + allSix);
    QCOMPARE(control.load()->toolTip(), QStringLiteral("LoadMission"));
    QCOMPARE(control.edit()->toolTip(), QStringLiteral("EditMission"));
    QCOMPARE(control.clear()->toolTip(), QStringLiteral("ClearMission"));
    QCOMPARE(control.form.control<QLabel>("labelscript")->text(), QStringLiteral("Mission"));
}

void tst_ZorvaScriptControl::descriptionToolTipWinsUntilTheLightChanges()
{
    ScriptForm control(QList<FormProperty>{{"toolTip", "Ask first"}} + allSix);
    QCOMPARE(control.load()->toolTip(), QStringLiteral("Ask first"));
    QCOMPARE(control.light()->toolTip(), QStringLiteral("Ask first"));
    control.setLoaded(true);
    QCOMPARE(control.light()->toolTip(), QStringLiteral("Script loaded"));
    QCOMPARE(control.clear()->toolTip(), QStringLiteral("Ask first"));
}

void tst_ZorvaScriptControl::invisibleRowKeepsItsContainer()
{
    ScriptForm control(allSix);
    control.form.show();
    control.row->setVisible(false);
    QVERIFY(!control.light()->isVisible());
    for (QPushButton* const button : control.buttons())
        QVERIFY(!button->isVisible());
    QVERIFY(control.form.control<QWidget>("script")->isVisible());
}

void tst_ZorvaScriptControl::slotsBeforeTheControlAreForgotten()
{
    ScriptForm control(allSix, FormFixture::WithValues);
    control.row->setEnabledLoad(false);
    control.row->setVisibleEdit(false);
    control.form.createGui();
    QVERIFY(control.load()->isEnabled());
    QVERIFY(!control.edit()->isHidden());
}

void tst_ZorvaScriptControl::slotsActOnTheButtonsAlone_data()
{
    QTest::addColumn<QByteArray>("slotName");
    QTest::addColumn<QByteArray>("button");
    QTest::addColumn<QByteArray>("property");
    QTest::newRow("enable clear") << QByteArray("setEnabledClear") << QByteArray("scriptClearButton")
                                  << QByteArray("enabledClear");
    QTest::newRow("enable edit") << QByteArray("setEnabledEdit") << QByteArray("script_EditButton")
                                 << QByteArray("enabledEdit");
    QTest::newRow("enable load") << QByteArray("setEnabledLoad") << QByteArray("script_LoadButton")
                                 << QByteArray("enabledLoad");
    QTest::newRow("show clear") << QByteArray("setVisibleClear") << QByteArray("scriptClearButton")
                                << QByteArray("visibleClear");
    QTest::newRow("show edit") << QByteArray("setVisibleEdit") << QByteArray("script_EditButton")
                               << QByteArray("visibleEdit");
    QTest::newRow("show load") << QByteArray("setVisibleLoad") << QByteArray("script_LoadButton")
                               << QByteArray("visibleLoad");
}

void tst_ZorvaScriptControl::slotsActOnTheButtonsAlone()
{
    QFETCH(QByteArray, slotName);
    QFETCH(QByteArray, button);
    QFETCH(QByteArray, property);
    ScriptForm control(allSix);
    control.form.evaluate(QStringLiteral("script.%1(false)").arg(QString::fromLatin1(slotName)));
    const QPushButton* const touched = control.form.control<QPushButton>(button.constData());
    const bool enables = property.startsWith("enabled");
    QCOMPARE(touched->isEnabled(), !enables);
    QCOMPARE(touched->isHidden(), !enables);
    QCOMPARE(control.row->property(property.constData()).toBool(), true);
    for (const QPushButton* const other : control.buttons())
        QVERIFY(other == touched || (other->isEnabled() && !other->isHidden()));
}

void tst_ZorvaScriptControl::propertiesReachTheButtons()
{
    ScriptForm control(allSix);
    control.row->setProperty("visibleLoad", false);
    QVERIFY(control.load()->isHidden());
    QVERIFY(!control.edit()->isHidden());
    control.row->setProperty("enabledEdit", false);
    QVERIFY(!control.edit()->isEnabled());
    control.row->setEnabled(false);
    QVERIFY(!control.load()->isEnabled());
    QVERIFY(!control.light()->isEnabled());
}

void tst_ZorvaScriptControl::clicksAreReported()
{
    ScriptForm control(allSix);
    control.form.show();
    QSignalSpy load(control.row, &ZorvaScriptControl::loadScriptClicked);
    QSignalSpy edit(control.row, &ZorvaScriptControl::editScriptClicked);
    QSignalSpy clear(control.row, &ZorvaScriptControl::clearScriptClicked);
    QTest::mouseClick(control.load(), Qt::LeftButton);
    QTest::mouseClick(control.edit(), Qt::LeftButton);
    QTest::keyClick(control.edit(), Qt::Key_Tab);
    QVERIFY(control.clear()->hasFocus());
    QTest::keyClick(control.clear(), Qt::Key_Space);
    QCOMPARE(load.count(), 1);
    QCOMPARE(edit.count(), 1);
    QCOMPARE(clear.count(), 1);
}

void tst_ZorvaScriptControl::partsStandInARow()
{
    ScriptForm control(allSix);
    control.form.show();
    QVERIFY(control.light()->x() < control.load()->x());
    QVERIFY(control.load()->x() < control.edit()->x());
    QVERIFY(control.edit()->x() < control.clear()->x());
    QCOMPARE(control.load()->parentWidget(), control.form.control<QWidget>("script"));
}

void tst_ZorvaScriptControl::windowMayDieFirst()
{
    ScriptForm control(allSix);
    control.form.deleteWindow();
    control.setLoaded(true);
    control.row->setEnabledLoad(true);
    control.row->setVisible(false);
}

QTEST_MAIN(tst_ZorvaScriptControl)
#include "tst_zorvascriptcontrol.moc"
