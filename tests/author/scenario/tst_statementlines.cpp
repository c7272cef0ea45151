#include <author/scenario/coverage.h>
#include <author/scenario/statementlines.h>

#include <QFile>
#include <QScriptEngine>
#include <QTest>

using namespace Orvane::Author;

/// The lines that can run, against those that the interpreter reports.
class TestStatementLines : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void lines_data();
    void lines();
    void damagedCodeEnds_data();
    void damagedCodeEnds();
};

namespace {

QString text(const QVector<int>& lines)
{
    QStringList texts;
    for (const int line : lines)
        texts.append(QString::number(line));
    return texts.join(QLatin1Char(' '));
}

} // namespace

void TestStatementLines::lines_data()
{
    QTest::addColumn<QString>("code"); // runs all of its lines
    QTest::addColumn<QString>("expected");
    const auto row = [](const char* name, const char* code, const char* expected) {
        QTest::newRow(name) << QString::fromLatin1(code) << QString::fromLatin1(expected);
    };
    row("nothing", "", "");
    row("comments", "// a\n/* b\n c */\n", "");
    row("expressions", "var a = 1;\na++;\n\na = a + 1\nvar b = a\n", "1 2 4 5");
    row("over several lines", "var a = [1,\n  2,\n  3];\nvar b = a\n  .length;\n", "1 4");
    row("an object", "var a = {\n  b: 1,\n  c: { d: 2 }\n};\na.b = 2;\n", "1 5");
    row("if", "var a = 1;\nif (a)\n  a = 2;\nif (!a)\n  ;\nelse\n  a = 3;\n", "1 2 3 4 7");
    row("else if", "var a = 1;\nif (!a) {\n} else if (a) {\n  a = 2;\n}\n", "1 2 3 4");
    row("loops",
        "for (var i = 0; i < 2; ++i)\n  i = i;\nwhile (i-- > 0) {\n  i = i;\n}\ndo\n  i++;\nwhile (i < 3);\n"
        "for (var k in {a: 1})\n  i = k;\n",
        "1 2 3 4 6 7 9 10");
    row("break and continue", "for (var i = 0; i < 2; ++i) {\n  if (i == 0)\n    continue;\n  break;\n}\n",
        "1 2 3 4");
    row("functions", "function f(a) {\n  return a;\n}\nvar g = function(b) {\n  return f(b);\n};\ng(1);\n",
        "2 4 5 7");
    row("a function in a call", "[1].forEach(function(a) {\n  a++;\n});\n", "1 2");
    row("a function at once", "(function() {\n  var a = 1;\n})();\n", "1 2");
    row("switch",
        "var a = 1;\nswitch (a) {\ncase 1:\n  a = 2;\n  break;\ndefault:\n  a = 3;\n}\na = 9;\nswitch (a) "
        "{\ncase 1: break;\ndefault:\n  a = 3;\n}\n",
        "1 2 4 5 7 9 10 11 13");
    row("try", "try {\n  throw 1;\n} catch (e) {\n  e = 2;\n} finally {\n  var a = 3;\n}\n", "2 4 6");
    row("a label", "outer:\nfor (;;) {\n  break outer;\n}\n", "2 3");
    row("patterns and texts", "var a = /[/\"]\\//g;\nvar b = \"}\";\nvar c = '{' + a;\n", "1 2 3");
    row("empty statement", ";\nvar a, b;\nvar c,\n  d = 1;\n", "3");
    row("operators at line ends", "var a = 1 +\n  2;\nvar b = a\n  + 1;\nvar c = b instanceof\n  Object;\n",
        "1 3 5");
}

void TestStatementLines::lines()
{
    QFETCH(QString, code);
    QFETCH(QString, expected);
    QCOMPARE(text(statementLines(code)), expected);
    // What the interpreter reports of a run through all of it is not less.
    QScriptEngine engine;
    CoverageAgent agent(&engine, code);
    engine.evaluate(code);
    QVERIFY2(!engine.hasUncaughtException(), qPrintable(engine.uncaughtException().toString()));
    const bool isPartly = QLatin1String(QTest::currentDataTag()) == QLatin1String("switch") ||
                          QLatin1String(QTest::currentDataTag()) == QLatin1String("if");
    for (const int line : statementLines(code)) {
        if (!isPartly)
            QVERIFY2(agent.lines().contains(line), qPrintable(QStringLiteral("line %1").arg(line)));
    }
    // Nor more, but for the closing lines of functions and loops.
    for (auto line = agent.lines().cbegin(); line != agent.lines().cend(); ++line) {
        const QString there = code.section(QLatin1Char('\n'), line.key() - 1, line.key() - 1).trimmed();
        QVERIFY2(statementLines(code).contains(line.key()) || there.startsWith(QLatin1Char('}')) ||
                     there.startsWith(QLatin1String("while")) || there.isEmpty(),
                 qPrintable(QStringLiteral("line %1: %2").arg(line.key()).arg(there)));
    }
}

void TestStatementLines::damagedCodeEnds_data()
{
    QTest::addColumn<QString>("code");
    QTest::newRow("brackets") << QStringLiteral("(").repeated(5000);
    QTest::newRow("braces") << QStringLiteral("{").repeated(5000);
    QTest::newRow("functions") << QStringLiteral("function").repeated(5000);
    QTest::newRow("ends") << QStringLiteral("} ) ] else case catch ; :").repeated(100);
    QTest::newRow("cut") << QStringLiteral("if (a) { switch (b) { case");
}

void TestStatementLines::damagedCodeEnds()
{
    QFETCH(QString, code);
    statementLines(code);
    for (int i = 0; i < 50; ++i)
        statementLines(code.left(i));
}

QTEST_GUILESS_MAIN(TestStatementLines)
#include "tst_statementlines.moc"
