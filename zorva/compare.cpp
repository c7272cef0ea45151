#include "subcommand.h"
#include "terminal.h"
#include "watchdog.h"

#include <author/compatibility/comparison.h>
#include <author/files/wholefile.h>

#include <QCommandLineParser>

using namespace Orvane::Author;

namespace {

constexpr int longestTime = 60; // seconds of processor time
const char* const tooLong = "zorva: compare: the script of a form does not come to an end\n";

int failBecause(const QString& why)
{
    return fail(QStringLiteral("compare: ") + why);
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
        return failBecause(QStringLiteral("an old and a new form are wanted; see \"zorva compare --help\""));
    if (paths.first() == QLatin1String("-") && paths.last() == QLatin1String("-"))
        return failBecause(QStringLiteral("the standard input can be one form only"));
    boundProcessorTime(longestTime, tooLong);
    QVector<FormInventory> forms;
    for (const QString& path : paths) {
        const FileContent file = readWhole(path);
        if (!file.isRead())
            return failBecause(QStringLiteral("cannot read %1: %2").arg(file.name, file.problem));
        forms.append(FormInventory(file.bytes));
        if (!forms.last().exists())
            return failBecause(QStringLiteral("%1 makes no form").arg(file.name));
    }
    const QVector<FormChange> changes = compareForms(forms.first(), forms.last());
    if (isJson)
        printBytes(changesJson(changes));
    else
        print(changesText(paths.first(), paths.last(), changes));
    const auto isBreaking = [](const FormChange& change) { return change.breaking; };
    return std::any_of(changes.cbegin(), changes.cend(), isBreaking) ? Findings : Clean;
}

} // namespace

const Subcommand compareCommand = {
    "compare",
    "says what a new form takes from those who rely on an old one",
    "Usage: zorva compare [--format text|json] OLD NEW\n"
    "Says in what NEW differs from OLD for stored parameters, hosts and scripts, and which\n"
    "of it breaks them: rows and choices that are gone, paths that moved, other classes,\n"
    "narrower limits, other units, script objects that have another name. One of both may\n"
    "be \"-\" for the standard input.\n"
    "\n"
    "Options:\n"
    "  --format text|json  how to say it (text)\n"
    "\n"
    "Ends with 0 if nothing breaks, 1 if something does, 2 if a form could not be read.\n",
    Subcommand::Forms,
    run,
};
