#include "subcommand.h"
#include "terminal.h"

#include <author/templates/templates.h>

#include <QCommandLineParser>
#include <QFile>

using namespace Orvane::Author;

namespace {

int writeNew(const QString& path, const QByteArray& form)
{
    QFile file(path);
    // Somebody's work may be in a file of that name.
    if (!file.open(QIODevice::WriteOnly | QIODevice::NewOnly))
        return fail(
            QStringLiteral("new: cannot make %1: %2")
                .arg(path, QFile::exists(path) ? QStringLiteral("it is there already") : file.errorString()));
    if (file.write(form) != form.size() || !file.flush())
        return fail(QStringLiteral("new: cannot write %1: %2").arg(path, file.errorString()));
    return Clean;
}

int run(const QStringList& arguments)
{
    QCommandLineParser parser;
    const QCommandLineOption kind(QStringLiteral("kind"), QString(), QStringLiteral("KIND"),
                                  QStringLiteral("receiver"));
    const QCommandLineOption output(QStringLiteral("o"), QString(), QStringLiteral("FILE"));
    parser.addOptions({kind, output});
    if (!parser.parse(QStringList(QStringLiteral("zorva")) + arguments))
        return fail(QStringLiteral("new: %1").arg(parser.errorText()));
    if (!parser.positionalArguments().isEmpty())
        return fail(QStringLiteral("new: too many arguments: %1").arg(parser.positionalArguments().first()));
    const QByteArray form = formTemplate(parser.value(kind));
    if (form.isEmpty())
        return fail(QStringLiteral("new: no kind \"%1\"; there is: %2")
                        .arg(parser.value(kind), formTemplateNames().join(QLatin1String(", "))));
    return parser.isSet(output) ? writeNew(parser.value(output), form) : printBytes(form);
}

} // namespace

const Subcommand newCommand = {
    "new",
    "writes a small commented form to begin with",
    "Usage: zorva new [--kind receiver|minimal] [-o FILE]\n"
    "Writes a form to begin with: commented, complete, and without findings.\n\n"
    "Options:\n"
    "  --kind KIND  receiver (the default): a tuner with a mode, a squelch and a script;\n"
    "               minimal: one row\n"
    "  -o FILE      write to FILE, which must not be there yet; without it, to the\n"
    "               standard output\n",
    Subcommand::Core,
    run,
};
