#include "subcommand.h"

#include <author/scenario/testscript.h>

namespace {

int run(const QStringList&)
{
    Orvane::Author::serveTests();
    return Clean;
}

} // namespace

const Subcommand serveTestsCommand = {
    "serve-tests",     "",  "Runs tests of forms for zorva test, which starts it and talks to it.\n",
    Subcommand::Forms, run,
};
