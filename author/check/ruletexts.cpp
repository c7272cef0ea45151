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

/** @p text in lines of a terminal. */
QString wrapped(const QString& text)
{
    constexpr int widest = 79;
    QString lines;
    int width = 0;
    for (const QString& word : text.split(QLatin1Char(' '))) {
        const bool fits = width == 0 || width + 1 + word.size() <= widest;
        lines += width == 0 ? QString() : QString(fits ? QLatin1Char(' ') : QLatin1Char('\n'));
        width = fits && width > 0 ? width + 1 + word.size() : word.size();
        lines += word;
    }
    return lines;
}

QString block(const char* heading, const char* snippet)
{
    return QStringLiteral("\n%1\n\n```xml\n%2\n```\n")
        .arg(QLatin1String(heading), QString::fromUtf8(snippet));
}

} // namespace

QString wholeDescription(const char* snippet)
{
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
                            QString::fromUtf8(rule.title), wrapped(QString::fromUtf8(rule.explanation)));
    text += QStringLiteral("\nNot so:\n\n%1").arg(indented(rule.bad));
    return text + QStringLiteral("\nBut so:\n\n%1").arg(indented(rule.good));
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
