#ifndef ZORVA_UNDORECORDINGCONTROLBASE_H
#define ZORVA_UNDORECORDINGCONTROLBASE_H

#include <guibase/guibase_export.h>

#include <QVariant>
#include <QVector>

class QEvent;
class QKeyEvent;

/// Remembers what the user did to one control, the last hundred edits of it,
/// and walks them back and forth. A control derives from it, records each edit
/// and says how a recorded state is put back.
class GUIBASE_EXPORT UndoRecordingControlBase
{
public:
    virtual ~UndoRecordingControlBase();
    UndoRecordingControlBase(const UndoRecordingControlBase&) = delete;
    UndoRecordingControlBase& operator=(const UndoRecordingControlBase&) = delete;

    /// Whether there is an edit to take back, or one to do again.
    bool CanUndo() const { return m_position > 0; }
    bool CanRedo() const { return m_position < m_edits.size(); } ///< Likewise.
    /// Both return false if there is nothing to walk to.
    bool Undo();
    /// Does the next edit again; false if there is none.
    bool Redo();
    /// Forgets all edits; nothing of the control changes.
    void ClearUndo();

protected:
    UndoRecordingControlBase() = default;

    /// An edit that changed nothing, or that comes while a state is being put
    /// back, is not recorded. A new edit drops what could be redone.
    void RecordEdit(const QVariant& before, const QVariant& after);
    /// Puts a recorded state into the control and its value.
    virtual void ApplyRecordedState(const QVariant& state) = 0;
    /// Ctrl+Z, Ctrl+Y or what the platform has for them.
    static bool IsUndoKey(const QKeyEvent* event);
    /// Walks on Ctrl+Z and Ctrl+Y; true if the key was one of these and the
    /// walk happened.
    bool HandleUndoKey(const QKeyEvent* event);
    /// Claims these keys before a window's own shortcuts get them; to be asked
    /// for every event of the control. True if the event was claimed.
    bool ClaimUndoShortcut(QEvent* event) const;

private:
    struct Edit
    {
        QVariant before;
        QVariant after;
    };

    class Walk;

    void apply(const QVariant& state);

    QVector<Edit> m_edits;  // oldest first
    int m_position = 0;     // edits before it can be undone, the others redone
    Walk* m_walk = nullptr; // not owned: on the stack while a state is being put back
};

#endif
