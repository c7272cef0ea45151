#include "formtext.h"
#include "leftovers.h"

#include <author/preview/previewform.h>

#include <QSignalSpy>
#include <QTest>

using namespace Orvane::Author;

/// What a form's script says to its author.
class TestScriptLog : public QObject
{
    Q_OBJECT

    static QByteArray withScript(const char* code)
    {
        return formXml(rowXml("CheckBox", "lock"), QString(), QString::fromLatin1(code)).toUtf8();
    }

private Q_SLOTS:
    void cleanup() { QCOMPARE(leftovers(), QString()); }
    void printsAndExceptions_data()
    {
        QTest::addColumn<QByteArray>("code");
        QTest::addColumn<QString>("printed");
        QTest::addColumn<int>("line");
        QTest::newRow("print") << QByteArray("print('a', 1);") << QStringLiteral("a 1") << 0;
        QTest::newRow("throw") << QByteArray("var a = 1;\nthrow 'no';") << QString() << 2;
        QTest::newRow("caught") << QByteArray("try { none(); } catch (e) {}") << QString() << 0;
        QTest::newRow("syntax") << QByteArray("var a = 1;\nvar = ;") << QString() << 2;
        QTest::newRow("own print") << QByteArray("function print() {}\nprint('a');") << QString() << 0;
    }
    void printsAndExceptions()
    {
        QFETCH(QByteArray, code);
        QFETCH(QString, printed);
        QFETCH(int, line);
        PreviewForm form(withScript(code.constData()), QString());
        const QSignalSpy prints(&form.log(), &ScriptLog::printed);
        const QSignalSpy throws(&form.log(), &ScriptLog::threw);
        form.build(QString());
        QCOMPARE(prints.isEmpty() ? QString() : prints.first().first().toString(), printed);
        QCOMPARE(throws.isEmpty() ? 0 : throws.first().at(1).toInt(), line);
    }
    void handlers()
    {
        PreviewForm form(withScript("lock.toggled.connect(function() {\nthrow new Error('late'); });"),
                         QString());
        form.build(QString());
        const QSignalSpy throws(&form.log(), &ScriptLog::threw);
        form.form().SetVTValue(QStringLiteral("lock"), QStringLiteral("true"), nullptr, false);
        QCOMPARE(throws.count(), 1);
        QCOMPARE(throws.first().at(1).toInt(), 2);
        QVERIFY(throws.first().first().toString().contains(QLatin1String("late")));
    }
    void withoutAnEnd_data()
    {
        QTest::addColumn<QByteArray>("code");
        QTest::newRow("a loop") << QByteArray("while (true);");
        QTest::newRow("with a body") << QByteArray("var i = 0;\nfor (;;) { ++i; }");
        QTest::newRow("in a function") << QByteArray("function f() { while (true) {} }\nf();");
        QTest::newRow("that catches") << QByteArray("while (true) { try { for (;;) {} } catch (e) {} }");
    }
    void withoutAnEnd()
    {
        QFETCH(QByteArray, code);
        PreviewForm form(withScript(code.constData()), QString());
        form.log().setBound(50);
        const QSignalSpy throws(&form.log(), &ScriptLog::threw);
        form.build(QString());
        QVERIFY(form.log().hasStopped());
        QCOMPARE(throws.count(), 1);
        QVERIFY(form.window());
    }
    void aHandlerWithoutAnEnd()
    {
        PreviewForm form(withScript("lock.toggled.connect(function(on) {\nwhile (on);\nthrow 'over'; });"),
                         QString());
        form.log().setBound(50);
        form.build(QString());
        const QSignalSpy throws(&form.log(), &ScriptLog::threw);
        form.form().SetVTValue(QStringLiteral("lock"), QStringLiteral("true"), nullptr, false);
        QVERIFY(form.log().hasStopped());
        QCOMPARE(throws.count(), 1);
        QCOMPARE(throws.first().at(1).toInt(), 2);
        // It runs again with the next change, and to its end.
        form.form().SetVTValue(QStringLiteral("lock"), QStringLiteral("false"), nullptr, false);
        QCOMPARE(throws.count(), 2);
        QCOMPARE(throws.last().first().toString(), QStringLiteral("over"));
    }
};

QTEST_MAIN(TestScriptLog)
#include "tst_scriptlog.moc"
