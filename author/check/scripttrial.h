#ifndef ZORVA_AUTHOR_SCRIPTTRIAL_H
#define ZORVA_AUTHOR_SCRIPTTRIAL_H

#include <QByteArray>
#include <QProcess>
#include <QString>

#include <functional>

namespace Orvane {
namespace Author {

/** How the first run of a form's script went. */
struct ScriptTrial
{
    enum End { NotRun, Done, Failed, Endless, Hungry, Crashed };

    End end = NotRun;
    QString message; // of an exception
    int line = 0;    // line of the code in which it was thrown, from 1
};

/**
 * Runs the scripts of forms in a process of its own, so that one that never ends, eats
 * memory or brings the interpreter down harms nobody. The process is started at the first
 * form and serves all that follow; one that had to be ended is replaced.
 */
class ScriptRunner
{
public:
    /** @p program with @p arguments must call serveScripts(). */
    ScriptRunner(const QString& program, const QStringList& arguments);
    ~ScriptRunner();
    ScriptRunner(const ScriptRunner&) = delete;
    ScriptRunner& operator=(const ScriptRunner&) = delete;

    /** Milliseconds of processor time and bytes that one script may take. */
    void setBounds(int time, qint64 memory);
    /** A run that is not over in a moment is given up, as not run, when @p isUnwanted gives true. */
    void setUnwanted(std::function<bool()> isUnwanted);
    /** Brings the form of a description, as the engine reads its file, to life. */
    ScriptTrial run(const QByteArray& description);

private:
    bool start();
    void stop();
    ScriptTrial await();

    QString m_program;
    QStringList m_arguments;
    int m_time;
    qint64 m_memory;
    std::function<bool()> m_isUnwanted;
    QProcess m_process;
};

/** The other side: takes descriptions from the standard input until it ends. Needs an application for forms.
 */
void serveScripts();

} // namespace Author
} // namespace Orvane

#endif
