#include <hostkit/requestqueue.h>

#include <QTest>

using hostkit::Request;
using hostkit::RequestQueue;

class TestRequestQueue : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void newerTakesThePlaceOfOlder()
    {
        RequestQueue queue;
        const quint64 first = queue.put(QStringLiteral("a"), QStringLiteral("1"));
        queue.put(QStringLiteral("b"), QStringLiteral("2"));
        const quint64 third = queue.put(QStringLiteral("a"), QStringLiteral("3"));
        QVERIFY(third > first);
        QCOMPARE(queue.count(), 2);

        Request request;
        QVERIFY(queue.take(&request));
        QCOMPARE(request.parameter, QStringLiteral("a"));
        QCOMPARE(request.text, QStringLiteral("3"));
        QCOMPARE(request.number, third);
        QVERIFY(!queue.contains(QStringLiteral("a")));
        QVERIFY(queue.take(&request));
        QCOMPARE(request.parameter, QStringLiteral("b"));
        QVERIFY(!queue.take(&request));
        QVERIFY(queue.isEmpty());
    }

    void whatWasTakenIsNotReplaced()
    {
        RequestQueue queue;
        queue.put(QStringLiteral("a"), QStringLiteral("1"));
        Request request;
        QVERIFY(queue.take(&request));
        queue.put(QStringLiteral("a"), QStringLiteral("2"));
        QCOMPARE(request.text, QStringLiteral("1"));
        QCOMPARE(queue.count(), 1);
    }

    void withdrawGivesAllInOrder()
    {
        RequestQueue queue;
        for (const char* name : {"c", "a", "b"})
            queue.put(QString::fromLatin1(name), QStringLiteral("1"));
        QStringList names;
        const QList<Request> all = queue.withdraw();
        for (const Request& request : all)
            names.append(request.parameter);
        QCOMPARE(names.join(QLatin1Char(' ')), QStringLiteral("c a b"));
        QVERIFY(queue.isEmpty());
    }
};

QTEST_APPLESS_MAIN(TestRequestQueue)

#include "tst_requestqueue.moc"
