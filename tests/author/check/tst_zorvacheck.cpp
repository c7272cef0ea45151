#include "checktest.h"

#include <author/check/families.h>
#include <author/check/ruletexts.h>
#include <author/check/scripttrial.h>

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <sys/resource.h>

using namespace Orvane::Author;

namespace {

struct Outcome
{
    int code = -1;
    QByteArray output;
    QByteArray errors;
};

Outcome runZorva(const QStringList& arguments, const QByteArray& input = QByteArray())
{
    QProcess process;
    process.start(QStringLiteral(ZORVA_PROGRAM), QStringList{QStringLiteral("check")} + arguments);
    process.write(input);
    process.closeWriteChannel();
    process.waitForFinished(500000);
    return {process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
            process.readAllStandardOutput(), process.readAllStandardError()};
}

QByteArray withScript(const char* code)
{
    return QByteArray("<KVParamGui version=\"1.0\">\n<Sheet name=\"s\">\n<Widget name=\"row\" "
                      "class=\"Separator\"/>\n"
                      "</Sheet>\n<Script language=\"QtScript\"><![CDATA[\n") +
           code + "\n]]></Script>\n</KVParamGui>\n";
}

const char* const clean = "<KVParamGui version=\"1.0\">\n<Sheet name=\"s\"/>\n</KVParamGui>\n";
const char* const noted =
    "<KVParamGui version=\"1.0\">\n<Sheet name=\"s\">"
    "<Widget name=\"a\" class=\"Separator\"><Property name=\"colour\"><String>x</String></Property>"
    "</Widget></Sheet>\n</KVParamGui>\n";
const char* const warned = "<KVParamGui version=\"1.0\">\n<Sheet/>\n</KVParamGui>\n";
const char* const wrong = "<KVParamGui version=\"1.0\">\n<Sheets/>\n</KVParamGui>\n";

} // namespace

class tst_zorvacheck : public QObject
{
    Q_OBJECT

private:
    QString file(const char* name, const QByteArray& content)
    {
        const QString path = m_folder.filePath(QString::fromLatin1(name));
        QFile made(path);
        if (made.open(QIODevice::WriteOnly))
            made.write(content);
        return path;
    }

    QTemporaryDir m_folder;

private Q_SLOTS:
    void exitCodes_data()
    {
        QTest::addColumn<QByteArray>("description");
        QTest::addColumn<QString>("failOn");
        QTest::addColumn<int>("code");
        QTest::newRow("clean") << QByteArray(clean) << QStringLiteral("note") << 0;
        QTest::newRow("a note") << QByteArray(noted) << QStringLiteral("warning") << 0;
        QTest::newRow("a note that counts") << QByteArray(noted) << QStringLiteral("note") << 1;
        QTest::newRow("a warning") << QByteArray(warned) << QStringLiteral("warning") << 1;
        QTest::newRow("a warning that does not count") << QByteArray(warned) << QStringLiteral("error") << 0;
        QTest::newRow("an error") << QByteArray(wrong) << QStringLiteral("error") << 1;
    }

    void exitCodes()
    {
        QFETCH(QByteArray, description);
        QFETCH(QString, failOn);
        QFETCH(int, code);
        const QString path = file("form.zorva", description);
        QCOMPARE(runZorva({QStringLiteral("--fail-on"), failOn, path}).code, code);
        QCOMPARE(runZorva({QStringLiteral("--fail-on=") + failOn, QStringLiteral("-")}, description).code,
                 code);
    }

    void misuse_data()
    {
        QTest::addColumn<QStringList>("arguments");
        const auto row = [](const char* what, const char* arguments) {
            QTest::newRow(what) << QString::fromLatin1(arguments).split(QLatin1Char(' '), Qt::SkipEmptyParts);
        };
        row("no form", "");
        row("a file that is not there", "/nowhere/form.zorva");
        row("a file that opens and cannot be read", "/proc/self/mem");
        row("an unknown option", "--frobnicate -");
        row("an unknown format", "--format yaml -");
        row("a format without a word", "--format");
        row("an unknown severity", "--fail-on fatal -");
        row("an unknown rule", "--explain nonsense");
    }

    void misuse()
    {
        QFETCH(QStringList, arguments);
        const Outcome outcome = runZorva(arguments);
        QCOMPARE(outcome.code, 2);
        QVERIFY(outcome.errors.startsWith("zorva: check: "));
    }

    void aFolderIsWalked()
    {
        QTemporaryDir folder;
        QCOMPARE(runZorva({folder.path()}).code, 2);
        QVERIFY(QDir(folder.path()).mkpath(QStringLiteral("a/b")));
        for (const char* const name : {"one.zorva", "a/b/two.zorva", "a/other.xml"}) {
            QFile made(folder.filePath(QString::fromLatin1(name)));
            QVERIFY(made.open(QIODevice::WriteOnly));
            made.write(wrong);
        }
        const Outcome outcome = runZorva({folder.path()});
        QCOMPARE(outcome.code, 1);
        QCOMPARE(outcome.output.count("[unknown-element]"), 2);
    }

    void whatCannotBeReadBelowAFolderIsTold()
    {
        QTemporaryDir folder;
        QFile made(folder.filePath(QStringLiteral("one.zorva")));
        QVERIFY(made.open(QIODevice::WriteOnly));
        made.write(clean);
        made.close();
        QVERIFY(QDir(folder.path()).mkpath(QStringLiteral("folder.zorva")));
        QVERIFY(QFile::link(folder.path(), folder.filePath(QStringLiteral("round.zorva"))));
        QCOMPARE(runZorva({folder.path()}).code, 0);
        const QString lost = folder.filePath(QStringLiteral("lost.zorva"));
        QVERIFY(QFile::link(QStringLiteral("/nowhere/form.zorva"), lost));
        const Outcome outcome = runZorva({folder.path()});
        QCOMPARE(outcome.code, 2);
        QVERIFY(outcome.errors.contains(lost.toLocal8Bit()));
    }

    void aReportThatNobodyGetsIsAFailure_data()
    {
        QTest::addColumn<QStringList>("arguments");
        const QString form = file("form.zorva", clean);
        QTest::newRow("json") << QStringList{QStringLiteral("--format=json"), form};
        QTest::newRow("text") << QStringList{file("wrong.zorva", wrong)};
        QTest::newRow("a rule") << QStringList{QStringLiteral("--explain"), QStringLiteral("no-form")};
        QTest::newRow("all rules") << QStringList{QStringLiteral("--rules")};
    }

    void aReportThatNobodyGetsIsAFailure()
    {
        QFETCH(QStringList, arguments);
        QProcess process;
        process.setStandardOutputFile(QStringLiteral("/dev/full"));
        process.start(QStringLiteral(ZORVA_PROGRAM), QStringList{QStringLiteral("check")} + arguments);
        QVERIFY(process.waitForFinished(500000));
        QCOMPARE(process.exitCode(), 2);
        QVERIFY(process.readAllStandardError().contains("cannot write"));
    }

    void namesOfFilesCannotCommandATerminal()
    {
        const Outcome outcome = runZorva({file("a\x1b[31mb.zorva", wrong)});
        QCOMPARE(outcome.code, 1);
        QVERIFY(!outcome.output.contains('\x1b'));
    }

    void oneUnreadableFileLeavesTheOthersChecked()
    {
        const Outcome outcome = runZorva({QStringLiteral("/nowhere/form.zorva"), file("form.zorva", wrong)});
        QCOMPARE(outcome.code, 2);
        QVERIFY(outcome.output.contains("[unknown-element]"));
    }

    void aFileBeyondAllFormsIsTold()
    {
        QFile huge(m_folder.filePath(QStringLiteral("huge.zorva")));
        QVERIFY(huge.open(QIODevice::WriteOnly));
        QVERIFY(huge.resize(qint64(100) << 20));
        const Outcome outcome = runZorva({huge.fileName(), file("form.zorva", wrong)});
        QCOMPARE(outcome.code, 2);
        QVERIFY(outcome.errors.startsWith("zorva: check: cannot read \"" + huge.fileName().toLocal8Bit()));
        QVERIFY(outcome.errors.endsWith("it is larger than 16 MB\n"));
        QVERIFY(outcome.output.contains("[unknown-element]"));
    }

    void manyElementsTakeBoundedMemory_data()
    {
        QTest::addColumn<QByteArray>("begin");
        QTest::addColumn<QByteArray>("piece");
        QTest::newRow("one in the other") << QByteArray() << QByteArray("<a>");
        QTest::newRow("rows in one line")
            << QByteArray("<KVParamGui version=\"1.0\"><Sheet name=\"s\">") << QByteArray("<Widget/>");
        QTest::newRow("rows in lines")
            << QByteArray("<KVParamGui version=\"1.0\"><Sheet name=\"s\">\n") << QByteArray("<Widget/>\n");
        QTest::newRow("brackets") << QByteArray() << QByteArray("<");
    }

    // By night as large as a file may be.
    void manyElementsTakeBoundedMemory()
    {
        QFETCH(QByteArray, begin);
        QFETCH(QByteArray, piece);
        const int megabytes = qMax(1, qEnvironmentVariableIntValue("ZORVA_MEGABYTES"));
        const int size = (megabytes << 20) - begin.size();
        const QString path = file("many.zorva", begin + piece.repeated(size / piece.size()));
        QCOMPARE(runZorva({path}).code, 1);
        rusage use = {};
        QCOMPARE(getrusage(RUSAGE_CHILDREN, &use), 0);
        const long perMegabyte = 160 << 10; // kilobytes
        const long atRest = 400 << 10;
        QVERIFY2(use.ru_maxrss < atRest + megabytes * perMegabyte,
                 qPrintable(QString::number(use.ru_maxrss)));
    }

    void jsonAndSarifAreWhole()
    {
        const QString first = file("one.zorva", wrong);
        const QString second = file("two.zorva", clean);
        const Outcome json = runZorva({QStringLiteral("--format"), QStringLiteral("json"), first, second});
        QCOMPARE(
            QJsonDocument::fromJson(json.output).object().value(QStringLiteral("files")).toArray().size(), 2);
        const Outcome sarif = runZorva({QStringLiteral("--format=sarif"), first, second});
        QVERIFY(QJsonDocument::fromJson(sarif.output).object().contains(QStringLiteral("runs")));
        QVERIFY(!json.output.contains('\x1b'));
    }

    void rulesAreExplained()
    {
        const Outcome outcome = runZorva({QStringLiteral("--explain"), QStringLiteral("stray-element")});
        QCOMPARE(outcome.code, 0);
        QVERIFY(outcome.output.contains("But so:"));
    }

    void hostileScriptsLeaveTheOthersChecked()
    {
        const QString hanging = file("hanging.zorva", withScript("while (true) {}"));
        const QString failing = file("failing.zorva", withScript("var a = 1;\n  row.nothing();"));
        const QString fine = file("fine.zorva", withScript("print(\"to nobody\");\nrow.setVisible(true);"));
        const Outcome outcome = runZorva({hanging, failing, fine});
        QCOMPARE(outcome.code, 1);
        QVERIFY(outcome.output.contains("hanging.zorva:5:1: error"));
        QVERIFY(outcome.output.contains("[script-endless]"));
        QVERIFY(outcome.output.contains("failing.zorva:7:3: error"));
        QVERIFY(!outcome.output.contains("fine.zorva"));
        QVERIFY(!outcome.output.contains("to nobody"));
    }

    void aScriptMayNotEatAllMemory()
    {
        ScriptRunner runner(QStringLiteral(ZORVA_PROGRAM), {QStringLiteral("serve-scripts")});
        runner.setBounds(60000, qint64(400) << 20);
        const QByteArray hungry =
            withScript("var a = []; while (true) a.push(\"xxxxxxxxxxxxxxxx\" + a.length);");
        QCOMPARE(runner.run(hungry).end, ScriptTrial::Hungry);
        QCOMPARE(runner.run(withScript("var a = 1;")).end, ScriptTrial::Done);
    }

    void snippetsOfTheRulesEndAsTheySay_data()
    {
        QTest::addColumn<QString>("id");
        for (const char* const id : {"script-exception", "script-endless", "script-memory", "script-crash"})
            QTest::newRow(id) << QString::fromLatin1(id);
    }

    void snippetsOfTheRulesEndAsTheySay()
    {
        QFETCH(QString, id);
        ScriptRunner runner(QStringLiteral(ZORVA_PROGRAM), {QStringLiteral("serve-scripts")});
        runner.setBounds(id == QLatin1String("script-endless") ? 1000 : 60000, qint64(400) << 20);
        const Rule* const rule = findRule(id);
        const CheckedFile bad = check(id, wholeDescription(rule->bad).toUtf8(), &runner);
        QVERIFY(!bad.findings.isEmpty());
        QCOMPARE(bad.findings.constFirst().id, id);
        QVERIFY(check(id, wholeDescription(rule->good).toUtf8(), &runner).findings.isEmpty());
    }

    void aProcessThatDiesIsToldAndReplaced()
    {
        ScriptRunner dying(QStringLiteral("/bin/false"), {});
        QCOMPARE(dying.run(withScript("var a = 1;")).end, ScriptTrial::Crashed);
        ScriptRunner missing(QStringLiteral("/nowhere/zorva"), {});
        QCOMPARE(missing.run(withScript("var a = 1;")).end, ScriptTrial::NotRun);
    }
};

QTEST_MAIN(tst_zorvacheck)
#include "tst_zorvacheck.moc"
