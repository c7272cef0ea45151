#include "guibase/undorecordingcontrolbase.h"

#include <QKeyEvent>
#include <QKeySequence>

namespace {

constexpr int MaximumEdits = 100;

bool isUndoKey(const QKeyEvent* event)
{
    return event->matches(QKeySequence::Undo);
}

bool isRedoKey(const QKeyEvent* event)
{
    // Platforms differ in their redo key; Ctrl+Y works on all of them.
    return event->matches(QKeySequence::Redo) ||
           (event->key() == Qt::Key_Y && event->modifiers() == Qt::ControlModifier);
}

} // namespace

/// Stands on the stack while a state is being put back. A listener may delete the control meanwhile.
class UndoRecordingControlBase::Walk
{
public:
    explicit Walk(UndoRecordingControlBase* control)
        : m_control(control)
    {
        control->m_walk = this;
    }
    ~Walk()
    {
        if (m_control)
            m_control->m_walk = nullptr;
    }
    Q_DISABLE_COPY(Walk)

    void forget() { m_control = nullptr; }

private:
    UndoRecordingControlBase* m_control;
};

UndoRecordingControlBase::~UndoRecordingControlBase()
{
    if (m_walk)
        m_walk->forget();
}

void UndoRecordingControlBase::RecordEdit(const QVariant& before, const QVariant& after)
{
    if (m_walk || before == after)
        return;
    m_edits.resize(m_position);
    if (m_edits.size() == MaximumEdits)
        m_edits.removeFirst();
    m_edits.append({before, after});
    m_position = m_edits.size();
}

bool UndoRecordingControlBase::Undo()
{
    if (m_walk || !CanUndo())
        return false;
    --m_position;
    apply(m_edits.at(m_position).before);
    return true;
}

bool UndoRecordingControlBase::Redo()
{
    if (m_walk || !CanRedo())
        return false;
    ++m_position;
    apply(m_edits.at(m_position - 1).after);
    return true;
}

void UndoRecordingControlBase::ClearUndo()
{
    m_edits.clear();
    m_position = 0;
}

void UndoRecordingControlBase::apply(const QVariant& state)
{
    // The record may be cleared meanwhile. NOLINTNEXTLINE(performance-unnecessary-copy-initialization)
    const QVariant copy = state;
    const Walk walk(this);
    ApplyRecordedState(copy);
}

bool UndoRecordingControlBase::IsUndoKey(const QKeyEvent* event)
{
    return isUndoKey(event) || isRedoKey(event);
}

bool UndoRecordingControlBase::HandleUndoKey(const QKeyEvent* event)
{
    if (isUndoKey(event))
        return Undo();
    return isRedoKey(event) && Redo();
}

bool UndoRecordingControlBase::ClaimUndoShortcut(QEvent* event) const
{
    if (event->type() != QEvent::ShortcutOverride)
        return false;
    const QKeyEvent* key = static_cast<const QKeyEvent*>(event);
    if (!(isUndoKey(key) && CanUndo()) && !(isRedoKey(key) && CanRedo()))
        return false;
    event->accept();
    return true;
}
