#include "zorvarun.h"

#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

namespace {

QString readme()
{
    QFile file(QStringLiteral(ZORVA_SOURCE_DIR "/README.md"));
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

/// What the completion offers for the last of the words.
QStringList completions(const QStringList& words)
{
    const QString script =
        QStringLiteral("source \"$1\"; shift; COMP_WORDS=(\"$@\"); COMP_CWORD=$(($# - 1)); _zorva; "
                       "printf '%s\\n' \"${COMPREPLY[@]}\"");
    const QStringList arguments = {QStringLiteral("-c"), script, QStringLiteral("bash"),
                                   QStringLiteral(ZORVA_SOURCE_DIR "/packaging/completions/zorva"),
                                   QStringLiteral(ZORVA_PROGRAM)};
    return runProgram(QStringLiteral("bash"), arguments + words)
        .output.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
}

} // namespace

/// What all subcommands have in common: help, version, mistakes, exit codes.
class TestZorva : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void frame_data();
    void frame();
    void everySubcommandHasHelp();
    void kindsTellsAllAboutOne();
    void everySubcommandIsInTheManual();
    void completion_data();
    void completion();
    void theReadmeTellsTheTruth();
    void noDesktopIsAsked_data();
    void noDesktopIsAsked();

private:
    QStringList subcommands() const;
};

QStringList TestZorva::subcommands() const
{
    const QString overview = runZorva({QStringLiteral("--help")}).output;
    const QString list =
        overview.section(QStringLiteral("Subcommands:\n"), 1).section(QStringLiteral("\n\n"), 0, 0);
    QStringList names;
    for (const QString& line : list.split(QLatin1Char('\n')))
        names << line.trimmed().section(QLatin1Char(' '), 0, 0);
    return names;
}

void TestZorva::noDesktopIsAsked_data()
{
    QTest::addColumn<QString>("words");
    QTest::addColumn<int>("code");
    QTest::newRow("parameters") << QStringLiteral("parameters print receiver.zorva") << 0;
    QTest::newRow("compare") << QStringLiteral("compare receiver.zorva receiver.zorva") << 0;
    QTest::newRow("overlay") << QStringLiteral("overlay receiver.zorva receiver.zorva") << 1; // with findings
    QTest::newRow("test") << QStringLiteral("test receiver.zorva receiver.tests.js") << 0;
    QTest::newRow("check") << QStringLiteral("check receiver.zorva") << 0;
}

// Themes and styles of a desktop may look for a display, and end a program that has none.
void TestZorva::noDesktopIsAsked()
{
    QFETCH(QString, words);
    const QStringList bare{QStringLiteral("-u"), QStringLiteral("QT_QPA_PLATFORM"),
                           QStringLiteral("QT_STYLE_OVERRIDE=of-the-desktop"), QStringLiteral(ZORVA_PROGRAM)};
    const ZorvaRun ran = runProgram(QStringLiteral("env"), bare + words.split(QLatin1Char(' ')), QByteArray(),
                                    QStringLiteral(ZORVA_EXAMPLES_DIR));
    QTEST(ran.code, "code");
    QVERIFY2(!ran.errors.contains(QLatin1String("of-the-desktop")), qPrintable(ran.errors));
}

void TestZorva::frame_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<int>("code");
    QTest::addColumn<QString>("output");
    QTest::addColumn<QString>("errors");
    const QString none;
    QTest::newRow("help") << QStringList{QStringLiteral("--help")} << 0 << QStringLiteral("Usage: zorva")
                          << none;
    QTest::newRow("short help") << QStringList{QStringLiteral("-h")} << 0 << QStringLiteral("  kinds ")
                                << none;
    QTest::newRow("version") << QStringList{QStringLiteral("--version")} << 0
                             << QStringLiteral("zorva " ZORVA_VERSION "\n") << none;
    QTest::newRow("nothing") << QStringList() << 2 << none << QStringLiteral("there is: ");
    QTest::newRow("unknown subcommand") << QStringList{QStringLiteral("kind")} << 2 << none
                                        << QStringLiteral("unknown subcommand \"kind\"; there is: ");
    QTest::newRow("list of kinds") << QStringList{QStringLiteral("kinds")} << 0 << QStringLiteral("ComboBox ")
                                   << none;
    QTest::newRow("unknown kind") << QStringList{QStringLiteral("kinds"), QStringLiteral("Combobox")} << 2
                                  << none << QStringLiteral("no class \"Combobox\"");
    QTest::newRow("too many") << QStringList{QStringLiteral("kinds"), QStringLiteral("Label"),
                                             QStringLiteral("x")}
                              << 2 << none << QStringLiteral("too many arguments: x");
}

void TestZorva::frame()
{
    QFETCH(QStringList, arguments);
    QFETCH(int, code);
    QFETCH(QString, output);
    QFETCH(QString, errors);
    const ZorvaRun run = runZorva(arguments);
    QCOMPARE(run.code, code);
    QVERIFY2(output.isEmpty() ? run.output.isEmpty() : run.output.contains(output), qPrintable(run.output));
    QVERIFY2(errors.isEmpty() ? run.errors.isEmpty() : run.errors.contains(errors), qPrintable(run.errors));
}

void TestZorva::everySubcommandHasHelp()
{
    QVERIFY(subcommands().size() > 3);
    for (const QString& name : subcommands()) {
        const ZorvaRun run = runZorva({name, QStringLiteral("--help")});
        QCOMPARE(run.code, 0);
        QVERIFY2(run.output.startsWith(QStringLiteral("Usage: zorva %1").arg(name)), qPrintable(run.output));
    }
}

void TestZorva::everySubcommandIsInTheManual()
{
    QFile page(QStringLiteral(ZORVA_SOURCE_DIR "/packaging/man/zorva.1"));
    QVERIFY(page.open(QIODevice::ReadOnly));
    const QString text = QString::fromUtf8(page.readAll());
    for (const QString& name : subcommands())
        QVERIFY2(text.contains(QStringLiteral("\n.SS \"zorva %1").arg(name)), qPrintable(name));
}

void TestZorva::completion_data()
{
    QTest::addColumn<QStringList>("words");
    QTest::addColumn<QStringList>("offered");
    const auto words = [](const char* text) { return QString::fromLatin1(text).split(QLatin1Char(',')); };
    QTest::newRow("subcommand") << words("for") << words("format");
    QTest::newRow("several subcommands")
        << words("")
        << words("check,compare,format,kinds,manual,new,overlay,parameters,schema,show,strings,test,--help");
    QTest::newRow("option of all") << words("--v") << words("--version");
    QTest::newRow("option of one") << words("format,--in") << words("--in-place");
    QTest::newRow("option without a form") << words("new,--k") << words("--kind");
    QTest::newRow("option of pictures") << words("show,--base") << words("--baseline");
    QTest::newRow("class") << words("kinds,Combo") << words("ComboBox");
    QTest::newRow("action") << words("parameters,me") << words("merge");
    QTest::newRow("word of an option") << words("check,--format,j") << words("json");
    QTest::newRow("words of an option") << words("check,--fail-on,") << words("error,warning,note");
    QTest::newRow("word of a joined option") << words("check,--format,=,sa") << words("sarif");
    QTest::newRow("words of a joined option") << words("check,--format,=") << words("text,json,sarif");
    QTest::newRow("word of an option in the usage") << words("new,--kind,m") << words("minimal");
    QTest::newRow("rule") << words("check,--explain,stray-e") << words("stray-element");
    QTest::newRow("nothing there") << words("kinds,Nonsense") << QStringList();
}

void TestZorva::completion()
{
    QFETCH(QStringList, words);
    QFETCH(QStringList, offered);
    const QStringList found = completions(words);
    for (const QString& word : offered)
        QVERIFY2(found.contains(word), qPrintable(found.join(QLatin1Char(' '))));
    if (offered.size() < 2)
        QCOMPARE(found, offered);
}

// The answer that the page shows is the one that the program gives.
void TestZorva::theReadmeTellsTheTruth()
{
    const QString page = readme();
    const QString form = page.section(QStringLiteral("```xml\n"), 1).section(QStringLiteral("```"), 0, 0);
    const QString answer =
        page.section(QStringLiteral("answers\n\n```\n"), 1).section(QStringLiteral("```"), 0, 0);
    QVERIFY(form.contains(QStringLiteral("class=\"CheckBox\"")));
    QVERIFY(!answer.isEmpty());
    const QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("first.zorva")));
    const QStringList check = {QStringLiteral("check"), QStringLiteral("first.zorva")};
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(form.toUtf8());
    file.close();
    const ZorvaRun clean = runZorva(check, QByteArray(), folder.path());
    QCOMPARE(clean.code, 0);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(
        QString(form).replace(QStringLiteral("\"CheckBox\""), QStringLiteral("\"Checkbox\"")).toUtf8());
    file.close();
    const ZorvaRun run = runZorva(check, QByteArray(), folder.path());
    QCOMPARE(run.code, 1);
    QCOMPARE(run.output, answer);
}

void TestZorva::kindsTellsAllAboutOne()
{
    const QString text = runZorva({QStringLiteral("kinds"), QStringLiteral("ComboBox")}).output;
    for (const char* part : {"enumName", "labelText", "currentValueChanged(value)", "setCurrentIndex(index)",
                             "firstIndexOfValue(value)", "Parameter XML"})
        QVERIFY2(text.contains(QLatin1String(part)), part);
}

QTEST_APPLESS_MAIN(TestZorva)
#include "tst_zorva.moc"
