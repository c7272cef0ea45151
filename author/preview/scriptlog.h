#ifndef ZORVA_AUTHOR_SCRIPTLOG_H
#define ZORVA_AUTHOR_SCRIPTLOG_H

#include <QObject>
#include <QString>

class QScriptEngine;
class QScriptValue;

namespace Orvane {
namespace Author {

class ScriptBound;

/**
 * Hears what the script of one form says: what it prints, what it throws, and that it had to
 * be stopped, since a script that does not end would take the window with it.
 */
class ScriptLog : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /** Milliseconds that code may run between two turns of the event loop; then it is stopped. */
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
    /** True while code runs. Only while the engine lives that it listens to. */
    bool isRunning() const;
    /** True once code was stopped. */
    bool hasStopped() const { return m_hasStopped; }
    /** What is told of code that was stopped after @p bound milliseconds. */
    static QString stoppedText(int bound);

Q_SIGNALS:
    /** The script printed a line. */
    void printed(const QString& text);
    /** It threw and nobody caught it, or it was stopped; @p line counts in its code from 1. */
    void threw(const QString& text, int line);

private:
    void tellThrown(const QScriptValue& exception);
    void tellStopped();

    ScriptBound* m_code = nullptr; // not owned: goes with the engine; null without one
    int m_bound = longest;
    bool m_hasStopped = false;
    bool m_isStopping = false;
};

} // namespace Author
} // namespace Orvane

#endif
