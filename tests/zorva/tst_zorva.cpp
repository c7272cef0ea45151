#include <QProcess>
#include <QTest>

namespace {

/// What one run of the program left behind.
struct Run
{
    int code = -1;
    QString output;
    QString errors;
};

Run runZorva(const QStringList& arguments)
{
    QProcess process;
    process.start(QStringLiteral(ZORVA_PROGRAM), arguments);
    if (!process.waitForFinished(60000) || process.exitStatus() != QProcess::NormalExit)
        return Run();
    return {process.exitCode(), QString::fromLocal8Bit(process.readAllStandardOutput()),
            QString::fromLocal8Bit(process.readAllStandardError())};
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
};

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
    const Run run = runZorva(arguments);
    QCOMPARE(run.code, code);
    QVERIFY2(output.isEmpty() ? run.output.isEmpty() : run.output.contains(output), qPrintable(run.output));
    QVERIFY2(errors.isEmpty() ? run.errors.isEmpty() : run.errors.contains(errors), qPrintable(run.errors));
}

void TestZorva::everySubcommandHasHelp()
{
    const QString overview = runZorva({QStringLiteral("--help")}).output;
    const QString list =
        overview.section(QStringLiteral("Subcommands:\n"), 1).section(QStringLiteral("\n\n"), 0, 0);
    const QStringList lines = list.split(QLatin1Char('\n'));
    QVERIFY(!lines.isEmpty());
    for (const QString& line : lines) {
        const QString name = line.trimmed().section(QLatin1Char(' '), 0, 0);
        const Run run = runZorva({name, QStringLiteral("--help")});
        QCOMPARE(run.code, 0);
        QVERIFY2(run.output.startsWith(QStringLiteral("Usage: zorva %1").arg(name)), qPrintable(run.output));
    }
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
