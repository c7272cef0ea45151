#include "commandline.h"

#include <QFile>
#include <QFileInfo>

namespace {

/** Qt's own options take one dash or two; how many arguments the one at hand uses up, 0 for none of them. */
int argumentsOfQtOption(const QString& argument)
{
    static const QStringList withValue = {
        QStringLiteral("display"),       QStringLiteral("geometry"),     QStringLiteral("platform"),
        QStringLiteral("platformtheme"), QStringLiteral("plugin"),       QStringLiteral("platformpluginpath"),
        QStringLiteral("qwindowicon"),   QStringLiteral("style"),        QStringLiteral("qwindowgeometry"),
        QStringLiteral("stylesheet"),    QStringLiteral("qwindowtitle"),
    };
    const QString name = argument.mid(argument.startsWith(QLatin1String("--")) ? 2 : 1);
    if (withValue.contains(name))
        return 2;
    const bool valueInside =
        name.startsWith(QLatin1String("style=")) || name.startsWith(QLatin1String("stylesheet="));
    return valueInside || name == QLatin1String("reverse") ? 1 : 0;
}

CommandLine mistake(const QString& text)
{
    CommandLine result;
    result.request = CommandLine::Request::Mistake;
    result.mistake = text;
    return result;
}

CommandLine request(CommandLine::Request what)
{
    CommandLine result;
    result.request = what;
    return result;
}

CommandLine fromWords(const QStringList& words)
{
    if (words.isEmpty())
        return mistake(QStringLiteral("no form given"));
    if (words.size() > 2)
        return mistake(QStringLiteral("too many arguments: %1").arg(words.at(2)));
    CommandLine result;
    result.path = words.first();
    result.option = words.value(1);
    if (result.path.isEmpty())
        return mistake(QStringLiteral("the file name is empty"));
    if (words.size() == 2 && result.option != QLatin1String("debug"))
        return mistake(
            QStringLiteral("unknown argument \"%1\"; only \"debug\" may follow the form").arg(result.option));
    if (words.size() == 2 && !namesForm(result.path))
        return mistake(QStringLiteral("\"debug\" goes with a single form (a name ending in .zorva)"));
    return result;
}

} // namespace

CommandLine readCommandLine(const QStringList& arguments)
{
    QStringList words;
    bool optionsEnded = false;
    for (int i = 1; i < arguments.size(); ++i) {
        const QString& argument = arguments.at(i);
        if (optionsEnded || !argument.startsWith(QLatin1Char('-'))) {
            words.append(argument);
            continue;
        }
        if (argument == QLatin1String("--help") || argument == QLatin1String("-h"))
            return request(CommandLine::Request::Help);
        if (argument == QLatin1String("--version") || argument == QLatin1String("-v"))
            return request(CommandLine::Request::Version);
        optionsEnded = argument == QLatin1String("--");
        const int used = optionsEnded ? 1 : argumentsOfQtOption(argument);
        if (used == 0)
            return mistake(QStringLiteral("unknown option %1").arg(argument));
        i += used - 1;
    }
    return fromWords(words);
}

QString usageText()
{
    return QStringLiteral("Usage: zorvashell FORM.zorva [debug]\n"
                          "       zorvashell LIST.xml\n"
                          "\n"
                          "Shows a form description, or the forms of a component list as tabs.\n"
                          "\n"
                          "  FORM.zorva   one form. Applied parameters are stored in ZorvaTest_test.xml in\n"
                          "               the working directory and read back at the next start.\n"
                          "  debug        stop the form's script in the debugger at its first statement\n"
                          "  LIST.xml     a component list (any other file name); nothing is stored\n"
                          "  -h, --help     show this text and end\n"
                          "  -v, --version  show the version and end\n"
                          "\n"
                          "Exit status: 0 when the window was closed, 1 when there is nothing to show\n"
                          "or the display is lost, 2 for a wrong command line.\n");
}

bool namesForm(const QString& path)
{
    return path.endsWith(QLatin1String(".zorva"));
}

QString whyUnreadable(const QString& path)
{
    const QFileInfo info(path);
    if (!info.exists())
        return QStringLiteral("there is no such file");
    if (info.isDir())
        return QStringLiteral("it is a folder");
    // A pipe or a device could keep the program waiting for ever.
    if (!info.isFile())
        return QStringLiteral("it is not a regular file");
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString() : file.errorString();
}
