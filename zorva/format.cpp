#include "subcommand.h"
#include "terminal.h"

#include <author/files/wholefile.h>
#include <author/format/formatter.h>

#include <QCommandLineParser>

using namespace Orvane::Author;

namespace {

enum class Mode { Print, Replace, Check };

int formatOne(const QString& path, Mode mode)
{
    const FileContent source = readWhole(path);
    if (!source.isRead())
        return fail(QStringLiteral("format: cannot read %1: %2").arg(source.name, source.problem));
    const FormattedText formatted = formatDescription(source.bytes);
    if (formatted.isRefused())
        return fail(QStringLiteral("format: %1:%2:%3: %4; left as it is")
                        .arg(source.name)
                        .arg(formatted.line)
                        .arg(formatted.column)
                        .arg(formatted.problem));
    if (mode == Mode::Print)
        return printBytes(formatted.bytes);
    if (formatted.bytes == source.bytes)
        return Clean;
    if (mode == Mode::Replace) {
        const QString problem = writeWhole(path, formatted.bytes);
        return problem.isEmpty() ? Clean
                                 : fail(QStringLiteral("format: cannot write %1: %2").arg(path, problem));
    }
    print(QStringLiteral("%1: would be laid out anew\n").arg(source.name));
    return Findings;
}

int run(const QStringList& arguments)
{
    QCommandLineParser parser;
    const QCommandLineOption inPlace(QStringList{QStringLiteral("i"), QStringLiteral("in-place")});
    const QCommandLineOption check(QStringLiteral("check"));
    parser.addOptions({inPlace, check});
    if (!parser.parse(QStringList(QStringLiteral("zorva")) + arguments))
        return fail(QStringLiteral("format: %1").arg(parser.errorText()));
    const QStringList paths = parser.positionalArguments();
    if (paths.isEmpty())
        return fail(QStringLiteral("format: no form given"));
    if (parser.isSet(inPlace) && (parser.isSet(check) || paths.contains(QLatin1String("-"))))
        return fail(QStringLiteral("format: --in-place goes with files and without --check"));
    if (paths.size() > 1 && !parser.isSet(inPlace) && !parser.isSet(check))
        return fail(QStringLiteral("format: several forms need --in-place or --check"));
    const Mode mode = parser.isSet(inPlace) ? Mode::Replace : parser.isSet(check) ? Mode::Check : Mode::Print;
    int worst = Clean;
    for (const QString& path : paths)
        worst = qMax(worst, formatOne(path, mode));
    return worst;
}

} // namespace

const Subcommand formatCommand = {
    "format",
    "lays out the XML text of forms",
    "Usage: zorva format [-i | --check] FORM...\n"
    "Lays out the XML text: one element a line, two blanks a level. Comments, order,\n"
    "texts, encoding and line ends stay, and so does the live form. A form that is not\n"
    "well-formed is left as it is. FORM may be - for the standard input.\n\n"
    "Options:\n"
    "  -i, --in-place  write the result back into each file; without it, to the\n"
    "                  standard output\n"
    "  --check         change nothing; name the files that would change, and end with 1\n"
    "                  if there are some\n",
    Subcommand::Core,
    run,
};
