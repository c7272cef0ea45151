// The program is asked to end, or loses its display, at the worst moments: while
// a dialog, a menu or the script debugger runs an event loop of its own.
#include "shelltest.h"

#include <QDir>
#include <QFile>
#include <QXmlStreamReader>

#include <csignal>

namespace {

const char* const parameterFile = "ZorvaTest_test.xml";

/** A display of the test's own, which it may take away. */
class Display
{
public:
    Display()
    {
        m_server.start(QStringLiteral("Xvfb"),
                       {QStringLiteral("-displayfd"), QStringLiteral("1"), QStringLiteral("-screen"),
                        QStringLiteral("0"), QStringLiteral("1024x900x24"), QStringLiteral("-noreset")});
        QByteArray number;
        while (!number.endsWith('\n') && m_server.waitForReadyRead(20000))
            number += m_server.readAllStandardOutput();
        m_name = number.isEmpty() ? QString() : QLatin1Char(':') + QString::fromLatin1(number.trimmed());
    }
    Display(const Display&) = delete;
    Display& operator=(const Display&) = delete;
    ~Display() { takeAway(); }

    /** Empty if the server did not come up. */
    QString name() const { return m_name; }
    void takeAway()
    {
        m_server.kill();
        m_server.waitForFinished();
    }

private:
    QProcess m_server;
    QString m_name;
};

/** Why @p xml is no parameter file, empty if it is one. */
QString damage(const QByteArray& xml)
{
    QXmlStreamReader reader(xml);
    QString last;
    while (!reader.atEnd()) {
        if (reader.readNext() == QXmlStreamReader::EndElement)
            last = reader.name().toString();
    }
    return reader.hasError() ? reader.errorString() : QString();
}

} // namespace

class TestShellFaults : public ShellTest
{
    Q_OBJECT

private Q_SLOTS:
    void endIsAskedForWhileSomethingIsOpen_data();
    void endIsAskedForWhileSomethingIsOpen();
    void displayAsksToCloseBehindADialog();
    void debuggerIsClosed_data();
    void debuggerIsClosed();
    void debuggerComesBackAsItWasLeft();
    void noOpenGlIsLoaded();
    void displayGoesAway_data();
    void displayGoesAway();
    void parametersAreWholeWhenTheDisplayGoesAway();

private:
    void driveOn(const Display& display, const QStringList& arguments, const QString& steps);
    void expectOrderlyEnd();
    void expectEndForWantOfADisplay();
};

void TestShellFaults::driveOn(const Display& display, const QStringList& arguments, const QString& steps)
{
    setEnvironment(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("xcb"));
    setEnvironment(QStringLiteral("DISPLAY"), display.name());
    drive(arguments, steps);
}

void TestShellFaults::expectOrderlyEnd()
{
    finish();
    QVERIFY2(program->exitCode() == 0, qPrintable(errors));
    QVERIFY2(!errors.contains(QStringLiteral("zorvashell:")), qPrintable(errors));
}

void TestShellFaults::expectEndForWantOfADisplay()
{
    finish();
    QVERIFY2(program->exitCode() == 1, qPrintable(errors));
    QVERIFY2(errors.contains(QStringLiteral("X11 connection broke")), qPrintable(errors));
}

namespace {

struct Opening
{
    const char* name;
    QStringList arguments;
    const char* steps;
};

/** Everything in the program that runs an event loop of its own. */
QList<Opening> openings()
{
    const QString gallery = QStringLiteral(ZORVA_EXAMPLES_DIR "/gallery.zorva");
    const QString stops = QStringLiteral(ZORVA_TEST_DATA_DIR "/shell/stops.zorva");
    const QString debug = QStringLiteral("debug");
    return {{"dialog of excluded ranges", {gallery}, "click editRanges; await dialog"},
            {"menu of text sizes", {gallery}, "ask sheetArea; await menu"},
            {"menu of a table", {gallery}, "ask channelSpacingTable; await menu"},
            {"menu of units", {gallery}, "click FrequencyButton; await menu"},
            {"script stopped at the start", {stops, debug}, "await debugger"},
            {"script stopped by an edit",
             {stops, debug},
             "go on; await main; toggle Attenuation; await debugger"},
            {"dialog opened by a script at the start",
             {QStringLiteral(ZORVA_TEST_DATA_DIR "/shell/asks.zorva")},
             "await dialog"}};
}

} // namespace

void TestShellFaults::endIsAskedForWhileSomethingIsOpen_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("opening");
    QTest::addColumn<QString>("ending"); // empty: SIGTERM
    for (const Opening& opening : openings()) {
        const auto row = [&opening](const char* how, const char* ending) {
            QTest::addRow("%s, %s", opening.name, how)
                << opening.arguments << QString::fromLatin1(opening.steps) << QString::fromLatin1(ending);
        };
        row("SIGTERM", "");
        // At the start the form comes once the script has ended.
        const bool isAtStart = QByteArray(opening.name).endsWith("start");
        row("all windows closed", isAtStart ? "close all; await main; close all" : "close all");
        if (!isAtStart)
            row("main window closed", "close main");
    }
}

void TestShellFaults::endIsAskedForWhileSomethingIsOpen()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, opening);
    QFETCH(QString, ending);
    drive(arguments, opening + QLatin1Char(';') + ending);
    if (ending.isEmpty()) {
        waitUntilSaid(QStringLiteral("driver: done"));
        QCOMPARE(::kill(pid_t(program->processId()), SIGTERM), 0);
    }
    expectOrderlyEnd();
}

void TestShellFaults::displayAsksToCloseBehindADialog()
{
    drive({QStringLiteral(ZORVA_EXAMPLES_DIR "/gallery.zorva")},
          QStringLiteral("click editRanges; await dialog; request main; await dialog; request dialog; "
                         "await no dialog; await main; request main"));
    expectOrderlyEnd();
    QVERIFY2(errors.count(QStringLiteral("driver: request main")) == 2, qPrintable(errors));
}

void TestShellFaults::debuggerIsClosed_data()
{
    QTest::addColumn<QString>("steps");
    QTest::newRow("at the start") << QStringLiteral(
        "await debugger; request debugger; await main; close main");
    QTest::newRow("after an edit") << QStringLiteral("go on; await main; toggle Attenuation; await debugger; "
                                                     "request debugger; await no debugger; close main");
}

void TestShellFaults::debuggerIsClosed()
{
    QFETCH(QString, steps);
    drive({dataFile("stops.zorva"), QStringLiteral("debug")}, steps);
    expectOrderlyEnd();
}

void TestShellFaults::debuggerComesBackAsItWasLeft()
{
    const QStringList arguments{dataFile("stops.zorva"), QStringLiteral("debug")};
    const QString rest = QStringLiteral("; request debugger; await main; close main");
    drive(arguments, QStringLiteral("await debugger; shape debugger") + rest);
    expectOrderlyEnd();
    drive(arguments, QStringLiteral("await debugger; measure debugger") + rest);
    expectOrderlyEnd();
    QVERIFY2(errors.contains(QStringLiteral("it is 780 x 560")), qPrintable(errors));
}

void TestShellFaults::displayGoesAway_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("steps");
    QTest::newRow("nothing is open") << QStringList(dataFile("gain.zorva")) << QStringLiteral("await main");
    for (const Opening& opening : openings())
        QTest::newRow(opening.name) << opening.arguments << QString::fromLatin1(opening.steps);
}

void TestShellFaults::displayGoesAway()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, steps);
    Display display;
    QVERIFY(!display.name().isEmpty());
    driveOn(display, arguments, steps);
    waitUntilSaid(QStringLiteral("driver: done"));
    display.takeAway();
    expectEndForWantOfADisplay();
}

void TestShellFaults::noOpenGlIsLoaded()
{
    Display display;
    QVERIFY(!display.name().isEmpty());
    driveOn(display, {dataFile("gain.zorva")}, QStringLiteral("await main"));
    waitUntilSaid(QStringLiteral("driver: done"));
    QFile maps(QStringLiteral("/proc/%1/maps").arg(program->processId()));
    QVERIFY(maps.open(QIODevice::ReadOnly));
    const QByteArray mapped = maps.readAll();
    QVERIFY(mapped.contains("libqxcb"));
    QVERIFY(!mapped.contains("gl-integration") && !mapped.contains("glx-integration"));
    program->terminate();
    expectOrderlyEnd();
}

void TestShellFaults::parametersAreWholeWhenTheDisplayGoesAway()
{
    Display display;
    QVERIFY(!display.name().isEmpty());
    driveOn(display, {dataFile("gain.zorva")}, QStringLiteral("await main; hammer Attenuation"));
    const QString stored = folder->filePath(QString::fromLatin1(parameterFile));
    QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(stored), 20000);
    display.takeAway();
    expectEndForWantOfADisplay();
    QFile file(stored);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray xml = file.readAll();
    QVERIFY2(xml.contains("<Attenuation>") && damage(xml).isEmpty(), xml.constData());
    // What was being written beside it has gone.
    QCOMPARE(QDir(folder->path()).entryList(QDir::Files), QStringList(QString::fromLatin1(parameterFile)));
}

QTEST_GUILESS_MAIN(TestShellFaults)
#include "tst_shellfaults.moc"
