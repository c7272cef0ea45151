#include "diagnostics.h"

namespace Orvane {
namespace Author {

namespace {

int severityNumber(Severity severity)
{
    switch (severity) {
    case Severity::Error:
        return 1;
    case Severity::Warning:
        return 2;
    case Severity::Note:
        break;
    }
    return 3;
}

} // namespace

QJsonObject diagnosticJson(const OpenDocument& document, const Finding& finding,
                           const ClientAbilities& abilities)
{
    QJsonObject diagnostic{{QStringLiteral("range"), rangeJson(document, finding.range)},
                           {QStringLiteral("severity"), severityNumber(finding.severity)},
                           {QStringLiteral("code"), finding.id},
                           {QStringLiteral("source"), QStringLiteral("zorva")},
                           {QStringLiteral("message"), finding.message},
                           {QStringLiteral("data"), QJsonObject{{QStringLiteral("effect"), finding.effect},
                                                                {QStringLiteral("fix"), finding.fix}}}};
    if (abilities.relatedInformation && !finding.effect.isEmpty())
        diagnostic.insert(
            QStringLiteral("relatedInformation"),
            QJsonArray{QJsonObject{{QStringLiteral("location"), locationJson(document, finding.range)},
                                   {QStringLiteral("message"), finding.effect}}});
    return diagnostic;
}

QJsonArray diagnosticsJson(const OpenDocument& document, const QVector<Finding>& findings,
                           const ClientAbilities& abilities)
{
    QJsonArray diagnostics;
    for (const Finding& finding : findings)
        diagnostics.append(diagnosticJson(document, finding, abilities));
    return diagnostics;
}

} // namespace Author
} // namespace Orvane
