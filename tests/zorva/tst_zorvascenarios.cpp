#include "zorvarun.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>
#include <QTest>

/// `zorva test`, run as a person and as a server run it.
class TestZorvaScenarios : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void theReceiverIsTestedWhole();
    void genhtmlShowsTheCoverage();
    void failuresAreTold();
    void reports();
    void testsThatHarm_data();
    void testsThatHarm();
    void filterAndJobs();
    void standardInput();
    void misuse_data();
    void misuse();

private:
    ZorvaRun run(const QString& words, const QByteArray& input = QByteArray()) const
    {
        QStringList arguments{QStringLiteral("test")};
        for (const QString& word : words.split(QLatin1Char(' ')))
            arguments.append(
                word == QLatin1String("FORM")    ? QStringLiteral(ZORVA_EXAMPLES_DIR "/receiver.zorva")
                : word == QLatin1String("TESTS") ? QStringLiteral(ZORVA_EXAMPLES_DIR "/receiver.tests.js")
                                                 : word);
        return runZorva(arguments, input, m_folder.path());
    }
    ZorvaRun run(const char* words) const { return run(QString::fromLatin1(words)); }
    void write(const char* name, const QByteArray& content) const
    {
        QFile file(m_folder.filePath(QLatin1String(name)));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(content);
    }
    QByteArray read(const QString& name) const
    {
        QFile file(m_folder.filePath(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    const QTemporaryDir m_folder;
};

void TestZorvaScenarios::initTestCase()
{
    write("good.js", "test('good', function(form) { print('said'); });\n");
    write("bad.js", "test('bad', function(form) {\n    form.expectText('frequency', '1 MHz');\n});\n"
                    "test('fine', function(form) {});\n");
    write("none.js", "var a = 1;\n");
    write("broken.js", "test('a' function() {});\n");
}

void TestZorvaScenarios::theReceiverIsTestedWhole()
{
    const ZorvaRun tested = run("--coverage receiver.info FORM TESTS");
    QVERIFY2(tested.code == 0, qPrintable(tested.output + tested.errors));
    QVERIFY2(tested.output.contains(QStringLiteral("script covered: 100.0 %")), qPrintable(tested.output));
    const QByteArray info = read(QStringLiteral("receiver.info"));
    QVERIFY(info.startsWith("TN:\nSF:/"));
    QVERIFY(!info.contains(",0\n"));
    // Lines are those of the description.
    QFile description(QStringLiteral(ZORVA_EXAMPLES_DIR "/receiver.zorva"));
    QVERIFY(description.open(QIODevice::ReadOnly));
    const QList<QByteArray> lines = description.readAll().split('\n');
    const int line = lines.indexOf("    frequency.FrequencyLock = locked;") + 1;
    QVERIFY(line > 0);
    QVERIFY(info.contains("DA:" + QByteArray::number(line) + ','));
}

void TestZorvaScenarios::genhtmlShowsTheCoverage()
{
    QCOMPARE(run("--filter lock --coverage some.info FORM TESTS").code, 0);
    const ZorvaRun pages =
        runProgram(QStringLiteral("genhtml"),
                   {QStringLiteral("-o"), QStringLiteral("pages"), QStringLiteral("some.info")}, QByteArray(),
                   m_folder.path());
    QVERIFY2(pages.code == 0, qPrintable(pages.errors));
    QString page;
    QDirIterator walk(m_folder.filePath(QStringLiteral("pages")),
                      {QStringLiteral("receiver.zorva.gcov.html")}, QDir::Files,
                      QDirIterator::Subdirectories);
    while (walk.hasNext())
        page = walk.next();
    QFile file(page);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray html = file.readAll();
    QVERIFY(html.contains("lineCov") && html.contains("lineNoCov"));
    QVERIFY(html.contains("frequency.FrequencyLock = locked;"));
}

void TestZorvaScenarios::failuresAreTold()
{
    const ZorvaRun tested = run("FORM bad.js good.js");
    QCOMPARE(tested.code, 1);
    QVERIFY(tested.output.startsWith(QStringLiteral("TAP version 13\n1..3\nnot ok 1 - bad\n  ---\n")));
    for (const char* part : {"  at: \"bad.js:2\"", "receiver.zorva:", "  expected: \"\\\"1 MHz\\\"\"",
                             "ok 2 - fine", "ok 3 - good\n# said\n", "# 2 passed, 1 failed"})
        QVERIFY2(tested.output.contains(QLatin1String(part)), qPrintable(tested.output));
}

void TestZorvaScenarios::reports()
{
    const ZorvaRun tested = run("--format json --junit results.xml FORM bad.js");
    QCOMPARE(tested.code, 1);
    const QJsonArray tests =
        QJsonDocument::fromJson(tested.output.toUtf8()).object().value(QStringLiteral("tests")).toArray();
    QCOMPARE(tests.size(), 2);
    QCOMPARE(tests.first().toObject().value(QStringLiteral("at")).toString(), QStringLiteral("bad.js:2"));
    QVERIFY(read(QStringLiteral("results.xml")).contains("failures=\"1\""));
    const ZorvaRun lint =
        runProgram(QStringLiteral("xmllint"), {QStringLiteral("--noout"), QStringLiteral("results.xml")},
                   QByteArray(), m_folder.path());
    QVERIFY2(lint.code == 0, qPrintable(lint.errors));
    QCOMPARE(run("--junit nowhere/results.xml FORM good.js").code, 2);
}

void TestZorvaScenarios::testsThatHarm_data()
{
    QTest::addColumn<QByteArray>("body");
    QTest::addColumn<QString>("message");
    QTest::newRow("endless") << QByteArray("for (;;) ;") << QStringLiteral("it did not end within 2 s");
    QTest::newRow("endless in the form")
        << QByteArray("form.evaluate('for (;;) ;');") << QStringLiteral("it did not end within 2 s");
    QTest::newRow("a dialog") << QByteArray("form.click('editExclusions');") << QString();
}

// What comes behind is run all the same.
void TestZorvaScenarios::testsThatHarm()
{
    QFETCH(QByteArray, body);
    QFETCH(QString, message);
    write("harm.js", "test('harm', function(form) { " + body + " });\ntest('behind', function() {});\n");
    const ZorvaRun tested = run("--timeout 2 --jobs 1 FORM harm.js");
    QCOMPARE(tested.code, message.isEmpty() ? 0 : 1);
    QVERIFY2(tested.output.contains(message), qPrintable(tested.output));
    QVERIFY2(tested.output.contains(QStringLiteral("\nok 2 - behind")), qPrintable(tested.output));
    if (!message.isEmpty())
        QVERIFY(tested.output.contains(QStringLiteral("at: \"harm.js:1\"")));
}

// However many run at a time, they are told in the order of the sources.
void TestZorvaScenarios::filterAndJobs()
{
    QByteArray source;
    for (int i = 0; i < 12; ++i)
        source += "test('number " + QByteArray::number(i) +
                  "', function(form) { form.enter('displayName', '" + QByteArray::number(i) + "'); });\n";
    write("many.js", source);
    const ZorvaRun one = run("--jobs 1 FORM many.js");
    const ZorvaRun three = run("--jobs 3 FORM many.js");
    QCOMPARE(one.code, 0);
    QCOMPARE(three.output, one.output);
    const ZorvaRun some = run("--filter 1$ FORM many.js");
    QVERIFY(
        some.output.startsWith(QStringLiteral("TAP version 13\n1..2\nok 1 - number 1\nok 2 - number 11\n")));
}

void TestZorvaScenarios::standardInput()
{
    QCOMPARE(run(QStringLiteral("FORM -"), "test('a', function() {});").code, 0);
    QFile form(QStringLiteral(ZORVA_EXAMPLES_DIR "/receiver.zorva"));
    QVERIFY(form.open(QIODevice::ReadOnly));
    QCOMPARE(run(QStringLiteral("- good.js"), form.readAll()).code, 0);
}

void TestZorvaScenarios::misuse_data()
{
    QTest::addColumn<QString>("words");
    QTest::addColumn<QString>("errors");
    const auto row = [](const char* words, const char* errors) {
        QTest::newRow(words) << QString::fromLatin1(words) << QString::fromLatin1(errors);
    };
    row("FORM", "a form and tests are wanted");
    row("FORM nowhere.js", "cannot read nowhere.js");
    row("good.js good.js", "good.js makes no form");
    row("FORM none.js", "there is no test\n");
    row("--filter nothing FORM good.js", "there is no test of that name");
    row("--filter ( FORM good.js", "is no regular expression");
    row("FORM broken.js", "broken.js:1:10: ");
    row("--jobs 0 FORM good.js", "is nothing for --jobs");
    row("--timeout soon FORM good.js", "is nothing for --timeout");
    row("--format text FORM good.js", "is nothing for --format");
    row("--coverage x - good.js", "--coverage wants a form that has a file");
    row("- -", "the standard input can be one file only");
    row("--loud FORM good.js", "Unknown option");
}

void TestZorvaScenarios::misuse()
{
    QFETCH(QString, words);
    QFETCH(QString, errors);
    const ZorvaRun tested = run(words);
    QCOMPARE(tested.code, 2);
    QVERIFY2(tested.errors.startsWith(QStringLiteral("zorva: test: ")) && tested.errors.contains(errors),
             qPrintable(tested.errors));
    QCOMPARE(tested.output, QString());
}

QTEST_APPLESS_MAIN(TestZorvaScenarios)
#include "tst_zorvascenarios.moc"
