#include "zorvarun.h"

#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

/// The subcommands that write text: format, new, schema.
class TestZorvaTexts : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void formatPrints();
    void formatReplaces();
    void formatChecks();
    void formatRefusesWhatIsBroken();
    void formatMisuse_data();
    void formatMisuse();
    void newIsWithoutFindings_data();
    void newIsWithoutFindings();
    void newReplacesNothing();
    void newMisuse();
    void schemaIsWritten();
    void schemaMisuse();

private:
    QString path(const char* name) const { return m_folder->filePath(QString::fromLatin1(name)); }
    QString write(const char* name, const QByteArray& text) const;
    QByteArray read(const char* name) const;

    std::unique_ptr<QTemporaryDir> m_folder;
};

namespace {

const QByteArray untidy = "<KVParamGui><Sheet   name='s'/></KVParamGui>";
const QByteArray tidy = "<KVParamGui>\n  <Sheet name='s'/>\n</KVParamGui>\n";

QStringList words(const char* text)
{
    return QString::fromLatin1(text).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

} // namespace

void TestZorvaTexts::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(m_folder->isValid());
}

QString TestZorvaTexts::write(const char* name, const QByteArray& text) const
{
    QFile file(path(name));
    if (file.open(QIODevice::WriteOnly))
        file.write(text);
    return file.fileName();
}

QByteArray TestZorvaTexts::read(const char* name) const
{
    QFile file(path(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void TestZorvaTexts::formatPrints()
{
    const ZorvaRun file = runZorva({QStringLiteral("format"), write("a.zorva", untidy)});
    QCOMPARE(file.code, 0);
    QCOMPARE(file.output.toUtf8(), tidy);
    QCOMPARE(read("a.zorva"), untidy);
    const ZorvaRun input = runZorva(words("format -"), untidy);
    QCOMPARE(input.code, 0);
    QCOMPARE(input.output.toUtf8(), tidy);
}

void TestZorvaTexts::formatReplaces()
{
    const QString first = write("a.zorva", untidy);
    const QString second = write("b.zorva", untidy);
    const ZorvaRun run = runZorva({QStringLiteral("format"), QStringLiteral("-i"), first, second});
    QCOMPARE(run.code, 0);
    QCOMPARE(run.output, QString());
    QCOMPARE(read("a.zorva"), tidy);
    QCOMPARE(read("b.zorva"), tidy);
}

void TestZorvaTexts::formatChecks()
{
    const QString stale = write("a.zorva", untidy);
    const QString fresh = write("b.zorva", tidy);
    const ZorvaRun run = runZorva({QStringLiteral("format"), QStringLiteral("--check"), stale, fresh});
    QCOMPARE(run.code, 1);
    QVERIFY(run.output.contains(QStringLiteral("a.zorva: would")));
    QVERIFY(!run.output.contains(QStringLiteral("b.zorva")));
    QCOMPARE(read("a.zorva"), untidy);
    QCOMPARE(runZorva({QStringLiteral("format"), QStringLiteral("--check"), fresh}).code, 0);
}

void TestZorvaTexts::formatRefusesWhatIsBroken()
{
    const QByteArray broken = "<KVParamGui>\n<Sheet>\n";
    const QString bad = write("bad.zorva", broken);
    const QString good = write("good.zorva", untidy);
    const ZorvaRun run = runZorva({QStringLiteral("format"), QStringLiteral("-i"), bad, good});
    QCOMPARE(run.code, 2);
    QVERIFY2(run.errors.contains(QStringLiteral("bad.zorva:3:")), qPrintable(run.errors));
    QCOMPARE(read("bad.zorva"), broken);
    QCOMPARE(read("good.zorva"), tidy);
}

void TestZorvaTexts::formatMisuse_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::newRow("no form") << words("format");
    QTest::newRow("no such file") << words("format nowhere.zorva");
    QTest::newRow("a folder") << words("format .");
    QTest::newRow("unknown option") << words("format --lines x.zorva");
    QTest::newRow("several to the output") << words("format a.zorva b.zorva");
    QTest::newRow("input in place") << words("format -i -");
    QTest::newRow("both ways") << words("format -i --check a.zorva");
}

void TestZorvaTexts::formatMisuse()
{
    QFETCH(QStringList, arguments);
    const ZorvaRun run = runZorva(arguments, QByteArray(), m_folder->path());
    QCOMPARE(run.code, 2);
    QVERIFY(run.errors.startsWith(QStringLiteral("zorva: format: ")));
    QCOMPARE(run.output, QString());
}

void TestZorvaTexts::newIsWithoutFindings_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::newRow("as it comes") << words("new");
    QTest::newRow("receiver") << words("new --kind receiver");
    QTest::newRow("minimal") << words("new --kind=minimal");
}

void TestZorvaTexts::newIsWithoutFindings()
{
    QFETCH(QStringList, arguments);
    const ZorvaRun printed = runZorva(arguments);
    QCOMPARE(printed.code, 0);
    QVERIFY(printed.output.contains(QStringLiteral("<!-- ")));
    const ZorvaRun made = runZorva(arguments + words("-o form.zorva"), QByteArray(), m_folder->path());
    QCOMPARE(made.code, 0);
    QCOMPARE(QString::fromUtf8(read("form.zorva")), printed.output);
    const ZorvaRun check = runZorva(words("check --fail-on note form.zorva"), QByteArray(), m_folder->path());
    QVERIFY2(check.code == 0, qPrintable(check.output + check.errors));
    QCOMPARE(runZorva(words("format --check form.zorva"), QByteArray(), m_folder->path()).code, 0);
}

void TestZorvaTexts::newReplacesNothing()
{
    write("form.zorva", "work of a week");
    const ZorvaRun run = runZorva(words("new -o form.zorva"), QByteArray(), m_folder->path());
    QCOMPARE(run.code, 2);
    QVERIFY(run.errors.contains(QStringLiteral("it is there already")));
    QCOMPARE(read("form.zorva"), QByteArray("work of a week"));
}

void TestZorvaTexts::newMisuse()
{
    const ZorvaRun kind = runZorva(words("new --kind radio"));
    QCOMPARE(kind.code, 2);
    QVERIFY(kind.errors.contains(QStringLiteral("no kind \"radio\"; there is: minimal, receiver")));
    QCOMPARE(runZorva(words("new form.zorva"), QByteArray(), m_folder->path()).code, 2);
    QVERIFY(!QFileInfo::exists(path("form.zorva")));
}

void TestZorvaTexts::schemaIsWritten()
{
    const ZorvaRun printed = runZorva(words("schema"));
    QCOMPARE(printed.code, 0);
    QVERIFY(printed.output.contains(QStringLiteral("http://relaxng.org/ns/structure/1.0")));
    QCOMPARE(runZorva(words("schema -o a.rng"), QByteArray(), m_folder->path()).code, 0);
    QCOMPARE(QString::fromUtf8(read("a.rng")), printed.output);
}

void TestZorvaTexts::schemaMisuse()
{
    QCOMPARE(runZorva(words("schema a.rng")).code, 2);
    QCOMPARE(runZorva(words("schema -o nowhere/a.rng"), QByteArray(), m_folder->path()).code, 2);
}

QTEST_APPLESS_MAIN(TestZorvaTexts)
#include "tst_zorvatexts.moc"
