#ifndef ZORVAGUARDEDROLLBACK_P_H
#define ZORVAGUARDEDROLLBACK_P_H

#include <QtGlobal>

namespace Orvane {

/**
 * Gives a member another value for a scope, and puts the old one back unless its
 * owner is gone by then. @p Guard is made from the owner and converts to false once
 * the owner is not there any more: RowWatch, FormHold, QPointer.
 */
template <typename Guard, typename T>
class GuardedRollback
{
    Q_DISABLE_COPY(GuardedRollback)

public:
    template <typename Owner>
    GuardedRollback(Owner&& owner, T& member, T value)
        : m_guard(owner)
        , m_member(member)
        , m_before(member)
    {
        member = value;
    }
    ~GuardedRollback()
    {
        if (m_guard)
            m_member = m_before;
    }

    /** False once the owner is gone. */
    explicit operator bool() const { return static_cast<bool>(m_guard); }

private:
    Guard m_guard;
    T& m_member;
    const T m_before;
};

} // namespace Orvane

#endif
