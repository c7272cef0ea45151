#include <basicvaluewidgets/vccheckbox.h>

#include <leftovers.h>
#include <messageguard.h>

#include <QTest>

#include <memory>

/// What the binding does is seen at a control; the check box stands for all.
class TestValueBinding : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void controlDiesFirst();
    void valueDiesFirst();
    void rebindingLeavesTheOldValue();
    void nullUnbinds();
    void lostStaysDisabled_data();
    void lostStaysDisabled();
    void requestIsKeptForTheNextValue_data();
    void requestIsKeptForTheNextValue();
    void aParentMayComeAndGo();

private:
    std::unique_ptr<MessageGuard> m_guard;
};

static std::unique_ptr<values::ValueBool> makeValue(bool content = false)
{
    auto value = std::make_unique<values::ValueBool>(QStringLiteral("b"), ValueState::Normal);
    value->SetValue(content, nullptr);
    return value;
}

void TestValueBinding::init()
{
    m_guard = std::make_unique<MessageGuard>();
    m_guard->allow(QRegularExpression(QStringLiteral("^This plugin does not support"))); // offscreen
}

void TestValueBinding::cleanup()
{
    m_guard.reset();
    QCOMPARE(leftovers(), QString());
}

void TestValueBinding::controlDiesFirst()
{
    const auto value = makeValue();
    auto box = std::make_unique<VCCheckBox>(nullptr, nullptr);
    box->SetBoolean(value.get());
    QCOMPARE(value->GetObserverCount(), 1);
    box.reset();
    QCOMPARE(value->GetObserverCount(), 0);
    value->SetValue(true, nullptr);
}

void TestValueBinding::valueDiesFirst()
{
    auto value = makeValue(true);
    VCCheckBox box(nullptr, nullptr);
    box.SetBoolean(value.get());
    value.reset();
    QVERIFY(box.isChecked());
    QVERIFY(!box.isEnabled());
    box.setChecked(false); // reaches no value
}

void TestValueBinding::rebindingLeavesTheOldValue()
{
    const auto first = makeValue();
    const auto second = makeValue(true);
    VCCheckBox box(nullptr, nullptr);
    box.SetBoolean(first.get());
    box.SetBoolean(first.get());
    QCOMPARE(first->GetObserverCount(), 1);
    box.SetBoolean(second.get());
    QCOMPARE(first->GetObserverCount(), 0);
    QVERIFY(box.isChecked());
    box.setChecked(false);
    QVERIFY(!second->GetValue());
}

void TestValueBinding::nullUnbinds()
{
    const auto value = makeValue(true);
    VCCheckBox box(nullptr, nullptr);
    box.SetBoolean(nullptr);
    box.SetBoolean(value.get());
    box.SetBoolean(nullptr);
    QVERIFY(box.isEnabled());
    QVERIFY(box.isChecked());
    QCOMPARE(value->GetObserverCount(), 0);
}

void TestValueBinding::lostStaysDisabled_data()
{
    QTest::addColumn<int>("road");
    QTest::newRow("by the class") << 0;
    QTest::newRow("by the property") << 1;
    QTest::newRow("past the class") << 2;
}

static void enable(VCCheckBox* box, int road, bool enabled)
{
    if (road == 0)
        box->setEnabled(enabled);
    else if (road == 1)
        box->setProperty("enabled", enabled);
    else
        static_cast<QWidget*>(box)->setEnabled(enabled);
}

void TestValueBinding::lostStaysDisabled()
{
    QFETCH(int, road);
    auto value = makeValue();
    VCCheckBox box(nullptr, nullptr);
    box.SetBoolean(value.get());
    value.reset();
    enable(&box, road, true);
    QVERIFY(!box.isEnabled());
    const auto next = makeValue();
    box.SetBoolean(next.get());
    QVERIFY(box.isEnabled());
}

void TestValueBinding::requestIsKeptForTheNextValue_data()
{
    QTest::addColumn<bool>("whileAlive");
    QTest::newRow("disabled before the value went") << true;
    QTest::newRow("disabled after the value went") << false;
}

void TestValueBinding::requestIsKeptForTheNextValue()
{
    QFETCH(bool, whileAlive);
    auto value = makeValue();
    VCCheckBox box(nullptr, nullptr);
    box.SetBoolean(value.get());
    if (whileAlive)
        box.setProperty("enabled", false);
    value.reset();
    box.setProperty("enabled", false);
    const auto next = makeValue();
    box.SetBoolean(next.get());
    QVERIFY(!box.isEnabled());
    box.setProperty("enabled", true);
    QVERIFY(box.isEnabled());
}

void TestValueBinding::aParentMayComeAndGo()
{
    QWidget parent;
    auto value = makeValue();
    VCCheckBox* box = new VCCheckBox(&parent, nullptr);
    box->SetBoolean(value.get());
    parent.setEnabled(false);
    value.reset();
    parent.setEnabled(true);
    QVERIFY(!box->isEnabled());
    const auto next = makeValue();
    box->SetBoolean(next.get());
    QVERIFY(box->isEnabled());
}

QTEST_MAIN(TestValueBinding)
#include "tst_valuebinding.moc"
