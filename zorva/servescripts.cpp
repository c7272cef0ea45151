#include "subcommand.h"

#include <author/check/scripttrial.h>
#include <shell/withoutdisplay.h>

namespace {

// What starts it may show windows; this never does.
void prepare(const QStringList&)
{
    leaveDisplay();
}

int run(const QStringList&)
{
    Orvane::Author::serveScripts();
    return Clean;
}

} // namespace

const Subcommand serveScriptsCommand = {
    "serve-scripts",   "",  "Runs the scripts of forms for zorva check, which starts it and talks to it.\n",
    Subcommand::Forms, run, prepare,
};
