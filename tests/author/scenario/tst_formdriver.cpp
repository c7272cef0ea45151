#include <author/scenario/testscript.h>

#include <QTest>

using namespace Orvane::Author;

namespace {

QString row(const char* name, const char* className, const char* properties, const char* path = "")
{
    const QString yes = QStringLiteral("<Property name=\"%1\"><Bool>true</Bool></Property>");
    QString tag;
    if (*path)
        tag = yes.arg(QStringLiteral("generateParameterXml")) +
              QStringLiteral("<Property name=\"parameterXmlTag\"><String>%1</String></Property>")
                  .arg(QLatin1String(path));
    QString all;
    for (const QString& pair : QString::fromLatin1(properties).split(QLatin1Char(';'), Qt::SkipEmptyParts))
        all += QStringLiteral("<Property name=\"%1\"><String>%2</String></Property>")
                   .arg(pair.section(QLatin1Char('='), 0, 0), pair.section(QLatin1Char('='), 1));
    return QStringLiteral("<Widget name=\"%1\" class=\"%2\">%3%4%5%6</Widget>\n")
        .arg(QLatin1String(name), QLatin1String(className), all, yes.arg(QStringLiteral("enabled")),
             yes.arg(QStringLiteral("visible")), tag);
}

/// Rows stand on lines 5 and following.
QByteArray description()
{
    return "<KVParamGui>\n<Enums><Enum name=\"Modes\">"
           "<EnumValue><DisplayName>Wide</DisplayName><Value>FM</Value></EnumValue>"
           "<EnumValue><DisplayName>Narrow</DisplayName><Value>AM</Value></EnumValue></Enum></Enums>\n"
           "<Sheet name=\"sheet\">\n"
           "<Properties><Property name=\"autoApplyTimeout\"><Int>2000</Int></Property></Properties>\n" +
           (row("group", "Headline", "text=Group") +                                               // 5
            row("mode", "ComboBox", "labelText=Mode;enumName=Modes;currentValue=FM", "T/Mode") +   // 6
            row("count", "SpinBox", "labelText=Count;value=4;maximum=100;suffix= dB", "T/Count") + // 7
            row("name", "LineEdit", "labelText=Name;text=abc", "T/Name") +                         // 8
            row("on", "CheckBox", "labelText=On", "T/On") +                                        // 9
            row("go", "PushButton", "labelText=Go;text=Go") +                                      // 10
            row("range", "FrequencyRangeEdit",
                "labelText=Range;startFrequency=1000000;stopFrequency=2000000;minimum=0;maximum=9000000;"
                "startFrequencyParameterXmlTag=Start;stopFrequencyParameterXmlTag=Stop",
                "T/Range") +                                  // 11
            row("other", "Headline", "text=Other") +          // 12
            row("remark", "Label", "labelText=Remark;text=-") // 13
            )
               .toUtf8() +
           "</Sheet>\n<Script>\n"
           "go.clicked.connect(function() { missing(); });\n"
           "mode.currentValueChanged.connect(function(v) { remark.text = v; });\n"
           "</Script>\n</KVParamGui>\n";
}

ScenarioResult run(const QString& body)
{
    ScenarioSetup setup;
    setup.form = {QStringLiteral("f.zorva"), description()};
    setup.tests.append({QStringLiteral("t.js"),
                        QStringLiteral("test(\"it\", function(form) {\n%1\n});\n").arg(body).toUtf8()});
    TestScript script(setup);
    if (!script.problem().isEmpty()) {
        ScenarioResult result;
        result.message = script.problem();
        return result;
    }
    return script.run(0);
}

} // namespace

/// What a test can do to a form, and what it is told.
class TestFormDriver : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void passes_data();
    void passes();
    void fails_data();
    void fails();
    void placesOfFailures();
    void testsAreDeclaredInOrder();
    void sourcesThatCannotBeUsed_data();
    void sourcesThatCannotBeUsed();
    void nothingIsLeftForTheNextTest();
};

void TestFormDriver::passes_data()
{
    QTest::addColumn<QString>("body");
    const auto row = [](const char* name, const char* body) {
        QTest::newRow(name) << QString::fromLatin1(body);
    };
    row("values", "form.expectValue('count', 4); form.expectValue('T/Count', '4'); "
                  "expect(form.value('mode'), 'Wide');");
    row("typing", "form.type('name', 'xyz'); form.expectText('name', 'xyz'); form.expectValue('name', 'abc');"
                  "form.press('name', 'Return'); form.expectValue('name', 'xyz');");
    row("typing is left", "form.type('name', 'xyz'); form.leave(); form.expectValue('name', 'xyz');");
    row("typing nothing", "form.enter('name', ''); form.expectValue('name', '');");
    row("typing a number", "form.enter('count', '42'); form.expectValue('count', 42);"
                           "form.expectText('count', '42 dB');");
    row("keys", "form.press('count', 'Up'); form.expectValue('count', 5);");
    row("the second field", "form.enter('range[1]', '3 MHz'); form.expectText('range[1]', '3 MHz');"
                            "form.expectText('range[0]', '1 MHz');");
    row("clicks",
        "form.click('on'); form.expectChecked('on'); form.click('on'); form.expectChecked('on', false);");
    row("choices", "expect(form.choices('mode'), ['Wide', 'Narrow']); form.choose('mode', 'Narrow');"
                   "form.expectText('mode', 'Narrow'); form.expectParameter('mode', 'AM');"
                   "form.expectText('remark', 'AM');");
    row("applying", "form.enter('name', 'x'); form.forget(); form.click('on'); form.apply();"
                    "expect(form.applied(), 1);");
    row("fetching", "form.click('on'); form.expectFetched('<Parameters><T><On>true</On></T></Parameters>');"
                    "form.expectFetched(''); expect(form.modified(), false);");
    row("in any order", "form.click('on'); form.choose('mode', 'Narrow'); form.expectFetched("
                        "'<Parameters><T><On>true</On></T><T><Mode>AM</Mode></T></Parameters>');");
    row("all", "form.expectAll('<Parameters><T><Name>abc</Name><Mode>FM</Mode><Count>4</Count>"
               "<On>false</On><Start>1000000</Start><Stop>2000000</Stop></T></Parameters>');");
    row("pushing", "form.push('<Parameters><T><Count>7</Count></T></Parameters>');"
                   "form.expectValue('count', 7); form.expectModified('count', false);");
    row("setting",
        "form.set('mode', 'Narrow'); form.expectParameter('mode', 'AM'); form.expectMarks(['mode']);");
    row("the pause", "expect(form.pause(), -1); form.click('on'); expect(form.pause(), 2000);"
                     "form.advance(500); expect(form.pause(), 1500); expect(form.applied(), 0);"
                     "form.advance(1500); expect(form.applied(), 1); expect(form.pause(), -1);");
    row("the pause begins anew", "form.click('on'); form.advance(1999); form.click('on'); form.advance(1999);"
                                 "expect(form.applied(), 0); form.advance(1); expect(form.applied(), 1);");
    row("the pause is ended", "form.click('on'); form.evaluate('sheet.killAutoApplyTimer()');"
                              "form.advance(9000); expect(form.applied(), 0);");
    row("fetching ends the pause",
        "form.click('on'); form.fetch(); form.advance(9000); expect(form.applied(), 0);");
    row("collapsing", "form.collapse('group'); expect(form.collapsed('group'), true);"
                      "form.expectVisible('mode', false); form.expectVisible('remark');"
                      "form.open('group'); form.expectVisible('mode');");
    row("overlays",
        "form.overlay('<KVParamGui><Sheet><Widget name=\"name\"><Property name=\"enabled\"><Bool>false"
        "</Bool></Property></Widget></Sheet></KVParamGui>'); form.expectEnabled('name', false);");
    row("input", "form.enableInput(false); form.expectEnabled('name', false); form.enableInput(true);"
                 "form.expectEnabled('name');");
    row("signals", "form.click('on'); form.expectEmitted('on.toggled', [[true]]);"
                   "form.expectNotEmitted('mode.currentValueChanged'); form.choose('mode', 'Narrow');"
                   "expect(form.emitted('mode.currentValueChanged'), [['AM']]);"
                   "form.forget(); form.expectNotEmitted('on.toggled');");
    row("the form's script", "expect(form.evaluate('1 + 1'), 2); expect(form.evaluate('[1, 2]'), [1, 2]);");
    row("exceptions are expected", "form.click('go'); expect(form.exceptions().length, 1);"
                                   "expect(form.exceptions().length, 0);");
    row("looks", "expect(form.caption('name'), 'Name'); expect(form.property('count', 'suffix'), ' dB');"
                 "expect(form.rows().length, 9); form.toolTip('name');");
    row("equal things", "expect({b: [1, 'x'], a: null}, {a: null, b: [1, 'x']}); expect('1', '1');");
}

void TestFormDriver::passes()
{
    QFETCH(QString, body);
    const ScenarioResult result = run(body);
    QVERIFY2(result.passed, qPrintable(result.message));
}

void TestFormDriver::fails_data()
{
    QTest::addColumn<QString>("body");
    QTest::addColumn<QString>("message");
    QTest::addColumn<QString>("formPlace");
    const auto row = [](const char* name, const char* body, const char* message, const char* formPlace = "") {
        QTest::newRow(name) << QString::fromLatin1(body) << QString::fromLatin1(message)
                            << QString::fromLatin1(formPlace);
    };
    row("value", "form.expectValue('count', 5)", "value of count: expected \"5\", seen \"4\"", "f.zorva:7");
    row("text", "form.expectText('name', 'x')", "text of name: expected \"x\", seen \"abc\"", "f.zorva:8");
    row("state", "form.expectEnabled('on', false)", "on: expected disabled, seen enabled", "f.zorva:9");
    row("mark", "form.expectModified('on')", "on: expected modified, seen not modified", "f.zorva:9");
    row("marks", "form.click('on'); form.expectMarks([])", "marked rows: expected \"\", seen \"on\"");
    row("no such row", "form.click('onn')", "the form has no row \"onn\"");
    row("no such row to expect of", "form.expectText('onn', '')", "the form has no row \"onn\"");
    row("no such signal", "form.expectNotEmitted('on.togled')",
        "there is no signal \"on.togled\"; it is written as ROW.SIGNAL", "f.zorva:9");
    row("no such choice", "form.choose('mode', 'Wid')",
        "\"Wid\" is none of the choices of row \"mode\": Wide, Narrow", "f.zorva:6");
    row("no such key", "form.press('name', 'Upp')", "there is no key \"Upp\"");
    row("greyed", "form.enableInput(false); form.type('name', 'x')", "row \"name\" is disabled", "f.zorva:8");
    row("collapsed", "form.collapse('group'); form.type('name', 'x')", "row \"name\" is not shown",
        "f.zorva:8");
    row("no choice", "form.choose('name', 'x')", "row \"name\" has no choice", "f.zorva:8");
    row("nothing to apply", "form.apply()", "there is nothing to apply: the button is greyed");
    row("fetched", "form.click('on'); form.expectFetched('<Parameters><T><On>false</On></T></Parameters>')",
        "fetched parameters: expected T/On = \"false\", seen T/On = \"true\"");
    row("nothing fetched", "form.expectFetched('<Parameters/>')",
        "fetched parameters: expected parameters, seen nothing");
    row("signal", "form.expectEmitted('on.toggled')", "on.toggled: expected a signal, seen none",
        "f.zorva:9");
    row("expect", "expect(1 + 1, 3, 'sum')", "sum: expected 3, seen 2");
    row("expect of other types", "expect('1', 1)", "expected 1, seen \"1\"");
    row("fail", "fail('no', 7)", "no 7");
    row("throw", "throw 'me'", "me");
    row("mistake", "form.clikc('on')",
        "TypeError: Result of expression 'form.clikc' [undefined] is not a function.");
    row("the form's exception", "form.click('go')",
        "the form's script threw: f.zorva:16: ReferenceError: Can't find variable: missing", "f.zorva:16");
}

void TestFormDriver::fails()
{
    QFETCH(QString, body);
    const ScenarioResult result = run(QStringLiteral("var a = 1;\n") + body);
    QVERIFY(!result.passed);
    QTEST(result.message, "message");
    QTEST(result.formPlace.text(), "formPlace");
    if (!body.contains(QLatin1String("click('go')")) && !body.startsWith(QLatin1String("throw")))
        QCOMPARE(result.place.text(), QStringLiteral("t.js:3"));
}

// In a function of the test's own, it is the line of the expectation that counts.
void TestFormDriver::placesOfFailures()
{
    const ScenarioResult result =
        run(QStringLiteral("function check() {\n    form.expectText('name', 'x');\n}\n\ncheck();"));
    QCOMPARE(result.place.text(), QStringLiteral("t.js:3"));
    QCOMPARE(result.expected, QStringLiteral("\"x\""));
    QCOMPARE(result.seen, QStringLiteral("\"abc\""));
}

void TestFormDriver::testsAreDeclaredInOrder()
{
    ScenarioSetup setup;
    setup.form = {QStringLiteral("f.zorva"), description()};
    setup.tests.append(
        {QStringLiteral("a.js"), "test('one', function() {});\n\ntest('two', function() {});"});
    setup.tests.append({QStringLiteral("b.js"), "test('three', function() { print('a', 1); });"});
    TestScript script(setup);
    QStringList tests;
    for (const ScenarioTest& test : script.tests())
        tests.append(test.name + QLatin1Char(' ') + test.place.text());
    QCOMPARE(tests.join(QLatin1String(", ")), QStringLiteral("one a.js:1, two a.js:3, three b.js:1"));
    QCOMPARE(script.run(2).notes, QStringList{QStringLiteral("a 1")});
}

void TestFormDriver::sourcesThatCannotBeUsed_data()
{
    QTest::addColumn<QByteArray>("source");
    QTest::addColumn<QString>("problem");
    QTest::newRow("syntax") << QByteArray("\ntest('a' function() {});")
                            << QStringLiteral("t.js:2:10: Expected `;', `)'");
    QTest::newRow("exception") << QByteArray("\n\nmissing();")
                               << QStringLiteral("t.js:3: ReferenceError: Can't find variable: missing");
    QTest::newRow("no function") << QByteArray("test('a');")
                                 << QStringLiteral("t.js:1: Error: test() wants a name and a function");
}

void TestFormDriver::sourcesThatCannotBeUsed()
{
    QFETCH(QByteArray, source);
    ScenarioSetup setup;
    setup.form = {QStringLiteral("f.zorva"), description()};
    setup.tests.append({QStringLiteral("t.js"), source});
    QTEST(TestScript(setup).problem(), "problem");
}

void TestFormDriver::nothingIsLeftForTheNextTest()
{
    ScenarioSetup setup;
    setup.form = {QStringLiteral("f.zorva"), description()};
    setup.tests.append({QStringLiteral("t.js"), "for (var i = 0; i < 2; ++i) test('a', function(form) {"
                                                " form.expectMarks([]); form.expectText('name', 'abc');"
                                                " form.enter('name', 'x'); form.collapse('group'); });"});
    TestScript script(setup);
    for (int i = 0; i < 2; ++i) {
        const ScenarioResult result = script.run(i);
        QVERIFY2(result.passed, qPrintable(result.message));
    }
}

QTEST_MAIN(TestFormDriver)
#include "tst_formdriver.moc"
