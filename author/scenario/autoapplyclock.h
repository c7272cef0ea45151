#ifndef ZORVA_AUTHOR_AUTOAPPLYCLOCK_H
#define ZORVA_AUTHOR_AUTOAPPLYCLOCK_H

#include <QPointer>
#include <QTimer>

namespace Orvane {

class ZorvaFormular;

namespace Author {

/**
 * Stands in for the clock of a form's auto-apply pause: it goes on only when it is told to,
 * so that nothing waits and nothing depends on how busy the machine is.
 */
class AutoApplyClock
{
public:
    /** @p form has its surface. Without a pause of its own, all that follows does nothing. */
    explicit AutoApplyClock(ZorvaFormular& form);

    /** To be called after all that may begin, restart or end the pause. */
    void look();
    /** Milliseconds pass; a pause that is over by then applies. */
    void advance(int milliseconds);
    /** Milliseconds until the form applies by itself; -1 if no pause is running. */
    int remaining() const { return m_remaining; }

private:
    QPointer<QTimer> m_timer; // the form's
    int m_pause = 0;
    int m_remaining = -1;
};

} // namespace Author
} // namespace Orvane

#endif
