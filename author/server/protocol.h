#ifndef ZORVA_AUTHOR_PROTOCOL_H
#define ZORVA_AUTHOR_PROTOCOL_H

#include "opendocument.h"

#include <QJsonArray>
#include <QJsonObject>

namespace Orvane {
namespace Author {

/** What an answer says if it is not a result. */
enum ErrorCode {
    ParseError = -32700,
    InvalidRequest = -32600,
    MethodNotFound = -32601,
    InvalidParams = -32602,
    NotInitialized = -32002,
    RequestFailed = -32803,
    RequestCancelled = -32800
};

/** The answer to a request: a result, or an error with a sentence for a person. */
struct Reply
{
    explicit Reply(const QJsonValue& answer = QJsonValue())
        : result(answer)
    {
    }
    static Reply failure(int code, const QString& words)
    {
        Reply reply;
        reply.error = code;
        reply.message = words;
        return reply;
    }

    QJsonValue result;
    int error = 0;
    QString message;
};

/** What the editor says it can take, as far as an answer depends on it. */
struct ClientAbilities
{
    bool snippets = false;
    bool nestedSymbols = false;
    bool relatedInformation = false;
    bool literalActions = false;
    bool markdown = false;
    bool preparesRenaming = false;
    int foldingLimit = 0; // 0: none
};

ClientAbilities abilitiesOf(const QJsonObject& capabilities);

/** False if @p value is no position. */
bool readPosition(const QJsonValue& value, EditorPosition& position);
bool readRange(const QJsonValue& value, EditorRange& range);

QJsonObject rangeJson(const OpenDocument& document, const Range& range);
QJsonObject locationJson(const OpenDocument& document, const Range& range);
QJsonObject textEditJson(const OpenDocument& document, const Range& range, const QString& text);
/** Edits of one document, as a whole that is done or left. */
QJsonObject workspaceEditJson(const OpenDocument& document, const QJsonArray& edits);
/** Text with Markdown marks, without them where the editor shows none. */
QJsonObject markupJson(const QString& markdown, const ClientAbilities& abilities);

/** @p text as it stands between tags and in attributes. */
QString escapedText(const QString& text);

} // namespace Author
} // namespace Orvane

#endif
