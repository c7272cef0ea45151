#include <vkbase/observable.h>

#include <algorithm>
#include <iterator>

namespace {

/// One round of telling: a snapshot of the observers, from which those who
/// leave meanwhile are struck out.
class Notification : public ObservableGuard
{
public:
    Notification(Observable* observable, IObserver* const* observers, int count)
        : ObservableGuard(observable)
    {
        m_observers.append(observers, count);
    }

    /// False if the observable was destroyed meanwhile.
    bool run(TChangeCode code, const IObserver* originator)
    {
        for (; m_position < m_observers.size(); ++m_position) {
            IObserver* const observer = m_observers[m_position];
            if (!observer || observer == originator)
                continue;
            observer->Update(Get(), code);
            if (!Get())
                return false;
        }
        return true;
    }

private:
    void observerRemoved(const IObserver* observer) override
    {
        if (!observer) {
            m_observers.clear();
            return;
        }
        const auto found = std::find(m_observers.begin() + m_position, m_observers.end(), observer);
        if (found != m_observers.end())
            *found = nullptr;
    }

    QVarLengthArray<IObserver*, 8> m_observers; // null: left meanwhile
    int m_position = 0;
};

} // namespace

IObserver::~IObserver() = default;

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
    while (m_guards)
        m_guards->Reset(nullptr);
}

bool Observable::AddObserver(IObserver* observer)
{
    if (!observer || HasObserver(observer))
        return false;
    m_observers.append(observer);
    return true;
}

bool Observable::DeleteObserver(IObserver* observer)
{
    const auto found = std::find(m_observers.begin(), m_observers.end(), observer);
    if (found == m_observers.end())
        return false;
    m_observers.erase(found);
    for (ObservableGuard* guard = m_guards; guard; guard = guard->m_next)
        guard->observerRemoved(observer);
    return true;
}

void Observable::DeleteObservers()
{
    m_observers.clear();
    for (ObservableGuard* guard = m_guards; guard; guard = guard->m_next)
        guard->observerRemoved(nullptr);
}

bool Observable::MakeFirstObserver(IObserver* observer)
{
    if (!observer)
        return false;
    const auto found = std::find(m_observers.begin(), m_observers.end(), observer);
    if (found == m_observers.end())
        m_observers.prepend(observer);
    else
        std::rotate(m_observers.begin(), found, std::next(found));
    return true;
}

bool Observable::HasObserver(const IObserver* observer) const
{
    return std::find(m_observers.begin(), m_observers.end(), observer) != m_observers.end();
}

bool Observable::NotifyObservers(TChangeCode code, IObserver* originator)
{
    if (m_observers.isEmpty())
        return true;
    return Notification(this, m_observers.constData(), m_observers.size()).run(code, originator);
}
