#include "commandline.h"

#include <QFile>
#include <QFileInfo>

#include <utility>

namespace {

/** Qt's own options take one dash or two; how many arguments the one at hand uses up, 0 for none of them. */
int argumentsOfQtOption(const QString& argument)
{
    static const QStringList withValue = {
        QStringLiteral("display"),       QStringLiteral("geometry"),     QStringLiteral("platform"),
        QStringLiteral("platformtheme"), QStringLiteral("plugin"),       QStringLiteral("platformpluginpath"),
        QStringLiteral("qwindowicon"),   QStringLiteral("style"),        QStringLiteral("qwindowgeometry"),
        QStringLiteral("stylesheet"),    QStringLiteral("qwindowtitle"), QStringLiteral("session"),
        QStringLiteral("title"),         QStringLiteral("icon"),         QStringLiteral("name"),
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

/** The options of this program that have a value, and where it goes. */
struct ValueOption
{
    const char* name;
    QString CommandLine::*single; // null: the option may come several times
    QStringList CommandLine::*several;
};

const ValueOption valueOptions[] = {
    {"--overlay", nullptr, &CommandLine::overlays},
    {"--set", nullptr, &CommandLine::parameters},
    {"--settings", &CommandLine::settings, nullptr},
    {"--language", &CommandLine::language, nullptr},
    {"--translations", nullptr, &CommandLine::translationFolders},
};

/** Reads the words one by one. */
class Reader
{
public:
    explicit Reader(QStringList arguments)
        : m_rest(std::move(arguments))
    {
    }

    CommandLine read();

private:
    /** False if the reading ends here: with a request other than to show. */
    bool takeOption(const QString& argument);
    bool takeValueOption(const QString& argument);
    bool takeFlag(const QString& argument);
    bool takeWords();
    bool fail(const QString& text);
    QString checkOptions() const;

    QStringList m_rest;
    QStringList m_words;
    CommandLine m_line;
};

CommandLine Reader::read()
{
    bool optionsEnded = false;
    while (!m_rest.isEmpty()) {
        const QString argument = m_rest.takeFirst();
        if (optionsEnded || !argument.startsWith(QLatin1Char('-')))
            m_words.append(argument);
        else if (argument == QLatin1String("--"))
            optionsEnded = true;
        else if (!takeOption(argument))
            return m_line;
    }
    takeWords();
    return m_line;
}

bool Reader::takeOption(const QString& argument)
{
    if (argument == QLatin1String("--help") || argument == QLatin1String("-h")) {
        m_line = request(CommandLine::Request::Help);
        return false;
    }
    if (argument == QLatin1String("--version") || argument == QLatin1String("-v")) {
        m_line = request(CommandLine::Request::Version);
        return false;
    }
    if (takeFlag(argument))
        return true;
    if (takeValueOption(argument))
        return m_line.request == CommandLine::Request::Show;
    const int used = argumentsOfQtOption(argument);
    if (used == 0)
        return fail(QStringLiteral("unknown option %1").arg(argument));
    if (used == 2 && !m_rest.isEmpty())
        m_rest.removeFirst();
    return true;
}

bool Reader::takeFlag(const QString& argument)
{
    if (argument == QLatin1String("--fresh"))
        m_line.fresh = true;
    else if (argument == QLatin1String("--watch"))
        m_line.watch = true;
    else
        return false;
    return true;
}

// True if it is one of these options, also if its value is missing.
bool Reader::takeValueOption(const QString& argument)
{
    for (const ValueOption& option : valueOptions) {
        const QLatin1String name(option.name);
        const bool hasValueInside =
            argument.startsWith(name) && argument.mid(name.size()).startsWith(QLatin1Char('='));
        if (argument != name && !hasValueInside)
            continue;
        if (!hasValueInside && m_rest.isEmpty()) {
            fail(QStringLiteral("%1 needs a value").arg(name));
            return true;
        }
        const QString value = hasValueInside ? argument.mid(name.size() + 1) : m_rest.takeFirst();
        if (value.isEmpty())
            fail(QStringLiteral("the value of %1 is empty").arg(name));
        else if (option.several)
            (m_line.*option.several).append(value);
        else
            m_line.*option.single = value;
        return true;
    }
    return false;
}

bool Reader::takeWords()
{
    if (m_words.isEmpty())
        return fail(QStringLiteral("no form given"));
    if (m_words.size() > 2)
        return fail(QStringLiteral("too many arguments: %1").arg(m_words.at(2)));
    m_line.path = m_words.first();
    m_line.option = m_words.value(1);
    if (m_line.path.isEmpty())
        return fail(QStringLiteral("the file name is empty"));
    if (m_words.size() == 2 && m_line.option != QLatin1String("debug"))
        return fail(
            QStringLiteral("unknown argument \"%1\"; only \"debug\" may follow the form").arg(m_line.option));
    if (m_line.watch && !m_line.option.isEmpty())
        return fail(QStringLiteral("--watch does not go with \"debug\": a stopped script cannot be let go"));
    const QString misplaced = namesForm(m_line.path) ? QString() : checkOptions();
    return misplaced.isEmpty() ||
           fail(QStringLiteral("%1 goes with a single form (a name ending in .zorva)").arg(misplaced));
}

/** What a list of components has no use for; empty if nothing of it was asked for. */
QString Reader::checkOptions() const
{
    if (!m_line.option.isEmpty())
        return QStringLiteral("\"debug\"");
    if (!m_line.overlays.isEmpty())
        return QStringLiteral("--overlay");
    if (!m_line.parameters.isEmpty())
        return QStringLiteral("--set");
    if (!m_line.settings.isEmpty())
        return QStringLiteral("--settings");
    if (m_line.watch)
        return QStringLiteral("--watch");
    return m_line.fresh ? QStringLiteral("--fresh") : QString();
}

bool Reader::fail(const QString& text)
{
    m_line = mistake(text);
    return false;
}

} // namespace

CommandLine readCommandLine(const QStringList& arguments)
{
    return Reader(arguments.mid(1)).read();
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
                          "\n"
                          "Options for a single form:\n"
                          "  --overlay FILE   lay a partial description over it; may be repeated\n"
                          "  --set FILE       take parameter XML, after the stored one; may be repeated\n"
                          "  --settings FILE  store the parameters there, and read them from there\n"
                          "  --fresh          do not read the stored parameters\n"
                          "  --watch          read the form again whenever it or an overlay is saved\n"
                          "\n"
                          "Options for both:\n"
                          "  --language LANG     the language of the captions, as in de or de_CH\n"
                          "  --translations DIR  look there for .qm files, FORM_LANG.qm among them; may be\n"
                          "                      repeated, the last one comes first\n"
                          "  -h, --help     show this text and end\n"
                          "  -v, --version  show the version and end\n"
                          "Qt's own options, such as -style and -platform, are accepted as well.\n"
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
