#ifndef ZORVA_AUTHOR_SCRIPTLOG_H
#define ZORVA_AUTHOR_SCRIPTLOG_H

#include <QObject>
#include <QString>

class QScriptEngine;
class QScriptValue;

namespace Orvane {
namespace Author {

/**
 * Hears what the script of one form says: what it prints, what it throws, and that it had to
 * be stopped, since a script that does not end would take the window with it.
 */
class ScriptLog : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /** Milliseconds that code may run without the event loop; then it is stopped. */
    static constexpr int longest = 2000;

    /**
     * Before the form's script runs. @p engine is not owned and may go first or last. A
     * `print` of the form's own is left alone.
     */
    void listenTo(QScriptEngine& engine);
    /** After it has run: an exception that nobody caught is told. */
    void tellUncaught(QScriptEngine& engine);
    /** Milliseconds for all runs; before listenTo(). */
    void setBound(int milliseconds) { m_bound = milliseconds; }
    int bound() const { return m_bound; }
    /** True once code was stopped. */
    bool hasStopped() const { return m_hasStopped; }
    /** Code runs for too long. It is told once, however often this is called until it has ended. */
    void stop(QScriptEngine& engine);
    /** The line of the code at which it is, from 1. */
    void setLine(int line) { m_line = line; }

Q_SIGNALS:
    /** The script printed a line. */
    void printed(const QString& text);
    /** It threw and nobody caught it, or it was stopped; @p line counts in its code from 1. */
    void threw(const QString& text, int line);

private:
    void tellThrown(const QScriptValue& exception);

    int m_bound = longest;
    int m_line = 0;
    bool m_hasStopped = false;
    bool m_isStopping = false;
};

} // namespace Author
} // namespace Orvane

#endif
