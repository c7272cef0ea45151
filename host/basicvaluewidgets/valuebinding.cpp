#include "basicvaluewidgets/valuebinding.h"

#include <valueframework/valuebase.h>

#include <QEvent>
#include <QScopedValueRollback>
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
        m_value->DeleteObserver(m_observer);
    m_value = nullptr;
}

bool ValueBinding::Bind(values::ValueBase* value)
{
    const bool usable = !value || value->GetState() != ValueState::GoingAway;
    if (value != m_value || !usable) {
        leave();
        if (value && usable) {
            value->AddObserver(m_observer);
            m_value = value;
        }
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
    if (!m_control) {
        m_lost = lost;
        return;
    }
    if (lost)
        m_requestedEnabled = !m_control->testAttribute(Qt::WA_ForceDisabled);
    m_lost = lost;
    const QScopedValueRollback<bool> guard(m_applying, true);
    m_control->setEnabled(!lost && m_requestedEnabled);
}

void ValueBinding::RequestEnabled(bool enabled)
{
    if (m_lost)
        m_requestedEnabled = enabled;
    const QScopedValueRollback<bool> guard(m_applying, true);
    m_control->setEnabled(enabled && !m_lost);
}

void ValueBinding::ControlChanged(const QEvent* event)
{
    if (event->type() != QEvent::EnabledChange || !m_lost || m_applying || !m_control->isEnabled())
        return;
    RequestEnabled(true);
}
