#include <basicvaluewidgets/valuebinding.h>
#include <basicvaluewidgets/vccheckbox.h>

#include <leftovers.h>
#include <messageguard.h>
#include <recordingobserver.h>

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
    void twoBindingsOfOneObserver_data();
    void twoBindingsOfOneObserver();
    void bindingWithoutAControl();
    void listenerMayDeleteTheControl_data();
    void listenerMayDeleteTheControl();

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
    QTest::addColumn<int>("road");
    QTest::newRow("before the value went") << true << 1;
    QTest::newRow("by the class, without a value") << false << 0;
    QTest::newRow("by the property, without a value") << false << 1;
    QTest::newRow("past the class, without a value") << false << 2;
}

void TestValueBinding::requestIsKeptForTheNextValue()
{
    QFETCH(bool, whileAlive);
    QFETCH(int, road);
    auto value = makeValue();
    VCCheckBox box(nullptr, nullptr);
    box.SetBoolean(value.get());
    if (whileAlive)
        enable(&box, road, false);
    value.reset();
    if (!whileAlive)
        enable(&box, road, false);
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

/// A control with two values, as the frequency control is one.
struct TwoBindings : RecordingObserver
{
    ValueBinding first{nullptr, this};
    ValueBinding second{nullptr, this};
};

void TestValueBinding::twoBindingsOfOneObserver_data()
{
    QTest::addColumn<bool>("firstLeaves");
    QTest::newRow("the first leaves") << true;
    QTest::newRow("the second leaves") << false;
}

void TestValueBinding::twoBindingsOfOneObserver()
{
    QFETCH(bool, firstLeaves);
    auto value = makeValue();
    TwoBindings control;
    ValueBinding& leaves = firstLeaves ? control.first : control.second;
    ValueBinding& stays = firstLeaves ? control.second : control.first;
    QVERIFY(control.first.Bind(value.get()));
    QVERIFY(control.second.Bind(value.get()));
    QCOMPARE(value->GetObserverCount(), 1);
    QVERIFY(leaves.Bind(nullptr));
    QCOMPARE(stays.Value(), value.get());
    value->SetValue(true, nullptr);
    QCOMPARE(control.takeCodes(), QList<TChangeCode>{ChangeCode::Content});

    control.onUpdate = [&stays](Observable* observable, TChangeCode code) {
        QVERIFY(!stays.Concerns(observable, code));
    };
    value.reset();
    QVERIFY(!stays.Value());
    QVERIFY(stays.IsLost());
}

void TestValueBinding::bindingWithoutAControl()
{
    auto value = makeValue();
    RecordingObserver observer;
    ValueBinding binding(nullptr, &observer);
    QVERIFY(binding.Bind(value.get()));
    binding.RequestEnabled(false);
    QEvent event(QEvent::EnabledChange);
    binding.ControlChanged(&event);
    observer.onUpdate = [&](Observable* observable, TChangeCode code) {
        binding.Concerns(observable, code);
        binding.ControlChanged(&event);
        binding.RequestEnabled(true);
    };
    value.reset();
    QVERIFY(binding.IsLost());
    QVERIFY(!binding.Value());
}

/// Deletes a control as soon as it is switched on or off.
class DeletesOnEnabledChange : public QObject
{
public:
    explicit DeletesOnEnabledChange(VCCheckBox* box)
        : m_box(box)
    {
        box->installEventFilter(this);
    }
    bool eventFilter(QObject*, QEvent* event) override
    {
        // It is asked while the box is being destroyed, too.
        if (event->type() != QEvent::EnabledChange)
            return false;
        delete m_box;
        return true;
    }
    QPointer<VCCheckBox> m_box;
};

void TestValueBinding::listenerMayDeleteTheControl_data()
{
    QTest::addColumn<bool>("whenTheValueGoes");
    QTest::newRow("when the value goes") << true;
    QTest::newRow("when it is enabled without a value") << false;
}

void TestValueBinding::listenerMayDeleteTheControl()
{
    QFETCH(bool, whenTheValueGoes);
    auto value = makeValue();
    auto* box = new VCCheckBox(nullptr, nullptr);
    box->SetBoolean(value.get());
    if (!whenTheValueGoes)
        value.reset();
    const DeletesOnEnabledChange listener(box);
    if (whenTheValueGoes)
        value.reset();
    else
        enable(box, 2, true);
    QVERIFY(!listener.m_box);
}

QTEST_MAIN(TestValueBinding)
#include "tst_valuebinding.moc"
