#include "families.h"
#include "report.h"

#include <zorvaparser/zorvaversion.h>

#include <QFileInfo>
#include <QHash>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QUrl>

namespace Orvane {
namespace Author {

namespace {

QJsonObject textObject(const QString& text)
{
    return {{QStringLiteral("text"), text}};
}

QJsonObject ruleObject(const Rule& rule)
{
    return {{QStringLiteral("id"), QLatin1String(rule.id)},
            {QStringLiteral("shortDescription"), textObject(QString::fromUtf8(rule.title))},
            {QStringLiteral("fullDescription"), textObject(QString::fromUtf8(rule.explanation))},
            {QStringLiteral("defaultConfiguration"),
             QJsonObject{{QStringLiteral("level"), severityName(rule.severity)}}}};
}

QString uriOf(const QString& file)
{
    if (QFileInfo(file).isAbsolute())
        return QUrl::fromLocalFile(file).toString(QUrl::FullyEncoded);
    return QString::fromLatin1(QUrl::toPercentEncoding(file, "/"));
}

QString messageOf(const Finding& finding)
{
    QString text = finding.message;
    for (const QString& more : {finding.effect, fixText(finding)}) {
        if (!more.isEmpty())
            text += QStringLiteral("; ") + more;
    }
    return text;
}

QJsonObject regionOf(const SourceText& source, Range range)
{
    const Place begin = source.place(range.begin);
    const Place end = source.place(range.end);
    return {{QStringLiteral("startLine"), begin.line},
            {QStringLiteral("startColumn"), begin.column},
            {QStringLiteral("endLine"), end.line},
            {QStringLiteral("endColumn"), end.column}};
}

class SarifReport : public Report
{
public:
    using Report::Report;

    void begin() override
    {
        QJsonArray rules;
        for (const QString& id : ruleIds()) {
            m_ruleIndex.insert(id, rules.size());
            rules.append(ruleObject(*findRule(id)));
        }
        const QJsonObject driver{{QStringLiteral("name"), QStringLiteral("zorva check")},
                                 {QStringLiteral("version"), QStringLiteral(ZORVAPARSER_VERSION_STR)},
                                 {QStringLiteral("rules"), rules}};
        const QJsonObject tool{{QStringLiteral("driver"), driver}};
        write("{\"$schema\": \"https://json.schemastore.org/sarif-2.1.0.json\", \"version\": \"2.1.0\", "
              "\"runs\": [{"
              "\"columnKind\": \"unicodeCodePoints\",\n\"tool\": ");
        write(QJsonDocument(tool).toJson(QJsonDocument::Compact));
        write(",\n\"results\": [");
    }

    void add(const CheckedFile& file) override
    {
        for (const Finding& finding : file.findings) {
            write(m_first ? "\n" : ",\n");
            m_first = false;
            write(QJsonDocument(resultOf(file, finding)).toJson(QJsonDocument::Compact));
        }
    }

    void end() override { write("\n]}]}\n"); }

private:
    QJsonObject resultOf(const CheckedFile& file, const Finding& finding) const
    {
        const QJsonObject place{
            {QStringLiteral("artifactLocation"), QJsonObject{{QStringLiteral("uri"), uriOf(file.file)}}},
            {QStringLiteral("region"), regionOf(file.source, finding.range)}};
        return {{QStringLiteral("ruleId"), finding.id},
                {QStringLiteral("ruleIndex"), m_ruleIndex.value(finding.id)},
                {QStringLiteral("level"), severityName(finding.severity)},
                {QStringLiteral("message"), textObject(messageOf(finding))},
                {QStringLiteral("locations"),
                 QJsonArray{QJsonObject{{QStringLiteral("physicalLocation"), place}}}}};
    }

    QHash<QString, int> m_ruleIndex;
    bool m_first = true;
};

} // namespace

std::unique_ptr<Report> makeSarifReport(Report::Sink sink)
{
    return std::make_unique<SarifReport>(std::move(sink));
}

} // namespace Author
} // namespace Orvane
