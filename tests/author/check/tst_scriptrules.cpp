#include "rulestest.h"

namespace {

/// A form with a check box "row" and an enumeration "E" with "A"; the script begins in line 12.
QString formWith(const char* code, const char* language)
{
    return QStringLiteral("<KVParamGui version=\"1.0\">\n<Enums>\n<Enum name=\"E\">\n"
                          "<EnumValue><DisplayName>1</DisplayName><EnumIdentifier>A</EnumIdentifier>"
                          "<Value>1</Value></EnumValue>\n</Enum>\n</Enums>\n<Sheet name=\"sheet\">\n"
                          "<Widget name=\"row\" class=\"CheckBox\">\n"
                          "<Property name=\"labelText\"><String>A</String></Property>"
                          "<Property name=\"enabled\"><Bool>true</Bool></Property>"
                          "<Property name=\"visible\"><Bool>true</Bool></Property>"
                          "<Property name=\"generateParameterXml\"><Bool>true</Bool></Property>\n</Widget>\n"
                          "</Sheet>\n<Script language=\"%1\"><![CDATA[E;\n%2\n]]></Script>\n</KVParamGui>\n")
        .arg(QString::fromLatin1(language), QString::fromUtf8(code));
}

} // namespace

class tst_scriptrules : public RulesTest
{
    Q_OBJECT

protected:
    void addCases() override
    {
        const auto row = [](const char* what, const char* code, const char* places,
                            const char* language = "QtScript") {
            add(what, formWith(code, language), places);
        };
        row("all is well", "row.toggled.connect(function(on) { print(on ? E.A : row.checked); });", "");
        row("a syntax error",
            "var a = 1;\n"
            "var = 2;",
            "script-syntax 14:1");
        row("an unclosed brace", "function f() {", "script-syntax 13:1");
        row("a name that is not there", "function f() { print(rwo.checked); }", "unknown-global 13:22");
        row("a built-in name", "function f() { return Math.max(parseInt(\"1\"), isNaN(undefined)); }", "");
        row("names of the script itself",
            "var a = 1, b = a; function f(c) { for (var d in c) try { a = d; } catch (e) { print(e, b); } }",
            "");
        row("a name in an object literal", "var o = { key: 1, other: { deep: 2 } }; print(o.key);", "");
        row("a name in a text and a pattern", "var t = \"nothing.here\" + /no\\/thing/g; // nothing.here",
            "");
        row("typeof a name", "if (typeof hostThing != \"undefined\") print(1);", "");
        row("a slot that is not there", "function f() { row.setCheked(true); }", "unknown-member 13:20");
        row("a property that is not there", "function f() { return row.chekced; }", "unknown-member 13:27");
        row("an identifier that is not there", "function f() { return E.B; }", "unknown-member 13:25");
        row("a signal that is not there", "function f() { row.togled.connect(f); }", "unknown-signal 13:20");
        row("a slot for a signal", "function f() { row.setChecked.connect(f); }", "unknown-signal 13:20");
        row("an argument called like the row", "function f(row) { row.anything(); return E.A; }", "");
        row("a variable called like the enumeration", "function f() { var E = {}; return E.B; }", "");
        row("the row beside such an argument",
            "function f(row) { row.anything(); }\nfunction g() { row.setCheked(true); }",
            "unknown-member 14:20");
        row("the enumeration beside such a variable",
            "function f() { var E = {}; return E.B; } function g() { return E.B; }", "unknown-member 13:66");
        row("a variable of another function",
            "function f() { var here = 1; return here; }\nfunction g() { return here; }",
            "unknown-global 14:23");
        row("an argument at start-up", "function f(here) { return here; }\nprint(here);",
            "unknown-global 14:7");
        row("a variable around", "function f() { var a = 1; return function(b) { return a + b; }; }", "");
        row("a variable of a catch",
            "function f() { try { g(); } catch (e) { var a = e; } return a; } function g() {}", "");
        row("a caught exception behind its block", "function f() { try { f(); } catch (e) {} return e; }",
            "unknown-global 13:49");
        row("a name without var", "function f() { here = 1; } function g() { return here; }", "");
        row("a loop without var", "function f(list) { for (key in list) print(key); }", "");
        row("a label", "function f() { outer: for (;;) { for (;;) break outer; } }", "");
        row("a label at the beginning", "outer: for (;;) break outer;", "");
        row("a list without semicolons", "var a = 1, b = 2\nvar c = a + b\nprint(c)", "");
        row("no list without semicolons", "var a = 1\nprint(a), nowhere", "unknown-global 14:11");
        row("a line end by escape", "function f(){{LF}}{ var a = 1; return a; } function g() { return f(); }",
            "");
        row("a property of its own", "function f() { row.memory = 1; } function g() { return row.memory; }",
            "");
        row("a property that is misspelt where it is set", "function f() { row.chekced = true; }",
            "unknown-member 13:20");
        row("focus at start-up", "row.setFocus();", "early-control 13:5");
        row("focus in a handler", "row.toggled.connect(function() { row.setFocus(); });", "");
        row("an escape in small letters", "var t = \"{{lf}}\";", "escape-case 13:10");
        row("an escape", "var t = 1;{{LF}}var u = 2;", "");
        row("another language", "var t;", "script-language 12:19", "Python");
        row("two mistakes",
            "function f() { row.nothing(); }\n"
            "function g() { nowhere(); }",
            "unknown-member 13:20, unknown-global 14:16");
        whole("the script is lost",
              "<KVParamGui version=\"1.0\">\n<Sheet name=\"s\"/>\n<x>\n<Script language=\"QtScript\">var = "
              "1;</Script>\n</x>\n</KVParamGui>",
              "unknown-element 3:1, script-syntax 4:29", "because of this the form loses the script");
    }

private Q_SLOTS:
    // Anything that took time with the square of the mistakes would not come to an end here.
    void manyMistakesAreFound_data()
    {
        QTest::addColumn<QString>("mistake");
        QTest::newRow("members") << QStringLiteral("row.nothing();\n");
        QTest::newRow("escapes") << QStringLiteral("t = \"{{lf}}\";\n");
        QTest::newRow("names") << QStringLiteral("nowhere%1();\n");
    }

    void manyMistakesAreFound()
    {
        QFETCH(QString, mistake);
        constexpr int count = 5000;
        QString code = QStringLiteral("function f() {\n");
        for (int i = 0; i < count; ++i)
            code += mistake.contains(QLatin1Char('%')) ? mistake.arg(i) : mistake;
        code += QLatin1Char('}');
        const Orvane::Author::CheckedFile checked = Orvane::Author::check(
            QStringLiteral("f"), formWith(code.toUtf8().constData(), "QtScript").toUtf8());
        QCOMPARE(checked.findings.size(), count);
    }
};

QTEST_MAIN(tst_scriptrules)
#include "tst_scriptrules.moc"
