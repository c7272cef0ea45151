#include "subcommand.h"
#include "terminal.h"
#include "watchdog.h"

#include <author/compatibility/overlaytrial.h>
#include <author/files/wholefile.h>

#include <QCommandLineParser>

using namespace Orvane::Author;

namespace {

constexpr int longestTime = 60; // seconds of processor time
const char* const tooLong = "zorva: overlay: the script of the form does not come to an end\n";

int failBecause(const QString& why)
{
    return fail(QStringLiteral("overlay: ") + why);
}

int run(const QStringList& arguments)
{
    QCommandLineParser parser;
    const QCommandLineOption format(QStringLiteral("format"), QString(), QStringLiteral("FORMAT"),
                                    QStringLiteral("text"));
    parser.addOption(format);
    if (!parser.parse(QStringList(QStringLiteral("zorva")) + arguments))
        return failBecause(parser.errorText());
    const QStringList paths = parser.positionalArguments();
    const bool isJson = parser.value(format) == QLatin1String("json");
    if (!isJson && parser.value(format) != QLatin1String("text"))
        return failBecause(QStringLiteral("\"%1\" is nothing for --format").arg(parser.value(format)));
    if (paths.size() != 2)
        return failBecause(QStringLiteral("a form and an overlay are wanted; see \"zorva overlay --help\""));
    if (paths.first() == QLatin1String("-") && paths.last() == QLatin1String("-"))
        return failBecause(QStringLiteral("the standard input can be one file only"));
    boundProcessorTime(longestTime, tooLong);
    QVector<FileContent> files;
    for (const QString& path : paths) {
        files.append(readWhole(path));
        if (!files.last().isRead())
            return failBecause(
                QStringLiteral("cannot read %1: %2").arg(files.last().name, files.last().problem));
    }
    const OverlayTrial trial(files.first().bytes, files.last().bytes);
    if (!trial.exists())
        return failBecause(QStringLiteral("%1 makes no form").arg(files.first().name));
    if (isJson)
        printBytes(overlayJson(trial));
    else
        print(overlayText(files.last().name, trial));
    return trial.losses().isEmpty() ? Clean : Findings;
}

} // namespace

const Subcommand overlayCommand = {
    "overlay",
    "says what an overlay changes in a live form, and what of it is lost",
    "Usage: zorva overlay [--format text|json] FORM OVERLAY\n"
    "Lays OVERLAY over the live form and says property by property what was and what is,\n"
    "which enumerations are filled anew, which of their identifiers scripts go on seeing as\n"
    "they were, and what of the overlay is cut off. One of both may be \"-\" for the standard\n"
    "input.\n"
    "\n"
    "Options:\n"
    "  --format text|json  how to say it (text)\n"
    "\n"
    "Ends with 0 if all of the overlay is taken, 1 if something is lost, 2 if a file could not\n"
    "be read.\n",
    Subcommand::Forms,
    run,
};
