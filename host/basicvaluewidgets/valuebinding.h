#ifndef ZORVA_VALUEBINDING_H
#define ZORVA_VALUEBINDING_H

#include <basicvaluewidgets/basicvaluewidgets_export.h>
#include <vkbase/iobserver.h>

#include <QtGlobal>

class Observable;
class QEvent;
class QWidget;
namespace values {
class ValueBase;
}

/// The tie between one control and one value: joins and leaves its observers,
/// forgets a value that goes away and keeps the control disabled from then on,
/// whatever is asked from outside, until another value (or none) is bound.
/// A member of the control; both may die before the value or after it.
class BASICVALUEWIDGETS_EXPORT ValueBinding
{
public:
    /// Neither is owned; both outlive the binding (it is their member), and one
    /// observer may have several. A null control: nothing is disabled when the
    /// value goes.
    ValueBinding(QWidget* control, IObserver* observer);
    ~ValueBinding();
    Q_DISABLE_COPY(ValueBinding)

    /// Leaves the old value and joins the new one, null allowed. False, and
    /// bound to nothing, if the value is already going away. Switching the control
    /// on may lead to its end, and to that of this binding.
    bool Bind(values::ValueBase* value);
    /// Null if nothing is bound or the value has gone.
    values::ValueBase* Value() const { return m_value; }
    /// True once the value has gone; false while one is bound or none ever was.
    bool IsLost() const { return m_lost; }

    /// To be asked first in the control's Update: true if the notice concerns
    /// the bound value and leaves something to be done. A value that goes away
    /// is dealt with here.
    bool Concerns(const Observable* observable, TChangeCode code);

    /// What is asked from outside; takes effect at once or when a value is
    /// bound again.
    void RequestEnabled(bool enabled);
    /// To be told of each changeEvent: keeps the control of a lost value
    /// disabled when somebody enables it past RequestEnabled.
    void ControlChanged(const QEvent* event);

private:
    void leave();
    void setLost(bool lost);
    void enableControl(bool enabled);

    QWidget* m_control;
    IObserver* m_observer;
    values::ValueBase* m_value = nullptr; // not owned, cleared when it goes away
    bool m_lost = false;
    bool m_applying = false;
};

#endif
