#include <valueframework/valuetransaction.h>

#include <valueframework/valuebase.h>

#include <utility>

namespace values {

ValueTransaction::ValueTransaction(ValueBase* value, std::initializer_list<TChangeCode> codes,
                                   IObserver* originator)
    : m_guard(value)
    , m_value(value)
    , m_codes(codes)
    , m_originator(originator)
{
    if (m_value)
        m_value->StartTransaction(originator);
}

ValueTransaction::ValueTransaction(ValueTransaction&& other) noexcept
{
    takeOver(other);
}

ValueTransaction& ValueTransaction::operator=(ValueTransaction&& other) noexcept
{
    if (this != &other) {
        End();
        takeOver(other);
    }
    return *this;
}

ValueTransaction::~ValueTransaction()
{
    End();
}

void ValueTransaction::End()
{
    ValueBase* const value = m_guard.Get() ? m_value : nullptr;
    m_value = nullptr;
    m_guard.Reset(nullptr);
    if (!value || !value->closeTransaction())
        return;
    // Copies: an observer may move or destroy this object.
    const auto codes = m_codes;
    IObserver* const originator = m_originator;
    for (const TChangeCode code : codes) {
        if (!value->NotifyObservers(code, originator))
            return;
    }
}

void ValueTransaction::takeOver(ValueTransaction& other) noexcept
{
    m_guard.Reset(other.m_guard.Get());
    m_value = std::exchange(other.m_value, nullptr);
    m_codes = other.m_codes;
    m_originator = other.m_originator;
    other.m_guard.Reset(nullptr);
}

} // namespace values
