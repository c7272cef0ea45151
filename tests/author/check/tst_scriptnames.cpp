#include <author/check/scriptnames.h>

#include <QTest>

using namespace Orvane::Author;

/// Which words of a script mean something global, and which a function's own.
class TestScriptNames : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void globals_data();
    void globals();
    void anyCode();
    void deepCode_data();
    void deepCode();
};

void TestScriptNames::globals_data()
{
    QTest::addColumn<QString>("code");
    QTest::addColumn<QString>(
        "uses"); // one letter for each word "row": global, declared by the script or local
    const auto row = [](const char* title, const char* code, const char* uses) {
        QTest::newRow(title) << QString::fromUtf8(code) << QString::fromUtf8(uses);
    };
    row("bare", "row.setValue(row.value);", "gg");
    row("a member", "a.row = b.row;", "..");
    row("a key", "x = { row: 1, row: row };", "..g");
    row("a choice", "x = a ? row : row;", "gg");
    row("a variable", "var row = 1; row = 2;", "ss");
    row("several variables", "var a = f(1, 2), row; row = a;", "ss");
    row("an argument", "function f(row) { return row; } row.x();", "llg");
    row("an argument of an inner function", "function f(row) { g(function() { row.x(); }); }", "ll");
    row("a variable of an inner function", "function f() { g(function() { var row; }); row.x(); }", "lg");
    row("used before it is declared", "function f() { row = 1; var row; }", "ll");
    row("the name of a function", "function row() {} row();", "ss");
    row("the name of an inner function", "function f() { function row() {} row(); } row();", "llg");
    row("a caught exception", "try { f(); } catch (row) { print(row); } row.x();", "llg");
    row("a loop", "for (var row in list) print(row);", "ss");
    row("without semicolons", "var a = 1\nrow.setValue(a)\n", "g");
    row("without semicolons, in a function", "function f() { var a = b.c()\n row.setValue(a) }", "g");
    row("a list that goes on", "var a = b\n  , row = a; row.x();", "ss");
    row("a list that ends with its line", "var a = 1\nf(), row.x()", "g");
    row("a variable in a catch", "function f() { try {} catch (e) { var row; } row.x(); } row.x();", "llg");
    row("a variable in a block of the whole", "try {} catch (e) { var row = e; } row.x();", "ss");
    row("an argument called like its function", "function row(row) { row.x(); } row();", "slls");
    row("a label", "row: for (;;) { continue row; }", "..");
    row("a name behind break", "for (;;) { break\nrow.x(); }", "g");
    row("an inner function that is not finished", "function f(row) { function g( } row.x();", "lg");
    row("a body behind an escape", "function f(row){{LF}}{ row.x(); } row.x();", "llg");
    row("a text and a comment", "print('row'); // row\n/* row */ row.x();", "g");
    row("unfinished", "function f(row) { row.", "ll");
    row("unfinished arguments", "function f(row", "l");
    row("too many ends", "} } row.x(); }", "g");
}

void TestScriptNames::globals()
{
    QFETCH(QString, code);
    QFETCH(QString, uses);
    const ScriptNames names(code);
    QString seen;
    for (int i = 0; i < names.tokens().size(); ++i) {
        if (names.tokens().at(i).kind != ScriptToken::Word ||
            names.tokens().at(i).text != QStringLiteral("row"))
            continue;
        const int scope = names.declaringScope(i);
        seen += scope > 0           ? QLatin1Char('l')
                : scope == 0        ? QLatin1Char('s')
                : names.isGlobal(i) ? QLatin1Char('g')
                                    : QLatin1Char('.');
    }
    QCOMPARE(seen, uses);
}

void TestScriptNames::anyCode()
{
    const QString code = QStringLiteral("function f(a) { var b = { c: function() { return a; } }; } catch (");
    for (int size = 0; size <= code.size(); ++size) {
        const ScriptNames names(code.left(size));
        for (int i = 0; i < names.tokens().size(); ++i) {
            names.declaredAt(i);
            QVERIFY(names.tokenAt(names.tokens().at(i).offset) >= 0);
        }
    }
}

void TestScriptNames::deepCode_data()
{
    QTest::addColumn<QString>("piece");
    QTest::newRow("functions") << QStringLiteral("function f(a) { a; ");
    QTest::newRow("arguments") << QStringLiteral("function f(");
    QTest::newRow("variables") << QStringLiteral("var a = function() { a; ");
    QTest::newRow("exceptions") << QStringLiteral("catch (e) { var a; ");
    QTest::newRow("lists") << QStringLiteral("var a = [f(");
    QTest::newRow("ends") << QStringLiteral("} ) ] ");
}

/// Anything that took time with the square of the depth would not come to an end here.
void TestScriptNames::deepCode()
{
    QFETCH(QString, piece);
    const ScriptNames names(piece.repeated(20000));
    QVERIFY(names.tokens().size() >= 60000);
    QVERIFY(names.declaringScope(names.tokens().size() - 1) <= names.scopes().size());
}

QTEST_APPLESS_MAIN(TestScriptNames)
#include "tst_scriptnames.moc"
