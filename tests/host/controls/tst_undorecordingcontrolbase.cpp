#include <guibase/undorecordingcontrolbase.h>

#include <QKeyEvent>
#include <QTest>

#include <functional>
#include <memory>

namespace {

class Recorder : public UndoRecordingControlBase
{
public:
    using UndoRecordingControlBase::ClaimUndoShortcut;
    using UndoRecordingControlBase::HandleUndoKey;

    void edit(int to)
    {
        RecordEdit(state, to);
        state = to;
    }
    bool press(int key, Qt::KeyboardModifiers modifiers)
    {
        const QKeyEvent event(QEvent::KeyPress, key, modifiers);
        return HandleUndoKey(&event);
    }

    int state = 0;

    std::function<void()> applied;

protected:
    void ApplyRecordedState(const QVariant& recorded) override
    {
        edit(recorded.toInt());
        if (applied)
            applied();
    }
};

} // namespace

class TestUndoRecordingControlBase : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void walksBackAndForth();
    void newEditDropsRedo();
    void equalEditIsNotRecorded();
    void depthIsLimited();
    void keys_data();
    void keys();
    void claimsOnlyWhatItCanDo();
    void mayDieWhileAStateIsPutBack();
};

void TestUndoRecordingControlBase::walksBackAndForth()
{
    Recorder recorder;
    QVERIFY(!recorder.Undo());
    recorder.edit(1);
    recorder.edit(2);
    QVERIFY(recorder.Undo());
    QCOMPARE(recorder.state, 1);
    QVERIFY(recorder.Undo());
    QCOMPARE(recorder.state, 0);
    QVERIFY(!recorder.Undo());
    QVERIFY(recorder.Redo());
    QVERIFY(recorder.Redo());
    QCOMPARE(recorder.state, 2);
    QVERIFY(!recorder.Redo());
}

void TestUndoRecordingControlBase::newEditDropsRedo()
{
    Recorder recorder;
    recorder.edit(1);
    recorder.Undo();
    recorder.edit(5);
    QVERIFY(!recorder.CanRedo());
    recorder.Undo();
    QCOMPARE(recorder.state, 0);
    recorder.ClearUndo();
    QVERIFY(!recorder.CanRedo());
}

void TestUndoRecordingControlBase::equalEditIsNotRecorded()
{
    Recorder recorder;
    recorder.edit(0);
    QVERIFY(!recorder.CanUndo());
}

void TestUndoRecordingControlBase::depthIsLimited()
{
    Recorder recorder;
    for (int i = 1; i <= 150; ++i)
        recorder.edit(i);
    while (recorder.Undo()) {
    }
    QCOMPARE(recorder.state, 50);
}

void TestUndoRecordingControlBase::keys_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("modifiers");
    QTest::addColumn<int>("state");
    QTest::newRow("Ctrl+Z goes back") << int(Qt::Key_Z) << int(Qt::ControlModifier) << 1;
    QTest::newRow("Ctrl+Y goes forth") << int(Qt::Key_Y) << int(Qt::ControlModifier) << 3;
    QTest::newRow("Z alone does nothing") << int(Qt::Key_Z) << 0 << 2;
    QTest::newRow("Y alone does nothing") << int(Qt::Key_Y) << 0 << 2;
}

void TestUndoRecordingControlBase::keys()
{
    QFETCH(int, key);
    QFETCH(int, modifiers);
    QFETCH(int, state);
    Recorder recorder;
    for (const int step : {1, 2, 3})
        recorder.edit(step);
    recorder.Undo();
    QCOMPARE(recorder.press(key, Qt::KeyboardModifiers(modifiers)), state != 2);
    QCOMPARE(recorder.state, state);
}

void TestUndoRecordingControlBase::claimsOnlyWhatItCanDo()
{
    Recorder recorder;
    QKeyEvent shortcut(QEvent::ShortcutOverride, Qt::Key_Z, Qt::ControlModifier);
    shortcut.ignore();
    QVERIFY(!recorder.ClaimUndoShortcut(&shortcut));
    recorder.edit(1);
    QVERIFY(recorder.ClaimUndoShortcut(&shortcut));
    QVERIFY(shortcut.isAccepted());
    QKeyEvent press(QEvent::KeyPress, Qt::Key_Z, Qt::ControlModifier);
    QVERIFY(!recorder.ClaimUndoShortcut(&press));
}

void TestUndoRecordingControlBase::mayDieWhileAStateIsPutBack()
{
    auto recorder = std::make_unique<Recorder>();
    recorder->edit(1);
    recorder->edit(2);
    int walks = 0;
    recorder->applied = [&] {
        ++walks;
        QVERIFY(!recorder->Undo()); // one is under way
        recorder.reset();
    };
    QVERIFY(recorder->Undo());
    QVERIFY(!recorder);
    QCOMPARE(walks, 1);
}

QTEST_MAIN(TestUndoRecordingControlBase)
#include "tst_undorecordingcontrolbase.moc"
