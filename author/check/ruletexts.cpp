#include "ruletexts.h"

#include "families.h"

namespace Orvane {
namespace Author {

namespace {

QString indented(const char* snippet)
{
    QString text;
    for (const QString& line : QString::fromUtf8(snippet).split(QLatin1Char('\n')))
        text += QStringLiteral("    %1\n").arg(line);
    return text;
}

QString block(const char* heading, const char* snippet)
{
    return snippet ? QStringLiteral("\n%1\n\n```xml\n%2\n```\n")
                         .arg(QLatin1String(heading), QString::fromUtf8(snippet))
                   : QString();
}

} // namespace

QString wholeDescription(const char* snippet)
{
    if (!snippet)
        return QString();
    const QString text = QString::fromUtf8(snippet);
    if (text.contains(QLatin1String("<KVParamG")))
        return text + QLatin1Char('\n');
    return QStringLiteral(
               "<KVParamGui version=\"1.0\">\n<Sheet name=\"sheet\">\n%1\n</Sheet>\n</KVParamGui>\n")
        .arg(text);
}

QString explanation(const Rule& rule)
{
    QString text = QStringLiteral("%1 (%2): %3\n\n%4\n")
                       .arg(QLatin1String(rule.id), severityName(rule.severity),
                            QString::fromUtf8(rule.title), QString::fromUtf8(rule.explanation));
    if (rule.bad)
        text += QStringLiteral("\nNot so:\n\n%1").arg(indented(rule.bad));
    if (rule.good)
        text += QStringLiteral("\nBut so:\n\n%1").arg(indented(rule.good));
    return text;
}

QString rulePage()
{
    QString text;
    for (const Family* const family : families()) {
        text += QStringLiteral("\n## %1\n").arg(QLatin1String(family->heading));
        for (const Rule& rule : family->rules) {
            text += QStringLiteral("\n### %1\n\n%2: %3.\n\n%4\n")
                        .arg(QLatin1String(rule.id), severityName(rule.severity),
                             QString::fromUtf8(rule.title), QString::fromUtf8(rule.explanation));
            text += block("Not so:", rule.bad);
            text += block("But so:", rule.good);
        }
    }
    return text;
}

} // namespace Author
} // namespace Orvane
