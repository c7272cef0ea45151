#include <frequencylists/vcfrequency.h>

#include <basicvaluewidgets/vclineedit.h>

#include <leftovers.h>
#include <messageguard.h>
#include <recordingobserver.h>

#include <valueframework/tree.h>
#include <valueframework/value.h>
#include <valueframework/valuenumeric.h>

#include <QActionGroup>
#include <QContextMenuEvent>
#include <QLabel>
#include <QMenu>
#include <QSignalSpy>
#include <QTest>
#include <QWheelEvent>

#include <limits>
#include <memory>

namespace {

const QString FrequencyPath = QStringLiteral("/Receiver/Frequency");
const QString BandwidthPath = QStringLiteral("/Receiver/Bandwidth");

bool wheel(QWidget* widget, int angle)
{
    QWheelEvent event(QPointF(5, 5), widget->mapToGlobal(QPoint(5, 5)), {}, QPoint(0, angle), Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    event.ignore();
    QCoreApplication::sendEvent(widget, &event);
    return event.isAccepted();
}

} // namespace

class TestVCFrequency : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void bindsByPath();
    void unknownPathIsTriedAgainOnShow();
    void lostValueDisables();
    void typedFrequencyIsWrittenAndRemembered();
    void turnsTheDigit_data();
    void turnsTheDigit();
    void keepsTheDigitWhileTurning();
    void wheelTurns();
    void pageKeysStep_data();
    void pageKeysStep();
    void limitsHold();
    void historyKeepsTenDifferent();
    void historyIsChosenByKeys();
    void menuEntryMayDeleteTheControl_data();
    void menuEntryMayDeleteTheControl();
    void unitIsChosen();
    void tuneButton();
    void inputOff();
    void readOnlyAndInputBothCount();
    void buttonsCanBeGreyed();
    void greyedButtonsComeBack();
    void unitsAreOneGroup();
    void toolTipIsTheRange();
    void compactShowsTheEditAlone();
    void slotsWrite();
    void focusGoesToTheEdit();
    void contextMenuAndPage();
    void diesWithItsMenuOpen();
    void popupOwnerMayDieFirst();
    void miniFrequencyEnable();

private:
    values::NumericDouble* add(const QString& name, double content);
    void chooseInPopup(int downs);

    std::unique_ptr<MessageGuard> m_guard;
    std::unique_ptr<QWidget> m_window;
    VCFrequency* m_control = nullptr;
    VCLineEdit* m_edit = nullptr;
    values::NumericDouble* m_value = nullptr; // the tree's
};

values::NumericDouble* TestVCFrequency::add(const QString& name, double content)
{
    auto* value = new values::NumericDouble(name, ValueState::Normal);
    value->SetMinMax(8000.0, 26.5e9, 1000.0, nullptr);
    value->SetValue(content, nullptr);
    return values::Tree::Instance()->AddValue(QStringLiteral("/Receiver"), value) ? value : nullptr;
}

void TestVCFrequency::init()
{
    m_guard = std::make_unique<MessageGuard>();
    m_guard->allow(QRegularExpression(QStringLiteral("^This plugin does not support"))); // offscreen
    m_value = add(QStringLiteral("Frequency"), 98.5e6);
    m_window = std::make_unique<QWidget>();
    m_window->resize(500, 100);
    m_control = new VCFrequency(m_window.get(), "FrequencyControl", false, m_window.get(), true);
    m_control->resize(400, 30);
    m_edit = m_control->findChild<VCLineEdit*>();
    QVERIFY(m_edit);
    QVERIFY(m_control->SetFrequency_ValuePath(FrequencyPath));
    m_window->show();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    m_control->setFocus();
}

void TestVCFrequency::cleanup()
{
    m_window.reset();
    values::Tree::Instance()->RemoveValue(FrequencyPath);
    values::Tree::Instance()->RemoveValue(BandwidthPath);
    m_guard.reset();
    QCOMPARE(leftovers(), QString());
}

void TestVCFrequency::chooseInPopup(int downs)
{
    QWidget* menu = QApplication::activePopupWidget();
    QVERIFY(menu);
    for (int i = 0; i < downs; ++i)
        QTest::keyClick(menu, Qt::Key_Down);
    QTest::keyClick(menu, Qt::Key_Return);
}

void TestVCFrequency::bindsByPath()
{
    QCOMPARE(m_edit->text(), QStringLiteral("98.5 MHz"));
    m_value->SetValue(8000.0, nullptr);
    QCOMPARE(m_edit->text(), QStringLiteral("8 kHz"));
    QVERIFY(!m_control->SetFrequency_ValuePath(QString()));
    QCOMPARE(m_value->GetObserverCount(), 0);
}

void TestVCFrequency::unknownPathIsTriedAgainOnShow()
{
    QVERIFY(!m_control->SetFrequency_ValuePath(QStringLiteral("/Receiver/Bandwidth")));
    QVERIFY(!m_control->SetBandwidth_ValuePath(QStringLiteral("/Receiver/None")));
    add(QStringLiteral("Bandwidth"), 12000.0);
    m_control->hide();
    m_control->show();
    QCOMPARE(m_edit->text(), QStringLiteral("12 kHz"));
    auto* word = new values::ValueString(QStringLiteral("Word"), ValueState::Normal);
    values::Tree::Instance()->AddValue(QStringLiteral("/Receiver"), word);
    QVERIFY(!m_control->SetFrequency_ValuePath(QStringLiteral("/Receiver/Word")));
    delete word;
}

void TestVCFrequency::lostValueDisables()
{
    add(QStringLiteral("Bandwidth"), 12000.0);
    QVERIFY(m_control->SetBandwidth_ValuePath(BandwidthPath));
    values::Tree::Instance()->RemoveValue(BandwidthPath);
    QVERIFY(m_control->isEnabled());
    values::Tree::Instance()->RemoveValue(FrequencyPath);
    QVERIFY(!m_control->isEnabled());
    QCOMPARE(m_edit->text(), QStringLiteral("98.5 MHz"));
    m_control->setProperty("enabled", true);
    QVERIFY(!m_control->isEnabled());
    m_control->slotIncrement();
    add(QStringLiteral("Frequency"), 1e6);
    m_control->hide();
    m_control->show();
    QVERIFY(m_edit->isEnabled());
    QCOMPARE(m_edit->text(), QStringLiteral("1 MHz"));
}

void TestVCFrequency::typedFrequencyIsWrittenAndRemembered()
{
    m_edit->selectAll();
    QTest::keyClicks(m_edit, QStringLiteral("100M"));
    QTest::keyClick(m_edit, Qt::Key_Return);
    QCOMPARE(m_value->GetValue(), 100e6);
    QTest::keyClicks(m_edit, QStringLiteral("nonsense"));
    QTest::keyClick(m_edit, Qt::Key_Escape);
    QCOMPARE(m_control->History(), QVector<double>{100e6});
}

void TestVCFrequency::turnsTheDigit_data()
{
    QTest::addColumn<double>("from");
    QTest::addColumn<int>("cursor");
    QTest::addColumn<int>("key");
    QTest::addColumn<double>("to");
    QTest::addColumn<QString>("left"); // of the cursor afterwards
    const auto row = [](const char* name, double from, int cursor, Qt::Key key, double to, const char* left) {
        QTest::newRow(name) << from << cursor << int(key) << to << QString::fromLatin1(left);
    };
    row("first digit", 98.5e6, 1, Qt::Key_Up, 108.5e6, "10");
    row("before the first", 98.5e6, 0, Qt::Key_Up, 108.5e6, "10");
    row("second digit", 98.5e6, 2, Qt::Key_Down, 97.5e6, "97");
    row("at the point", 98.5e6, 3, Qt::Key_Up, 99.5e6, "99");
    row("behind the point", 98.5e6, 4, Qt::Key_Up, 98.6e6, "98.6");
    row("in the unit", 98.5e6, 7, Qt::Key_Up, 98.6e6, "98.6");
    row("zero is trimmed", 98.9e6, 4, Qt::Key_Up, 99e6, "99");
    row("another unit", 999.5e6, 3, Qt::Key_Up, 1.0005e9, "1.000");
}

void TestVCFrequency::turnsTheDigit()
{
    QFETCH(double, from);
    QFETCH(int, cursor);
    QFETCH(int, key);
    m_value->SetValue(from, nullptr);
    m_edit->setCursorPosition(cursor);
    QTest::keyClick(m_edit, static_cast<Qt::Key>(key));
    QTEST(m_value->GetValue(), "to");
    QTEST(m_edit->text().left(m_edit->cursorPosition()), "left");
    QCOMPARE(m_control->History().size(), 0);
}

void TestVCFrequency::keepsTheDigitWhileTurning()
{
    m_edit->setCursorPosition(4);
    for (int i = 0; i < 12; ++i)
        QTest::keyClick(m_edit, Qt::Key_Up);
    QCOMPARE(m_value->GetValue(), 99.7e6);
    for (int i = 0; i < 7; ++i)
        QTest::keyClick(m_edit, Qt::Key_Down);
    QCOMPARE(m_edit->text(), QStringLiteral("99 MHz"));
    QTest::keyClick(m_edit, Qt::Key_Down);
    QCOMPARE(m_value->GetValue(), 98.9e6);
}

void TestVCFrequency::wheelTurns()
{
    m_edit->setCursorPosition(2);
    QVERIFY(wheel(m_edit, 120));
    QCOMPARE(m_value->GetValue(), 99.5e6);
    wheel(m_edit, -60);
    QCOMPARE(m_value->GetValue(), 99.5e6);
    wheel(m_edit, -60);
    QCOMPARE(m_value->GetValue(), 98.5e6);
    m_edit->clearFocus();
    QVERIFY(!wheel(m_edit, 120));
    QCOMPARE(m_value->GetValue(), 98.5e6);
}

void TestVCFrequency::pageKeysStep_data()
{
    QTest::addColumn<double>("bandwidth");
    QTest::addColumn<double>("step");
    QTest::newRow("by the value's step") << 0.0 << 1000.0;
    QTest::newRow("by the bandwidth") << 12500.0 << 12500.0;
}

void TestVCFrequency::pageKeysStep()
{
    QFETCH(double, bandwidth);
    QFETCH(double, step);
    if (bandwidth > 0.0)
        add(QStringLiteral("Bandwidth"), bandwidth);
    QCOMPARE(m_control->SetBandwidth_ValuePath(BandwidthPath), bandwidth > 0.0);
    QTest::keyClick(m_edit, Qt::Key_PageUp);
    QCOMPARE(m_value->GetValue(), 98.5e6 + step);
    QTest::keyClick(m_edit, Qt::Key_PageDown);
    QTest::keyClick(m_edit, Qt::Key_PageDown);
    QCOMPARE(m_value->GetValue(), 98.5e6 - step);
    QVERIFY(!m_control->SetBandwidth_ValuePath(FrequencyPath));
}

void TestVCFrequency::limitsHold()
{
    m_value->SetValue(26.5e9, nullptr);
    m_edit->setCursorPosition(1);
    QTest::keyClick(m_edit, Qt::Key_Up);
    QCOMPARE(m_value->GetValue(), 26.5e9);
    QCOMPARE(m_edit->text(), QStringLiteral("26.5 GHz"));
}

void TestVCFrequency::historyKeepsTenDifferent()
{
    for (int i = 1; i <= 12; ++i)
        m_control->slotAddToHistory(i * 1e6);
    m_control->slotAddToHistory(5e6);
    m_control->slotAddToHistory(std::numeric_limits<double>::quiet_NaN());
    QCOMPARE(m_control->History(), (QVector<double>{5e6, 12e6, 11e6, 10e6, 9e6, 8e6, 7e6, 6e6, 4e6, 3e6}));
}

void TestVCFrequency::historyIsChosenByKeys()
{
    m_control->slotAddToHistory(1e6);
    m_control->slotAddToHistory(2e6);
    QTest::mouseClick(m_control->GetHistoryButtonCtrl(), Qt::LeftButton);
    chooseInPopup(1);
    QTRY_COMPARE(m_value->GetValue(), 1e6);
    QCOMPARE(m_control->History(), (QVector<double>{1e6, 2e6}));
}

void TestVCFrequency::menuEntryMayDeleteTheControl_data()
{
    QTest::addColumn<bool>("byMouse");
    QTest::addColumn<bool>("foreignOwner");
    for (const bool byMouse : {false, true}) {
        for (const bool foreignOwner : {false, true})
            QTest::addRow("%s, %s", byMouse ? "mouse" : "keys",
                          foreignOwner ? "owner of its own" : "own menu")
                << byMouse << foreignOwner;
    }
}

void TestVCFrequency::menuEntryMayDeleteTheControl()
{
    QFETCH(bool, byMouse);
    QFETCH(bool, foreignOwner);
    QWidget owner;
    QPointer<VCFrequency> control =
        new VCFrequency(nullptr, "doomed", false, foreignOwner ? &owner : nullptr, true);
    control->SetFrequency_ValuePath(FrequencyPath);
    control->slotAddToHistory(1e6);
    control->show();
    RecordingObserver deleter;
    deleter.onUpdate = [&control](Observable*, TChangeCode) { delete control.data(); };
    m_value->AddObserver(&deleter);
    QTest::mouseClick(control->GetHistoryButtonCtrl(), Qt::LeftButton);
    QTRY_VERIFY(QApplication::activePopupWidget());
    auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    QVERIFY(menu);
    if (byMouse)
        QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(menu->actions().first()).center());
    else
        QTest::keyClick(menu, Qt::Key_Return);
    QTRY_VERIFY(!control);
    QTRY_VERIFY(!QApplication::activePopupWidget());
    m_value->DeleteObserver(&deleter);
}

void TestVCFrequency::unitIsChosen()
{
    QTest::mouseClick(m_control->GetFrequencyButtonCtrl(), Qt::LeftButton);
    chooseInPopup(2);
    QTRY_COMPARE(m_edit->text(), QStringLiteral("98500 kHz"));
    m_control->SetUnit(FrequencyText::Unit::Automatic);
    QCOMPARE(m_edit->text(), QStringLiteral("98.5 MHz"));
}

void TestVCFrequency::tuneButton()
{
    QSignalSpy tuned(m_control, &VCFrequency::signalTune);
    m_edit->selectAll();
    QTest::keyClicks(m_edit, QStringLiteral("5M"));
    QTest::mouseClick(m_control->GetTuneButton(), Qt::LeftButton);
    QCOMPARE(tuned.count(), 1);
    QCOMPARE(tuned.first().first().toDouble(), 5e6);
}

void TestVCFrequency::inputOff()
{
    m_control->slotAddToHistory(1e6);
    m_control->EnableInput(false);
    QTest::keyClicks(m_edit, QStringLiteral("5"));
    QTest::keyClick(m_edit, Qt::Key_Up);
    QTest::keyClick(m_edit, Qt::Key_PageUp);
    wheel(m_edit, 120);
    QTest::mouseClick(m_control->GetHistoryButtonCtrl(), Qt::LeftButton);
    chooseInPopup(0);
    QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Escape);
    QCOMPARE(m_value->GetValue(), 98.5e6);
    m_value->SetValue(1e6, nullptr);
    QCOMPARE(m_edit->text(), QStringLiteral("1 MHz"));
    m_control->EnableInput(true);
    QTest::keyClick(m_edit, Qt::Key_PageUp);
    QCOMPARE(m_value->GetValue(), 1.001e6);
}

void TestVCFrequency::readOnlyAndInputBothCount()
{
    QVERIFY(m_control->setProperty("readOnly", true));
    m_control->EnableInput(true);
    QVERIFY(m_edit->isReadOnly());
    m_control->EnableInput(false);
    m_control->setProperty("readOnly", false);
    QVERIFY(m_edit->isReadOnly());
    m_control->EnableInput(true);
    QVERIFY(!m_edit->isReadOnly());
}

void TestVCFrequency::buttonsCanBeGreyed()
{
    m_control->DisableButtons();
    QVERIFY(!m_control->GetTuneButton()->isEnabled());
    QVERIFY(!m_control->GetFrequencyButtonCtrl()->isEnabled());
    QVERIFY(!m_control->GetHistoryButtonCtrl()->isEnabled());
    QVERIFY(m_edit->isEnabled());
}

void TestVCFrequency::greyedButtonsComeBack()
{
    m_control->DisableButtons();
    m_control->EnableButtons(true);
    QVERIFY(m_control->GetFrequencyButtonCtrl()->isEnabled());
    QVERIFY(m_control->GetHistoryButtonCtrl()->isEnabled());
    QVERIFY(m_control->GetTuneButton()->isEnabled());
}

void TestVCFrequency::unitsAreOneGroup()
{
    m_control->GetFrequencyButtonCtrl()->click();
    const auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    QVERIFY(menu);
    for (const QAction* action : menu->actions())
        QVERIFY(action->actionGroup() && action->actionGroup()->isExclusive());
    QApplication::activePopupWidget()->close();
}

void TestVCFrequency::toolTipIsTheRange()
{
    QCOMPARE(m_edit->toolTip(), QStringLiteral("8 kHz ... 26.5 GHz"));
    m_value->SetMax(3e9, nullptr);
    QCOMPARE(m_edit->toolTip(), QStringLiteral("8 kHz ... 3 GHz"));
    m_control->setToolTip(QStringLiteral("own"));
    QCOMPARE(m_edit->toolTip(), QString());
}

void TestVCFrequency::compactShowsTheEditAlone()
{
    VCFrequency compact(nullptr, nullptr, true, nullptr, true);
    VCFrequency withoutHistory(nullptr, nullptr, false, nullptr, false);
    compact.show();
    withoutHistory.show();
    QVERIFY(!compact.GetTuneButton()->isVisible());
    QVERIFY(!compact.GetFrequencyButtonCtrl()->isVisible());
    QVERIFY(withoutHistory.GetFrequencyButtonCtrl()->isVisible());
    QVERIFY(!withoutHistory.GetHistoryButtonCtrl()->isVisible());
}

void TestVCFrequency::slotsWrite()
{
    RecordingObserver observer;
    observer.watch(m_value);
    m_control->slotSetFrequencyValue(100e9);
    QCOMPARE(observer.takeCodes(), QList<TChangeCode>{ChangeCode::Content});
    QCOMPARE(m_value->GetValue(), 26.5e9);
    QCOMPARE(m_control->History(), QVector<double>{26.5e9});
    m_control->slotDecrement();
    QCOMPARE(m_value->GetValue(), 26.5e9 - 1000.0);
    m_control->slotIncrement();
    QCOMPARE(m_value->GetValue(), 26.5e9);
    m_control->slotSetFrequencyValue(std::numeric_limits<double>::infinity());
    QCOMPARE(m_value->GetValue(), 26.5e9);
}

void TestVCFrequency::focusGoesToTheEdit()
{
    m_edit->clearFocus();
    m_control->setFocus(Qt::OtherFocusReason);
    QVERIFY(m_edit->hasFocus());
}

void TestVCFrequency::contextMenuAndPage()
{
    ResortPopupMenu menu;
    menu.addAction(QStringLiteral("entry"));
    m_control->SetContextMenu(&menu, false);
    m_control->EnableContextMenu(true);
    QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(2, 2), m_edit->mapToGlobal(QPoint(2, 2)));
    QCoreApplication::sendEvent(m_edit, &event);
    QVERIFY(menu.isVisible());
    menu.close();
    m_control->SetContextMenu(nullptr, false);

    m_control->EnablePropertyPage(true);
    const std::unique_ptr<QWidget> page(m_control->GetPropertyPage(nullptr, "page"));
    QVERIFY(page);
    QStringList texts;
    for (const QLabel* label : page->findChildren<QLabel*>())
        texts.append(label->text());
    QVERIFY(texts.contains(FrequencyPath));
}

void TestVCFrequency::diesWithItsMenuOpen()
{
    QTest::mouseClick(m_control->GetHistoryButtonCtrl(), Qt::LeftButton);
    QVERIFY(QApplication::activePopupWidget());
    delete m_control;
    QVERIFY(!QApplication::activePopupWidget());
    QCOMPARE(m_value->GetObserverCount(), 0);
}

void TestVCFrequency::popupOwnerMayDieFirst()
{
    auto owner = std::make_unique<QWidget>();
    VCFrequency control(nullptr, nullptr, false, owner.get(), true);
    control.show();
    control.GetFrequencyButtonCtrl()->click();
    owner.reset();
    control.GetFrequencyButtonCtrl()->click();
    QVERIFY(QApplication::activePopupWidget());
}

void TestVCFrequency::miniFrequencyEnable()
{
    VCMiniFrequency button(nullptr, "mini");
    button.enable(false);
    QVERIFY(!button.isEnabled());
    button.enable(true);
    QVERIFY(button.isEnabled());
}

QTEST_MAIN(TestVCFrequency)
#include "tst_vcfrequency.moc"
