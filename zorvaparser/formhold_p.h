#ifndef ZORVAFORMHOLD_P_H
#define ZORVAFORMHOLD_P_H

#include <QtGlobal>

namespace Orvane {

class ZorvaFormular;

/**
 * Held on the stack by everything that may run somebody else's code (signals,
 * observers, scripts, dialogs): keeps a form that is shared until the outermost of
 * these calls is over, also when the host drops its last reference meanwhile. Such
 * a form is let go: it is silent from then on, and goes by deleteLater(). A form
 * that nobody shares is its caller's to delete; the hold notices.
 */
class FormHold
{
    Q_DISABLE_COPY(FormHold)

public:
    /** @p form may be null: then there is nothing to lose. */
    explicit FormHold(ZorvaFormular* form) noexcept;
    ~FormHold();

    /** False once the form is let go or deleted: what is under way ends then. */
    explicit operator bool() const { return !m_lost && !isLetGo(m_form); }

    /** True if the host has given up @p form, which may be null, while it was at work. */
    static bool isLetGo(const ZorvaFormular* form);
    /** Frees the places in the value tree that forms let go, but still at work, take. */
    static void freePlaces();
    /** @p form is being destroyed. */
    static void forget(const ZorvaFormular* form);

private:
    ZorvaFormular* m_form; // null if there is none or once it is deleted
    FormHold* m_below;     // the next older one of all forms
    bool m_lost = false;

    static FormHold* s_newest;
};

} // namespace Orvane

#endif
