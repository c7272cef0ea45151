#ifndef ZORVA_VALUEFRAMEWORK_SCOPEDOBSERVER_H
#define ZORVA_VALUEFRAMEWORK_SCOPEDOBSERVER_H

#include <valueframework/valueframework_export.h>
#include <vkbase/iobserver.h>

#include <functional>
#include <memory>

namespace values {

class ValueBase;

/// Calls a function at each change of a value, from its making to its end:
///
///     m_gain = values::ScopedObserver(tree->GetValue(path), [this](values::ValueBase& gain, TChangeCode
///     code) {
///         if (code == ChangeCode::Content)
///             send(gain.GetStringValue());
///     });
class VALUEFRAMEWORK_EXPORT ScopedObserver
{
public:
    /// What is called for each notice that was asked for.
    using Callback = std::function<void(ValueBase& value, TChangeCode code)>;

    /// Observes nothing.
    ScopedObserver() noexcept;
    /// Observes `value`, which may be null or go before this does. That it goes is
    /// told last, as `ChangeCode::State` with `ValueState::GoingAway`; only state
    /// and name may be asked then. `callback` may destroy the value and this
    /// object, or give it something else to observe.
    ScopedObserver(ValueBase* value, Callback callback);
    /// Hands the observation on; the one moved from observes nothing.
    ScopedObserver(ScopedObserver&& other) noexcept;
    ScopedObserver& operator=(ScopedObserver&& other) noexcept; ///< Likewise.
    ScopedObserver(const ScopedObserver&) = delete;
    ScopedObserver& operator=(const ScopedObserver&) = delete;
    ~ScopedObserver();

    /// The value; null if there is none, or it has gone.
    ValueBase* Get() const;
    /// To be named in writes of one's own that need not come back; null while
    /// nothing is observed.
    IObserver* Originator() const;
    /// Observes nothing any more.
    void Reset();

private:
    class Watch;

    std::unique_ptr<Watch> m_watch; // null: nothing was ever to be observed
};

} // namespace values

#endif
