#include <author/server/messagereader.h>

#include <QJsonObject>
#include <QTest>

using Orvane::Author::framedMessage;
using Orvane::Author::MessageReader;

/// Messages in a stream that comes in pieces of any size.
class TestMessageReader : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void messages_data();
    void messages();
    void hopeless_data();
    void hopeless();
    void whatIsWrittenCanBeRead();
};

void TestMessageReader::messages_data()
{
    QTest::addColumn<QByteArray>("stream");
    QTest::addColumn<QList<QByteArray>>("contents");
    using List = QList<QByteArray>;
    QTest::newRow("one") << QByteArray("Content-Length: 2\r\n\r\n{}") << List{"{}"};
    QTest::newRow("two") << QByteArray("Content-Length: 2\r\n\r\n{}Content-Length: 3\r\n\r\n[1]")
                         << List{"{}", "[1]"};
    QTest::newRow("other head lines")
        << QByteArray(
               "Content-Type: application/vscode-jsonrpc; charset=utf-8\r\nContent-Length: 2\r\n\r\n{}")
        << List{"{}"};
    QTest::newRow("any case, any blanks") << QByteArray("content-length:2  \r\n\r\n{}") << List{"{}"};
    QTest::newRow("line feeds alone") << QByteArray("Content-Length: 2\n\n{}") << List{"{}"};
    QTest::newRow("bytes, not characters")
        << QByteArray("Content-Length: 4\r\n\r\n\"\xc3\xa4\"") << List{"\"\xc3\xa4\""};
    QTest::newRow("an empty one") << QByteArray("Content-Length: 0\r\n\r\nContent-Length: 2\r\n\r\n{}")
                                  << List{"", "{}"};
    QTest::newRow("no length") << QByteArray("Content-Size: 2\r\n\r\nContent-Length: 2\r\n\r\n{}")
                               << List{QByteArray(), "{}"};
    QTest::newRow("cut") << QByteArray("Content-Length: 20\r\n\r\n{}") << List{};
    QTest::newRow("cut head") << QByteArray("Content-Length: 20\r\n") << List{};
    QTest::newRow("nothing") << QByteArray() << List{};
}

void TestMessageReader::messages()
{
    QFETCH(QByteArray, stream);
    QFETCH(QList<QByteArray>, contents);
    for (const int piece : {1, 2, 3, 7, 1000}) {
        MessageReader reader;
        QList<QByteArray> read;
        for (int i = 0; i < stream.size(); i += piece) {
            reader.feed(stream.mid(i, piece));
            while (const auto content = reader.next()) {
                QCOMPARE(content->isNull(), contents.value(read.size()).isNull());
                read.append(*content);
            }
        }
        QCOMPARE(read, contents);
        QCOMPARE(reader.problem(), QString());
    }
}

void TestMessageReader::hopeless_data()
{
    QTest::addColumn<QByteArray>("stream");
    QTest::newRow("negative") << QByteArray("Content-Length: -1\r\n\r\n{}");
    QTest::newRow("no number") << QByteArray("Content-Length: two\r\n\r\n{}");
    QTest::newRow("more than anybody sends") << QByteArray("Content-Length: 99999999999\r\n\r\n{}");
    QTest::newRow("a number too large for any type")
        << QByteArray("Content-Length: 99999999999999999999999999\r\n\r\n{}");
    QTest::newRow("a head without an end") << QByteArray(100000, 'x');
}

void TestMessageReader::hopeless()
{
    QFETCH(QByteArray, stream);
    MessageReader reader;
    reader.feed(stream);
    QVERIFY(!reader.next());
    QVERIFY(!reader.problem().isEmpty());
    reader.feed("Content-Length: 2\r\n\r\n{}");
    QVERIFY(!reader.next());
}

void TestMessageReader::whatIsWrittenCanBeRead()
{
    MessageReader reader;
    reader.feed(framedMessage({{QStringLiteral("text"), QStringLiteral("\u00e4")}}));
    const auto content = reader.next();
    QVERIFY(content);
    QCOMPARE(*content, QByteArray("{\"text\":\"\xc3\xa4\"}"));
}

QTEST_APPLESS_MAIN(TestMessageReader)
#include "tst_messagereader.moc"
