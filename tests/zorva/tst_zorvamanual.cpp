#include "zorvarun.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QRegularExpression>
#include <QSet>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

namespace {

QStringList words(const char* text)
{
    return QString::fromLatin1(text).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

/// What stands in quotes behind each `name=`.
QStringList attributesOf(const QString& page, const char* name)
{
    QStringList values;
    auto found =
        QRegularExpression(QStringLiteral(" %1=\"([^\"]*)\"").arg(QLatin1String(name))).globalMatch(page);
    while (found.hasNext())
        values << found.next().captured(1);
    return values;
}

} // namespace

/// The operator's reference by the program, as a person or a job makes it.
class TestZorvaManual : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void thePageIsValid_data();
    void thePageIsValid();
    void linksLeadSomewhere_data();
    void linksLeadSomewhere();
    void nothingComesFromElsewhere();
    void receiver();
    void twoRunsGiveTheSameBytes();
    void languages();
    void standardInput();
    void misuse_data();
    void misuse();

private:
    ZorvaRun manual(const QStringList& arguments, const QByteArray& input = QByteArray()) const;
    QString example(const char* name) const;
    QByteArray read(const char* name) const;
    QString path(const char* name) const { return m_folder->filePath(QString::fromLatin1(name)); }

    std::unique_ptr<QTemporaryDir> m_folder;
};

void TestZorvaManual::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(m_folder->isValid());
}

ZorvaRun TestZorvaManual::manual(const QStringList& arguments, const QByteArray& input) const
{
    return runZorva(QStringList(QStringLiteral("manual")) + arguments, input, m_folder->path());
}

QString TestZorvaManual::example(const char* name) const
{
    return QStringLiteral(ZORVA_EXAMPLES_DIR "/%1.zorva").arg(QLatin1String(name));
}

QByteArray TestZorvaManual::read(const char* name) const
{
    QFile file(path(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void TestZorvaManual::thePageIsValid_data()
{
    QTest::addColumn<QString>("form");
    for (const char* const name : {"receiver", "gallery", "minimal", "embedding/recorder"})
        QTest::newRow(name) << example(name);
}

void TestZorvaManual::thePageIsValid()
{
    QFETCH(QString, form);
    const ZorvaRun run = manual({form, QStringLiteral("-o"), QStringLiteral("out")});
    QVERIFY2(run.code == 0, qPrintable(run.errors));
    QCOMPARE(run.output + run.errors, QString());
    const ZorvaRun tidy = runProgram(QStringLiteral("tidy"), words("-quiet -errors -utf8 out/index.html"),
                                     QByteArray(), m_folder->path());
    QVERIFY2(tidy.code == 0, qPrintable(tidy.errors));
    const ZorvaRun lint = runProgram(QStringLiteral("xmllint"), words("--noout out/index.html"), QByteArray(),
                                     m_folder->path());
    QVERIFY2(lint.code == 0, qPrintable(lint.errors));
}

void TestZorvaManual::linksLeadSomewhere_data()
{
    thePageIsValid_data();
}

void TestZorvaManual::linksLeadSomewhere()
{
    QFETCH(QString, form);
    QCOMPARE(manual({form, QStringLiteral("-o"), QStringLiteral("out")}).code, 0);
    const QString page = QString::fromUtf8(read("out/index.html"));
    const QStringList anchors = attributesOf(page, "id");
    QCOMPARE(QSet<QString>(anchors.cbegin(), anchors.cend()).size(), anchors.size());
    for (const QString& link : attributesOf(page, "href"))
        QVERIFY2(link.startsWith(QLatin1Char('#')) ? anchors.contains(link.mid(1))
                                                   : QFileInfo::exists(path("out/") + link),
                 qPrintable(link));
    const QStringList pictures = attributesOf(page, "src");
    QCOMPARE(pictures.size(), page.count(QLatin1String("<section")));
    for (const QString& picture : pictures)
        QVERIFY2(!QImage(path("out/") + picture).isNull(), qPrintable(picture));
}

void TestZorvaManual::nothingComesFromElsewhere()
{
    QCOMPARE(manual({example("receiver"), QStringLiteral("-o"), QStringLiteral("out")}).code, 0);
    const QString all = QString::fromUtf8(read("out/index.html") + read("out/style.css"));
    QVERIFY(!all.contains(QLatin1String("//")) && !all.contains(QLatin1String("@import")) &&
            !all.contains(QLatin1String("url(")) && !all.contains(QLatin1String("<script")));
    QVERIFY(all.contains(QLatin1String("@media print")));
}

void TestZorvaManual::receiver()
{
    QCOMPARE(manual({example("receiver"), QStringLiteral("-o"), QStringLiteral("a/b/out")}).code, 0);
    const QString page = QString::fromUtf8(read("a/b/out/index.html"));
    for (const char* const part :
         {"<h1>receiver</h1>", "<h2>Tuning</h2>", "<h3>Frequency</h3>", "8 kHz to 26.5 GHz", "98.5 MHz",
          "<code>Tuner/Frequency</code>", "<p>Protects the frequency against a slip of the hand</p>",
          "-30.0 dBµV to 130.0 dBµV", "0.5 dBµV", "<li><b>FM</b></li>", "<li>USB</li>",
          "at most 24 characters"})
        QVERIFY2(page.contains(QString::fromUtf8(part)), part);
    QCOMPARE(page.count(QLatin1String("<section")), 8);
}

void TestZorvaManual::twoRunsGiveTheSameBytes()
{
    for (const char* const folder : {"one", "two"})
        QCOMPARE(manual({example("receiver"), QStringLiteral("-o"), QString::fromLatin1(folder)}).code, 0);
    QCOMPARE(manual({example("receiver"), QStringLiteral("-o"), QStringLiteral("two")}).code, 0);
    const QStringList files = QDir(path("one")).entryList(QDir::Files);
    QCOMPARE(files, QDir(path("two")).entryList(QDir::Files | QDir::Hidden));
    QCOMPARE(files.size(), 10);
    for (const QString& file : files)
        QVERIFY2(read(qPrintable(QStringLiteral("one/") + file)) ==
                     read(qPrintable(QStringLiteral("two/") + file)),
                 qPrintable(file));
}

void TestZorvaManual::languages()
{
    QFile form(path("form.zorva"));
    QVERIFY(form.open(QIODevice::WriteOnly));
    form.write(
        "<KVParamGui><Sheet name='s'><Widget name='a' class='SpinBox'>"
        "<Property name='labelText'><String>Volume</String></Property>"
        "<Property name='minimum'><Int>0</Int></Property><Property name='maximum'><Int>9</Int></Property>"
        "<Property name='visible'><Bool>true</Bool></Property></Widget></Sheet></KVParamGui>");
    form.close();
    QFile ts(path("form.ts"));
    QVERIFY(ts.open(QIODevice::WriteOnly));
    ts.write("<!DOCTYPE TS><TS version=\"2.1\"><context><name>a</name><message><source>Volume</source>"
             "<translation>Lautst\xc3\xa4rke</translation></message></context></TS>");
    ts.close();
    QCOMPARE(
        runProgram(QStringLiteral("lrelease"), {path("form.ts"), QStringLiteral("-qm"), path("form_de.qm")})
            .code,
        0);
    QCOMPARE(manual(words("form.zorva -o de --language de --title Handbuch")).code, 0);
    const QString page = QString::fromUtf8(read("de/index.html"));
    for (const char* const part :
         {"lang=\"de\"", "<h1>Handbuch</h1>", "<h3>Lautstärke</h3>", ">Bereich<", "0 bis 9"})
        QVERIFY2(page.contains(QString::fromUtf8(part)), qPrintable(page));
    QCOMPARE(manual(words("form.zorva -o fr --language fr")).code, 0);
    QVERIFY(read("fr/index.html").contains(">Plage<"));
}

void TestZorvaManual::standardInput()
{
    const QByteArray form = "<KVParamGui><Sheet name='audio'/></KVParamGui>";
    QCOMPARE(manual(words("- -o out"), form).code, 0);
    QVERIFY(read("out/index.html").contains("<h1>audio</h1>"));
    QVERIFY(QFileInfo::exists(path("out/style.css")));
}

void TestZorvaManual::misuse_data()
{
    QTest::addColumn<QString>("error");
    QTest::newRow("-o out") << QStringLiteral("no form given");
    QTest::newRow("a.zorva") << QStringLiteral("no folder given");
    QTest::newRow("a.zorva b.zorva -o out") << QStringLiteral("one form at a time");
    QTest::newRow("nowhere.zorva -o out") << QStringLiteral("cannot read nowhere.zorva");
    QTest::newRow("other.xml -o out") << QStringLiteral("other.xml holds no form");
    QTest::newRow("form.zorva -o other.xml") << QStringLiteral("cannot make the folder other.xml");
    QTest::newRow("form.zorva -o out --language nonsense") << QStringLiteral("there is no language");
    QTest::newRow("form.zorva -o out --pages") << QStringLiteral("Unknown option");
}

void TestZorvaManual::misuse()
{
    QFETCH(QString, error);
    QVERIFY(QFile::copy(example("minimal"), path("form.zorva")));
    QFile other(path("other.xml"));
    QVERIFY(other.open(QIODevice::WriteOnly));
    other.write("<other/>");
    other.close();
    const ZorvaRun run = manual(words(QTest::currentDataTag()));
    QCOMPARE(run.code, 2);
    QVERIFY2(run.errors.startsWith(QLatin1String("zorva: manual: ")) && run.errors.contains(error),
             qPrintable(run.errors));
    QVERIFY(!QFileInfo::exists(path("out")));
}

QTEST_APPLESS_MAIN(TestZorvaManual)
#include "tst_zorvamanual.moc"
