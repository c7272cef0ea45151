#include "protocol.h"

#include <author/files/jsonparts.h>

namespace Orvane {
namespace Author {

namespace {

QJsonObject positionJson(const EditorPosition& position)
{
    return {{QStringLiteral("line"), position.line}, {QStringLiteral("character"), position.character}};
}

/** Positions may be larger than any text, and then mean its end. */
bool readCount(const QJsonValue& value, int& count)
{
    if (!value.isDouble() || value.toDouble() < 0)
        return false;
    count = static_cast<int>(qMin(value.toDouble(), 2147483647.0));
    return true;
}

} // namespace

ClientAbilities abilitiesOf(const QJsonObject& capabilities)
{
    const QJsonObject document = objectIn(capabilities, "textDocument");
    const QJsonObject completion = objectIn(document, "completion");
    const QJsonArray formats = objectIn(document, "hover").value(QLatin1String("contentFormat")).toArray();
    ClientAbilities abilities;
    abilities.snippets = flagIn(objectIn(completion, "completionItem"), "snippetSupport");
    abilities.nestedSymbols =
        flagIn(objectIn(document, "documentSymbol"), "hierarchicalDocumentSymbolSupport");
    abilities.relatedInformation = flagIn(objectIn(document, "publishDiagnostics"), "relatedInformation");
    abilities.literalActions =
        objectIn(document, "codeAction").contains(QLatin1String("codeActionLiteralSupport"));
    abilities.markdown = formats.contains(QStringLiteral("markdown"));
    abilities.preparesRenaming = flagIn(objectIn(document, "rename"), "prepareSupport");
    abilities.foldingLimit = objectIn(document, "foldingRange").value(QLatin1String("rangeLimit")).toInt();
    return abilities;
}

bool readPosition(const QJsonValue& value, EditorPosition& position)
{
    const QJsonObject object = value.toObject();
    return readCount(object.value(QLatin1String("line")), position.line) &&
           readCount(object.value(QLatin1String("character")), position.character);
}

bool readRange(const QJsonValue& value, EditorRange& range)
{
    const QJsonObject object = value.toObject();
    return readPosition(object.value(QLatin1String("start")), range.begin) &&
           readPosition(object.value(QLatin1String("end")), range.end);
}

QJsonObject rangeJson(const OpenDocument& document, const Range& range)
{
    const EditorRange place = document.range(range);
    return {{QStringLiteral("start"), positionJson(place.begin)},
            {QStringLiteral("end"), positionJson(place.end)}};
}

QJsonObject locationJson(const OpenDocument& document, const Range& range)
{
    return {{QStringLiteral("uri"), document.uri()}, {QStringLiteral("range"), rangeJson(document, range)}};
}

QJsonObject textEditJson(const OpenDocument& document, const Range& range, const QString& text)
{
    return {{QStringLiteral("range"), rangeJson(document, range)}, {QStringLiteral("newText"), text}};
}

QJsonObject workspaceEditJson(const OpenDocument& document, const QJsonArray& edits)
{
    return {{QStringLiteral("changes"), QJsonObject{{document.uri(), edits}}}};
}

QJsonObject markupJson(const QString& markdown, const ClientAbilities& abilities)
{
    if (abilities.markdown)
        return {{QStringLiteral("kind"), QStringLiteral("markdown")}, {QStringLiteral("value"), markdown}};
    QString plain = markdown;
    plain.remove(QLatin1Char('`')).remove(QLatin1String("**"));
    return {{QStringLiteral("kind"), QStringLiteral("plaintext")}, {QStringLiteral("value"), plain}};
}

QString escapedText(const QString& text)
{
    return text.toHtmlEscaped().replace(QLatin1Char('\''), QLatin1String("&apos;"));
}

} // namespace Author
} // namespace Orvane
