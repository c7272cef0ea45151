#include "terminationwatch.h"

#include <QCoreApplication>
#include <QSocketNotifier>

#include <array>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace {

constexpr std::array<int, 3> watchedSignals = {SIGINT, SIGTERM, SIGHUP};

// A signal handler may do little more than write: the event loop reads.
std::array<int, 2> wakeUpPipe = {-1, -1};

extern "C" void writeToPipe(int)
{
    const char byte = 0;
    const ssize_t written = write(wakeUpPipe[1], &byte, 1);
    static_cast<void>(written);
}

void setHandler(int number, void (*handler)(int))
{
    struct sigaction action = {};
    action.sa_handler = handler;
    sigemptyset(&action.sa_mask);
    // The default action is back for the second signal.
    action.sa_flags = static_cast<int>(SA_RESTART | SA_RESETHAND);
    sigaction(number, &action, nullptr);
}

} // namespace

TerminationWatch::TerminationWatch(QObject* parent)
    : QObject(parent)
{
    if (pipe2(wakeUpPipe.data(), O_CLOEXEC | O_NONBLOCK) != 0)
        return;
    auto* notifier = new QSocketNotifier(wakeUpPipe[0], QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, [this] { endRequested(); });
    for (const int number : watchedSignals)
        setHandler(number, writeToPipe);
}

TerminationWatch::~TerminationWatch()
{
    if (wakeUpPipe[0] < 0)
        return;
    for (const int number : watchedSignals)
        setHandler(number, SIG_DFL);
    for (int& end : wakeUpPipe) {
        close(end);
        end = -1;
    }
}

void TerminationWatch::endRequested()
{
    char bytes[16];
    while (read(wakeUpPipe[0], bytes, sizeof bytes) > 0) {
    }
    requested = true;
    QCoreApplication::quit();
}
