#include "formtext.h"
#include "leftovers.h"

#include <author/preview/previewform.h>

#include <QElapsedTimer>
#include <QSignalSpy>
#include <QTest>
#include <QThread>
#include <QTimer>

using namespace Orvane::Author;

/// What a form's script says to its author.
class TestScriptLog : public QObject
{
    Q_OBJECT

    static QByteArray withScript(const QByteArray& code)
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
        PreviewForm form(withScript(code), QString());
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
        QTest::newRow("of statements that take long")
            << QByteArray("while (true) new Array(100000).join('x');");
        QTest::newRow("in the words of what is thrown")
            << QByteArray("throw { toString: function() { while (true) {} } };");
        QTest::newRow("in calls") << QByteArray("function f() {}\nwhile (true) f();");
    }
    void withoutAnEnd()
    {
        QFETCH(QByteArray, code);
        PreviewForm form(withScript(code), QString());
        form.log().setBound(50);
        const QSignalSpy throws(&form.log(), &ScriptLog::threw);
        form.build(QString());
        QVERIFY(form.log().hasStopped());
        QCOMPARE(throws.count(), 1);
        QVERIFY(form.window());
    }
    void aHandlerWithoutAnEnd_data()
    {
        QTest::addColumn<QByteArray>("code");
        QTest::newRow("a loop") << QByteArray("while (on);");
        QTest::newRow("with an empty body") << QByteArray("while (on) {}");
        QTest::newRow("in a function") << QByteArray("function f() { while (on) {} } f();");
    }
    void aHandlerWithoutAnEnd()
    {
        QFETCH(QByteArray, code);
        PreviewForm form(withScript("lock.toggled.connect(function(on) {\n" + code +
                                    "\nfor (var i = 0; i < 2000; ++i) {}\nthrow 'over'; });"),
                         QString());
        form.log().setBound(50);
        form.build(QString());
        const QSignalSpy throws(&form.log(), &ScriptLog::threw);
        form.form().SetVTValue(QStringLiteral("lock"), QStringLiteral("true"), nullptr, false);
        QVERIFY(form.log().hasStopped());
        QVERIFY(!form.isRunning());
        QCOMPARE(throws.count(), 1);
        QCOMPARE(throws.first().at(1).toInt(), 2);
        // It runs again with the next change, and to its end.
        QCoreApplication::processEvents();
        form.form().SetVTValue(QStringLiteral("lock"), QStringLiteral("false"), nullptr, false);
        QCOMPARE(throws.count(), 2);
        QCOMPARE(throws.last().first().toString(), QStringLiteral("over"));
    }
    void eventsFromWithinAHandler()
    {
        PreviewForm form(withScript("lock.toggled.connect(function() { while (true) {} });"), QString());
        form.log().setBound(50);
        form.build(QString());
        bool wasRunning = false;
        QTimer::singleShot(0, &form.log(), [&] { wasRunning = form.isRunning(); });
        form.form().SetVTValue(QStringLiteral("lock"), QStringLiteral("true"), nullptr, false);
        QVERIFY(wasRunning);
        QVERIFY(!form.isRunning());
    }
    void withoutAnythingElseInTheForm()
    {
        PreviewForm form("<KVParamGui><Sheet/><Script>while (true);</Script></KVParamGui>", QString());
        form.log().setBound(50);
        form.build(QString());
        QVERIFY(form.log().hasStopped());
    }
    // The time is that of all of them together, or a form of many rows would stand still for minutes.
    void aHandlerWithoutAnEndOfManyRows()
    {
        constexpr int count = 200;
        constexpr int bound = 200;
        QString rows;
        for (int i = 0; i < count; ++i)
            rows += rowXml("CheckBox", ("box" + QByteArray::number(i)).constData());
        const QString code =
            QStringLiteral("for (var i = 0; i < %1; ++i)\n"
                           "this['box' + i].toggled.connect(function() { while (true) {} });");
        PreviewForm form(formXml(rows, QString(), code.arg(count)).toUtf8(), QString());
        form.log().setBound(bound);
        form.build(QString());
        const QSignalSpy throws(&form.log(), &ScriptLog::threw);
        QElapsedTimer timer;
        timer.start();
        for (int i = 0; i < count; ++i)
            form.form().SetVTValue(QStringLiteral("box%1").arg(i), QStringLiteral("true"), nullptr, false);
        QCOMPARE(throws.count(), count);
        QVERIFY(timer.elapsed() < qint64(count) * bound / 2);
    }
    void timeThatOthersTakeIsNotTheHandlers()
    {
        constexpr int bound = 500; // far more than the handler takes, on a busy machine too
        PreviewForm form(withScript("lock.toggled.connect(function() {\n"
                                    "for (var i = 0; i < 2000; ++i) ; });"),
                         QString());
        form.log().setBound(bound);
        form.build(QString());
        QThread::msleep(2 * bound); // a form of many rows takes as long to build
        form.form().SetVTValue(QStringLiteral("lock"), QStringLiteral("true"), nullptr, false);
        QVERIFY(!form.log().hasStopped());
    }
};

QTEST_MAIN(TestScriptLog)
#include "tst_scriptlog.moc"
