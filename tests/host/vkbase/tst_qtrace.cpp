#include <messageguard.h>

#include <vkbase/qtrace.h>

#include <QTest>

class TestQTrace : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();
    void lineGoesToTheLog();
    void lineGoesToTheSinkToo();
    void emptySinkEndsIt();
    void sinkMayReplaceItself();
};

void TestQTrace::cleanup()
{
    SetTraceSink({});
}

void TestQTrace::lineGoesToTheLog()
{
    MessageGuard guard;
    guard.expect(QStringLiteral("zorvasheet:42: it is so"));
    _Q_Trace(QStringLiteral("it is so"), QStringLiteral("zorvasheet"), 42);
    QCOMPARE(guard.complaints(), QString());
}

void TestQTrace::lineGoesToTheSinkToo()
{
    MessageGuard guard;
    guard.expect(QStringLiteral("text"));
    QStringList seen;
    SetTraceSink([&seen](const QString& message, const QString& file, unsigned short line) {
        seen << message << file << QString::number(line);
    });
    _Q_Trace(QStringLiteral("text"), QStringLiteral("file"), 65535);
    QCOMPARE(seen, (QStringList{QStringLiteral("text"), QStringLiteral("file"), QStringLiteral("65535")}));
}

void TestQTrace::emptySinkEndsIt()
{
    MessageGuard guard;
    guard.expect(QStringLiteral("text"));
    int count = 0;
    SetTraceSink([&count](const QString&, const QString&, unsigned short) { ++count; });
    SetTraceSink({});
    _Q_Trace(QStringLiteral("text"), QString(), 0);
    QCOMPARE(count, 0);
}

void TestQTrace::sinkMayReplaceItself()
{
    MessageGuard guard;
    guard.allow(QRegularExpression(QStringLiteral("text")));
    int count = 0;
    SetTraceSink([&count](const QString&, const QString&, unsigned short) {
        SetTraceSink({});
        ++count;
    });
    _Q_Trace(QStringLiteral("text"), QString(), 0);
    _Q_Trace(QStringLiteral("text"), QString(), 0);
    QCOMPARE(count, 1);
}

QTEST_APPLESS_MAIN(TestQTrace)
#include "tst_qtrace.moc"
