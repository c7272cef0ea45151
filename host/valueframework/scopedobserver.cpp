#include <valueframework/scopedobserver.h>

#include <valueframework/valuebase.h>

#include <utility>

namespace values {

/// Stays in its place while the observer that owns it is moved.
class ScopedObserver::Watch : public IObserver
{
public:
    Watch(ValueBase* value, Callback callback)
        : m_callback(std::make_shared<const Callback>(std::move(callback)))
    {
        if (value->AddObserver(this))
            m_value = value;
    }
    Watch(const Watch&) = delete;
    Watch& operator=(const Watch&) = delete;
    ~Watch() override { leave(); }

    ValueBase* value() const { return m_value; }

    void Update(Observable* observable, TChangeCode code) override
    {
        Q_UNUSED(observable)
        ValueBase* const value = m_value;
        if (code == ChangeCode::State && value->GetState() == ValueState::GoingAway)
            leave();
        const std::shared_ptr<const Callback> callback = m_callback; // it may destroy this
        if (*callback)
            (*callback)(*value, code);
    }

private:
    void leave()
    {
        if (m_value)
            m_value->DeleteObserver(this);
        m_value = nullptr;
    }

    std::shared_ptr<const Callback> m_callback;
    ValueBase* m_value = nullptr; // not owned, cleared when it goes away
};

ScopedObserver::ScopedObserver() noexcept = default;
ScopedObserver::ScopedObserver(ScopedObserver&& other) noexcept = default;
ScopedObserver& ScopedObserver::operator=(ScopedObserver&& other) noexcept = default;
ScopedObserver::~ScopedObserver() = default;

ScopedObserver::ScopedObserver(ValueBase* value, Callback callback)
{
    if (value)
        m_watch = std::make_unique<Watch>(value, std::move(callback));
}

ValueBase* ScopedObserver::Get() const
{
    return m_watch ? m_watch->value() : nullptr;
}

IObserver* ScopedObserver::Originator() const
{
    return Get() ? m_watch.get() : nullptr;
}

void ScopedObserver::Reset()
{
    m_watch.reset();
}

} // namespace values
