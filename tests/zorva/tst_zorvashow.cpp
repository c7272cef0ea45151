#include "zorvarun.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

namespace {

const QByteArray form = R"(<KVParamGui><Enums><Enum name="Modes"><EnumValue><DisplayName>Wide</DisplayName>
<Value>1</Value></EnumValue></Enum></Enums><Sheet name="s">
<Widget name="group" class="Headline"><Property name="text"><String>Group</String></Property>
<Property name="visible"><Bool>true</Bool></Property></Widget>
<Widget name="a" class="CheckBox"><Property name="labelText"><String>First row</String></Property>
<Property name="visible"><Bool>true</Bool></Property><Property name="enabled"><Bool>true</Bool></Property>
<Property name="generateParameterXml"><Bool>true</Bool></Property></Widget>
<Widget name="b" class="LineEdit"><Property name="labelText"><String>Second row</String></Property>
<Property name="visible"><Bool>true</Bool></Property><Property name="enabled"><Bool>true</Bool></Property>
<Property name="generateParameterXml"><Bool>true</Bool></Property></Widget></Sheet></KVParamGui>)";

QStringList words(const char* text)
{
    return QString::fromLatin1(text).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

} // namespace

/// Pictures by the program, as a person or a job makes them.
class TestZorvaShow : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void twoRunsGiveTheSameBytes_data();
    void twoRunsGiveTheSameBytes();
    void installedFontsDoNotCount();
    void optionsChangeThePicture_data();
    void optionsChangeThePicture();
    void severalWidthsAndSizes();
    void whatTheScriptCollapsesIsCollapsed();
    void standardInputAndOutput();
    void geometryNamesEveryRow();
    void baselineSaysWhatMoved();
    void findingsAreSaid();
    void misuse_data();
    void misuse();
    void aFailureLeavesTheOldPicture();
    void aScriptWithoutAnEnd();
    void theJobOfThePage();

private:
    ZorvaRun show(const QStringList& arguments, const QByteArray& input = QByteArray()) const;
    void write(const char* name, const QByteArray& text) const;
    QByteArray read(const char* name) const;
    QString path(const char* name) const { return m_folder->filePath(QString::fromLatin1(name)); }

    std::unique_ptr<QTemporaryDir> m_folder;
};

void TestZorvaShow::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(m_folder->isValid());
    write("form.zorva", form);
}

ZorvaRun TestZorvaShow::show(const QStringList& arguments, const QByteArray& input) const
{
    return runZorva(QStringList(QStringLiteral("show")) + arguments, input, m_folder->path());
}

void TestZorvaShow::write(const char* name, const QByteArray& text) const
{
    QFile file(path(name));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(text);
}

QByteArray TestZorvaShow::read(const char* name) const
{
    QFile file(path(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void TestZorvaShow::twoRunsGiveTheSameBytes_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QStringList>("options");
    const QString receiver = QStringLiteral(ZORVA_EXAMPLES_DIR "/receiver.zorva");
    QTest::newRow("receiver") << receiver << words("--fonts bundled");
    QTest::newRow("receiver, wide and dark") << receiver << words("--fonts bundled --dark --width 980");
    QTest::newRow("receiver, installed fonts") << receiver << QStringList();
    QTest::newRow("gallery") << QStringLiteral(ZORVA_EXAMPLES_DIR "/gallery.zorva")
                             << words("--fonts bundled");
}

void TestZorvaShow::twoRunsGiveTheSameBytes()
{
    QFETCH(QString, path);
    QFETCH(QStringList, options);
    for (const char* const name : {"first.png", "second.png"}) {
        const ZorvaRun run =
            show(QStringList{path, QStringLiteral("-o"), QString::fromLatin1(name)} + options);
        QVERIFY2(run.code == 0, qPrintable(run.output + run.errors));
        QCOMPARE(run.output + run.errors, QString());
    }
    const QByteArray first = read("first.png");
    QVERIFY(!first.isEmpty());
    QVERIFY(first == read("second.png"));
}

// Neither fonts nor the desktop's wishes reach a picture with its own fonts.
void TestZorvaShow::installedFontsDoNotCount()
{
    QCOMPARE(show(words("form.zorva -o as-is.png --fonts bundled")).code, 0);
    write("none.conf", "<?xml version=\"1.0\"?><fontconfig/>");
    const QStringList program{QStringLiteral("FONTCONFIG_FILE=") + path("none.conf"),
                              QStringLiteral("QT_SCALE_FACTOR=2"),
                              QStringLiteral("QT_FONT_DPI=192"),
                              QStringLiteral("QT_STYLE_OVERRIDE=windows"),
                              QStringLiteral("QT_QPA_PLATFORM=xcb"),
                              QStringLiteral("LANG=de_DE.UTF-8"),
                              QStringLiteral(ZORVA_PROGRAM)};
    const ZorvaRun run =
        runProgram(QStringLiteral("env"), program + words("show form.zorva -o bare.png --fonts bundled"),
                   QByteArray(), m_folder->path());
    QVERIFY2(run.code == 0, qPrintable(run.errors));
    QVERIFY(read("as-is.png") == read("bare.png"));
}

void TestZorvaShow::optionsChangeThePicture_data()
{
    QTest::addColumn<QStringList>("options");
    QTest::newRow("width") << words("--width 700");
    QTest::newRow("text size") << words("--font 14");
    QTest::newRow("style") << words("--style windows");
    QTest::newRow("dark") << words("--dark");
    QTest::newRow("collapsed") << words("--collapse group");
    QTest::newRow("parameters") << words("--parameters p.xml");
    QTest::newRow("language") << words("--language de");
    QTest::newRow("language elsewhere") << words("--language fr --translations texts");
}

void TestZorvaShow::optionsChangeThePicture()
{
    QFETCH(QStringList, options);
    const QByteArray ts = "<!DOCTYPE TS><TS version=\"2.1\"><context><name>a</name><message>"
                          "<source>First row</source><translation>Erste Zeile</translation>"
                          "</message></context></TS>";
    write("p.xml", "<Parameters><a>true</a><b>some words</b></Parameters>");
    write("form.ts", ts);
    QDir(m_folder->path()).mkdir(QStringLiteral("texts"));
    for (const char* const qm : {"form_de.qm", "texts/form_fr.qm"})
        QCOMPARE(
            runProgram(QStringLiteral("lrelease"), {path("form.ts"), QStringLiteral("-qm"), path(qm)}).code,
            0);
    const QStringList plain = words("form.zorva --fonts bundled -o plain.png");
    QCOMPARE(show(plain).code, 0);
    const ZorvaRun run = show(words("form.zorva --fonts bundled -o other.png") + options);
    QVERIFY2(run.code == 0, qPrintable(run.output + run.errors));
    const QImage before(path("plain.png"));
    const QImage after(path("other.png"));
    QVERIFY(!after.isNull());
    QVERIFY(before != after);
}

void TestZorvaShow::severalWidthsAndSizes()
{
    const ZorvaRun run =
        show(words("form.zorva -o pictures.png --width 300,400 --font 9,12 --geometry all.json"));
    QCOMPARE(run.code, 0);
    for (const char* const name :
         {"pictures-300-9pt.png", "pictures-300-12pt.png", "pictures-400-9pt.png", "pictures-400-12pt.png"}) {
        const QImage picture(path(name));
        QCOMPARE(picture.width(), QLatin1String(name).contains(QLatin1String("300")) ? 300 : 400);
    }
    QVERIFY(!QFileInfo::exists(path("pictures.png")));
    const QJsonArray pictures =
        QJsonDocument::fromJson(read("all.json")).object().value(QLatin1String("pictures")).toArray();
    QCOMPARE(pictures.size(), 4);
    QCOMPARE(pictures.at(3).toObject().value(QLatin1String("file")).toString(),
             QStringLiteral("pictures-400-12pt.png"));
}

void TestZorvaShow::whatTheScriptCollapsesIsCollapsed()
{
    const auto collapsed = [this](const QStringList& options) {
        return show(words("form.zorva --geometry -") + options)
            .output.count(QLatin1String("\"collapsed\": true"));
    };
    QByteArray two = form;
    two.replace("</Sheet>",
                "<Widget name=\"other\" class=\"Headline\"><Property name=\"text\"><String>Other</String>"
                "</Property><Property name=\"visible\"><Bool>true</Bool></Property></Widget></Sheet>");
    write("form.zorva", two);
    QCOMPARE(collapsed({}), 0);
    QCOMPARE(collapsed(words("--collapse other")), 1);
    write("form.zorva",
          two.replace("</Sheet>",
                      "</Sheet><Script language=\"QtScript\">group.setGroupVisible(false);</Script>"));
    QCOMPARE(collapsed({}), 1);
    QCOMPARE(collapsed(words("--collapse other")), 2);
}

void TestZorvaShow::standardInputAndOutput()
{
    QCOMPARE(show(words("- -o input.png --fonts bundled"), form).code, 0);
    QCOMPARE(show(words("form.zorva -o file.png --fonts bundled")).code, 0);
    QVERIFY(read("input.png") == read("file.png"));
    const ZorvaRun output = show(words("form.zorva -o -"));
    QCOMPARE(output.code, 0);
    QVERIFY(output.output.contains(QLatin1String("PNG")));
    const ZorvaRun json = show(words("form.zorva --geometry -"));
    QCOMPARE(json.code, 0);
    QVERIFY(!QJsonDocument::fromJson(json.output.toUtf8()).isNull());
}

void TestZorvaShow::geometryNamesEveryRow()
{
    QCOMPARE(show(words("form.zorva --geometry form.json")).code, 0);
    const QJsonObject picture = QJsonDocument::fromJson(read("form.json"))
                                    .object()
                                    .value(QLatin1String("pictures"))
                                    .toArray()
                                    .first()
                                    .toObject();
    QStringList names;
    for (const QJsonValue row : picture.value(QLatin1String("rows")).toArray())
        names << row.toObject().value(QLatin1String("name")).toString();
    QCOMPARE(names, words("group a b"));
}

void TestZorvaShow::baselineSaysWhatMoved()
{
    const QStringList options = words("form.zorva --fonts bundled --baseline old.json");
    QCOMPARE(show(words("form.zorva --fonts bundled --geometry old.json")).code, 0);
    const ZorvaRun same = show(options);
    QCOMPARE(same.code, 0);
    QCOMPARE(same.output, QString());
    write("form.zorva", QByteArray(form).replace("First row", "The very first of all rows"));
    const ZorvaRun moved = show(options);
    QCOMPARE(moved.code, 1);
    QVERIFY2(moved.output.contains(
                 QStringLiteral("form.zorva: a: caption \"First row\" to \"The very first of all rows\"\n")),
             qPrintable(moved.output));
    QVERIFY2(moved.output.contains(QStringLiteral("form.zorva: a to b (2 rows): caption ")),
             qPrintable(moved.output));
}

void TestZorvaShow::findingsAreSaid()
{
    write("form.zorva", QByteArray(form).replace("First row", "one&lt;br>two&lt;br>three"));
    const ZorvaRun run = show(words("form.zorva -o narrow.png --width 300 --geometry narrow.json"));
    QCOMPARE(run.code, 1);
    QVERIFY2(run.output.startsWith(QLatin1String(
                 "form.zorva: 300 pixels wide, 9 points: a: caption \"one<br>two<br>three\" is cut: ")),
             qPrintable(run.output));
    QVERIFY(run.output.endsWith(QLatin1String(" [clipped-caption]\n")));
    QVERIFY(!QImage(path("narrow.png")).isNull());
    QVERIFY(read("narrow.json").contains("\"clipped-caption\""));
}

void TestZorvaShow::misuse_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("error");
    const auto add = [](const char* arguments, const char* error) {
        QTest::newRow(arguments) << words(arguments) << QString::fromLatin1(error);
    };
    add("-o a.png", "no form given");
    add("form.zorva", "nothing to make");
    add("form.zorva other.zorva -o a.png", "one form at a time");
    add("nowhere.zorva -o a.png", "cannot read nowhere.zorva");
    add("p.txt -o a.png", "p.txt: there is no form in it");
    add("form.zorva -o nowhere/a.png", "cannot write nowhere/a.png");
    add("form.zorva -o a.png --width 0", "--width takes whole numbers");
    add("form.zorva -o a.png --width wide", "--width takes whole numbers");
    add("form.zorva -o a.png --width 20", "it is never narrower than ");
    add("form.zorva -o a.png --font 1000", "--font takes whole numbers");
    add("form.zorva -o a.png --fonts mine", "--fonts can be");
    add("form.zorva -o a.png --style nice", "there is no style \"nice\"; there is: ");
    add("form.zorva -o a.png --language nonsense", "there is no language \"nonsense\"");
    add("form.zorva -o a.png --translations nowhere", "there is no folder \"nowhere\"");
    add("form.zorva -o a.png --collapse a", "there is no group \"a\"");
    add("form.zorva -o a.png --parameters nowhere.xml", "cannot read nowhere.xml");
    add("form.zorva --baseline nowhere.json", "cannot read nowhere.json");
    add("form.zorva --baseline p.txt", "cannot read p.txt");
    add("form.zorva -o - --width 1,2", "several pictures need");
    add("form.zorva -o - --geometry -", "one thing at a time");
    add("form.zorva -o a.png --wide", "Unknown option");
}

void TestZorvaShow::misuse()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, error);
    write("p.txt", "text");
    const ZorvaRun run = show(arguments);
    QCOMPARE(run.code, 2);
    QCOMPARE(run.output, QString());
    QVERIFY2(run.errors.startsWith(QLatin1String("zorva: show: ")) && run.errors.contains(error),
             qPrintable(run.errors));
    QVERIFY(!QFileInfo::exists(path("a.png")));
}

void TestZorvaShow::aFailureLeavesTheOldPicture()
{
    write("picture.png", "old");
    write("form.zorva", "<Nothing/>");
    QCOMPARE(show(words("form.zorva -o picture.png")).code, 2);
    QCOMPARE(read("picture.png"), QByteArray("old"));
}

void TestZorvaShow::aScriptWithoutAnEnd()
{
    write("form.zorva",
          "<KVParamGui><Sheet name='s'/><Script language='QtScript'>while (true);</Script></KVParamGui>");
    const ZorvaRun run = runProgram(QStringLiteral("bash"),
                                    {QStringLiteral("-c"),
                                     QStringLiteral("ulimit -S -t 2; exec \"$0\" show form.zorva -o a.png"),
                                     QStringLiteral(ZORVA_PROGRAM)},
                                    QByteArray(), m_folder->path());
    QCOMPARE(run.code, 2);
    QVERIFY2(run.errors.contains(QLatin1String("script does not come to an end")), qPrintable(run.errors));
}

void TestZorvaShow::theJobOfThePage()
{
    QFile page(QStringLiteral(ZORVA_SOURCE_DIR "/docs/pictures.md"));
    QVERIFY(page.open(QIODevice::ReadOnly));
    const QString job = QString::fromUtf8(page.readAll())
                            .section(QStringLiteral("```sh\n"), 1)
                            .section(QStringLiteral("```"), 0, 0);
    QVERIFY(job.contains(QLatin1String("--baseline")));
    QVERIFY(QDir(m_folder->path()).mkdir(QStringLiteral("forms")));
    write("forms/one.zorva", form);
    write("forms/two.zorva", form);
    const auto runJob = [&] {
        const QString bin = QFileInfo(QStringLiteral(ZORVA_PROGRAM)).absolutePath();
        return runProgram(QStringLiteral("env"),
                          {QStringLiteral("PATH=%1:%2").arg(bin, qEnvironmentVariable("PATH")),
                           QStringLiteral("sh"), QStringLiteral("-c"), job},
                          QByteArray(), m_folder->path());
    };
    const ZorvaRun first = runJob();
    QVERIFY2(first.code == 0, qPrintable(first.output + first.errors));
    for (const char* const name : {"one", "two"}) {
        const QString json = QStringLiteral("/%1.json").arg(QLatin1String(name));
        QVERIFY(QFile::copy(path("pictures") + json, path("forms") + json));
    }
    QCOMPARE(runJob().code, 0);
    write("forms/two.zorva", QByteArray(form).replace("Second row", "Another caption"));
    const ZorvaRun changed = runJob();
    QCOMPARE(changed.code, 1);
    QVERIFY2(changed.output.contains(QLatin1String("forms/two.zorva: ")) &&
                 !changed.output.contains(QLatin1String("forms/one.zorva")),
             qPrintable(changed.output));
    QVERIFY(QFileInfo::exists(path("pictures/two-480-9pt.png")));
}

QTEST_APPLESS_MAIN(TestZorvaShow)
#include "tst_zorvashow.moc"
