#include "subcommand.h"
#include "terminal.h"
#include "watchdog.h"

#include <author/files/wholefile.h>
#include <author/picture/surroundings.h>
#include <author/strings/formstrings.h>
#include <author/strings/tsfile.h>

#include <QCommandLineParser>
#include <QDir>
#include <QFileInfo>

using namespace Orvane::Author;

namespace {

constexpr int longestTime = 60; // seconds of processor time
const char* const tooLong = "zorva: strings: the script of a form does not come to an end\n";

void prepare(const QStringList&)
{
    forgetDesktop();
}

int complain(const QString& message)
{
    return fail(QStringLiteral("strings: ") + message);
}

/** The texts of one form, with their places as the file of translations tells them. */
struct FormTexts
{
    QString form; // as given
    QVector<FormString> strings;
};

QVector<TsMessage> wantedIn(const QString& ts, const QVector<FormTexts>& forms)
{
    const QDir folder = QFileInfo(ts).absoluteDir();
    QVector<TsMessage> wanted;
    QHash<QString, int> known;
    for (const FormTexts& texts : forms) {
        const bool isFile = texts.form != QLatin1String("-");
        const QString name =
            isFile ? folder.relativeFilePath(QFileInfo(texts.form).absoluteFilePath()) : QString();
        for (const FormString& string : texts.strings) {
            const QString key = string.context + QChar(0) + string.source;
            if (!known.contains(key)) {
                TsMessage message;
                message.context = string.context;
                message.source = string.source;
                known.insert(key, wanted.size());
                wanted.append(message);
            }
            for (const int line : isFile ? string.lines : QVector<int>())
                wanted[known.value(key)].places.append({name, line});
        }
    }
    return wanted;
}

int read(const QStringList& paths, QVector<FormTexts>& forms)
{
    for (const QString& path : paths) {
        const FileContent content = readWhole(path);
        if (!content.isRead())
            return complain(QStringLiteral("cannot read %1: %2").arg(content.name, content.problem));
        const FormStrings strings = formStrings(content.bytes);
        if (!strings.hasForm)
            return complain(QStringLiteral("%1 holds no form").arg(content.name));
        forms.append({path, strings.strings});
    }
    return Clean;
}

int readTsFile(const QString& path, bool mayBeNew, TsFile& file)
{
    file.language = languageOfFile(path);
    if (path == QLatin1String("-") || (mayBeNew && !QFileInfo::exists(path)))
        return Clean;
    const FileContent content = readWhole(path);
    if (!content.isRead())
        return complain(QStringLiteral("cannot read %1: %2").arg(path, content.problem));
    file = readTs(content.bytes);
    return file.problem.isEmpty() ? Clean
                                  : complain(QStringLiteral("cannot read %1: %2").arg(path, file.problem));
}

int check(const QString& ts, const QVector<FormTexts>& forms)
{
    TsFile file;
    const int code = readTsFile(ts, false, file);
    if (code != Clean)
        return code;
    const QStringList points = openPoints(file, wantedIn(ts, forms));
    for (const QString& point : points)
        print(QStringLiteral("%1: %2\n").arg(ts, point));
    return points.isEmpty() ? Clean : Findings;
}

int update(const QString& ts, const QVector<FormTexts>& forms)
{
    TsFile file;
    const int code = readTsFile(ts, true, file);
    if (code != Clean)
        return code;
    const QByteArray bytes = writeTs(updatedTs(file, wantedIn(ts, forms)));
    if (ts == QLatin1String("-"))
        return printBytes(bytes);
    const QString problem = writeWhole(ts, bytes);
    return problem.isEmpty() ? Clean : complain(QStringLiteral("cannot write %1: %2").arg(ts, problem));
}

int run(const QStringList& words)
{
    QCommandLineParser parser;
    const QCommandLineOption ts(QStringLiteral("ts"), QString(), QStringLiteral("FILE"));
    const QCommandLineOption checkOnly(QStringLiteral("check"));
    parser.addOptions({ts, checkOnly});
    if (!parser.parse(QStringList(QStringLiteral("zorva")) + words))
        return complain(parser.errorText());
    const QStringList paths = parser.positionalArguments();
    if (paths.isEmpty())
        return complain(QStringLiteral("no form given; see \"zorva strings --help\""));
    if (!parser.isSet(ts))
        return complain(QStringLiteral("no file of translations given: --ts FORM_de.ts"));
    if (parser.isSet(checkOnly) && parser.values(ts).contains(QLatin1String("-")))
        return complain(QStringLiteral("--check wants a file of translations"));
    boundProcessorTime(longestTime, tooLong);
    QVector<FormTexts> forms;
    int worst = read(paths, forms);
    if (worst != Clean)
        return worst;
    for (const QString& file : parser.values(ts))
        worst = qMax(worst, parser.isSet(checkOnly) ? check(file, forms) : update(file, forms));
    return worst;
}

} // namespace

const Subcommand stringsCommand = {
    "strings",
    "takes the texts of forms to their translators",
    "Usage: zorva strings FORM... --ts FILE.ts... [--check]\n"
    "Brings files of translations up to date with forms: what they are asked for, with\n"
    "exactly the contexts that the running forms ask with. Translations stay, new texts are\n"
    "unfinished, and those that are gone are marked as Qt's tools do and come back with\n"
    "their text. Edit the file with linguist, and make what programs read with\n"
    "\"lrelease FORM_de.ts -qm FORM_de.qm\". One FORM may be - for the standard input.\n"
    "\n"
    "  --ts FILE.ts  the file; it is made if it is not there, in the language that its name\n"
    "                ends with (_de, _pt_BR); \"-\" writes a new one to the standard output.\n"
    "                May be repeated\n"
    "  --check       change nothing; tell what is not translated, not in the file, or in no\n"
    "                form any more, and end with 1 if there is something\n",
    Subcommand::Forms,
    run,
    prepare,
};
