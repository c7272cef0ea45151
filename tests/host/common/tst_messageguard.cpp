#include <messageguard.h>

#include <vkbase/qtrace.h>

#include <QTest>

class TestMessageGuard : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void silenceIsFine();
    void warningsAreNoted();
    void traceLinesAreNoted();
    void debugLinesAreNot();
    void anAnnouncementCoversOneMessage();
    void aMissingMessageIsNoted();
    void allowedMessagesMayComeOrNot();
    void unexpectedMessageFailsTheTest();
};

void TestMessageGuard::silenceIsFine()
{
    QCOMPARE(MessageGuard().complaints(), QString());
}

void TestMessageGuard::warningsAreNoted()
{
    MessageGuard guard;
    qWarning("oh dear");
    QCOMPARE(guard.complaints(), QStringLiteral("unexpected: oh dear"));
    guard.clear();
}

void TestMessageGuard::traceLinesAreNoted()
{
    MessageGuard guard;
    _Q_Trace(QStringLiteral("text"), QStringLiteral("file"), 7);
    QCOMPARE(guard.complaints(), QStringLiteral("unexpected: file:7: text"));
    guard.clear();
}

void TestMessageGuard::debugLinesAreNot()
{
    MessageGuard guard;
    qDebug("just saying");
    QCOMPARE(guard.complaints(), QString());
}

void TestMessageGuard::anAnnouncementCoversOneMessage()
{
    MessageGuard guard;
    guard.expect(QStringLiteral("dear (1)"));
    qWarning("oh dear (1)");
    QCOMPARE(guard.complaints(), QString());
    qWarning("oh dear (1)");
    QCOMPARE(guard.complaints(), QStringLiteral("unexpected: oh dear (1)"));
    guard.clear();
}

void TestMessageGuard::aMissingMessageIsNoted()
{
    MessageGuard guard;
    guard.expect(QRegularExpression(QStringLiteral("^oh")));
    QCOMPARE(guard.complaints(), QStringLiteral("announced, but it did not come: ^oh"));
    guard.clear();
}

void TestMessageGuard::allowedMessagesMayComeOrNot()
{
    MessageGuard guard;
    guard.allow(QRegularExpression(QStringLiteral("dear")));
    QCOMPARE(guard.complaints(), QString());
    qWarning("oh dear");
    qWarning("dear me");
    QCOMPARE(guard.complaints(), QString());
}

void TestMessageGuard::unexpectedMessageFailsTheTest()
{
    QEXPECT_FAIL("", "the guard reports the warning", Continue);
    MessageGuard guard;
    qWarning("oh dear");
}

QTEST_APPLESS_MAIN(TestMessageGuard)
#include "tst_messageguard.moc"
