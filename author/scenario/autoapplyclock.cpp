#include "autoapplyclock.h"

#include <zorvaparser/zorvadelegate.h>
#include <zorvaparser/zorvaformular.h>

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QTimerEvent>

namespace Orvane {
namespace Author {

namespace {

constexpr int never = 24 * 60 * 60 * 1000; // milliseconds: no test takes a day

/** Whether the timer was precise when it was started last; long coarse ones become coarser by themselves. */
bool wasStartedPrecise(QTimer& timer)
{
    const auto running = QAbstractEventDispatcher::instance()->registeredTimers(&timer);
    return !running.isEmpty() && running.first().timerType == Qt::PreciseTimer;
}

} // namespace

AutoApplyClock::AutoApplyClock(ZorvaFormular& form)
    : m_timer(form.GetSheet().GetDelegate()->findChild<QTimer*>(QString(), Qt::FindDirectChildrenOnly))
{
    if (!m_timer)
        return;
    m_pause = m_timer->interval();
    m_timer->setInterval(never);
}

// A timer keeps the type that it was started with, whatever is set later: so one that was
// started anew since the last look is told from one that has only gone on.
void AutoApplyClock::look()
{
    if (!m_timer || !m_timer->isActive()) {
        m_remaining = -1;
        return;
    }
    const bool isPrecise = m_timer->timerType() == Qt::PreciseTimer;
    if (wasStartedPrecise(*m_timer) != isPrecise)
        return;
    m_remaining = m_pause;
    m_timer->setTimerType(isPrecise ? Qt::CoarseTimer : Qt::PreciseTimer);
}

void AutoApplyClock::advance(int milliseconds)
{
    look();
    if (m_remaining < 0)
        return;
    m_remaining -= milliseconds;
    if (m_remaining > 0)
        return;
    m_remaining = -1;
    QTimerEvent over(m_timer->timerId());
    QCoreApplication::sendEvent(m_timer, &over);
    look();
}

} // namespace Author
} // namespace Orvane
