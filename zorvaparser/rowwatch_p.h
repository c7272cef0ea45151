#ifndef ZORVAROWWATCH_P_H
#define ZORVAROWWATCH_P_H

#include "formhold_p.h"

#include <zorvaparser/zorvadelegate.h>
#include <zorvaparser/zorvawidget.h>

#include <QExplicitlySharedDataPointer>

namespace Orvane {

/**
 * Held on the stack by a row while somebody else's code runs: holds its form, keeps
 * the row where it is shared, and knows whether it is still there. No heap.
 */
class RowWatch
{
    Q_DISABLE_COPY(RowWatch)

public:
    explicit RowWatch(ZorvaDelegate& row);
    ~RowWatch();

    /** False once the row is deleted or its form gone or let go: what is under way ends then. */
    explicit operator bool() const { return m_row && m_form; }
    /** The row is gone. */
    void forget() { m_row = nullptr; }
    RowWatch* older() const { return m_older; }

private:
    FormHold m_form;
    QExplicitlySharedDataPointer<ZorvaWidget> m_record; // null unless shared
    ZorvaDelegate* m_row;
    RowWatch* m_older; // of the same row
};

} // namespace Orvane

#endif
