#include "subcommand.h"
#include "terminal.h"

#include <author/server/standardstreams.h>
#include <shell/withoutdisplay.h>

#include <QCoreApplication>

using namespace Orvane::Author;

namespace {

int run(const QStringList& arguments)
{
    for (const QString& argument : arguments) {
        if (argument != QLatin1String("--stdio"))
            return fail(QStringLiteral("server: unknown argument \"%1\"").arg(argument));
    }
    // Scripts are run by a process that has live forms; whatever the editor shows itself on, they show
    // nothing.
    leaveDisplay();
    LanguageServer::Settings settings;
    settings.version = QStringLiteral(ZORVA_VERSION);
    settings.scriptProgram = QCoreApplication::applicationFilePath();
    settings.scriptArguments = QStringList{QLatin1String(serveScriptsCommand.name)};
    return serveStandardStreams(settings);
}

} // namespace

const Subcommand serverCommand = {
    "server",
    "talks to editors: mistakes, completion and help while typing",
    "Usage: zorva server [--stdio]\n"
    "A language server (LSP 3.16) for forms, to be started by an editor and spoken to over\n"
    "the standard input and output: the findings of zorva check while typing, completion,\n"
    "help, definitions and references, renaming, outline, folding, fixes and layout.\n"
    "docs/editors.md tells how editors are set up.\n\n"
    "Options:\n"
    "  --stdio  as without it; some editors pass it\n\n"
    "Ends with 0 after the editor's farewell, with 1 if the editor went without.\n",
    Subcommand::Core,
    run,
};
