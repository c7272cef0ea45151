#include <shell/commandline.h>

#include <QTemporaryDir>
#include <QtTest>

#include <sys/stat.h>

using Request = CommandLine::Request;
Q_DECLARE_METATYPE(CommandLine::Request)

class TestCommandLine : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void requestIsRead_data();
    void requestIsRead();
    void unreadableFilesAreNamed_data();
    void unreadableFilesAreNamed();
    void optionsAreRead();
    void optionsAreOffAtFirst();
    void usageNamesBothWays();
};

void TestCommandLine::requestIsRead_data()
{
    QTest::addColumn<QString>("typed"); // words parted by blanks, behind the program
    QTest::addColumn<Request>("request");
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("option");

    const QString none;
    const QString form = QStringLiteral("a.zorva");
    const QString list = QStringLiteral("a.xml");
    const QString debug = QStringLiteral("debug");
    const auto row = [](const char* name, const char* typed, Request request, const QString& path,
                        const QString& option) {
        QTest::newRow(name) << QString::fromLatin1(typed) << request << path << option;
    };
    row("a form", "a.zorva", Request::Show, form, none);
    row("a form to debug", "a.zorva debug", Request::Show, form, debug);
    row("a list", "a.xml", Request::Show, list, none);
    row("Qt's option ahead", "-platform offscreen a.zorva", Request::Show, form, none);
    row("Qt's option with two dashes", "--style fusion a.zorva debug", Request::Show, form, debug);
    row("Qt's option behind", "a.zorva -style=fusion", Request::Show, form, none);
    row("name with a dash", "-- -odd.zorva", Request::Show, QStringLiteral("-odd.zorva"), none);
    row("help", "--help", Request::Help, none, none);
    row("help, short", "-h", Request::Help, none, none);
    row("help behind a form", "a.zorva --help", Request::Help, none, none);
    row("version", "--version", Request::Version, none, none);
    row("version, short", "-v", Request::Version, none, none);
    row("nothing", "", Request::Mistake, none, none);
    row("unknown option", "--frobnicate a.zorva", Request::Mistake, none, none);
    row("a dash alone", "-", Request::Mistake, none, none);
    row("Qt's option without its value", "-platform", Request::Mistake, none, none);
    row("other word behind the form", "a.zorva Debug", Request::Mistake, none, none);
    row("a list to debug", "a.xml debug", Request::Mistake, none, none);
    row("Qt's session", "-session 117f000002 a.zorva", Request::Show, form, none);
    row("debug and watch", "a.zorva debug --watch", Request::Mistake, none, none);
    row("option without its value", "a.zorva --overlay", Request::Mistake, none, none);
    row("option with an empty value", "a.zorva --settings=", Request::Mistake, none, none);
    row("option that only begins alike", "a.zorva --settingsfile=x", Request::Mistake, none, none);
    row("overlay for a list", "a.xml --overlay b.zorva", Request::Mistake, none, none);
    row("parameters for a list", "a.xml --set b.xml", Request::Mistake, none, none);
    row("settings for a list", "a.xml --settings b.xml", Request::Mistake, none, none);
    row("fresh list", "a.xml --fresh", Request::Mistake, none, none);
    row("list to watch", "a.xml --watch", Request::Mistake, none, none);
    row("language for a list", "--language de a.xml --translations .", Request::Show, list, none);
    row("too many", "a.zorva debug b.zorva", Request::Mistake, none, none);
}

void TestCommandLine::requestIsRead()
{
    QFETCH(QString, typed);
    QFETCH(Request, request);
    QFETCH(QString, path);
    QFETCH(QString, option);
    const QStringList words = typed.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    const CommandLine line = readCommandLine(QStringList(QStringLiteral("zorvashell")) + words);
    QCOMPARE(line.request, request);
    QCOMPARE(line.path, path);
    QCOMPARE(line.option, option);
    QCOMPARE(line.mistake.isEmpty(), request != Request::Mistake);
}

void TestCommandLine::unreadableFilesAreNamed_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("reason");
    QTest::newRow("a file") << QStringLiteral("file") << QString();
    QTest::newRow("an empty file") << QStringLiteral("empty") << QString();
    QTest::newRow("missing") << QStringLiteral("missing") << QStringLiteral("there is no such file");
    QTest::newRow("a folder") << QStringLiteral(".") << QStringLiteral("it is a folder");
    QTest::newRow("a pipe nobody writes to")
        << QStringLiteral("pipe") << QStringLiteral("it is not a regular file");
}

void TestCommandLine::unreadableFilesAreNamed()
{
    QFETCH(QString, name);
    QFETCH(QString, reason);
    const QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("file")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("x");
    QFile empty(folder.filePath(QStringLiteral("empty")));
    QVERIFY(empty.open(QIODevice::WriteOnly));
    QCOMPARE(mkfifo(QFile::encodeName(folder.filePath(QStringLiteral("pipe"))).constData(), 0600), 0);
    QCOMPARE(whyUnreadable(folder.filePath(name)), reason);
}

void TestCommandLine::optionsAreRead()
{
    const CommandLine line = readCommandLine(
        QStringLiteral("zorvashell --overlay a --overlay=b --set c --set=d=e a.zorva --settings f --fresh "
                       "--watch --language de_CH --translations g --translations h")
            .split(QLatin1Char(' ')));
    QCOMPARE(line.request, Request::Show);
    QCOMPARE(line.overlays, (QStringList{QStringLiteral("a"), QStringLiteral("b")}));
    QCOMPARE(line.parameters, (QStringList{QStringLiteral("c"), QStringLiteral("d=e")}));
    QCOMPARE(line.settings, QStringLiteral("f"));
    QCOMPARE(line.language, QStringLiteral("de_CH"));
    QCOMPARE(line.translationFolders, (QStringList{QStringLiteral("g"), QStringLiteral("h")}));
    QVERIFY(line.fresh);
    QVERIFY(line.watch);
}

void TestCommandLine::optionsAreOffAtFirst()
{
    const CommandLine line = readCommandLine({QStringLiteral("zorvashell"), QStringLiteral("a.zorva")});
    QVERIFY(line.overlays.isEmpty() && line.parameters.isEmpty() && line.translationFolders.isEmpty());
    QVERIFY(line.settings.isEmpty() && line.language.isEmpty());
    QVERIFY(!line.fresh && !line.watch);
}

void TestCommandLine::usageNamesBothWays()
{
    for (const char* option : {"--overlay FILE", "--set FILE", "--settings FILE", "--fresh", "--watch",
                               "--language LANG", "--translations DIR"})
        QVERIFY2(usageText().contains(QLatin1String(option)), option);
    QVERIFY(usageText().contains(QStringLiteral("zorvashell FORM.zorva [debug]")));
    QVERIFY(usageText().contains(QStringLiteral("zorvashell LIST.xml")));
}

QTEST_GUILESS_MAIN(TestCommandLine)
#include "tst_commandline.moc"
