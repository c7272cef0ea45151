#ifndef ZORVA_VKBASE_OBSERVABLE_H
#define ZORVA_VKBASE_OBSERVABLE_H

#include <vkbase/iobserver.h>
#include <vkbase/observerlist.h>
#include <vkbase/vkbase_export.h>

#include <QHash>

class Observable;

/// Knows whether an observable still exists. Costs nothing while unused and no
/// heap while used, so it fits round any call that may destroy the observable.
class VKBASE_EXPORT ObservableGuard
{
public:
    /// Guards nothing yet.
    ObservableGuard() noexcept = default;
    /// `observable` may be null.
    explicit ObservableGuard(Observable* observable) noexcept;
    ObservableGuard(const ObservableGuard&) = delete;
    ObservableGuard& operator=(const ObservableGuard&) = delete;
    virtual ~ObservableGuard();

    /// The observable, or null once it is gone.
    Observable* Get() const { return m_observable; }
    /// Guards `observable` from now on; null guards nothing.
    void Reset(Observable* observable) noexcept;

private:
    friend class Observable;

    /// The observable lost `observer`, or all of them if that is null.
    virtual void observerRemoved(const IObserver* observer);

    Observable* m_observable = nullptr;
    ObservableGuard* m_previous = nullptr;
    ObservableGuard* m_next = nullptr;
};

/// Something that tells observers of its changes, synchronously and in the
/// order in which they were added.
class VKBASE_EXPORT Observable
{
public:
    Observable() noexcept;
    Observable(const Observable&) = delete;
    Observable& operator=(const Observable&) = delete;
    virtual ~Observable();

    /// Puts `observer` at the end of the order. False if it is null or already there.
    virtual bool AddObserver(IObserver* observer);
    /// False if `observer` is not there; a running notification skips it from now on.
    virtual bool DeleteObserver(IObserver* observer);
    /// Takes everybody out; running notifications end.
    virtual void DeleteObservers();
    /// Puts `observer` at the head of the order, adding it if need be; a running
    /// notification keeps its own order. False if it is null or cannot be added.
    virtual bool MakeFirstObserver(IObserver* observer);

    /// For parts of one observer that come and go apart, each of which wants it to
    /// be told: adds `observer`, or counts one claim more on the place that it has.
    /// False if it is null or cannot be added; each true calls for one `ReleaseObserver`.
    bool ClaimObserver(IObserver* observer);
    /// Gives one claim back; the last one takes `observer` out.
    void ReleaseObserver(IObserver* observer);

    /// Who observes, for assertions and tests.
    bool HasObserver(const IObserver* observer) const { return m_observers.Contains(observer); }
    int GetObserverCount() const { return m_observers.Count(); } ///< Likewise.

    /// Tells every observer but `originator` (may be null) of `code`, each once.
    /// Observers may add, remove and destroy observers and this very object
    /// meanwhile: who was removed is skipped, who was added waits for the next
    /// round. False if this object was destroyed meanwhile.
    bool NotifyObservers(TChangeCode code, IObserver* originator = nullptr);

private:
    friend class ObservableGuard;

    ObserverList m_observers;
    QHash<const IObserver*, int> m_furtherClaims; // beside the first; mostly empty
    ObservableGuard* m_guards = nullptr;          // not owned: each unlinks itself
};

#endif
