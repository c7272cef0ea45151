#include "checktest.h"

#include <QStringList>

using namespace Orvane::Author;

QString placesIn(const QString& description)
{
    QStringList places;
    const CheckedFile checked = check(QStringLiteral("form.zorva"), description.toUtf8());
    for (const Finding& finding : checked.findings) {
        const Place place = checked.source.place(finding.range.begin);
        places += QStringLiteral("%1 %2:%3").arg(finding.id).arg(place.line).arg(place.column);
    }
    return places.join(QLatin1String(", "));
}

QString effectsIn(const QString& description)
{
    QStringList effects;
    const CheckedFile checked = check(QStringLiteral("form.zorva"), description.toUtf8());
    for (const Finding& finding : checked.findings) {
        if (!finding.effect.isEmpty())
            effects += finding.effect;
    }
    return effects.join(QLatin1String("; "));
}

QString formOf(const char* rows)
{
    return QStringLiteral(
               "<KVParamGui version=\"1.0\">\n<Sheet name=\"sheet\">\n%1\n</Sheet>\n</KVParamGui>\n")
        .arg(QString::fromUtf8(rows));
}

QString lossesWithoutFinding(const CheckedFile& checked)
{
    int firstError = 0;
    for (const Finding& finding : checked.findings) {
        const int line = checked.source.lineAt(finding.range.begin);
        if (finding.severity == Severity::Error && (firstError == 0 || line < firstError))
            firstError = line;
    }
    const auto isTold = [&](const Loss& loss) {
        const int line = checked.source.lineAt(loss.range.begin);
        if (firstError > 0 && firstError <= line)
            return true;
        for (const Finding& finding : checked.findings) {
            if (finding.severity == Severity::Warning && checked.source.lineAt(finding.range.begin) == line)
                return true;
        }
        return false;
    };
    const Losses& lost = checked.lost;
    for (const QVector<Loss>& losses :
         {lost.rows, lost.enumerations, lost.entries, lost.scripts, lost.properties}) {
        for (const Loss& loss : losses) {
            if (!isTold(loss))
                return QStringLiteral("nothing tells of the loss in line %1")
                    .arg(checked.source.lineAt(loss.range.begin));
        }
    }
    return QString();
}
