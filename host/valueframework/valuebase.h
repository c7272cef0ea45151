#ifndef ZORVA_VALUEFRAMEWORK_VALUEBASE_H
#define ZORVA_VALUEFRAMEWORK_VALUEBASE_H

#include <valueframework/interfaces.h>
#include <valueframework/valueframework_export.h>
#include <valueframework/valuetransaction.h>
#include <vkbase/observable.h>

#include <QByteArray>
#include <QString>

#include <initializer_list>

namespace values {

class Tree;
struct TreeNode;

/// A named, observable value with a state, inside or outside of the tree.
///
/// Each write names its originator (null: nobody), who alone is not told of it.
/// Writes that change nothing are silent. Whoever deletes a value takes it out
/// of the tree with that: the destructor sets the state `ValueState::GoingAway`
/// and tells all observers of it; they may then only ask the state and leave.
class VALUEFRAMEWORK_EXPORT ValueBase : public Observable,
                                        public IValue,
                                        public IDeleteSubject,
                                        public IHasTimerCallback,
                                        public IOptimizeTrigger,
                                        public ISupportTransaction
{
public:
    /// A value outside of the tree. An empty name is allowed: such a value cannot be looked up.
    explicit ValueBase(const QString& name, TValueState state = ValueState::Normal);
    ~ValueBase() override;

    /// The name in its node; empty for a value without one.
    const QString& GetName() const override { return m_name; }
    /// Renames, in the tree too, and tells all but @p originator, who may be null, of
    /// `ChangeCode::Name`. False if the node already has a value of that name; then nothing changes.
    bool SetName(const QString& name, IObserver* originator);
    /// "/node/name"; empty for a value that has no name or is not in the tree.
    QString GetPathName() const;

    /// Normal, or GoingAway while it dies.
    TValueState GetState() const { return m_state; }
    /// Tells all but @p originator, who may be null, of `ChangeCode::State`.
    void SetState(TValueState state, IObserver* originator);

    /// "bool", "string", "int", "int64", "double", "selection" or "rangemap".
    QString GetTypeName() const;

    /// Takes over what `other` holds, with limits or items where both have them,
    /// and by text between types. False if that text cannot be read.
    virtual bool Assign(const ValueBase& other) = 0;
    /// Whether `other` has the same type and content; false for null.
    virtual bool Compare(const ValueBase* other) const = 0;

    /// Tells the observers of `code`, all but @p originator, who may be null, unless a
    /// transaction is open. False if the value was destroyed meanwhile. (`NotifyObservers` is never held
    /// back.)
    bool HasChanged(TChangeCode code, IObserver* originator);

    /// Refuses (false) null, an observer already there, and everybody once the
    /// value is being destroyed.
    bool AddObserver(IObserver* observer) override;
    bool MakeFirstObserver(IObserver* observer) override;

    /// Holds notifications back; nests. @p originator is the one who starts, and may be null.
    void StartTransaction(IObserver* originator) override;
    /// The outermost end always sends `code`, once, to all but its @p originator, who may be null; without a
    /// start nothing happens.
    void EndTransaction(TChangeCode code, IObserver* originator) override;
    /// Whether a transaction is open.
    bool IsTransactionActive() const override { return m_transactionDepth > 0; }
    /// A transaction that lasts as long as the result and sends `codes` then, to all but @p originator, who
    /// may be null.
    ValueTransaction CreateTransaction(std::initializer_list<TChangeCode> codes, IObserver* originator);

    /// The context in which controls translate the value's texts, in UTF-8; null or
    /// empty for none. Tells all but @p originator, who may be null, of `ChangeCode::Name`.
    void SetTranslationNamespace(const char* context, IObserver* originator);
    /// The context in which names are translated; a new one sends code 4 to all but @p originator, who may be
    /// null.
    void SetTranslationNamespace(const QByteArray& context, IObserver* originator);
    const QByteArray& GetTranslationNamespace() const { return m_translationNamespace; } ///< Likewise.

    void SetDeleteObserver(ITreeItem* item) override { m_deleteObserver = item; }
    /// The node the value hangs in; null outside the tree.
    ITreeItem* GetDeleteObserver() const override { return m_deleteObserver; }

    /// Does nothing; a value that needs a timer overrides it.
    void TimerCallback(int timerId) override;
    bool IsTriggerNeeded() const override;

protected:
    /// Takes the value out of the tree and tells that it is going away. The
    /// destructor of each concrete class begins with it, so that observers still
    /// meet a whole value; a second call does nothing.
    void retire();

private:
    friend class Tree;
    friend class ValueTransaction;

    /// True if that was the outermost transaction.
    bool closeTransaction();

    QString m_name;
    QByteArray m_translationNamespace;
    TreeNode* m_treeNode = nullptr;    // not owned: the tree's, null outside of it
    ValueBase* m_nextInNode = nullptr; // the node's list, kept by the tree
    ValueBase* m_previousInNode = nullptr;
    ITreeItem* m_deleteObserver = nullptr; // not owned
    TValueState m_state;
    int m_transactionDepth : 31;
    bool m_retired : 1;
};

} // namespace values

#endif
