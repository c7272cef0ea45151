#include "zorvarun.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>
#include <QTest>

/// `zorva parameters`, run as a person runs it.
class TestZorvaParameters : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void prints();
    void printsWhatIsModified();
    void checks_data();
    void checks();
    void explains();
    void diffs();
    void patchesFromStandardInput();
    void merges();
    void conflicts();
    void replacesFilesWhole();
    void misuse_data();
    void misuse();

private:
    ZorvaRun run(const char* words, const QByteArray& input = QByteArray()) const
    {
        QStringList arguments{QStringLiteral("parameters")};
        for (const QString& word : QString::fromUtf8(words).split(QLatin1Char(' ')))
            arguments.append(
                word == QLatin1String("FORM") ? QStringLiteral(ZORVA_EXAMPLES_DIR "/receiver.zorva") : word);
        return runZorva(arguments, input, m_folder.path());
    }
    QByteArray read(const char* name) const
    {
        QFile file(m_folder.filePath(QLatin1String(name)));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    void write(const char* name, const char* content) const
    {
        QFile file(m_folder.filePath(QLatin1String(name)));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(QByteArray("<Parameters><Tuner>") + content + "</Tuner></Parameters>\n");
    }

    const QTemporaryDir m_folder;
};

void TestZorvaParameters::initTestCase()
{
    write("am.xml", "<Demodulation>AM</Demodulation><Afc>on</Afc>");
    write("fm.xml", "<Demodulation>FM</Demodulation><Afc>on</Afc>");
    write("cw.xml", "<Demodulation>CW</Demodulation><Afc>off</Afc>");
    write("odd.xml", "<Demodulation>WFM</Demodulation>");
    write("note.xml", "<Demodulation>AM</Demodulation><Bandwidth>600000</Bandwidth>");
}

void TestZorvaParameters::prints()
{
    const ZorvaRun all = run("print FORM");
    QCOMPARE(all.code, 0);
    QVERIFY(all.output.startsWith(QStringLiteral("<Parameters type=\"Receiver\"")));
    QVERIFY(all.output.contains(QStringLiteral("<Frequency unit=\"Hz\">98500000</Frequency>")));
    const ZorvaRun taken = run("print --parameters cw.xml FORM");
    QVERIFY(taken.output.contains(QStringLiteral("<Demodulation>CW</Demodulation>")));
}

void TestZorvaParameters::printsWhatIsModified()
{
    QCOMPARE(run("print --modified FORM").output, QString());
    const ZorvaRun one = run("print --modified --set Tuner/Frequency=145000000 FORM");
    QCOMPARE(one.code, 0);
    QVERIFY(one.output.contains(QStringLiteral("145000000")));
    QVERIFY(!one.output.contains(QStringLiteral("Demodulation")));
}

void TestZorvaParameters::checks_data()
{
    QTest::addColumn<QByteArray>("words");
    QTest::addColumn<int>("code");
    QTest::addColumn<QString>("output");
    const auto row = [](const char* words, int code, const char* output) {
        QTest::newRow(words) << QByteArray(words) << code << QString::fromLatin1(output);
    };
    row("check FORM am.xml", 0, "");
    row("check FORM am.xml odd.xml", 1,
        "odd.xml:1:34: error: `WFM` is none of the choices of `Demodulations` [choice-not-listed]");
    row("check FORM odd.xml", 1, "the row takes `FM`");
    row("check FORM note.xml", 1, "[clamped]");
    row("check --fail-on error FORM note.xml", 0, "[clamped]");
    row("check --format json FORM odd.xml", 1, "\"id\":\"choice-not-listed\"");
}

void TestZorvaParameters::checks()
{
    QFETCH(QByteArray, words);
    QFETCH(QString, output);
    const ZorvaRun made = run(words.constData());
    QTEST(made.code, "code");
    QVERIFY2(output.isEmpty() ? made.output.isEmpty() : made.output.contains(output),
             qPrintable(made.output));
}

void TestZorvaParameters::explains()
{
    QCOMPARE(run("explain FORM am.xml").output,
             QStringLiteral("Demodulation / Demodulation: AM\nTuning / AFC: on\n"));
    const QJsonArray settings =
        QJsonDocument::fromJson(run("explain --format json FORM am.xml").output.toUtf8())
            .object()
            .value(QStringLiteral("settings"))
            .toArray();
    QCOMPARE(settings.size(), 2);
    QCOMPARE(run("explain --language xx_nowhere FORM am.xml").code, 2);
}

void TestZorvaParameters::diffs()
{
    const ZorvaRun same = run("diff FORM am.xml am.xml");
    QCOMPARE(same.code, 0);
    const ZorvaRun other = run("diff FORM am.xml cw.xml");
    QCOMPARE(other.code, 1);
    QVERIFY(other.output.contains(QStringLiteral("changed    Demodulation / Demodulation: AM -> CW\n")));
    QCOMPARE(run("diff --format json FORM am.xml cw.xml").code, 1);
}

void TestZorvaParameters::patchesFromStandardInput()
{
    const ZorvaRun patch = run("diff --patch FORM - cw.xml", read("am.xml"));
    QCOMPARE(patch.code, 0);
    write("patched.xml", "");
    QFile file(m_folder.filePath(QStringLiteral("patch.xml")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(patch.output.toUtf8());
    file.close();
    QCOMPARE(run("print --parameters am.xml --parameters patch.xml FORM").output,
             run("print --parameters cw.xml FORM").output);
}

void TestZorvaParameters::merges()
{
    const ZorvaRun merged = run("merge FORM am.xml fm.xml am.xml");
    QCOMPARE(merged.code, 0);
    QVERIFY(merged.output.contains(QStringLiteral("<Demodulation>FM</Demodulation>")));
    QVERIFY(merged.output.contains(QStringLiteral("<Afc>on</Afc>")));
}

void TestZorvaParameters::conflicts()
{
    const ZorvaRun conflict = run("merge -o never.xml FORM am.xml fm.xml cw.xml");
    QCOMPARE(conflict.code, 1);
    QCOMPARE(conflict.output,
             QStringLiteral("conflict  Demodulation / Demodulation: FM in A, CW in B, AM in BASE\n"));
    QVERIFY(!QFile::exists(m_folder.filePath(QStringLiteral("never.xml"))));
    const ZorvaRun theirs = run("merge --theirs FORM am.xml fm.xml cw.xml");
    QCOMPARE(theirs.code, 0);
    QVERIFY(theirs.output.contains(QStringLiteral("<Demodulation>CW</Demodulation>")));
    QVERIFY(run("merge --ours FORM am.xml fm.xml cw.xml").output.contains(QStringLiteral(">FM<")));
    QVERIFY(run("merge --format json FORM am.xml fm.xml cw.xml")
                .output.contains(QStringLiteral("\"ours\": \"FM\"")));
}

// The result may go where one of the sources is; a failure leaves that as it was.
void TestZorvaParameters::replacesFilesWhole()
{
    write("mine.xml", "<Demodulation>FM</Demodulation>");
    QCOMPARE(run("merge -o mine.xml FORM am.xml mine.xml am.xml").code, 0);
    QVERIFY(read("mine.xml").contains("<Demodulation>FM</Demodulation>"));
    QVERIFY(read("mine.xml").endsWith("</Parameters>\n"));
    QCOMPARE(run("merge -o nowhere/mine.xml FORM am.xml fm.xml am.xml").code, 2);
}

void TestZorvaParameters::misuse_data()
{
    QTest::addColumn<QByteArray>("words");
    for (const char* words :
         {"paint FORM", "print", "print FORM am.xml", "print --all FORM", "print --set Nowhere=1 FORM",
          "check FORM", "check FORM nowhere.xml", "check nowhere.zorva am.xml", "check am.xml am.xml",
          "check --format sarif FORM am.xml", "check --fail-on all FORM am.xml", "check - -",
          "diff FORM am.xml", "diff -o x.xml FORM am.xml fm.xml", "merge FORM am.xml fm.xml",
          "merge --ours --theirs FORM am.xml fm.xml cw.xml", "explain --patch FORM am.xml"})
        QTest::newRow(words) << QByteArray(words);
}

void TestZorvaParameters::misuse()
{
    QFETCH(QByteArray, words);
    const ZorvaRun made = run(words.constData());
    QCOMPARE(made.code, 2);
    QVERIFY2(made.errors.startsWith(QStringLiteral("zorva: parameters: ")), qPrintable(made.errors));
    QCOMPARE(made.output, QString());
}

QTEST_APPLESS_MAIN(TestZorvaParameters)
#include "tst_zorvaparameters.moc"
