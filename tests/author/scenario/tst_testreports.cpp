#include <author/scenario/testreports.h>

#include <QJsonDocument>
#include <QJsonObject>
#include <QTest>
#include <QXmlStreamReader>

using namespace Orvane::Author;

/// How results are told to people and to servers.
class TestTestReports : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void tap();
    void junit();
    void json();

private:
    static QVector<TestedScenario> results()
    {
        ScenarioResult passed;
        passed.passed = true;
        passed.notes = QStringList{QStringLiteral("two\nlines")};
        passed.milliseconds = 12;
        ScenarioResult failed;
        failed.message = QStringLiteral("text of \"a\": expected <1>");
        failed.place = {QStringLiteral("a.js"), 7};
        failed.formPlace = {QStringLiteral("a.zorva"), 9};
        failed.compared = true;
        failed.expected = QStringLiteral("1");
        failed.seen = QStringLiteral("2\x01");
        return {{{QStringLiteral("one # two"), {QStringLiteral("a.js"), 1}}, passed},
                {{QStringLiteral("three"), {QStringLiteral("a.js"), 5}}, failed}};
    }
};

void TestTestReports::tap()
{
    QCOMPARE(tapText(1, results().first()), QStringLiteral("ok 1 - one \\# two\n# two\n# lines\n"));
    QCOMPARE(tapText(2, results().last()), QStringLiteral("not ok 2 - three\n"
                                                          "  ---\n"
                                                          "  message: \"text of \\\"a\\\": expected <1>\"\n"
                                                          "  at: \"a.js:7\"\n"
                                                          "  form: \"a.zorva:9\"\n"
                                                          "  expected: \"1\"\n"
                                                          "  seen: \"2\\x01\"\n"
                                                          "  ...\n"));
}

void TestTestReports::junit()
{
    const QByteArray xml = junitXml(QStringLiteral("a.zorva"), results());
    QXmlStreamReader reader(xml);
    QStringList elements;
    while (!reader.atEnd()) {
        if (reader.readNext() == QXmlStreamReader::StartElement)
            elements.append(reader.name().toString());
    }
    QVERIFY2(!reader.hasError(), qPrintable(reader.errorString()));
    QCOMPARE(elements.join(QLatin1Char(' ')),
             QStringLiteral("testsuite testcase system-out testcase failure"));
    for (const char* part :
         {"tests=\"2\"", "failures=\"1\"", "time=\"0.012\"", "file=\"a.js\" line=\"5\"", "a.js:7\na.zorva:9"})
        QVERIFY2(xml.contains(part), part);
}

void TestTestReports::json()
{
    const QJsonObject run =
        QJsonDocument::fromJson(testsJson(results(), QStringLiteral("50.0 % of 2 lines"))).object();
    QCOMPARE(run.value(QStringLiteral("version")).toInt(), 1);
    QCOMPARE(run.value(QStringLiteral("coverage")).toString(), QStringLiteral("50.0 % of 2 lines"));
    const QByteArray text = testsJson(results(), QString());
    for (const char* part :
         {"\"at\": \"a.js:7\"", "\"form\": \"a.zorva:9\"", "\"passed\": false", "\"seen\""})
        QVERIFY2(text.contains(part), part);
    QVERIFY(!text.contains("coverage"));
}

QTEST_APPLESS_MAIN(TestTestReports)
#include "tst_testreports.moc"
