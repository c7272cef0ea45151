#include "servertalk.h"

#include <QJsonDocument>
#include <QTest>

namespace {

int errorCode(const QJsonObject& answer)
{
    return answer.value(QStringLiteral("error")).toObject().value(QStringLiteral("code")).toInt();
}

QByteArray framed(const QByteArray& content)
{
    return "Content-Length: " + QByteArray::number(content.size()) + "\r\n\r\n" + content;
}

QJsonArray insertion(int line, int character, const QString& text)
{
    const QJsonObject place{{QStringLiteral("line"), line}, {QStringLiteral("character"), character}};
    return {QJsonObject{{QStringLiteral("range"),
                         QJsonObject{{QStringLiteral("start"), place}, {QStringLiteral("end"), place}}},
                        {QStringLiteral("text"), text}}};
}

} // namespace

/// The protocol itself: beginning and end, mistakes, cancellation, documents.
class TestLanguageServer : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void hello();
    void nothingBeforeHello();
    void nothingBehindFarewell();
    void end_data();
    void end();
    void badMessages_data();
    void badMessages();
    void hopelessStream();
    void unknownMethods();
    void cancellation();
    void idsComeBackAsTheyWere();
    void documents();
    void changesAreChecked();
    void onlyTheLastStateIsChecked();
    void closedDocumentsAreForgotten();
};

void TestLanguageServer::hello()
{
    ServerTalk talk;
    const QJsonObject capabilities = talk.initialize();
    const QJsonObject sync = capabilities.value(QStringLiteral("textDocumentSync")).toObject();
    QCOMPARE(sync.value(QStringLiteral("change")).toInt(), 2);
    QCOMPARE(errorCode(talk.ask("initialize")), -32600);
}

void TestLanguageServer::nothingBeforeHello()
{
    ServerTalk talk;
    QCOMPARE(errorCode(talk.ask("shutdown")), -32002);
    QCOMPARE(errorCode(talk.ask("textDocument/nonsense")), -32002);
    talk.open(QStringLiteral("<KVParamGui/>"));
    talk.initialize();
    QCOMPARE(talk.received().size(), 1); // no findings
}

void TestLanguageServer::nothingBehindFarewell()
{
    ServerTalk talk;
    talk.initialize();
    const QJsonObject answer = talk.ask("shutdown");
    QVERIFY(answer.contains(QStringLiteral("result")));
    QVERIFY(answer.value(QStringLiteral("result")).isNull());
    QCOMPARE(errorCode(talk.ask("shutdown")), -32600);
    QVERIFY(!talk.isOver());
}

void TestLanguageServer::end_data()
{
    QTest::addColumn<bool>("hello");
    QTest::addColumn<bool>("farewell");
    QTest::addColumn<bool>("exit");
    QTest::addColumn<int>("code");
    QTest::newRow("as it should be") << true << true << true << 0;
    QTest::newRow("exit without shutdown") << true << false << true << 1;
    QTest::newRow("exit before anything") << false << false << true << 1;
    QTest::newRow("input ends") << true << false << false << 1;
    QTest::newRow("input ends behind shutdown") << true << true << false << 0;
    QTest::newRow("input ends before anything") << false << false << false << 1;
}

void TestLanguageServer::end()
{
    QFETCH(bool, hello);
    QFETCH(bool, farewell);
    QFETCH(bool, exit);
    QFETCH(int, code);
    ServerTalk talk;
    if (hello)
        talk.initialize();
    if (farewell)
        talk.ask("shutdown");
    if (exit)
        talk.tell("exit");
    else
        talk.server().endInput();
    QTRY_VERIFY(talk.isOver());
    QCOMPARE(talk.code(), code);
    // Nobody minds what comes later.
    talk.tell("exit");
    talk.server().endInput();
}

void TestLanguageServer::badMessages_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<int>("code");
    QTest::newRow("no JSON") << framed("{\"id\":1,") << -32700;
    QTest::newRow("empty") << framed("") << -32700;
    QTest::newRow("no length") << QByteArray("Hello: World\r\n\r\n") << -32700;
    QTest::newRow("bytes that are no text") << framed("\xff\xfe") << -32700;
    QTest::newRow("nested too deep") << framed(QByteArray(5000, '[')) << -32700;
    QTest::newRow("no object") << framed("[1]") << -32600;
    QTest::newRow("no method") << framed("{\"id\":7}") << -32600;
    QTest::newRow("a method that is no text") << framed("{\"id\":7,\"method\":3}") << -32600;
}

void TestLanguageServer::badMessages()
{
    QFETCH(QByteArray, bytes);
    QFETCH(int, code);
    ServerTalk talk;
    talk.initialize();
    const int before = talk.received().size();
    talk.sendBytes(bytes);
    QTRY_COMPARE(talk.received().size(), before + 1);
    QCOMPARE(errorCode(talk.received().last()), code);
    // It goes on.
    QVERIFY(talk.ask("shutdown").contains(QStringLiteral("result")));
}

void TestLanguageServer::hopelessStream()
{
    ServerTalk talk;
    talk.initialize();
    talk.sendBytes("Content-Length: much\r\n\r\n");
    QCOMPARE(errorCode(talk.received().last()), -32700);
    QTRY_VERIFY(talk.isOver());
    QCOMPARE(talk.code(), 1);
}

void TestLanguageServer::unknownMethods()
{
    ServerTalk talk;
    talk.initialize();
    QCOMPARE(errorCode(talk.ask("textDocument/nonsense")), -32601);
    QCOMPARE(errorCode(talk.ask("$/nonsense")), -32601);
    const int before = talk.received().size();
    talk.tell("textDocument/nonsense");
    talk.tell("$/nonsense");
    talk.sendBytes(framed("{\"id\":99,\"result\":null}")); // an answer to nothing
    QVERIFY(talk.ask("shutdown").contains(QStringLiteral("result")));
    QCOMPARE(talk.received().size(), before + 1);
}

void TestLanguageServer::cancellation()
{
    ServerTalk talk;
    talk.initialize();
    talk.sendBytes(framed("{\"id\":\"a\",\"method\":\"textDocument/nonsense\"}") +
                   framed("{\"id\":\"b\",\"method\":\"textDocument/nonsense\"}") +
                   framed("{\"method\":\"$/cancelRequest\",\"params\":{\"id\":\"a\"}}") +
                   framed("{\"method\":\"$/cancelRequest\",\"params\":{\"id\":\"never seen\"}}") +
                   framed("{\"method\":\"$/cancelRequest\"}"));
    QTRY_COMPARE(talk.answersTo(QStringLiteral("b")).size(), 1);
    QCOMPARE(errorCode(talk.answersTo(QStringLiteral("b")).first()), -32601);
    QCOMPARE(talk.answersTo(QStringLiteral("a")).size(), 1);
    QCOMPARE(errorCode(talk.answersTo(QStringLiteral("a")).first()), -32800);
}

void TestLanguageServer::idsComeBackAsTheyWere()
{
    ServerTalk talk;
    talk.initialize();
    for (const QJsonValue& id :
         {QJsonValue(QStringLiteral("x-1")), QJsonValue(4000000000.0), QJsonValue(0)}) {
        talk.sendBytes(framed(QJsonDocument(QJsonObject{{QStringLiteral("id"), id},
                                                        {QStringLiteral("method"), QStringLiteral("a")}})
                                  .toJson()));
        QTRY_COMPARE(talk.answersTo(id).size(), 1);
    }
}

void TestLanguageServer::documents()
{
    ServerTalk talk;
    talk.initialize();
    talk.change(insertion(0, 0, QStringLiteral("x"))); // of nothing that is open
    talk.tell("textDocument/didOpen");
    talk.tell("textDocument/didClose");
    talk.open(QStringLiteral("<KVParamGui version=\"1.0\"/>"));
    QCOMPARE(talk.diagnostics(), QJsonArray());
}

void TestLanguageServer::changesAreChecked()
{
    ServerTalk talk;
    talk.initialize();
    talk.open(QStringLiteral("<KVParamGui version=\"1.0\">\n</KVParamGui>\n"));
    QCOMPARE(talk.diagnostics(), QJsonArray());
    talk.change(insertion(1, 0, QStringLiteral("<Enum/>")));
    const QJsonArray findings = talk.diagnostics();
    QVERIFY(!findings.isEmpty());
    QCOMPARE(findings.first().toObject().value(QStringLiteral("code")).toString(),
             QStringLiteral("unknown-element"));
    // What is no change changes nothing.
    talk.change({QJsonObject(), 3, QJsonObject{{QStringLiteral("text"), 4}},
                 QJsonObject{{QStringLiteral("text"), QStringLiteral("x")}, {QStringLiteral("range"), 5}}});
    QCOMPARE(talk.diagnostics(), findings);
    talk.change({QJsonObject{{QStringLiteral("text"), QStringLiteral("<KVParamGui version=\"1.0\"/>")}}});
    QCOMPARE(talk.diagnostics(), QJsonArray());
}

void TestLanguageServer::onlyTheLastStateIsChecked()
{
    ServerTalk talk(50);
    talk.initialize();
    talk.open(QStringLiteral("<KVParamGui version=\"1.0\"/>\n"));
    for (int i = 0; i < 20; ++i)
        talk.change(insertion(1, 0, QStringLiteral(" ")));
    QCOMPARE(talk.diagnostics(), QJsonArray());
    int published = 0;
    for (const QJsonObject& message : talk.received())
        published += message.contains(QStringLiteral("method")) ? 1 : 0;
    QVERIFY(published <= 2);
}

void TestLanguageServer::closedDocumentsAreForgotten()
{
    ServerTalk talk;
    talk.initialize();
    talk.open(QStringLiteral("<Nonsense/>"));
    talk.tell("textDocument/didClose",
              {{QStringLiteral("textDocument"), QJsonObject{{QStringLiteral("uri"), ServerTalk::uri()}}}});
    QVERIFY(talk.ask("textDocument/nonsense").contains(QStringLiteral("error")));
    QJsonArray shown{QStringLiteral("never any")};
    for (const QJsonObject& message : talk.received()) {
        const QJsonObject params = message.value(QStringLiteral("params")).toObject();
        if (message.value(QStringLiteral("method")) == QStringLiteral("textDocument/publishDiagnostics"))
            shown = params.value(QStringLiteral("diagnostics")).toArray();
    }
    QCOMPARE(shown, QJsonArray());
}

QTEST_GUILESS_MAIN(TestLanguageServer)
#include "tst_languageserver.moc"
