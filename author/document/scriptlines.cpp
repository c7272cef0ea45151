#include "scriptlines.h"

namespace Orvane {
namespace Author {

namespace {

const QLatin1String lineFeed("{{LF}}");

/** Where each line of the code begins in the text. */
QVector<int> lineStarts(const QString& text)
{
    QVector<int> starts{0};
    for (int i = 0; i < text.size(); ++i) {
        if (text.at(i) == QLatin1Char('\n'))
            starts.append(i + 1);
        else if (text.at(i) == QLatin1Char('{') && text.midRef(i, lineFeed.size()) == lineFeed)
            starts.append(i + lineFeed.size());
    }
    return starts;
}

} // namespace

int offsetOfScriptLine(const QString& text, int line)
{
    const QVector<int> starts = lineStarts(text);
    int offset = starts.at(qBound(0, line - 1, starts.size() - 1));
    while (offset < text.size() && text.at(offset).isSpace() && text.at(offset) != QLatin1Char('\n'))
        ++offset;
    return offset;
}

QVector<int> scriptLinesInFile(const Description& description, int element)
{
    QVector<int> lines;
    for (const int start : lineStarts(description.textOf(element)))
        lines.append(description.source().lineAt(description.offsetInText(element, start)));
    return lines;
}

} // namespace Author
} // namespace Orvane
