#include "report.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace Orvane {
namespace Author {

namespace {

/** Raised when a reader of the old form would stumble over the new one. */
constexpr int formatVersion = 1;

QJsonObject findingObject(const SourceText& source, const Finding& finding)
{
    const Place begin = source.place(finding.range.begin);
    const Place end = source.place(finding.range.end);
    return {{QStringLiteral("id"), finding.id},
            {QStringLiteral("severity"), severityName(finding.severity)},
            {QStringLiteral("line"), begin.line},
            {QStringLiteral("column"), begin.column},
            {QStringLiteral("endLine"), end.line},
            {QStringLiteral("endColumn"), end.column},
            {QStringLiteral("message"), finding.message},
            {QStringLiteral("effect"), finding.effect},
            {QStringLiteral("fix"), fixText(finding)}};
}

QJsonArray lossArray(const SourceText& source, const QVector<Loss>& losses, const char* ownerKey = nullptr,
                     bool hasClass = false)
{
    QJsonArray array;
    for (const Loss& loss : losses) {
        const Place place = source.place(loss.range.begin);
        QJsonObject object{{QStringLiteral("line"), place.line},
                           {QStringLiteral("column"), place.column},
                           {QStringLiteral("name"), loss.name}};
        if (hasClass)
            object.insert(QStringLiteral("class"), loss.className);
        if (ownerKey)
            object.insert(QLatin1String(ownerKey), loss.owner);
        array.append(object);
    }
    return array;
}

QJsonObject fileObject(const CheckedFile& file)
{
    QJsonArray findings;
    for (const Finding& finding : file.findings)
        findings.append(findingObject(file.source, finding));
    const QJsonObject lost{
        {QStringLiteral("rows"), lossArray(file.source, file.lost.rows, nullptr, true)},
        {QStringLiteral("enumerations"), lossArray(file.source, file.lost.enumerations)},
        {QStringLiteral("entries"), lossArray(file.source, file.lost.entries, "enumeration")},
        {QStringLiteral("scripts"), lossArray(file.source, file.lost.scripts)},
        {QStringLiteral("properties"), lossArray(file.source, file.lost.properties, "row")}};
    return {{QStringLiteral("file"), file.file},
            {QStringLiteral("form"), file.form},
            {QStringLiteral("findings"), findings},
            {QStringLiteral("lost"), lost}};
}

class JsonReport : public Report
{
public:
    using Report::Report;

    void begin() override { write("{\"version\": " + QByteArray::number(formatVersion) + ", \"files\": ["); }

    void add(const CheckedFile& file) override
    {
        write(m_first ? "\n" : ",\n");
        m_first = false;
        write(QJsonDocument(fileObject(file)).toJson(QJsonDocument::Compact));
    }

    void end() override { write("\n]}\n"); }

private:
    bool m_first = true;
};

} // namespace

std::unique_ptr<Report> makeJsonReport(Report::Sink sink)
{
    return std::make_unique<JsonReport>(std::move(sink));
}

} // namespace Author
} // namespace Orvane
