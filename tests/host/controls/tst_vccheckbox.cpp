#include <basicvaluewidgets/vccheckbox.h>

#include <leftovers.h>
#include <messageguard.h>
#include <processorcost.h>
#include <recordingobserver.h>

#include <QButtonGroup>
#include <QSignalSpy>
#include <QTest>

#include <memory>

static void addWays();

class TestVCCheckBox : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void showsTheValue();
    void userEditsWrite_data();
    void userEditsWrite();
    void originatorIsTheControl();
    void readOnlyBlocks_data();
    void readOnlyBlocks();
    void undoAndRedo();
    void listenerMayDeleteTheValue();
    void hostGroupIsKept();
    void exclusiveBoxesKeepOneChecked_data() { addWays(); }
    void exclusiveBoxesKeepOneChecked();
    void uncheckingDoesNotSearchSiblings();

private:
    std::unique_ptr<MessageGuard> m_guard;
    std::unique_ptr<values::ValueBool> m_value;
    std::unique_ptr<VCCheckBox> m_box;
};

static void act(VCCheckBox* box, int way)
{
    if (way == 0)
        QTest::mouseClick(box, Qt::LeftButton, {}, QPoint(6, box->height() / 2));
    else if (way == 1)
        QTest::keyClick(box, Qt::Key_Space);
    else
        box->click();
}

static void addWays()
{
    QTest::addColumn<int>("way");
    QTest::newRow("mouse") << 0;
    QTest::newRow("space") << 1;
    QTest::newRow("click()") << 2;
}

void TestVCCheckBox::init()
{
    m_guard = std::make_unique<MessageGuard>();
    m_guard->allow(QRegularExpression(QStringLiteral("^This plugin does not support"))); // offscreen
    m_value = std::make_unique<values::ValueBool>(QStringLiteral("b"), ValueState::Normal);
    m_box = std::make_unique<VCCheckBox>(nullptr, "box");
    m_box->setText(QStringLiteral("on"));
    m_box->SetBoolean(m_value.get());
    m_box->show();
}

void TestVCCheckBox::cleanup()
{
    m_box.reset();
    m_value.reset();
    m_guard.reset();
    QCOMPARE(leftovers(), QString());
}

void TestVCCheckBox::showsTheValue()
{
    QCOMPARE(m_box->objectName(), QStringLiteral("box"));
    m_value->SetValue(true, nullptr);
    QVERIFY(m_box->isChecked());
    m_value->SetValue(false, nullptr);
    QVERIFY(!m_box->isChecked());
    QVERIFY(!m_box->CanUndo());
}

void TestVCCheckBox::userEditsWrite_data()
{
    addWays();
}

void TestVCCheckBox::userEditsWrite()
{
    QFETCH(int, way);
    act(m_box.get(), way);
    QVERIFY(m_value->GetValue());
    act(m_box.get(), way);
    QVERIFY(!m_value->GetValue());
    QVERIFY(!m_box->group());
}

void TestVCCheckBox::originatorIsTheControl()
{
    RecordingObserver observer;
    observer.watch(m_value.get());
    QSignalSpy toggled(m_box.get(), &QCheckBox::toggled);
    act(m_box.get(), 0);
    QCOMPARE(observer.takeCodes(), QList<TChangeCode>{ChangeCode::Content});
    QCOMPARE(toggled.count(), 1);
}

void TestVCCheckBox::readOnlyBlocks_data()
{
    addWays();
}

void TestVCCheckBox::readOnlyBlocks()
{
    QFETCH(int, way);
    QVERIFY(m_box->setProperty("readOnly", true));
    act(m_box.get(), way);
    QVERIFY(!m_box->isChecked());
    QVERIFY(!m_value->GetValue());
    m_value->SetValue(true, nullptr);
    QVERIFY(m_box->isChecked());
    m_box->setProperty("readOnly", false);
    act(m_box.get(), way);
    QVERIFY(!m_value->GetValue());
}

void TestVCCheckBox::undoAndRedo()
{
    act(m_box.get(), 1);
    QTest::keyClick(m_box.get(), Qt::Key_Z, Qt::ControlModifier);
    QVERIFY(!m_value->GetValue());
    QTest::keyClick(m_box.get(), Qt::Key_Y, Qt::ControlModifier);
    QVERIFY(m_value->GetValue());
    m_box->setReadOnly(true);
    QTest::keyClick(m_box.get(), Qt::Key_Z, Qt::ControlModifier);
    QVERIFY(m_value->GetValue());
}

void TestVCCheckBox::listenerMayDeleteTheValue()
{
    connect(m_box.get(), &QCheckBox::toggled, this, [this] { m_value.reset(); });
    act(m_box.get(), 1);
    QVERIFY(m_box->isChecked());
    QVERIFY(!m_box->isEnabled());
}

void TestVCCheckBox::hostGroupIsKept()
{
    QButtonGroup group;
    group.setExclusive(false);
    group.addButton(m_box.get());
    m_value->SetValue(true, nullptr);
    m_value->SetValue(false, nullptr);
    QCOMPARE(m_box->group(), &group);
}

void TestVCCheckBox::exclusiveBoxesKeepOneChecked()
{
    QFETCH(int, way);
    QWidget window;
    values::ValueBool first(QStringLiteral("first"), ValueState::Normal);
    values::ValueBool second(QStringLiteral("second"), ValueState::Normal);
    values::ValueBool* const values[] = {&first, &second};
    VCCheckBox* boxes[] = {new VCCheckBox(&window, "first"), new VCCheckBox(&window, "second")};
    for (int i = 0; i < 2; ++i) {
        boxes[i]->setAutoExclusive(true);
        boxes[i]->SetBoolean(values[i]);
        boxes[i]->move(0, 40 * i);
    }
    window.show();
    for (const int chosen : {0, 1, 0}) {
        act(boxes[chosen], way);
        for (int i = 0; i < 2; ++i) {
            QCOMPARE(boxes[i]->isChecked(), i == chosen);
            QCOMPARE(values[i]->GetValue(), i == chosen);
        }
    }
    second.SetValue(true, nullptr);
    QVERIFY(boxes[1]->isChecked());
    QVERIFY(!first.GetValue());
}

// Without the group of its own, each box looks at all others: a hundred times
// the boxes would take a hundred times the time for each.
void TestVCCheckBox::uncheckingDoesNotSearchSiblings()
{
    const auto nanosecondsPerBox = [](int count) {
        QWidget parent;
        std::vector<std::unique_ptr<values::ValueBool>> values;
        for (int i = 0; i < count; ++i) {
            values.push_back(std::make_unique<values::ValueBool>(QString(), ValueState::Normal));
            values.back()->SetValue(true, nullptr);
            (new VCCheckBox(&parent, nullptr))->SetBoolean(values.back().get());
        }
        const auto uncheckAll = [&] {
            for (const auto& value : values)
                value->SetValue(false, nullptr);
        };
        return processorCost(uncheckAll) / count;
    };
    const double few = leastOf([&] { return nanosecondsPerBox(100); });
    QVERIFY2(leastOf([&] { return nanosecondsPerBox(10000); }) < 25 * few,
             "unchecking grows with the number of siblings");
}

QTEST_MAIN(TestVCCheckBox)
#include "tst_vccheckbox.moc"
