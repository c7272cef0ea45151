#include "subcommand.h"
#include "terminal.h"
#include "watchdog.h"

#include <author/check/report.h>
#include <author/files/wholefile.h>
#include <author/live/language.h>
#include <author/parameters/differences.h>
#include <author/parameters/merge.h>
#include <author/parameters/parametercheck.h>
#include <author/parameters/parameterreports.h>

#include <QCommandLineParser>
#include <QFileInfo>

using namespace Orvane::Author;

namespace {

constexpr int longestTime = 60; // seconds of processor time
const char* const tooLong = "zorva: parameters: the script of the form does not come to an end\n";

const char* const help =
    "Usage: zorva parameters print [--modified] [--parameters P.xml] [--set PATH=TEXT] FORM\n"
    "       zorva parameters check FORM P.xml...\n"
    "       zorva parameters explain FORM P.xml\n"
    "       zorva parameters diff [--all | --patch] FORM A.xml B.xml\n"
    "       zorva parameters merge [--ours | --theirs] FORM BASE.xml A.xml B.xml\n"
    "Works on the settings of a form, its parameter XML, by the engine itself. One of the\n"
    "files may be \"-\" for the standard input.\n"
    "\n"
    "  print    the parameters of the form as it comes up\n"
    "  check    what of the parameters the form does not take, or takes for something else,\n"
    "           and whether its answer is the same when it is read again\n"
    "  explain  the parameters in the operator's words\n"
    "  diff     setting by setting: changed, only in A, only in B, unknown to the form, or\n"
    "           not sent by it; ends with 1 if there is a difference\n"
    "  merge    BASE with what A and B changed; where both did, each to something else, it\n"
    "           lists the conflicts, writes nothing and ends with 1\n"
    "\n"
    "Options:\n"
    "  --modified           print only what would be sent as modified; nothing if there is\n"
    "                       nothing\n"
    "  --parameters P.xml   let the form take these before\n"
    "  --set PATH=TEXT      write to a row as a host does, which marks it; may be repeated\n"
    "  --all                list what is equal as well\n"
    "  --patch              print parameter XML that makes B of a form with A\n"
    "  --ours, --theirs     in a conflict take the text of A, or of B\n"
    "  --format text|json   how to say it (text); print, --patch and merge give XML anyway\n"
    "  --fail-on error|warning|note\n"
    "                       the least finding that counts for check (warning)\n"
    "  -o FILE              write XML to FILE, by a complete new file, instead of to the\n"
    "                       standard output\n"
    "  --language LANG      the language of the words, as in de or de_CH\n"
    "  --translations DIR   look there for .qm files, FORM_LANG.qm among them; may be\n"
    "                       repeated\n";

/** The words of the command line, and what several actions do with them. */
class Call
{
public:
    Call();

    /** An exit code that is not Clean if the words make no sense. */
    int parse(const QStringList& arguments);
    int run();

private:
    struct Action
    {
        const char* name;
        int least; // files behind the form
        int most;
        const char* options; // that it takes beside those of all
        int (Call::*run)();
    };

    static const Action actions[];

    int checkWords();
    bool isJson() const { return m_parser.value(m_format) == QLatin1String("json"); }
    int failBecause(const QString& why) const { return fail(QStringLiteral("parameters: ") + why); }
    /** Reads all files, and brings the form to life. */
    int open();
    ParameterSet set(int index) const
    {
        return ParameterSet(m_form->rows(), SourceText(m_files.at(index).bytes));
    }
    QString text(int index) const { return SourceText(m_files.at(index).bytes).text(); }
    int write(const QString& xml) const;

    int printParameters();
    int check();
    int explain();
    int diff();
    int printPatch();
    int merge();

    QCommandLineParser m_parser;
    QCommandLineOption m_modified{QStringLiteral("modified")};
    QCommandLineOption m_parameters{QStringLiteral("parameters"), QString(), QStringLiteral("FILE")};
    QCommandLineOption m_set{QStringLiteral("set"), QString(), QStringLiteral("PATH=TEXT")};
    QCommandLineOption m_all{QStringLiteral("all")};
    QCommandLineOption m_patch{QStringLiteral("patch")};
    QCommandLineOption m_ours{QStringLiteral("ours")};
    QCommandLineOption m_theirs{QStringLiteral("theirs")};
    QCommandLineOption m_format{QStringLiteral("format"), QString(), QStringLiteral("FORMAT"),
                                QStringLiteral("text")};
    QCommandLineOption m_failOn{QStringLiteral("fail-on"), QString(), QStringLiteral("SEVERITY"),
                                QStringLiteral("warning")};
    QCommandLineOption m_output{QStringLiteral("o"), QString(), QStringLiteral("FILE")};
    QCommandLineOption m_language{QStringLiteral("language"), QString(), QStringLiteral("LANG")};
    QCommandLineOption m_translations{QStringLiteral("translations"), QString(), QStringLiteral("DIR")};

    const Action* m_action = nullptr;
    QStringList m_paths;
    QVector<FileContent> m_files; // behind the form
    FileContent m_description;
    std::unique_ptr<SettingsForm> m_form;
};

const Call::Action Call::actions[] = {
    {"print", 0, 0, "modified parameters set o", &Call::printParameters},
    {"check", 1, 1000, "fail-on format", &Call::check},
    {"explain", 1, 1, "format", &Call::explain},
    {"diff", 2, 2, "all patch format o", &Call::diff},
    {"merge", 3, 3, "ours theirs format o", &Call::merge},
};

Call::Call()
{
    m_parser.addOptions({m_modified, m_parameters, m_set, m_all, m_patch, m_ours, m_theirs, m_format,
                         m_failOn, m_output, m_language, m_translations});
}

int Call::parse(const QStringList& arguments)
{
    if (!m_parser.parse(QStringList(QStringLiteral("zorva")) + arguments))
        return failBecause(m_parser.errorText());
    m_paths = m_parser.positionalArguments();
    const QString word = m_paths.isEmpty() ? QString() : m_paths.takeFirst();
    for (const Action& action : actions) {
        if (word == QLatin1String(action.name))
            m_action = &action;
    }
    if (!m_action)
        return failBecause(
            QStringLiteral("\"%1\" is nothing to do; there is: print, check, explain, diff, merge")
                .arg(word));
    return checkWords();
}

int Call::checkWords()
{
    const QStringList known = QString::fromLatin1(m_action->options).split(QLatin1Char(' ')) +
                              QStringList{QStringLiteral("language"), QStringLiteral("translations")};
    for (const QString& option : m_parser.optionNames()) {
        if (!known.contains(option))
            return failBecause(QStringLiteral("%1 takes no %2%3")
                                   .arg(QLatin1String(m_action->name),
                                        QLatin1String(option.size() > 1 ? "--" : "-"), option));
    }
    const int files = m_paths.size() - 1;
    if (files < m_action->least || files > m_action->most)
        return failBecause(QStringLiteral("%1 wants a form%2; see \"zorva parameters --help\"")
                               .arg(QLatin1String(m_action->name),
                                    m_action->least == 0
                                        ? QString()
                                        : QStringLiteral(" and %1 parameter file%2")
                                              .arg(m_action->least)
                                              .arg(QLatin1String(m_action->least > 1 ? "s" : ""))));
    if ((m_paths + m_parser.values(m_parameters)).count(QStringLiteral("-")) > 1)
        return failBecause(QStringLiteral("the standard input can be one file only"));
    if (!QStringList({QStringLiteral("text"), QStringLiteral("json")}).contains(m_parser.value(m_format)))
        return failBecause(QStringLiteral("\"%1\" is nothing for --format").arg(m_parser.value(m_format)));
    if (!QStringList({QStringLiteral("note"), QStringLiteral("warning"), QStringLiteral("error")})
             .contains(m_parser.value(m_failOn)))
        return failBecause(QStringLiteral("\"%1\" is nothing for --fail-on").arg(m_parser.value(m_failOn)));
    if (m_parser.isSet(m_ours) && m_parser.isSet(m_theirs))
        return failBecause(QStringLiteral("--ours and --theirs exclude each other"));
    if (m_parser.isSet(m_output) && m_action->run == &Call::diff && !m_parser.isSet(m_patch))
        return failBecause(QStringLiteral("diff takes -o with --patch only"));
    return Clean;
}

int Call::open()
{
    const QString problem = speak(m_parser.value(m_language), m_parser.values(m_translations));
    if (!problem.isEmpty())
        return failBecause(problem);
    for (const QString& path : m_paths + m_parser.values(m_parameters)) {
        const FileContent file = readWhole(path);
        if (!file.isRead())
            return failBecause(QStringLiteral("cannot read %1: %2").arg(file.name, file.problem));
        m_files.append(file);
    }
    m_description = m_files.takeFirst();
    m_form = std::make_unique<SettingsForm>(SourceText(m_description.bytes).engineBytes(),
                                            QFileInfo(m_description.name).completeBaseName());
    return m_form->exists() ? Clean : failBecause(QStringLiteral("%1 makes no form").arg(m_description.name));
}

int Call::run()
{
    boundProcessorTime(longestTime, tooLong);
    const int code = open();
    return code == Clean ? (this->*m_action->run)() : code;
}

int Call::write(const QString& xml) const
{
    if (!m_parser.isSet(m_output))
        return printBytes(xml.toUtf8());
    const QString problem = writeWhole(m_parser.value(m_output), xml.toUtf8());
    return problem.isEmpty()
               ? Clean
               : failBecause(QStringLiteral("cannot write %1: %2").arg(m_parser.value(m_output), problem));
}

int Call::printParameters()
{
    Orvane::ZorvaFormular& form = m_form->form();
    for (int i = 0; i < m_files.size(); ++i)
        form.SetXmlString(text(i));
    for (const QString& word : m_parser.values(m_set)) {
        const QString path = word.section(QLatin1Char('='), 0, 0);
        if (!form.GetVTValue(path))
            return failBecause(QStringLiteral("the form has no row \"%1\" with a value").arg(path));
        form.SetVTValue(path, word.mid(path.size() + 1), nullptr, false);
    }
    const QString xml = form.GetXmlString(m_parser.isSet(m_modified));
    return xml.isNull() ? Clean : write(xml + QLatin1Char('\n'));
}

int Call::check()
{
    const auto report =
        isJson() ? makeJsonReport([](const QByteArray& bytes) { printBytes(bytes); })
                 : makeTextReport([](const QByteArray& bytes) { printBytes(bytes); }, mayBeColoured());
    const QString failOn = m_parser.value(m_failOn);
    const Severity least = failOn == QLatin1String("error")     ? Severity::Error
                           : failOn == QLatin1String("warning") ? Severity::Warning
                                                                : Severity::Note;
    bool found = false;
    report->begin();
    for (const FileContent& file : qAsConst(m_files)) {
        // What one file leaves in a form is nothing to the next one.
        const SettingsForm form(SourceText(m_description.bytes).engineBytes());
        const CheckedFile checked = checkParameters(form, file.name, file.bytes);
        report->add(checked);
        found = found || checked.has(least);
    }
    report->end();
    return found ? Findings : Clean;
}

int Call::explain()
{
    const ParameterSet parameters = set(0);
    if (isJson())
        return printBytes(explanationJson(*m_form, parameters));
    print(explanationText(*m_form, parameters));
    return Clean;
}

int Call::diff()
{
    if (m_parser.isSet(m_patch))
        return printPatch();
    const QVector<Difference> all = differences(*m_form, set(0), set(1));
    if (isJson())
        printBytes(differencesJson(all));
    else
        print(differencesText(all, m_parser.isSet(m_all)));
    const auto differs = [](const Difference& one) { return one.isDifferent; };
    return std::any_of(all.cbegin(), all.cend(), differs) ? Findings : Clean;
}

int Call::printPatch()
{
    const Patch made = patch(*m_form, text(0), text(1));
    const int code = write(made.xml);
    for (const QString& name : made.unreachable)
        fail(QStringLiteral("parameters: %1 comes out otherwise than in B: the form's script decides on it")
                 .arg(name));
    return code == Clean && !made.unreachable.isEmpty() ? Findings : code;
}

int Call::merge()
{
    const Preference preference = m_parser.isSet(m_ours)     ? Preference::Ours
                                  : m_parser.isSet(m_theirs) ? Preference::Theirs
                                                             : Preference::Neither;
    const Merge merged = Orvane::Author::merge(*m_form, set(0), set(1), set(2), preference);
    if (merged.conflicts.isEmpty() || preference != Preference::Neither)
        return write(merged.xml);
    if (isJson())
        printBytes(conflictsJson(merged.conflicts));
    else
        print(conflictsText(merged.conflicts));
    return Findings;
}

int run(const QStringList& arguments)
{
    Call call;
    const int code = call.parse(arguments);
    return code == Clean ? call.run() : code;
}

} // namespace

const Subcommand parametersCommand = {
    "parameters", "explains, checks, compares and merges settings", help, Subcommand::Forms, run,
};
