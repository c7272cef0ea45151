#include "checktest.h"

#include <author/check/report.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTest>

using namespace Orvane::Author;

namespace {

template <typename Make>
QByteArray reported(Make make, const QList<QByteArray>& descriptions)
{
    QByteArray text;
    const std::unique_ptr<Report> report = make([&text](const QByteArray& piece) { text += piece; });
    report->begin();
    for (const QByteArray& description : descriptions)
        report->add(check(QStringLiteral("a b.zorva"), description));
    report->end();
    return text;
}

std::unique_ptr<Report> plainText(Report::Sink sink)
{
    return makeTextReport(std::move(sink), false);
}

std::unique_ptr<Report> colouredText(Report::Sink sink)
{
    return makeTextReport(std::move(sink), true);
}

/// A mistake behind a letter of two UTF-16 units, and a byte order mark.
const QByteArray misspelt =
    "\xef\xbb\xbf<KVParamGui version=\"1.0\">\n"
    "\t<!-- \xf0\x9f\x93\xbb --><Sheets name=\"a\"><Widget name=\"w\" class=\"Separator\"/></Sheets>\n"
    "</KVParamGui>\n";

} // namespace

class tst_reports : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void textShowsThePlace()
    {
        QCOMPARE(
            QString::fromUtf8(reported(plainText, {misspelt})),
            QString::fromUtf8("a b.zorva:2:12: error: `KVParamGui` does not know an element `Sheets`; it is "
                              "skipped with all that it holds [unknown-element]\n"
                              "    \t<!-- \xf0\x9f\x93\xbb --><Sheets name=\"a\"><Widget name=\"w\" "
                              "class=\"Separator\"/></Sheets>\n"
                              "    \t          ^~~~~~~\n"
                              "    because of this the form loses the row w\n"
                              "    did you mean `Sheet`?\n"));
    }

    void colourComesOnlyWhenAskedFor()
    {
        QVERIFY(!reported(plainText, {misspelt}).contains('\x1b'));
        QVERIFY(reported(colouredText, {misspelt}).contains("\x1b[1;31merror:\x1b[0m"));
    }

    void aBrokenFileCannotCommandTheTerminal()
    {
        const QByteArray hostile =
            "<KVParamGui version=\"1.0\"><x name=\"\x1b[2J\"/><\x1b[31m/></KVParamGui>";
        QVERIFY(reported(plainText, {hostile}).contains("not-well-formed"));
        QVERIFY(!reported(plainText, {hostile}).contains('\x1b'));
    }

    void longLinesAreCutRoundThePlace()
    {
        const QByteArray long1 = "<KVParamGui version=\"1.0\">" + QByteArray(100000, ' ') + "<Sheets/>" +
                                 QByteArray(100000, ' ') + "</KVParamGui>";
        QVERIFY(reported(plainText, {long1}).size() < 1000);
        QVERIFY(reported(plainText, {long1}).contains("<Sheets/>"));
    }

    void jsonHoldsWhatItsPageSays()
    {
        const QJsonObject run =
            QJsonDocument::fromJson(
                reported(makeJsonReport, {misspelt, "<KVParamGui><Sheet name=\"s\"/></KVParamGui>"}))
                .object();
        QCOMPARE(run.value(QStringLiteral("version")).toInt(), 1);
        const QJsonArray files = run.value(QStringLiteral("files")).toArray();
        QCOMPARE(files.size(), 2);
        const QJsonObject file = files.first().toObject();
        QCOMPARE(file.value(QStringLiteral("file")).toString(), QStringLiteral("a b.zorva"));
        QCOMPARE(file.value(QStringLiteral("form")).toBool(), true);
        const QJsonObject finding = file.value(QStringLiteral("findings")).toArray().first().toObject();
        QCOMPARE(finding.keys().join(QLatin1Char(' ')),
                 QStringLiteral("column effect endColumn endLine fix id line message severity"));
        QCOMPARE(finding.value(QStringLiteral("line")).toInt(), 2);
        QCOMPARE(finding.value(QStringLiteral("column")).toInt(), 12);
        QCOMPARE(finding.value(QStringLiteral("endColumn")).toInt(), 19);
        QCOMPARE(finding.value(QStringLiteral("severity")).toString(), QStringLiteral("error"));
        const QJsonObject lost = file.value(QStringLiteral("lost")).toObject();
        QCOMPARE(lost.keys().join(QLatin1Char(' ')),
                 QStringLiteral("entries enumerations properties rows scripts"));
        const QJsonObject row = lost.value(QStringLiteral("rows")).toArray().first().toObject();
        QCOMPARE(row.value(QStringLiteral("name")).toString(), QStringLiteral("w"));
        QCOMPARE(row.value(QStringLiteral("class")).toString(), QStringLiteral("Separator"));
        QCOMPARE(row.value(QStringLiteral("column")).toInt(), 29);
        QVERIFY(files.last().toObject().value(QStringLiteral("findings")).toArray().isEmpty());
    }

    void sarifHoldsWhatReadersAskFor()
    {
        const QJsonObject log = QJsonDocument::fromJson(reported(makeSarifReport, {misspelt})).object();
        QCOMPARE(log.value(QStringLiteral("version")).toString(), QStringLiteral("2.1.0"));
        const QJsonObject run = log.value(QStringLiteral("runs")).toArray().first().toObject();
        QCOMPARE(run.value(QStringLiteral("columnKind")).toString(), QStringLiteral("unicodeCodePoints"));
        const QJsonArray rules = run.value(QStringLiteral("tool"))
                                     .toObject()
                                     .value(QStringLiteral("driver"))
                                     .toObject()
                                     .value(QStringLiteral("rules"))
                                     .toArray();
        const QJsonObject result = run.value(QStringLiteral("results")).toArray().first().toObject();
        const int index = result.value(QStringLiteral("ruleIndex")).toInt();
        QCOMPARE(rules.at(index).toObject().value(QStringLiteral("id")),
                 result.value(QStringLiteral("ruleId")));
        QCOMPARE(result.value(QStringLiteral("level")).toString(), QStringLiteral("error"));
        const QJsonObject place = result.value(QStringLiteral("locations"))
                                      .toArray()
                                      .first()
                                      .toObject()
                                      .value(QStringLiteral("physicalLocation"))
                                      .toObject();
        QCOMPARE(place.value(QStringLiteral("artifactLocation"))
                     .toObject()
                     .value(QStringLiteral("uri"))
                     .toString(),
                 QStringLiteral("a%20b.zorva"));
        QCOMPARE(
            place.value(QStringLiteral("region")).toObject().value(QStringLiteral("startColumn")).toInt(),
            12);
    }
};

QTEST_MAIN(tst_reports)
#include "tst_reports.moc"
