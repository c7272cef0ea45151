#include "subcommand.h"
#include "terminal.h"

#include <author/check/checker.h>
#include <author/check/families.h>
#include <author/check/report.h>
#include <author/check/ruletexts.h>
#include <author/check/scripttrial.h>
#include <author/document/description.h>
#include <author/files/wholefile.h>

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

#include <cstdio>

using namespace Orvane::Author;

namespace {

const char* const help =
    "Usage: zorva check [OPTION...] FORM...\n"
    "Says what is wrong with descriptions and what it costs the form. A FORM is a file,\n"
    "a folder (all *.zorva files below it), or \"-\" for the standard input.\n"
    "\n"
    "  --format text|json|sarif      how to say it (text)\n"
    "  --fail-on error|warning|note  the least that counts as a finding (warning)\n"
    "  --explain ID                  all about one rule, with an example\n"
    "  --rules                       all about all rules, as Markdown\n"
    "\n"
    "Ends with 0 if there is nothing to say, 1 if there are findings that count, 2 if a\n"
    "file could not be read or nothing was checked. A comment\n"
    "<!-- zorva: allow ID reason --> in the description takes a finding out.\n";

enum class Format { Text, Json, Sarif };

struct Arguments
{
    Format format = Format::Text;
    Severity failOn = Severity::Warning;
    QStringList forms;
    QString explained;
    bool rules = false;
};

bool takeFormat(const QString& word, Arguments& arguments)
{
    const QStringList words{QStringLiteral("text"), QStringLiteral("json"), QStringLiteral("sarif")};
    arguments.format = static_cast<Format>(qMax(0, words.indexOf(word)));
    return words.contains(word);
}

bool takeFailOn(const QString& word, Arguments& arguments)
{
    const QStringList words{QStringLiteral("note"), QStringLiteral("warning"), QStringLiteral("error")};
    arguments.failOn = static_cast<Severity>(qMax(0, words.indexOf(word)));
    return words.contains(word);
}

bool takeExplained(const QString& word, Arguments& arguments)
{
    arguments.explained = word;
    return true;
}

/** Empty if all is well, else what is wrong with the words. */
QString parse(const QStringList& words, Arguments& arguments)
{
    static const struct
    {
        const char* name;
        bool (*take)(const QString&, Arguments&);
    } options[] = {{"--format", takeFormat}, {"--fail-on", takeFailOn}, {"--explain", takeExplained}};
    bool onlyForms = false;
    for (int i = 0; i < words.size(); ++i) {
        const QString& word = words.at(i);
        if (onlyForms || word == QLatin1String("-") || !word.startsWith(QLatin1Char('-'))) {
            arguments.forms.append(word);
            continue;
        }
        if (word == QLatin1String("--")) {
            onlyForms = true;
            continue;
        }
        if (word == QLatin1String("--rules")) {
            arguments.rules = true;
            continue;
        }
        const QString name = word.section(QLatin1Char('='), 0, 0);
        const auto* option = std::begin(options);
        while (option != std::end(options) && name != QLatin1String(option->name))
            ++option;
        if (option == std::end(options))
            return QStringLiteral("check: unknown option \"%1\"; see \"zorva check --help\"").arg(word);
        const bool joined = word.contains(QLatin1Char('='));
        const QString value = joined ? word.mid(name.size() + 1) : words.value(++i);
        if (value.isEmpty())
            return QStringLiteral("check: %1 needs a value; see \"zorva check --help\"").arg(name);
        if (!option->take(value, arguments))
            return QStringLiteral("check: \"%1\" is nothing for %2; see \"zorva check --help\"")
                .arg(value, name);
    }
    return QString();
}

int explain(const QString& id)
{
    if (const Rule* const rule = findRule(id))
        return printBytes(explanation(*rule).toLocal8Bit());
    const QString near = nearest(id, ruleIds());
    return fail(QStringLiteral("check: there is no rule \"%1\"; %2")
                    .arg(id, near.isEmpty()
                                 ? QStringLiteral("there is: ") + ruleIds().join(QLatin1String(", "))
                                 : QStringLiteral("did you mean \"%1\"?").arg(near)));
}

void toStandardOutput(const QByteArray& text)
{
    std::fwrite(text.constData(), 1, static_cast<size_t>(text.size()), stdout);
}

std::unique_ptr<Report> makeReport(Format format)
{
    switch (format) {
    case Format::Json:
        return makeJsonReport(toStandardOutput);
    case Format::Sarif:
        return makeSarifReport(toStandardOutput);
    case Format::Text:
        break;
    }
    return makeTextReport(toStandardOutput, mayBeColoured());
}

/** One run over all files that were named. */
class Run
{
public:
    explicit Run(const Arguments& arguments)
        : m_failOn(arguments.failOn)
        , m_report(makeReport(arguments.format))
        , m_scripts(QCoreApplication::applicationFilePath(), {QStringLiteral("serve-scripts")})
    {
    }

    int over(const QStringList& forms)
    {
        m_report->begin();
        for (const QString& form : forms) {
            if (form != QLatin1String("-") && QFileInfo(form).isDir())
                checkFolder(form);
            else
                checkFile(form);
        }
        m_report->end();
        if (m_checked == 0)
            fail(QStringLiteral("check: nothing was checked"));
        const bool isTold = printBytes(QByteArray()) == Clean;
        return m_failed || m_checked == 0 || !isTold ? Misuse : m_found ? Findings : Clean;
    }

private:
    void checkFolder(const QString& folder)
    {
        QStringList files;
        collectFiles(folder, files);
        files.sort();
        if (files.isEmpty())
            complain(QStringLiteral("no *.zorva file below \"%1\"").arg(folder));
        for (const QString& file : qAsConst(files))
            checkFile(file);
    }

    /** What cannot be looked at, such as a link that leads nowhere, must not look like checked. */
    void collectFiles(const QString& folder, QStringList& files)
    {
        const QDir directory(folder);
        if (!directory.isReadable())
            complain(QStringLiteral("cannot read the folder \"%1\"").arg(folder));
        for (const QFileInfo& entry :
             directory.entryInfoList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot)) {
            const bool isForm = entry.fileName().endsWith(QLatin1String(".zorva"));
            if (entry.isDir() && !entry.isSymLink())
                collectFiles(entry.filePath(), files);
            else if (isForm && entry.isFile())
                files.append(entry.filePath());
            else if (isForm && !entry.isDir())
                complain(QStringLiteral("cannot read \"%1\": it is no file").arg(entry.filePath()));
        }
    }

    void checkFile(const QString& name)
    {
        const FileContent content = readWhole(name);
        if (!content.isRead()) {
            complain(QStringLiteral("cannot read \"%1\": %2").arg(name, content.problem));
            return;
        }
        const CheckedFile checked = check(name, content.bytes, &m_scripts);
        m_report->add(checked);
        m_found = m_found || checked.has(m_failOn);
        ++m_checked;
    }

    void complain(const QString& message)
    {
        fail(QStringLiteral("check: ") + message);
        m_failed = true;
    }

    Severity m_failOn;
    std::unique_ptr<Report> m_report;
    ScriptRunner m_scripts;
    int m_checked = 0;
    bool m_found = false;
    bool m_failed = false;
};

int run(const QStringList& words)
{
    Arguments arguments;
    const QString wrong = parse(words, arguments);
    if (!wrong.isEmpty())
        return fail(wrong);
    if (!arguments.explained.isEmpty())
        return explain(arguments.explained);
    if (arguments.rules)
        return printBytes(rulePage().toUtf8());
    if (arguments.forms.isEmpty())
        return fail(QStringLiteral("check: no form given; see \"zorva check --help\""));
    return Run(arguments).over(arguments.forms);
}

} // namespace

const Subcommand checkCommand = {
    "check", "says what is wrong with descriptions and what it costs", help, Subcommand::Core, run,
};
