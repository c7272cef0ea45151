#include "shelltest.h"

#include <translationfile.h>

#include <QDir>
#include <QFile>

#include <csignal>
#include <cstdio>

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
    void wrongEncodingIsExplained_data();
    void wrongEncodingIsExplained();
    void wrongPlatformIsExplained_data();
    void wrongPlatformIsExplained();
    void brokenLibraryIsExplained();
    void wrongOptionsAreExplained_data();
    void wrongOptionsAreExplained();
    void optionsReachTheForm();
    void captionsComeInTheLanguageAskedFor_data();
    void captionsComeInTheLanguageAskedFor();
    void storedParametersAreLeftOut();
    void savedFormIsReadAgain();
    void brokenSaveKeepsTheForm();

private:
    /// The path of a file in the program's folder.
    QString inFolder(const char* name) const { return folder->filePath(QLatin1String(name)); }
    QByteArray contentOf(const char* name) const;
};

namespace {

/// Two check boxes; a change of the second one stores all parameters.
QByteArray storingForm(const QByteArray& nameOfTheFirst = "First")
{
    const QByteArray row = "<Widget name=\"%\" class=\"CheckBox\">"
                           "<Property name=\"generateParameterXml\"><Bool>true</Bool></Property></Widget>";
    return "<KVParamGui version=\"1.0\"><Sheet name=\"sheet\">" +
           QByteArray(row).replace('%', nameOfTheFirst) + QByteArray(row).replace('%', "Second") +
           "</Sheet><Script language=\"JavaScript\">"
           "Second.toggled.connect(function() { sheet.emitParametersXml(); });</Script></KVParamGui>";
}

const QByteArray secondOn = "<Parameters><Second>true</Second></Parameters>";

} // namespace

QByteArray TestZorvaShell::contentOf(const char* name) const
{
    QFile file(inFolder(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

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

void TestZorvaShell::wrongEncodingIsExplained_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("said");
    QTest::newRow("form") << QByteArray("<KVParamGui>\n<Sheet name=\"\xf6\"/></KVParamGui>")
                          << QStringLiteral("form.zorva")
                          << QStringLiteral("form.zorva holds no form: line 2, column 14: wrong encoding, "
                                            "this is not UTF-8\n");
    QTest::newRow("unknown encoding")
        << QByteArray("<?xml version=\"1.0\" encoding=\"Klingon\"?><KVParamGui/>")
        << QStringLiteral("form.zorva") << QStringLiteral("the encoding Klingon that it declares is unknown");
    QTest::newRow("list") << QByteArray("<List>\xf6</List>") << QStringLiteral("list.xml")
                          << QStringLiteral("line 1, column 7: wrong encoding");
}

void TestZorvaShell::wrongEncodingIsExplained()
{
    QFETCH(QByteArray, content);
    QFETCH(QString, name);
    QFETCH(QString, said);
    QVERIFY(makeFile(folder->filePath(name), content));
    start({name});
    finish();
    QCOMPARE(program->exitCode(), 1);
    QVERIFY2(errors.contains(said), qPrintable(errors));
}

void TestZorvaShell::wrongPlatformIsExplained_data()
{
    QTest::addColumn<bool>("inEnvironment");
    QTest::newRow("on the command line") << false;
    QTest::newRow("in the environment") << true;
}

void TestZorvaShell::wrongPlatformIsExplained()
{
    QFETCH(bool, inEnvironment);
    QStringList arguments = {dataFile("gain.zorva")};
    if (inEnvironment)
        setEnvironment(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("abacus:beads=10"));
    else
        arguments = QStringList{QStringLiteral("-platform"), QStringLiteral("abacus")} + arguments;
    start(arguments);
    finish();
    QCOMPARE(program->exitCode(), 1);
    QVERIFY2(errors.contains(QStringLiteral("zorvashell: there is no platform \"abacus\"")),
             qPrintable(errors));
    QVERIFY2(errors.contains(QStringLiteral("offscreen")), qPrintable(errors));
    QVERIFY2(!errors.contains(QStringLiteral("no display")), qPrintable(errors));
}

void TestZorvaShell::brokenLibraryIsExplained()
{
    QVERIFY(QDir(folder->path()).mkdir(QStringLiteral("bin")));
    QVERIFY(QDir(folder->path()).mkdir(QStringLiteral("lib")));
    QVERIFY(QFile::copy(QStringLiteral(ZORVA_SHELL_PROGRAM), inFolder("bin/zorvashell")));
    QVERIFY(makeFile(inFolder("lib/libzorvaparser.so." ZORVA_SHELL_MODULE_VERSION), "no library"));
    // The program's own library is found; the one that it loads is there and broken.
    QVERIFY(QFile::link(QStringLiteral(ZORVA_SHELL_HOST_LIBRARY),
                        inFolder("lib/libvelkappstartup.so." ZORVA_SHELL_MODULE_VERSION)));
    setEnvironment(QStringLiteral("LD_LIBRARY_PATH"), inFolder("lib"));
    program->start(inFolder("bin/zorvashell"), {dataFile("gain.zorva")}, QIODevice::ReadOnly);
    finish();
    QCOMPARE(program->exitCode(), 1);
    QVERIFY2(errors.contains(QStringLiteral("zorvashell: cannot load the form library: ")),
             qPrintable(errors));
    QVERIFY2(errors.contains(QStringLiteral("/lib/libzorvaparser.so.")), qPrintable(errors));
}

void TestZorvaShell::wrongOptionsAreExplained_data()
{
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<QString>("said");
    const auto row = [](const char* name, const char* option, const char* value, const char* said) {
        QTest::newRow(name) << QStringList{QLatin1String(option), QLatin1String(value)}
                            << QString::fromLatin1(said);
    };
    row("missing overlay", "--overlay", "missing.zorva", "cannot read missing.zorva: there is no such file");
    row("broken overlay", "--overlay", "broken.xml", "cannot read broken.xml: line 1, column ");
    row("missing parameters", "--set", "missing.xml", "cannot read missing.xml: there is no such file");
    row("parameters in a wrong encoding", "--set", "latin1.xml",
        "cannot read latin1.xml: line 1, column 4: wrong encoding");
    row("no language", "--language", "gibberish", "there is no language \"gibberish\"");
    row("no folder", "--translations", "missing", "there is no folder missing");
}

void TestZorvaShell::wrongOptionsAreExplained()
{
    QFETCH(QStringList, options);
    QFETCH(QString, said);
    QVERIFY(makeFile(inFolder("broken.xml"), "<a><b></a>"));
    QVERIFY(makeFile(inFolder("latin1.xml"), "<a>\xf6</a>"));
    start(QStringList(dataFile("gain.zorva")) + options);
    finish();
    QCOMPARE(program->exitCode(), 1);
    QVERIFY2(errors.contains(QStringLiteral("zorvashell: ") + said), qPrintable(errors));
}

void TestZorvaShell::optionsReachTheForm()
{
    QVERIFY(makeFile(inFolder("form.zorva"), storingForm()));
    QVERIFY(makeFile(inFolder("overlay.zorva"),
                     "<KVParamGui><Sheet><Widget name=\"First\"><Property name=\"checked\"><Bool>true</Bool>"
                     "</Property></Widget></Sheet></KVParamGui>"));
    QVERIFY(makeFile(inFolder("set.xml"), secondOn));
    start({QStringLiteral("form.zorva"), QStringLiteral("--overlay"), QStringLiteral("overlay.zorva"),
           QStringLiteral("--set=set.xml"), QStringLiteral("--settings"), QStringLiteral("mine.xml"),
           QStringLiteral("--language"), QStringLiteral("de"), QStringLiteral("--translations"),
           QStringLiteral(".")});
    QTRY_VERIFY_WITH_TIMEOUT(!contentOf("mine.xml").isEmpty(), 20000);
    program->terminate();
    finish();
    QVERIFY2(contentOf("mine.xml").contains("<First>true</First>"), contentOf("mine.xml").constData());
    QVERIFY(contentOf("mine.xml").contains("<Second>true</Second>"));
    QVERIFY(!QFile::exists(inFolder("ZorvaTest_test.xml")));
}

void TestZorvaShell::captionsComeInTheLanguageAskedFor_data()
{
    QTest::addColumn<QString>("options");
    QTest::addColumn<QString>("caption");
    const auto row = [](const char* name, const char* options, const char* caption) {
        QTest::newRow(name) << QString::fromLatin1(options) << QString::fromLatin1(caption);
    };
    row("language and folder", "--language de --translations words", "Lauter Ton");
    row("another language", "--language fr --translations words", "Volume");
    row("several folders", "--translations . --translations words --language de_AT", "Lauter Ton");
    row("no folder", "--language de", "Volume");
}

void TestZorvaShell::captionsComeInTheLanguageAskedFor()
{
    QFETCH(QString, options);
    QFETCH(QString, caption);
    QVERIFY(makeFile(inFolder("audio.zorva"),
                     "<KVParamGui><Sheet name=\"sheet\"><Widget name=\"gain\" class=\"SpinBox\">"
                     "<Property name=\"labelText\"><String>Volume</String></Property>"
                     "</Widget></Sheet></KVParamGui>"));
    QVERIFY(QDir(folder->path()).mkdir(QStringLiteral("words")));
    QVERIFY(makeFile(inFolder("words/audio_de.qm"),
                     translationFile({{"gain", "Volume", "", QStringLiteral("Lauter Ton")}})));
    drive(QStringList(QStringLiteral("audio.zorva")) + options.split(QLatin1Char(' ')),
          QStringLiteral("tell labelgain; close all"));
    finish();
    QVERIFY2(errors.contains(QStringLiteral("driver: text %1\n").arg(caption)), qPrintable(errors));
    QCOMPARE(program->exitCode(), 0);
}

void TestZorvaShell::storedParametersAreLeftOut()
{
    QVERIFY(makeFile(inFolder("form.zorva"), storingForm()));
    QVERIFY(makeFile(inFolder("ZorvaTest_test.xml"), "<Parameters><First>true</First></Parameters>"));
    QVERIFY(makeFile(inFolder("set.xml"), secondOn));
    start({QStringLiteral("--fresh"), QStringLiteral("form.zorva"), QStringLiteral("--set"),
           QStringLiteral("set.xml")});
    QTRY_VERIFY_WITH_TIMEOUT(contentOf("ZorvaTest_test.xml").contains("Second"), 20000);
    program->terminate();
    finish();
    QVERIFY(contentOf("ZorvaTest_test.xml").contains("<First>false</First>"));
}

void TestZorvaShell::savedFormIsReadAgain()
{
    QVERIFY(makeFile(inFolder("form.zorva"), storingForm()));
    QVERIFY(makeFile(inFolder("set.xml"), secondOn));
    start({QStringLiteral("--watch"), QStringLiteral("form.zorva"), QStringLiteral("--set"),
           QStringLiteral("set.xml")});
    QTRY_VERIFY_WITH_TIMEOUT(contentOf("ZorvaTest_test.xml").contains("First"), 20000);
    // The new form takes what the old one had, and stores it.
    QVERIFY(makeFile(inFolder("form.zorva~"), storingForm("Other")));
    QCOMPARE(std::rename(qPrintable(inFolder("form.zorva~")), qPrintable(inFolder("form.zorva"))), 0);
    QTRY_VERIFY_WITH_TIMEOUT(contentOf("ZorvaTest_test.xml").contains("<Other>false</Other>"), 20000);
    program->terminate();
    finish();
    QVERIFY(contentOf("ZorvaTest_test.xml").contains("<Second>true</Second>"));
    QCOMPARE(program->exitCode(), 0);
}

void TestZorvaShell::brokenSaveKeepsTheForm()
{
    QVERIFY(makeFile(inFolder("form.zorva"), storingForm()));
    QVERIFY(makeFile(inFolder("set.xml"), secondOn));
    start({QStringLiteral("--watch"), QStringLiteral("form.zorva"), QStringLiteral("--set"),
           QStringLiteral("set.xml")});
    QTRY_VERIFY_WITH_TIMEOUT(contentOf("ZorvaTest_test.xml").contains("First"), 20000);
    QVERIFY(makeFile(inFolder("form.zorva"), "<KVParam"));
    waitUntilSaid(QStringLiteral("zorvashell: form.zorva holds no form: line 1, column "));
    program->terminate();
    finish();
    QCOMPARE(program->exitCode(), 0);
}

QTEST_GUILESS_MAIN(TestZorvaShell)
#include "tst_zorvashell.moc"
