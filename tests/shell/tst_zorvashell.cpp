#include "shelltest.h"

#include <QDir>
#include <QFile>

#include <csignal>

/** The program's command line, its files and the requests to end. */
class TestZorvaShell : public ShellTest
{
    Q_OBJECT

private Q_SLOTS:
    void helpAndVersionNeedNoDisplay_data();
    void helpAndVersionNeedNoDisplay();
    void mistakesAreExplained_data();
    void mistakesAreExplained();
    void whatCannotBeShownIsExplained_data();
    void whatCannotBeShownIsExplained();
    void requestsToEndAreObeyed_data();
    void requestsToEndAreObeyed();
    void missingDisplayIsExplained_data();
    void missingDisplayIsExplained();
    void unwritableFolderIsNoHindrance();
    void damagedStoredParametersAreNoHindrance();
    void formReplacedWhileOpenIsNoHindrance();
    void pathBeyondAsciiIsRead();
};

void TestZorvaShell::helpAndVersionNeedNoDisplay_data()
{
    QTest::addColumn<QString>("option");
    QTest::addColumn<QString>("said");
    QTest::newRow("help") << QStringLiteral("--help")
                          << QStringLiteral("Usage: zorvashell FORM.zorva [debug]\n");
    QTest::newRow("version") << QStringLiteral("--version")
                             << QStringLiteral("zorvashell " ZORVA_SHELL_VERSION "\n");
}

void TestZorvaShell::helpAndVersionNeedNoDisplay()
{
    QFETCH(QString, option);
    QFETCH(QString, said);
    setEnvironment(QStringLiteral("QT_QPA_PLATFORM"), QString());
    setEnvironment(QStringLiteral("DISPLAY"), QString());
    start({option});
    finish();
    QCOMPARE(program->exitCode(), 0);
    QVERIFY2(output.startsWith(said), qPrintable(output));
    QCOMPARE(errors, QString());
}

void TestZorvaShell::mistakesAreExplained_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("said");
    QTest::newRow("no argument") << QStringList() << QStringLiteral("no form given");
    QTest::newRow("unknown option") << QStringList(QStringLiteral("--frobnicate"))
                                    << QStringLiteral("unknown option --frobnicate");
    QTest::newRow("unknown word") << QStringList{QStringLiteral("a.zorva"), QStringLiteral("DEBUG")}
                                  << QStringLiteral("unknown argument \"DEBUG\"");
    QTest::newRow("empty name") << QStringList(QStringLiteral(""))
                                << QStringLiteral("the file name is empty");
}

void TestZorvaShell::mistakesAreExplained()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, said);
    start(arguments);
    finish();
    QCOMPARE(program->exitCode(), 2);
    QCOMPARE(output, QString());
    QVERIFY2(errors.startsWith(QStringLiteral("zorvashell: ") + said), qPrintable(errors));
    QVERIFY2(errors.contains(QStringLiteral("Usage: ")), qPrintable(errors));
}

void TestZorvaShell::whatCannotBeShownIsExplained_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("said");
    const auto row = [](const char* name, const QString& path, const char* said) {
        QTest::newRow(name) << path << QString::fromLatin1(said);
    };
    row("missing form", QStringLiteral("missing.zorva"),
        "zorvashell: cannot read missing.zorva: there is no such file\n");
    row("missing list", QStringLiteral("missing.xml"),
        "zorvashell: cannot read missing.xml: there is no such file\n");
    row("a folder", QStringLiteral("folder.zorva"), "zorvashell: cannot read folder.zorva: it is a folder\n");
    row("no form in the file", dataFile("no-form.zorva"), "holds no form");
    row("empty file", QStringLiteral("empty.zorva"), "zorvashell: empty.zorva holds no form");
    row("no list", QStringLiteral("text.txt"), "zorvashell: text.txt is no component list");
    row("list without forms", dataFile("empty-list.xml"), "there is no form in it");
    row("form under another ending", QStringLiteral("form.ZORVA"), "form.ZORVA is no component list");
}

void TestZorvaShell::whatCannotBeShownIsExplained()
{
    QFETCH(QString, path);
    QFETCH(QString, said);
    QVERIFY(QDir(folder->path()).mkdir(QStringLiteral("folder.zorva")));
    QVERIFY(makeFile(folder->filePath(QStringLiteral("empty.zorva")), QByteArray()));
    QVERIFY(makeFile(folder->filePath(QStringLiteral("text.txt")), "just < words"));
    QVERIFY(QFile::copy(dataFile("gain.zorva"), folder->filePath(QStringLiteral("form.ZORVA"))));
    start({path});
    finish();
    QCOMPARE(program->exitCode(), 1);
    QVERIFY2(errors.contains(said), qPrintable(errors));
}

void TestZorvaShell::requestsToEndAreObeyed_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<QStringList>("arguments");
    const QStringList form = {dataFile("gain.zorva")};
    QTest::newRow("Ctrl+C") << SIGINT << form;
    QTest::newRow("SIGTERM") << SIGTERM << form;
    QTest::newRow("closed terminal") << SIGHUP << form;
    QTest::newRow("tabs") << SIGTERM << QStringList(dataFile("two.xml"));
    QTest::newRow("script stopped in the debugger")
        << SIGTERM << QStringList{dataFile("gain.zorva"), QStringLiteral("debug")};
}

void TestZorvaShell::requestsToEndAreObeyed()
{
    QFETCH(int, number);
    QFETCH(QStringList, arguments);
    start(arguments);
    waitUntilShown();
    QCOMPARE(::kill(pid_t(program->processId()), number), 0);
    finish();
    QVERIFY2(program->exitCode() == 0, qPrintable(errors));
    QVERIFY2(!errors.contains(QStringLiteral("zorvashell:")), qPrintable(errors));
}

void TestZorvaShell::missingDisplayIsExplained_data()
{
    QTest::addColumn<QString>("display");
    QTest::newRow("none set") << QString();
    QTest::newRow("nobody there") << QStringLiteral(":9876");
}

void TestZorvaShell::missingDisplayIsExplained()
{
    QFETCH(QString, display);
    setEnvironment(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("xcb"));
    setEnvironment(QStringLiteral("DISPLAY"), display);
    start({dataFile("gain.zorva")});
    finish();
    QCOMPARE(program->exitCode(), 1);
    QVERIFY2(errors.contains(QStringLiteral("zorvashell: no display to show the window on.")),
             qPrintable(errors));
}

void TestZorvaShell::unwritableFolderIsNoHindrance()
{
    QVERIFY(QFile::setPermissions(folder->path(), QFile::ReadOwner | QFile::ExeOwner));
    start({dataFile("gain.zorva")});
    waitUntilShown();
    program->terminate();
    finish();
    QCOMPARE(program->exitCode(), 0);
    QVERIFY(QFile::setPermissions(folder->path(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
}

void TestZorvaShell::damagedStoredParametersAreNoHindrance()
{
    const QString stored = folder->filePath(QStringLiteral("ZorvaTest_test.xml"));
    const QByteArray damaged("<Parameters><Attenuation>tr\xff\xfe<", 31);
    QVERIFY(makeFile(stored, damaged));
    start({dataFile("gain.zorva")});
    waitUntilShown();
    program->terminate();
    finish();
    QCOMPARE(program->exitCode(), 0);
    QFile file(stored);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), damaged);
}

void TestZorvaShell::formReplacedWhileOpenIsNoHindrance()
{
    const QString form = folder->filePath(QStringLiteral("gain.zorva"));
    QVERIFY(QFile::copy(dataFile("gain.zorva"), form));
    start({form});
    // The form has been read when its window comes, and this platform says so then.
    waitUntilSaid(QStringLiteral("propagateSizeHints"));
    QVERIFY(QFile::remove(form));
    QVERIFY(makeFile(form, "something else"));
    program->terminate();
    finish();
    QCOMPARE(program->exitCode(), 0);
}

void TestZorvaShell::pathBeyondAsciiIsRead()
{
    const QString name = QString::fromUtf8("Empf\xC3\xA4nger \xE2\x82\xAC.zorva");
    const QString form = folder->path() + QLatin1Char('/') + name;
    QFile original(dataFile("gain.zorva"));
    QVERIFY(original.open(QIODevice::ReadOnly));
    QVERIFY(makeFile(form, original.readAll()));
    start({form});
    waitUntilShown();
    program->terminate();
    finish();
    QVERIFY2(program->exitCode() == 0, qPrintable(errors));
}

QTEST_GUILESS_MAIN(TestZorvaShell)
#include "tst_zorvashell.moc"
