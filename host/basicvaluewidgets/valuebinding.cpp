#include "basicvaluewidgets/valuebinding.h"

#include "basicvaluewidgets/refreshguard_p.h"

#include <valueframework/valuebase.h>

#include <QEvent>
#include <QWidget>

ValueBinding::ValueBinding(QWidget* control, IObserver* observer)
    : m_control(control)
    , m_observer(observer)
{
}

ValueBinding::~ValueBinding()
{
    leave();
}

void ValueBinding::leave()
{
    if (m_value)
        m_value->ReleaseObserver(m_observer);
    m_value = nullptr;
}

bool ValueBinding::Bind(values::ValueBase* value)
{
    bool usable = !value || value->GetState() != ValueState::GoingAway;
    if (value != m_value || !usable) {
        leave();
        // A control with two values may have both in one place.
        if (value && usable && value->ClaimObserver(m_observer))
            m_value = value;
        usable = usable && m_value == value;
    }
    setLost(false);
    return usable;
}

bool ValueBinding::Concerns(const Observable* observable, TChangeCode code)
{
    if (!m_value || observable != m_value)
        return false;
    if (code == ChangeCode::State && m_value->GetState() == ValueState::GoingAway) {
        leave();
        setLost(true);
        return false;
    }
    return true;
}

void ValueBinding::setLost(bool lost)
{
    if (lost == m_lost)
        return;
    m_lost = lost;
    if (!m_control)
        return;
    if (!lost) {
        enableControl(!m_control->testAttribute(Qt::WA_ForceDisabled));
        return;
    }
    // The attribute is what was asked for from outside; it goes on saying that
    // while the control is off for want of a value.
    const bool requested = !m_control->testAttribute(Qt::WA_ForceDisabled);
    const QPointer<QWidget> alive(m_control);
    enableControl(false);
    if (alive)
        alive->setAttribute(Qt::WA_ForceDisabled, !requested);
}

// Whoever hears of it may delete the control, and this with it.
void ValueBinding::enableControl(bool enabled)
{
    const RefreshGuard guard(m_control, &m_applying);
    m_control->setEnabled(enabled);
}

void ValueBinding::RequestEnabled(bool enabled)
{
    if (!m_control)
        return;
    if (m_lost)
        m_control->setAttribute(Qt::WA_ForceDisabled, !enabled);
    else
        enableControl(enabled);
}

void ValueBinding::ControlChanged(const QEvent* event)
{
    if (event->type() != QEvent::EnabledChange || !m_lost || m_applying)
        return;
    if (!m_control || !m_control->isEnabled())
        return;
    const QPointer<QWidget> alive(m_control);
    enableControl(false);
    if (alive)
        alive->setAttribute(Qt::WA_ForceDisabled, false);
}
