#include "zorvarun.h"

#include <QDir>
#include <QDirIterator>
#include <QElapsedTimer>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTest>

namespace {

QByteArray framed(const QJsonObject& message)
{
    const QByteArray content = QJsonDocument(message).toJson(QJsonDocument::Compact);
    return "Content-Length: " + QByteArray::number(content.size()) + "\r\n\r\n" + content;
}

QJsonObject request(int id, const char* method, const QJsonObject& params = QJsonObject())
{
    return {{QStringLiteral("id"), id},
            {QStringLiteral("method"), QLatin1String(method)},
            {QStringLiteral("params"), params}};
}

QJsonObject notice(const char* method, const QJsonObject& params = QJsonObject())
{
    return {{QStringLiteral("method"), QLatin1String(method)}, {QStringLiteral("params"), params}};
}

QJsonObject opened(const QString& text)
{
    return notice("textDocument/didOpen",
                  {{QStringLiteral("textDocument"),
                    QJsonObject{{QStringLiteral("uri"), QStringLiteral("file:///form.zorva")},
                                {QStringLiteral("version"), 1},
                                {QStringLiteral("text"), text}}}});
}

QByteArray hello(qint64 process = 0)
{
    QJsonObject params{{QStringLiteral("capabilities"), QJsonObject()}};
    if (process > 0)
        params.insert(QStringLiteral("processId"), process);
    return framed(request(1, "initialize", params)) + framed(notice("initialized"));
}

QString fileText(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

/// Plugins for displays that a process has in its memory.
QStringList displaysOf(qint64 process)
{
    const QStringList maps = fileText(QStringLiteral("/proc/%1/maps").arg(process)).split(QLatin1Char('\n'));
    return maps.filter(QStringLiteral("/platforms/"));
}

/// The process that it has started; 0 if there is none.
qint64 childOf(qint64 process)
{
    QDirIterator tasks(QStringLiteral("/proc/%1/task").arg(process), QDir::Dirs | QDir::NoDotAndDotDot);
    while (tasks.hasNext()) {
        const QString children = fileText(tasks.next() + QStringLiteral("/children"));
        if (!children.isEmpty())
            return children.split(QLatin1Char(' ')).first().toLongLong();
    }
    return 0;
}

QByteArray farewell()
{
    return framed(request(2, "shutdown")) + framed(notice("exit"));
}

/// The findings that were published, as the check's JSON has them; waits for them.
QJsonArray publishedFindings(QProcess& server, const QString& text)
{
    QByteArray output;
    int at = -1;
    while ((at = output.indexOf("publishDiagnostics")) < 0 || !output.endsWith('}')) {
        if (!server.waitForReadyRead(60000))
            return {QStringLiteral("none came")};
        output += server.readAllStandardOutput();
    }
    const int begin = output.lastIndexOf("\r\n\r\n", at) + 4;
    const QJsonArray published = QJsonDocument::fromJson(output.mid(begin))
                                     .object()
                                     .value(QStringLiteral("params"))
                                     .toObject()
                                     .value(QStringLiteral("diagnostics"))
                                     .toArray();
    const QStringList lines = text.split(QLatin1Char('\n'));
    const auto column = [&lines](const QJsonObject& place) {
        const QString before = lines.value(place.value(QStringLiteral("line")).toInt())
                                   .left(place.value(QStringLiteral("character")).toInt());
        return before.toUcs4().size() + 1;
    };
    QJsonArray findings;
    for (const QJsonValue& value : published) {
        const QJsonObject finding = value.toObject();
        const QJsonObject range = finding.value(QStringLiteral("range")).toObject();
        const QJsonObject begins = range.value(QStringLiteral("start")).toObject();
        const QJsonObject ends = range.value(QStringLiteral("end")).toObject();
        findings.append(
            QJsonObject{{QStringLiteral("id"), finding.value(QStringLiteral("code"))},
                        {QStringLiteral("message"), finding.value(QStringLiteral("message"))},
                        {QStringLiteral("line"), begins.value(QStringLiteral("line")).toInt() + 1},
                        {QStringLiteral("column"), column(begins)},
                        {QStringLiteral("endLine"), ends.value(QStringLiteral("line")).toInt() + 1},
                        {QStringLiteral("endColumn"), column(ends)}});
    }
    return findings;
}

QJsonArray checkedFindings(const QString& text)
{
    const ZorvaRun run = runZorva(
        {QStringLiteral("check"), QStringLiteral("--format"), QStringLiteral("json"), QStringLiteral("-")},
        text.toUtf8());
    const QJsonArray all = QJsonDocument::fromJson(run.output.toUtf8())
                               .object()
                               .value(QStringLiteral("files"))
                               .toArray()
                               .first()
                               .toObject()
                               .value(QStringLiteral("findings"))
                               .toArray();
    QJsonArray findings;
    for (const QJsonValue& value : all) {
        QJsonObject finding = value.toObject();
        for (const char* const key : {"severity", "effect", "fix"})
            finding.remove(QLatin1String(key));
        findings.append(finding);
    }
    return findings;
}

} // namespace

/// The server as a process: its streams, its end, its findings beside those of the check.
class TestZorvaServer : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void oneConversation();
    void ends_data();
    void ends();
    void aDeadEditorIsNoticed();
    void anEditorThatReadsNoMore();
    void findingsAreThoseOfTheCheck_data();
    void findingsAreThoseOfTheCheck();
    void anEndlessScriptStopsNothing();
    void noDisplay();
    void misuse();
};

void TestZorvaServer::oneConversation()
{
    const ZorvaRun run =
        runZorva({QStringLiteral("server"), QStringLiteral("--stdio")}, hello() + farewell());
    QCOMPARE(run.code, 0);
    QVERIFY(run.output.contains(QStringLiteral("\"capabilities\"")));
    QCOMPARE(run.errors, QString());
}

void TestZorvaServer::ends_data()
{
    QTest::addColumn<QByteArray>("input");
    QTest::addColumn<int>("code");
    QTest::newRow("properly") << hello() + farewell() << 0;
    QTest::newRow("exit without shutdown") << hello() + framed(notice("exit")) << 1;
    QTest::newRow("input ends") << hello() << 1;
    QTest::newRow("no input at all") << QByteArray() << 1;
    QTest::newRow("nonsense") << QByteArray("nonsense\r\n\r\n") << 1;
    QTest::newRow("hopeless") << QByteArray("Content-Length: -5\r\n\r\n") << 1;
    QTest::newRow("input ends within a message")
        << hello() + QByteArray("Content-Length: 5000\r\n\r\n{") << 1;
    QTest::newRow("everything behind the farewell is ignored") << hello() + farewell() + hello() << 0;
}

void TestZorvaServer::ends()
{
    QFETCH(QByteArray, input);
    QFETCH(int, code);
    QCOMPARE(runZorva({QStringLiteral("server")}, input).code, code);
}

// The input stays open: somebody else holds its other end.
void TestZorvaServer::aDeadEditorIsNoticed()
{
    QProcess editor;
    editor.start(QStringLiteral("true"), QStringList());
    QVERIFY(editor.waitForStarted());
    const qint64 process = editor.processId();
    QVERIFY(editor.waitForFinished());
    QProcess server;
    server.start(QStringLiteral(ZORVA_PROGRAM), {QStringLiteral("server")});
    server.write(hello(process));
    QVERIFY(server.waitForFinished(30000));
    QCOMPARE(server.exitStatus(), QProcess::NormalExit);
    QCOMPARE(server.exitCode(), 1);
}

void TestZorvaServer::anEditorThatReadsNoMore()
{
    QProcess server;
    server.start(QStringLiteral("bash"),
                 {QStringLiteral("-c"), QStringLiteral("exec \"$0\" server > >(exec true)"),
                  QStringLiteral(ZORVA_PROGRAM)});
    QVERIFY(server.waitForStarted());
    server.write(hello());
    // The pipe breaks at some time, and the next answer finds it broken.
    for (int i = 0; i < 200 && !server.waitForFinished(100); ++i)
        server.write(framed(request(10 + i, "nonsense")));
    QCOMPARE(server.state(), QProcess::NotRunning);
    QCOMPARE(server.exitStatus(), QProcess::NormalExit);
    QCOMPARE(server.exitCode(), 1);
}

void TestZorvaServer::findingsAreThoseOfTheCheck_data()
{
    QTest::addColumn<QString>("text");
    QDirIterator walk(QStringLiteral(ZORVA_EXAMPLES_DIR), {QStringLiteral("*.zorva")}, QDir::Files,
                      QDirIterator::Subdirectories);
    while (walk.hasNext()) {
        const QString path = walk.next();
        QTest::newRow(qPrintable(QDir(QStringLiteral(ZORVA_EXAMPLES_DIR)).relativeFilePath(path)))
            << fileText(path);
    }
    QString damaged = fileText(QStringLiteral(ZORVA_EXAMPLES_DIR "/receiver.zorva"));
    damaged.replace(QStringLiteral("class=\"CheckBox\""), QStringLiteral("class=\"Checkbox\""));
    damaged.replace(QStringLiteral("dB\u00b5V"), QString::fromUtf8("\xf0\x9f\x93\xbb</Strang>"));
    QTest::newRow("damaged") << damaged;
    QString failing = fileText(QStringLiteral(ZORVA_EXAMPLES_DIR "/receiver.zorva"));
    failing.replace(QStringLiteral("followResolution();\nvolume"),
                    QStringLiteral("limits.nothing.from;\nvolume"));
    QTest::newRow("a script that fails when it runs") << failing;
}

void TestZorvaServer::findingsAreThoseOfTheCheck()
{
    QFETCH(QString, text);
    QProcess server;
    server.start(QStringLiteral(ZORVA_PROGRAM), {QStringLiteral("server")});
    server.write(hello() + framed(opened(text)));
    const QJsonArray findings = publishedFindings(server, text);
    QCOMPARE(findings, checkedFindings(text));
    server.write(farewell());
    QVERIFY(server.waitForFinished(30000));
    QCOMPARE(server.exitCode(), 0);
}

void TestZorvaServer::anEndlessScriptStopsNothing()
{
    QProcess server;
    server.start(QStringLiteral(ZORVA_PROGRAM), {QStringLiteral("server")});
    server.write(hello() + framed(opened(QStringLiteral("<KVParamGui version=\"1.0\"><Sheet name=\"s\"/>"
                                                        "<Script>while (true) {}</Script></KVParamGui>"))));
    const QJsonObject place{{QStringLiteral("line"), 0}, {QStringLiteral("character"), 1}};
    server.write(framed(request(7, "textDocument/completion",
                                {{QStringLiteral("textDocument"),
                                  QJsonObject{{QStringLiteral("uri"), QStringLiteral("file:///form.zorva")}}},
                                 {QStringLiteral("position"), place}})));
    QByteArray output;
    while (!output.contains("\"items\"")) {
        QVERIFY(server.waitForReadyRead(60000));
        output += server.readAllStandardOutput();
    }
    QVERIFY(!output.contains("script-endless")); // that takes its time, and nobody waits for it
    server.write(farewell());
    QVERIFY(server.waitForFinished(30000));
    QCOMPARE(server.exitCode(), 0);
}

void TestZorvaServer::noDisplay()
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.remove(QStringLiteral("DISPLAY"));
    environment.remove(QStringLiteral("WAYLAND_DISPLAY"));
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("none-such"));
    environment.insert(QStringLiteral("QT_DEBUG_PLUGINS"), QStringLiteral("1"));
    QProcess server;
    server.setProcessEnvironment(environment);
    server.start(QStringLiteral(ZORVA_PROGRAM), {QStringLiteral("server")});
    server.write(hello());
    QVERIFY(server.waitForReadyRead(30000));
    QVERIFY2(displaysOf(server.processId()).isEmpty(),
             qPrintable(displaysOf(server.processId()).join(u'\n')));
    QCOMPARE(childOf(server.processId()), 0);
    server.write(farewell());
    QVERIFY(server.waitForFinished(30000));
    QCOMPARE(server.exitCode(), 0);
    QVERIFY(!server.readAllStandardError().contains("platforms"));
    // A script needs a live form, and gets one that nobody sees.
    const QString text = fileText(QStringLiteral(ZORVA_EXAMPLES_DIR "/receiver.zorva"));
    QProcess other;
    environment.remove(QStringLiteral("QT_DEBUG_PLUGINS"));
    other.setProcessEnvironment(environment);
    other.start(QStringLiteral(ZORVA_PROGRAM), {QStringLiteral("server")});
    other.write(hello() + framed(opened(text)));
    QCOMPARE(publishedFindings(other, text), QJsonArray());
    // It is another process that has it.
    QVERIFY2(displaysOf(other.processId()).isEmpty(), qPrintable(displaysOf(other.processId()).join(u'\n')));
    const qint64 child = childOf(other.processId());
    QVERIFY(child > 0);
    QVERIFY(!displaysOf(child).filter(QStringLiteral("offscreen")).isEmpty());
    QVERIFY(displaysOf(child).filter(QStringLiteral("xcb")).isEmpty());
    other.closeWriteChannel();
    QVERIFY(other.waitForFinished(30000));
}

void TestZorvaServer::misuse()
{
    const ZorvaRun run = runZorva({QStringLiteral("server"), QStringLiteral("--port")});
    QCOMPARE(run.code, 2);
    QVERIFY(run.errors.contains(QStringLiteral("unknown argument \"--port\"")));
}

QTEST_GUILESS_MAIN(TestZorvaServer)
#include "tst_zorvaserver.moc"
