#ifndef ZORVA_VALUEFRAMEWORK_INTERFACES_H
#define ZORVA_VALUEFRAMEWORK_INTERFACES_H

#include <valueframework/valueframework_export.h>
#include <vkbase/iobserver.h>

#include <QString>

namespace values {

class ValueBase;

/// What a value holds. The numbers are part of the interface.
enum ValueType : int {
    TypeBool = 1,
    TypeString = 2,
    TypeInt = 6,
    TypeInt64 = 7,
    TypeDouble = 8,
    TypeSelection = 9,
    TypeRangeMap = 10
};

/// A named value as text, whatever it holds.
class VALUEFRAMEWORK_EXPORT IValue
{
public:
    virtual ~IValue();

    /// The value as anybody may read it: its last path part, its TypeXxx number, its content as text.
    virtual const QString& GetName() const = 0;
    virtual ValueType GetType() const = 0;      ///< Likewise.
    virtual QString GetStringValue() const = 0; ///< Likewise.
    /// False if the text cannot be read; then nothing changes. @p originator is not told, null tells all.
    virtual bool SetStringValue(QString text, IObserver* originator) = 0;
};

/// Wants to know when a value is destroyed, apart from its observers.
class VALUEFRAMEWORK_EXPORT ITreeItem
{
public:
    virtual ~ITreeItem();

    /// `value` is being destroyed and has left the tree; its observers know.
    virtual void ValueDeleted(ValueBase* value) = 0;
};

/// Tells one item of its destruction.
class VALUEFRAMEWORK_EXPORT IDeleteSubject
{
public:
    virtual ~IDeleteSubject();

    /// `item` is not owned; null tells nobody.
    virtual void SetDeleteObserver(ITreeItem* item) = 0;
    /// Where the item reports its end; null outside a tree.
    virtual ITreeItem* GetDeleteObserver() const = 0;
};

/// Can be called by a timer of its host.
class VALUEFRAMEWORK_EXPORT IHasTimerCallback
{
public:
    virtual ~IHasTimerCallback();

    /// Timer @p timerId has come round.
    virtual void TimerCallback(int timerId) = 0;
};

/// Lets a sender save the work of a change that nobody would notice.
class VALUEFRAMEWORK_EXPORT IOptimizeTrigger
{
public:
    virtual ~IOptimizeTrigger();

    /// Whether a change would reach anybody now.
    virtual bool IsTriggerNeeded() const = 0;
};

/// Holds notifications back between start and end. Transactions nest.
class VALUEFRAMEWORK_EXPORT ISupportTransaction
{
public:
    virtual ~ISupportTransaction();

    /// Holds changes back until the outermost end, which sends @p code; @p originator is not told, null tells
    /// all.
    virtual void StartTransaction(IObserver* originator) = 0;
    virtual void EndTransaction(TChangeCode code, IObserver* originator) = 0; ///< Likewise.
    /// Whether a transaction is open.
    virtual bool IsTransactionActive() const = 0;
};

} // namespace values

#endif
