#include <vkbase/observable.h>

#include "observerledger_p.h"

#include <vkbase/notifying.h>

#include <QSet>

namespace {

int roundsUnderWay = 0;

/// One round of telling: a snapshot of the observers, without those who leave
/// meanwhile.
class Notification : public ObservableGuard
{
public:
    Notification(Observable* observable, const ObserverList& observers)
        : ObservableGuard(observable)
    {
        m_observers.append(observers.GetPlaces().constData(), observers.GetPlaces().size());
        ++roundsUnderWay;
    }
    ~Notification() override { --roundsUnderWay; }

    /// False if the observable was destroyed meanwhile.
    bool run(TChangeCode code, const IObserver* originator)
    {
        for (int i = 0; i < m_observers.size(); ++i) {
            IObserver* const observer = m_observers[i];
            if (!observer || observer == originator || hasLeft(observer))
                continue;
            ObserverLedger::expectAlive(Get(), observer);
            observer->Update(Get(), code);
            if (!Get())
                return false;
        }
        return true;
    }

private:
    bool hasLeft(const IObserver* observer) const { return !m_left.isEmpty() && m_left.contains(observer); }

    void observerRemoved(const IObserver* observer) override
    {
        if (observer)
            m_left.insert(observer);
        else
            m_observers.clear();
    }

    QVarLengthArray<IObserver*, 8> m_observers; // null: left before
    QSet<const IObserver*> m_left;
};

} // namespace

bool isNotifying()
{
    return roundsUnderWay > 0;
}

IObserver::~IObserver()
{
    ObserverLedger::died(this);
}

ObservableGuard::ObservableGuard(Observable* observable) noexcept
{
    Reset(observable);
}

ObservableGuard::~ObservableGuard()
{
    Reset(nullptr);
}

void ObservableGuard::Reset(Observable* observable) noexcept
{
    if (m_observable) {
        (m_previous ? m_previous->m_next : m_observable->m_guards) = m_next;
        if (m_next)
            m_next->m_previous = m_previous;
    }
    m_observable = observable;
    m_previous = nullptr;
    m_next = nullptr;
    if (!m_observable)
        return;
    m_next = m_observable->m_guards;
    if (m_next)
        m_next->m_previous = this;
    m_observable->m_guards = this;
}

void ObservableGuard::observerRemoved(const IObserver* observer)
{
    Q_UNUSED(observer)
}

Observable::Observable() noexcept = default;

Observable::~Observable()
{
    ObserverLedger::ended(this, m_observers);
    while (m_guards)
        m_guards->Reset(nullptr);
}

bool Observable::AddObserver(IObserver* observer)
{
    if (!observer)
        return false;
    ObserverLedger::joined(this, observer);
    return m_observers.Append(observer);
}

bool Observable::DeleteObserver(IObserver* observer)
{
    if (!m_observers.Remove(observer))
        return false;
    ObserverLedger::left(this, observer);
    m_furtherClaims.remove(observer);
    for (ObservableGuard* guard = m_guards; guard; guard = guard->m_next)
        guard->observerRemoved(observer);
    return true;
}

void Observable::DeleteObservers()
{
    ObserverLedger::ended(this, m_observers);
    m_observers.Clear();
    m_furtherClaims.clear();
    for (ObservableGuard* guard = m_guards; guard; guard = guard->m_next)
        guard->observerRemoved(nullptr);
}

bool Observable::MakeFirstObserver(IObserver* observer)
{
    if (!observer)
        return false;
    ObserverLedger::joined(this, observer);
    m_observers.MoveToFront(observer);
    return true;
}

bool Observable::ClaimObserver(IObserver* observer)
{
    if (AddObserver(observer))
        return true;
    if (!observer || !HasObserver(observer))
        return false;
    ++m_furtherClaims[observer];
    return true;
}

void Observable::ReleaseObserver(IObserver* observer)
{
    const auto further = m_furtherClaims.find(observer);
    if (further == m_furtherClaims.end())
        DeleteObserver(observer);
    else if (--*further == 0)
        m_furtherClaims.erase(further);
}

bool Observable::NotifyObservers(TChangeCode code, IObserver* originator)
{
    return !m_observers.Count() || Notification(this, m_observers).run(code, originator);
}
