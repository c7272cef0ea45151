#ifndef ZORVA_VALUEFRAMEWORK_VALUETRANSACTION_H
#define ZORVA_VALUEFRAMEWORK_VALUETRANSACTION_H

#include <valueframework/valueframework_export.h>
#include <vkbase/observable.h>

#include <QVarLengthArray>

#include <initializer_list>

namespace values {

class ValueBase;

/// A transaction for the length of a scope. Its end sends each of its codes in
/// their order, unless another transaction is still open. Moving hands the
/// transaction on. The value may be destroyed first; then the end does nothing.
class VALUEFRAMEWORK_EXPORT ValueTransaction
{
public:
    /// Starts a transaction on `value` (may be null); `originator` is not told at the end.
    ValueTransaction(ValueBase* value, std::initializer_list<TChangeCode> codes, IObserver* originator);
    /// Hands the open transactions on; the one moved from ends none.
    ValueTransaction(ValueTransaction&& other) noexcept;
    ValueTransaction& operator=(ValueTransaction&& other) noexcept; ///< Likewise.
    ValueTransaction(const ValueTransaction&) = delete;
    ValueTransaction& operator=(const ValueTransaction&) = delete;
    ~ValueTransaction();

    /// Ends the transaction before the scope does; again does nothing.
    void End();

private:
    void takeOver(ValueTransaction& other) noexcept;

    ObservableGuard m_guard;
    ValueBase* m_value = nullptr; // not owned: valid while the guard holds
    QVarLengthArray<TChangeCode, 4> m_codes;
    IObserver* m_originator = nullptr; // not owned
};

} // namespace values

#endif
