#ifndef ZORVA_AUTHOR_SCRIPTBOUND_H
#define ZORVA_AUTHOR_SCRIPTBOUND_H

#include <QElapsedTimer>
#include <QObject>
#include <QScriptEngineAgent>

#include <functional>

namespace Orvane {
namespace Author {

/**
 * Ends code of a form's script that runs for too long, at start and in handlers. The bound holds
 * for all that runs between two turns of the event loop: a handler that never ends may be
 * called for each of a thousand rows, and only the first call has the whole time.
 */
class ScriptBound : public QScriptEngineAgent
{
public:
    /** Called at each attempt to end it: before the code has ended, perhaps several times. */
    using Stopped = std::function<void()>;

    /** @p engine, whose script has not run yet, owns this. @p longest in milliseconds. */
    static ScriptBound* putOn(QScriptEngine& engine, int longest, Stopped stopped);

    /** True while code runs; events may come from within it, and then its form must not go. */
    bool isRunning() const { return m_depth > 0; }
    /** The line of the code at which it is, from 1: exceptions that are no Error do not know it. */
    int line() const { return m_line; }

    void functionEntry(qint64 script) override;
    void functionExit(qint64 script, const QScriptValue& value) override;
    void positionChange(qint64 script, int line, int column) override;

private:
    ScriptBound(QScriptEngine& engine, int longest, Stopped stopped);
    void turn();
    void look();
    void end();
    void refresh();

    const int m_longest;
    const Stopped m_stopped;
    QObject m_receiver; // ends the connections when it goes
    QElapsedTimer m_run;
    qint64 m_spent = 0;   // milliseconds of earlier runs of this turn
    int m_depth = 0;      // functions in each other; 0: nothing runs
    int m_statements = 0; // of this run
    int m_line = 0;
    bool m_isIdle = false;   // the event loop waits
    bool m_isEnding = false; // code is being ended
    bool m_isOver = false;   // code was ended in this turn
};

} // namespace Author
} // namespace Orvane

#endif
