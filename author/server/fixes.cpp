#include "fixes.h"

#include "diagnostics.h"

#include <author/format/formatter.h>

#include <QRegularExpression>

namespace Orvane {
namespace Author {

namespace {

QJsonObject action(const OpenDocument& document, const QString& title, const Finding& finding,
                   const QJsonArray& edits, bool isPreferred, const ClientAbilities& abilities)
{
    return {{QStringLiteral("title"), title},
            {QStringLiteral("kind"), QStringLiteral("quickfix")},
            {QStringLiteral("diagnostics"), QJsonArray{diagnosticJson(document, finding, abilities)}},
            {QStringLiteral("isPreferred"), isPreferred},
            {QStringLiteral("edit"), workspaceEditJson(document, edits)}};
}

/** @p whole without a prefix of XML. */
Range localPart(const QString& text, const Range& whole)
{
    const int colon = text.midRef(whole.begin, whole.end - whole.begin).indexOf(QLatin1Char(':'));
    return {whole.begin + colon + 1, whole.end};
}

/** The word in @p range that the fix is near to; the whole of it if none is. */
Range nearWord(const QString& text, const Range& range, const QString& fix)
{
    static const QRegularExpression word(QStringLiteral("[\\w-]+"));
    for (auto match = word.globalMatch(text.mid(range.begin, range.end - range.begin)); match.hasNext();) {
        const QRegularExpressionMatch found = match.next();
        if (isNearMiss(found.captured(), fix))
            return {range.begin + found.capturedStart(), range.begin + found.capturedEnd()};
    }
    return range;
}

/** What has to be replaced for the finding's fix: an element is named in its start and its end tag. */
QVector<Range> wrongPlaces(const OpenDocument& document, const Finding& finding)
{
    const Description& description = document.description();
    const QString& text = document.text();
    const bool hasBracket = text.midRef(finding.range.begin, 1) == QLatin1String("<");
    if (hasBracket && text.midRef(finding.range.begin, 4) == QLatin1String("<!--"))
        return {nearWord(text, finding.range, finding.fix)};
    const int index = description.elementBeginningAt(finding.range.begin - (hasBracket ? 0 : 1));
    if (index < 0)
        return {finding.range};
    const SourceElement& element = description.element(index);
    QVector<Range> places{localPart(text, element.nameRange())};
    const Range endName{element.contentEnd + 2, element.contentEnd + 2 + element.qualifiedName.size()};
    const bool hasEndTag = element.end > element.contentEnd && !element.empty;
    if (hasEndTag && text.midRef(endName.begin, element.qualifiedName.size()) == element.qualifiedName)
        places.append(localPart(text, endName));
    return places;
}

/** Where a comment that allows something in the element at @p offset can stand; -1 if nowhere. */
int placeOfPermission(const OpenDocument& document, int offset)
{
    const Description& description = document.description();
    int index = description.elementAt(offset);
    const auto isFirstInLine = [&](int begin) {
        const int start = description.source().lineStart(description.source().lineAt(begin));
        return document.text().mid(start, begin - start).trimmed().isEmpty();
    };
    while (index >= 0 && !isFirstInLine(description.element(index).tag.begin))
        index = description.element(index).parent;
    return index < 0 ? -1 : description.element(index).tag.begin;
}

QJsonArray permission(const OpenDocument& document, const Finding& finding)
{
    const int place = placeOfPermission(document, finding.range.begin);
    if (place < 0 || finding.severity == Severity::Error || finding.id.endsWith(QLatin1String("-allow")))
        return QJsonArray();
    const int start =
        document.description().source().lineStart(document.description().source().lineAt(place));
    const QString indentation = document.text().mid(start, place - start);
    return {textEditJson(
        document, {place, place},
        QStringLiteral("<!-- zorva: allow %1 it is meant so -->\n%2").arg(finding.id, indentation))};
}

bool touch(const Range& left, const Range& right)
{
    return left.begin <= right.end && right.begin <= left.end;
}

bool isBlankAt(const QString& text, int offset)
{
    return offset < text.size() && text.at(offset).isSpace();
}

int blanksEnd(const QString& text, int offset)
{
    while (isBlankAt(text, offset))
        ++offset;
    return offset;
}

/** Layout changes nothing but blanks between other letters, so each stretch of blanks is an edit of its own.
 */
QJsonArray blankEdits(const OpenDocument& document, const QString& text, const QString& laidOut)
{
    QJsonArray edits;
    int from = 0;
    int to = 0;
    while (from < text.size() || to < laidOut.size()) {
        const int fromEnd = blanksEnd(text, from);
        const int toEnd = blanksEnd(laidOut, to);
        if (text.midRef(from, fromEnd - from) != laidOut.midRef(to, toEnd - to))
            edits.append(textEditJson(document, {from, fromEnd}, laidOut.mid(to, toEnd - to)));
        if (fromEnd >= text.size() && toEnd >= laidOut.size())
            break;
        if (fromEnd >= text.size() || toEnd >= laidOut.size() || text.at(fromEnd) != laidOut.at(toEnd))
            return {textEditJson(document, {0, text.size()}, laidOut)};
        from = fromEnd + 1;
        to = toEnd + 1;
    }
    return edits;
}

} // namespace

QJsonArray fixesFor(const OpenDocument& document, const QVector<Finding>& findings, const Range& range,
                    const ClientAbilities& abilities)
{
    QJsonArray actions;
    QJsonArray permissions;
    for (const Finding& finding : findings) {
        if (!touch(finding.range, range))
            continue;
        QJsonArray edits;
        for (const Range& place : finding.fix.isEmpty() ? QVector<Range>() : wrongPlaces(document, finding))
            edits.append(textEditJson(document, place, escapedText(finding.fix)));
        if (!edits.isEmpty())
            actions.append(action(document, QStringLiteral("Change to %1").arg(finding.fix), finding, edits,
                                  true, abilities));
        const QJsonArray comment = permission(document, finding);
        if (!comment.isEmpty())
            permissions.append(action(document, QStringLiteral("Allow %1 here").arg(finding.id), finding,
                                      comment, false, abilities));
    }
    for (const QJsonValue& allowed : qAsConst(permissions))
        actions.append(allowed);
    return actions;
}

Reply layoutOf(const OpenDocument& document)
{
    const FormattedText formatted = formatDescription(document.stored());
    if (formatted.isRefused())
        return Reply::failure(RequestFailed, QStringLiteral("%1:%2: %3; left as it is")
                                                 .arg(formatted.line)
                                                 .arg(formatted.column)
                                                 .arg(formatted.problem));
    return Reply(blankEdits(document, document.text(), SourceText(formatted.bytes).text()));
}

} // namespace Author
} // namespace Orvane
