#include "zorvarun.h"

#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>
#include <QTest>

/// `zorva compare` and `zorva overlay`, run as a person runs them.
class TestZorvaCompatibility : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void runs_data();
    void runs();
    void standardInput();
    void misuse_data();
    void misuse();
    void aScriptThatNeverEndsIsTold_data();
    void aScriptThatNeverEndsIsTold();

private:
    ZorvaRun run(const QString& words, const QByteArray& input = QByteArray()) const
    {
        QStringList arguments = words.split(QLatin1Char(' '));
        arguments.replaceInStrings(QStringLiteral("FORM"),
                                   QStringLiteral(ZORVA_EXAMPLES_DIR "/receiver.zorva"));
        return runZorva(arguments, input, m_folder.path());
    }
    void write(const char* name, const QByteArray& content) const
    {
        QFile file(m_folder.filePath(QLatin1String(name)));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(content);
    }

    QByteArray m_receiver;
    const QTemporaryDir m_folder;
};

void TestZorvaCompatibility::initTestCase()
{
    QFile file(QStringLiteral(ZORVA_EXAMPLES_DIR "/receiver.zorva"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    m_receiver = file.readAll();
    write("narrow.zorva", QByteArray(m_receiver).replace("26500000000", "6000000000"));
    write("wide.zorva", QByteArray(m_receiver).replace("26500000000", "40000000000"));
    write("good.zorva",
          "<KVParamGui><Sheet><Widget name=\"afc\"><Property name=\"toolTip\"><String>x</String>"
          "</Property></Widget></Sheet></KVParamGui>");
    write("bad.zorva", "<KVParamGui><Sheet><Widget name=\"acf\"/></Sheet></KVParamGui>");
}

void TestZorvaCompatibility::runs_data()
{
    QTest::addColumn<QString>("words");
    QTest::addColumn<int>("code");
    QTest::addColumn<QString>("output");
    const auto row = [](const char* words, int code, const char* output) {
        QTest::newRow(words) << QString::fromLatin1(words) << code << QString::fromLatin1(output);
    };
    row("compare FORM FORM", 0, "0 breaking, 0 compatible\n");
    row("compare FORM narrow.zorva", 1,
        "breaking: row `frequency`: was 8000 to 26500000000 and is 8000 to 6000000000");
    row("compare FORM wide.zorva", 0, "[limits-widened]");
    row("compare --format json FORM narrow.zorva", 1, "\"id\": \"limits-narrowed\"");
    row("overlay FORM good.zorva", 0,
        "good.zorva:1: afc, property toolTip: \"Follows a drifting carrier\" -> \"x\"");
    row("overlay FORM bad.zorva", 1, "bad.zorva:1: lost: row `acf`");
    row("overlay --format json FORM bad.zorva", 1, "\"lost\": [");
}

void TestZorvaCompatibility::runs()
{
    QFETCH(QString, words);
    QFETCH(QString, output);
    const ZorvaRun made = run(words);
    QTEST(made.code, "code");
    QVERIFY2(made.output.contains(output), qPrintable(made.output + made.errors));
}

void TestZorvaCompatibility::standardInput()
{
    QCOMPARE(run(QStringLiteral("compare FORM -"), m_receiver).code, 0);
    QCOMPARE(run(QStringLiteral("compare - narrow.zorva"), m_receiver).code, 1);
    QCOMPARE(run(QStringLiteral("overlay FORM -"), "<KVParamGui/>").code, 0);
}

void TestZorvaCompatibility::misuse_data()
{
    QTest::addColumn<QString>("words");
    for (const char* words :
         {"compare FORM", "compare FORM nowhere.zorva", "compare - -", "compare --loud FORM FORM",
          "compare --format tap FORM FORM", "overlay FORM", "overlay FORM nowhere.zorva", "overlay - -",
          "overlay --format tap FORM good.zorva"})
        QTest::newRow(words) << QString::fromLatin1(words);
}

void TestZorvaCompatibility::misuse()
{
    QFETCH(QString, words);
    const ZorvaRun made = run(words);
    QCOMPARE(made.code, 2);
    QVERIFY2(made.errors.startsWith(QStringLiteral("zorva: %1: ").arg(words.section(QLatin1Char(' '), 0, 0))),
             qPrintable(made.errors));
    QCOMPARE(made.output, QString());
}

void TestZorvaCompatibility::aScriptThatNeverEndsIsTold_data()
{
    QTest::addColumn<QString>("words");
    for (const char* words :
         {"compare form.zorva form.zorva", "overlay form.zorva good.zorva", "parameters print form.zorva"})
        QTest::newRow(words) << QString::fromLatin1(words);
}

void TestZorvaCompatibility::aScriptThatNeverEndsIsTold()
{
    QFETCH(QString, words);
    write("form.zorva", "<KVParamGui><Sheet name='s'/><Script>while (true);</Script></KVParamGui>");
    const ZorvaRun made =
        runProgram(QStringLiteral("bash"),
                   {QStringLiteral("-c"), QStringLiteral("ulimit -S -t 1; exec \"$0\" ") + words,
                    QStringLiteral(ZORVA_PROGRAM)},
                   QByteArray(), m_folder.path());
    QCOMPARE(made.code, 2);
    QVERIFY2(made.errors.contains(QLatin1String("script of")) &&
                 made.errors.contains(QLatin1String("come to an end")),
             qPrintable(made.errors));
}

QTEST_APPLESS_MAIN(TestZorvaCompatibility)
#include "tst_zorvacompatibility.moc"
