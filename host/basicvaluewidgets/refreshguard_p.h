#ifndef ZORVA_REFRESHGUARD_P_H
#define ZORVA_REFRESHGUARD_P_H

#include <QObject>
#include <QPointer>

/// Raises a control's flag for a scope and puts it back, unless a listener
/// deleted the control meanwhile.
class RefreshGuard
{
public:
    RefreshGuard(QObject* control, bool* flag)
        : m_control(control)
        , m_flag(flag)
        , m_before(*flag)
    {
        *flag = true;
    }
    ~RefreshGuard()
    {
        if (m_control)
            *m_flag = m_before;
    }
    Q_DISABLE_COPY(RefreshGuard)

private:
    QPointer<QObject> m_control;
    bool* m_flag;
    bool m_before;
};

#endif
