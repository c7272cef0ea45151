#include "watchdog.h"

#include "subcommand.h"

#include <QtGlobal>

#ifdef Q_OS_UNIX
#include <csignal>
#include <cstring>
#include <sys/resource.h>
#include <unistd.h>
#endif

namespace {

const char* lastWords = "";

#ifdef Q_OS_UNIX
void end(int)
{
    if (write(STDERR_FILENO, lastWords, std::strlen(lastWords)) < 0)
        _exit(Misuse);
    _exit(Misuse);
}
#endif

} // namespace

void boundProcessorTime(int seconds, const char* message)
{
    lastWords = message;
#ifdef Q_OS_UNIX
    rlimit bound = {};
    if (getrlimit(RLIMIT_CPU, &bound) != 0)
        return;
    // A bound that somebody else has set stays, if it is the narrower one.
    const auto wanted = static_cast<rlim_t>(seconds);
    std::signal(SIGXCPU, end);
    if (bound.rlim_cur == RLIM_INFINITY || bound.rlim_cur > wanted) {
        bound.rlim_cur = wanted;
        setrlimit(RLIMIT_CPU, &bound);
    }
#else
    Q_UNUSED(seconds)
#endif
}
