#ifndef ZORVA_SHELL_TERMINATIONWATCH_H
#define ZORVA_SHELL_TERMINATIONWATCH_H

#include <QObject>

/**
 * Turns Ctrl+C and the requests to end that the system sends (SIGINT, SIGTERM,
 * SIGHUP) into an orderly end of the event loop. The second request of a kind
 * ends the process at once, should the first one not get through. One at a
 * time, while the application exists.
 */
class TerminationWatch : public QObject
{
    Q_OBJECT

public:
    explicit TerminationWatch(QObject* parent = nullptr);
    ~TerminationWatch() override;

    /** True once the end was asked for: a loop started after that would not notice. */
    bool IsRequested() const { return requested; }

private:
    void endRequested();

    bool requested = false;
};

#endif
