#include "zorvarun.h"

#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

namespace {

const QByteArray form = R"(<KVParamGui><Sheet name="s">
<Widget name="a" class="Label"><Property name="labelText"><String>First</String></Property>
</Widget>
<Widget name="b" class="Label"><Property name="labelText"><String>Second</String></Property>
</Widget></Sheet></KVParamGui>)";

QStringList words(const char* text)
{
    return QString::fromLatin1(text).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

} // namespace

/// Files of translations by the program, as a person or a job makes them.
class TestZorvaStrings : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void aNewFile();
    void qtsToolsTakeIt();
    void anUpdate();
    void checking();
    void severalFormsAndFiles();
    void standardInputAndOutput();
    void misuse_data();
    void misuse();

private:
    ZorvaRun strings(const char* arguments, const QByteArray& input = QByteArray()) const;
    void write(const char* name, const QByteArray& text) const;
    QByteArray read(const char* name) const;
    void translateAll(const char* name) const;

    std::unique_ptr<QTemporaryDir> m_folder;
};

void TestZorvaStrings::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(m_folder->isValid());
    write("form.zorva", form);
}

ZorvaRun TestZorvaStrings::strings(const char* arguments, const QByteArray& input) const
{
    return runZorva(QStringList(QStringLiteral("strings")) + words(arguments), input, m_folder->path());
}

void TestZorvaStrings::write(const char* name, const QByteArray& text) const
{
    QFile file(m_folder->filePath(QString::fromLatin1(name)));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(text);
}

QByteArray TestZorvaStrings::read(const char* name) const
{
    QFile file(m_folder->filePath(QString::fromLatin1(name)));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void TestZorvaStrings::translateAll(const char* name) const
{
    QByteArray ts = read(name);
    ts.replace("<translation type=\"unfinished\"></translation>", "<translation>Wort</translation>");
    write(name, ts);
}

void TestZorvaStrings::aNewFile()
{
    const ZorvaRun run = strings("form.zorva --ts form_de.ts");
    QVERIFY2(run.code == 0, qPrintable(run.errors));
    QCOMPARE(run.output, QString());
    const QByteArray ts = read("form_de.ts");
    QVERIFY2(ts.contains("<TS version=\"2.1\" language=\"de\">"), ts.constData());
    QVERIFY(ts.contains("<name>a</name>"));
    QVERIFY(ts.contains("<location filename=\"form.zorva\" line=\"2\"/>"));
    QVERIFY(ts.contains("<source>First</source>"));
    QVERIFY(ts.contains("<translation type=\"unfinished\"></translation>"));
}

void TestZorvaStrings::qtsToolsTakeIt()
{
    QCOMPARE(strings("form.zorva --ts form_de.ts").code, 0);
    translateAll("form_de.ts");
    const ZorvaRun release = runProgram(QStringLiteral("lrelease"), words("form_de.ts -qm form_de.qm"),
                                        QByteArray(), m_folder->path());
    QCOMPARE(release.code, 0);
    QVERIFY2(release.output.contains(QLatin1String("2 finished and 0 unfinished")),
             qPrintable(release.output));
    // What the tool of linguist writes says the same.
    const ZorvaRun convert = runProgram(QStringLiteral("lconvert"), words("-i form_de.ts -o again_de.ts"),
                                        QByteArray(), m_folder->path());
    QCOMPARE(convert.code, 0);
    QCOMPARE(strings("form.zorva --ts again_de.ts --check").code, 0);
    QCOMPARE(strings("form.zorva --ts again_de.ts").code, 0);
    QCOMPARE(read("again_de.ts").simplified(), read("form_de.ts").simplified());
}

void TestZorvaStrings::anUpdate()
{
    QCOMPARE(strings("form.zorva --ts form_de.ts").code, 0);
    translateAll("form_de.ts");
    const QByteArray before = read("form_de.ts");
    QCOMPARE(strings("form.zorva --ts form_de.ts").code, 0);
    QCOMPARE(read("form_de.ts"), before);
    write("form.zorva", QByteArray(form).replace("Second", "Other"));
    QCOMPARE(strings("form.zorva --ts form_de.ts").code, 0);
    const QByteArray after = read("form_de.ts");
    QVERIFY2(after.contains("<source>First</source>\n            <translation>Wort</translation>"),
             after.constData());
    QVERIFY(after.contains("<source>Other</source>\n            <translation type=\"unfinished\">"));
    QVERIFY(after.contains("<source>Second</source>\n            <translation type=\"vanished\">Wort"));
    write("form.zorva", form);
    QCOMPARE(strings("form.zorva --ts form_de.ts").code, 0);
    QCOMPARE(read("form_de.ts"), before);
}

void TestZorvaStrings::checking()
{
    QCOMPARE(strings("form.zorva --ts form_de.ts").code, 0);
    const QByteArray before = read("form_de.ts");
    const ZorvaRun open = strings("form.zorva --ts form_de.ts --check");
    QCOMPARE(open.code, 1);
    QCOMPARE(open.output, QStringLiteral("form_de.ts: a: \"First\" is not translated\n"
                                         "form_de.ts: b: \"Second\" is not translated\n"));
    QCOMPARE(read("form_de.ts"), before);
    translateAll("form_de.ts");
    QCOMPARE(strings("form.zorva --ts form_de.ts --check").code, 0);
    write("form.zorva", QByteArray(form).replace("Second", "Other"));
    const ZorvaRun orphaned = strings("form.zorva --ts form_de.ts --check");
    QCOMPARE(orphaned.code, 1);
    QCOMPARE(orphaned.output, QStringLiteral("form_de.ts: b: \"Other\" is not in the file\n"
                                             "form_de.ts: b: \"Second\" is in no form any more\n"));
}

void TestZorvaStrings::severalFormsAndFiles()
{
    write("second.zorva", QByteArray(form).replace("name=\"b\"", "name=\"c\""));
    QCOMPARE(strings("form.zorva second.zorva --ts all_de.ts --ts all_fr.ts").code, 0);
    const QByteArray ts = read("all_fr.ts");
    QVERIFY(ts.contains("language=\"fr\""));
    QCOMPARE(ts.count("<name>a</name>"), 1);
    QCOMPARE(ts.count("<source>First</source>"), 1);
    QVERIFY(ts.contains("filename=\"form.zorva\" line=\"2\"") &&
            ts.contains("filename=\"second.zorva\" line=\"2\""));
    QVERIFY(ts.contains("<name>c</name>"));
    QVERIFY(!read("all_de.ts").isEmpty());
}

void TestZorvaStrings::standardInputAndOutput()
{
    const ZorvaRun run = strings("- --ts -", form);
    QCOMPARE(run.code, 0);
    QVERIFY(run.output.contains(QLatin1String("<source>First</source>")));
    QVERIFY(!run.output.contains(QLatin1String("<location")));
}

void TestZorvaStrings::misuse_data()
{
    QTest::addColumn<QString>("error");
    QTest::newRow("--ts a.ts") << QStringLiteral("no form given");
    QTest::newRow("form.zorva") << QStringLiteral("no file of translations given");
    QTest::newRow("nowhere.zorva --ts a.ts") << QStringLiteral("cannot read nowhere.zorva");
    QTest::newRow("other.xml --ts a.ts") << QStringLiteral("other.xml holds no form");
    QTest::newRow("form.zorva --ts a.ts --check") << QStringLiteral("cannot read a.ts");
    QTest::newRow("form.zorva --ts other.xml") << QStringLiteral("cannot read other.xml: line 1");
    QTest::newRow("form.zorva --ts nowhere/a.ts") << QStringLiteral("cannot write nowhere/a.ts");
    QTest::newRow("form.zorva --ts - --check") << QStringLiteral("--check wants a file");
    QTest::newRow("form.zorva --ts a.ts --all") << QStringLiteral("Unknown option");
}

void TestZorvaStrings::misuse()
{
    QFETCH(QString, error);
    write("other.xml", "<other/>");
    const ZorvaRun run = strings(QTest::currentDataTag());
    QCOMPARE(run.code, 2);
    QVERIFY2(run.errors.startsWith(QLatin1String("zorva: strings: ")) && run.errors.contains(error),
             qPrintable(run.errors));
    QCOMPARE(run.output, QString());
    QCOMPARE(read("other.xml"), QByteArray("<other/>"));
    QVERIFY(!QFileInfo::exists(m_folder->filePath(QStringLiteral("a.ts"))));
}

QTEST_APPLESS_MAIN(TestZorvaStrings)
#include "tst_zorvastrings.moc"
