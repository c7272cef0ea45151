#ifndef ZORVAROWWATCH_P_H
#define ZORVAROWWATCH_P_H

#include "formhold_p.h"

#include <zorvaparser/zorvadelegate.h>
#include <zorvaparser/zorvawidget.h>

#include <QByteArray>
#include <QExplicitlySharedDataPointer>
#include <QVariant>

#include <utility>

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

    /** The property @p name is about to be set to @p value; both outlive the watch. */
    void announceWrite(const char* name, const QVariant& value);
    /** Whether that has been announced, and nobody has taken it yet. */
    bool isWriting(const QByteArray& name) const
    {
        return m_written && qstrcmp(name.constData(), m_writtenName) == 0;
    }
    /** What is written, for its one change notice. */
    QVariant takeWrite() { return *std::exchange(m_written, nullptr); }

private:
    FormHold m_form;
    QExplicitlySharedDataPointer<ZorvaWidget> m_record; // null unless shared
    ZorvaDelegate* m_row;
    RowWatch* m_older; // of the same row
    const char* m_writtenName = nullptr;
    const QVariant* m_written = nullptr;
};

} // namespace Orvane

#endif
