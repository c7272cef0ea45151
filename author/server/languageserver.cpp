#include "languageserver.h"

#include "completion.h"
#include "diagnostics.h"
#include "fixes.h"
#include "hover.h"
#include "namerequests.h"
#include "outline.h"

#include <author/files/jsonparts.h>

#include <QJsonDocument>

namespace Orvane {
namespace Author {

namespace {

const QLatin1String cancelMethod("$/cancelRequest");

bool isRequest(const QJsonObject& message)
{
    return message.contains(QLatin1String("id")) && message.contains(QLatin1String("method"));
}

} // namespace

LanguageServer::LanguageServer(const Settings& settings, Sink sink, End end)
    : m_settings(settings)
    , m_sink(std::move(sink))
    , m_end(std::move(end))
    , m_diagnoser(settings.scriptProgram, settings.scriptArguments,
                  [this](const QString& uri, int number, const Diagnoser::Result& result) {
                      publish(uri, number, result);
                  })
{
    m_turn.setSingleShot(true);
    m_pause.setSingleShot(true);
    m_pause.setInterval(settings.pause);
    connect(&m_turn, &QTimer::timeout, this, &LanguageServer::takeTurn);
    connect(&m_pause, &QTimer::timeout, this, &LanguageServer::checkChanged);
}

const QHash<QString, LanguageServer::Answer>& LanguageServer::answers()
{
    static const QHash<QString, Answer> all{
        {QStringLiteral("initialize"), &LanguageServer::initialize},
        {QStringLiteral("shutdown"), &LanguageServer::shutdown},
        {QStringLiteral("textDocument/codeAction"), &LanguageServer::codeAction},
        {QStringLiteral("textDocument/completion"), &LanguageServer::completion},
        {QStringLiteral("textDocument/definition"), &LanguageServer::definition},
        {QStringLiteral("textDocument/documentHighlight"), &LanguageServer::documentHighlight},
        {QStringLiteral("textDocument/documentSymbol"), &LanguageServer::documentSymbol},
        {QStringLiteral("textDocument/foldingRange"), &LanguageServer::foldingRange},
        {QStringLiteral("textDocument/formatting"), &LanguageServer::formatting},
        {QStringLiteral("textDocument/hover"), &LanguageServer::hover},
        {QStringLiteral("textDocument/prepareRename"), &LanguageServer::prepareRename},
        {QStringLiteral("textDocument/references"), &LanguageServer::references},
        {QStringLiteral("textDocument/rename"), &LanguageServer::rename},
    };
    return all;
}

const QHash<QString, LanguageServer::Listen>& LanguageServer::listeners()
{
    static const QHash<QString, Listen> all{
        {QStringLiteral("exit"), &LanguageServer::exit},
        {QStringLiteral("textDocument/didOpen"), &LanguageServer::didOpen},
        {QStringLiteral("textDocument/didChange"), &LanguageServer::didChange},
        {QStringLiteral("textDocument/didClose"), &LanguageServer::didClose},
    };
    return all;
}

void LanguageServer::receive(const QByteArray& bytes)
{
    if (m_state == State::Over)
        return;
    m_reader.feed(bytes);
    while (const std::optional<QByteArray> content = m_reader.next())
        accept(*content);
    if (!m_reader.problem().isEmpty()) {
        sendReply(QJsonValue(), Reply::failure(ParseError, m_reader.problem()));
        endInput();
    }
}

void LanguageServer::endInput()
{
    m_isInputOver = true;
    m_turn.start();
}

void LanguageServer::abandon()
{
    finish(m_state == State::ShutDown ? 0 : 1);
}

void LanguageServer::finish(int code)
{
    if (m_state == State::Over)
        return;
    m_state = State::Over;
    m_messages.clear();
    m_pause.stop();
    m_end(code);
}

void LanguageServer::accept(const QByteArray& content)
{
    QJsonParseError error{};
    const QJsonDocument json = QJsonDocument::fromJson(content, &error);
    if (content.isNull() || error.error != QJsonParseError::NoError) {
        sendReply(QJsonValue(),
                  Reply::failure(ParseError, content.isNull() ? QStringLiteral("a message without a length")
                                                              : error.errorString()));
        return;
    }
    const QJsonObject message = json.object();
    if (message.value(QLatin1String("method")).toString() == cancelMethod) {
        cancel(objectIn(message, "params").value(QLatin1String("id")));
        return;
    }
    m_messages.push_back(message);
    m_turn.start();
}

/** A request that waits is answered in its turn, but as a cancelled one. */
void LanguageServer::cancel(const QJsonValue& id)
{
    for (QJsonObject& message : m_messages) {
        if (isRequest(message) && message.value(QLatin1String("id")) == id)
            message.insert(QStringLiteral("method"), cancelMethod);
    }
}

void LanguageServer::takeTurn()
{
    if (m_state == State::Over)
        return;
    if (!m_messages.empty()) {
        const QJsonObject message = m_messages.front();
        m_messages.pop_front();
        handle(message);
        m_turn.start();
    } else if (m_isInputOver) {
        abandon();
    }
}

void LanguageServer::handle(const QJsonObject& message)
{
    const QJsonValue method = message.value(QLatin1String("method"));
    const QJsonValue id = message.value(QLatin1String("id"));
    const bool isAnswer =
        message.contains(QLatin1String("result")) || message.contains(QLatin1String("error"));
    if (!method.isString()) {
        if (!isAnswer)
            sendReply(id, Reply::failure(InvalidRequest, QStringLiteral("no message of the protocol")));
        return;
    }
    const QJsonObject params = objectIn(message, "params");
    if (isRequest(message))
        sendReply(id, answer(method.toString(), params));
    else
        listen(method.toString(), params);
}

Reply LanguageServer::answer(const QString& method, const QJsonObject& params)
{
    if (method == cancelMethod)
        return Reply::failure(RequestCancelled, QStringLiteral("cancelled"));
    const bool isFirst = method == QLatin1String("initialize");
    if (m_state == State::New && !isFirst)
        return Reply::failure(NotInitialized, QStringLiteral("`initialize` comes first"));
    if (m_state == State::ShutDown)
        return Reply::failure(InvalidRequest, QStringLiteral("nothing but `exit` comes behind `shutdown`"));
    if (m_state == State::Running && isFirst)
        return Reply::failure(InvalidRequest, QStringLiteral("`initialize` comes once"));
    const Answer known = answers().value(method, nullptr);
    if (!known)
        return Reply::failure(MethodNotFound, QStringLiteral("no method `%1`").arg(method));
    return (this->*known)(params);
}

void LanguageServer::listen(const QString& method, const QJsonObject& params)
{
    const Listen known = listeners().value(method, nullptr);
    if (known && (m_state == State::Running || method == QLatin1String("exit")))
        (this->*known)(params);
}

void LanguageServer::send(const QJsonObject& message)
{
    QJsonObject whole = message;
    whole.insert(QStringLiteral("jsonrpc"), QStringLiteral("2.0"));
    m_sink(framedMessage(whole));
}

void LanguageServer::sendReply(const QJsonValue& id, const Reply& reply)
{
    QJsonObject message{{QStringLiteral("id"), id.isUndefined() ? QJsonValue() : id}};
    if (reply.error == 0)
        message.insert(QStringLiteral("result"), reply.result);
    else
        message.insert(QStringLiteral("error"), QJsonObject{{QStringLiteral("code"), reply.error},
                                                            {QStringLiteral("message"), reply.message}});
    send(message);
}

void LanguageServer::notify(const char* method, const QJsonObject& params)
{
    send({{QStringLiteral("method"), QLatin1String(method)}, {QStringLiteral("params"), params}});
}

QJsonObject LanguageServer::capabilities() const
{
    constexpr int incremental = 2;
    QJsonObject all{
        {QStringLiteral("textDocumentSync"),
         QJsonObject{{QStringLiteral("openClose"), true}, {QStringLiteral("change"), incremental}}},
        {QStringLiteral("completionProvider"),
         QJsonObject{{QStringLiteral("triggerCharacters"),
                      QJsonArray::fromStringList(QStringLiteral("< / \" ' . > {").split(QLatin1Char(' ')))}}},
        {QStringLiteral("codeActionProvider"),
         QJsonObject{{QStringLiteral("codeActionKinds"), QJsonArray{QStringLiteral("quickfix")}}}},
        {QStringLiteral("renameProvider"),
         m_abilities.preparesRenaming ? QJsonValue(QJsonObject{{QStringLiteral("prepareProvider"), true}})
                                      : QJsonValue(true)}};
    for (const char* const provider :
         {"definitionProvider", "documentFormattingProvider", "documentHighlightProvider",
          "documentSymbolProvider", "foldingRangeProvider", "hoverProvider", "referencesProvider"})
        all.insert(QLatin1String(provider), true);
    return all;
}

Reply LanguageServer::initialize(const QJsonObject& params)
{
    m_state = State::Running;
    m_abilities = abilitiesOf(objectIn(params, "capabilities"));
    m_clientProcess = static_cast<qint64>(params.value(QLatin1String("processId")).toDouble());
    const QJsonObject info{{QStringLiteral("name"), QStringLiteral("zorva")},
                           {QStringLiteral("version"), m_settings.version}};
    return Reply(
        QJsonObject{{QStringLiteral("capabilities"), capabilities()}, {QStringLiteral("serverInfo"), info}});
}

Reply LanguageServer::shutdown(const QJsonObject&)
{
    m_state = State::ShutDown;
    m_pause.stop();
    for (auto file = m_files.cbegin(); file != m_files.cend(); ++file)
        m_diagnoser.forget(file.key());
    m_files.clear();
    return Reply();
}

Reply LanguageServer::answerIn(const QJsonObject& params, const AnswerIn& answerInFile)
{
    OpenFile* const file = findFile(params);
    return file ? answerInFile(*file)
                : Reply::failure(InvalidParams, QStringLiteral("no open document of that URI"));
}

template <typename Find>
Reply LanguageServer::answerAt(const QJsonObject& params, Find find)
{
    return answerIn(params, [&](const OpenFile& file) {
        EditorPosition position;
        if (!readPosition(params.value(QLatin1String("position")), position))
            return Reply::failure(InvalidParams, QStringLiteral("`position` is none"));
        return Reply(find(file.document, file.document.offset(position)));
    });
}

Reply LanguageServer::completion(const QJsonObject& params)
{
    return answerAt(params, [this](const OpenDocument& document, int offset) {
        return completionAt(document, offset, m_abilities);
    });
}

Reply LanguageServer::hover(const QJsonObject& params)
{
    return answerAt(params, [this](const OpenDocument& document, int offset) {
        return hoverAt(document, offset, m_abilities);
    });
}

Reply LanguageServer::definition(const QJsonObject& params)
{
    return answerAt(params, definitionsAt);
}

Reply LanguageServer::references(const QJsonObject& params)
{
    const bool withDefinitions = flagIn(objectIn(params, "context"), "includeDeclaration");
    return answerAt(params, [withDefinitions](const OpenDocument& document, int offset) {
        return referencesAt(document, offset, withDefinitions);
    });
}

Reply LanguageServer::documentHighlight(const QJsonObject& params)
{
    return answerAt(params, highlightsAt);
}

Reply LanguageServer::prepareRename(const QJsonObject& params)
{
    return answerAt(params, renamableAt);
}

Reply LanguageServer::rename(const QJsonObject& params)
{
    const QJsonValue name = params.value(QLatin1String("newName"));
    if (!name.isString())
        return Reply::failure(InvalidParams, QStringLiteral("`newName` is no text"));
    return answerAt(params, [&name](const OpenDocument& document, int offset) {
        return renameAt(document, offset, name.toString());
    });
}

Reply LanguageServer::documentSymbol(const QJsonObject& params)
{
    return answerIn(params,
                    [this](const OpenFile& file) { return Reply(outlineOf(file.document, m_abilities)); });
}

Reply LanguageServer::foldingRange(const QJsonObject& params)
{
    return answerIn(
        params, [this](const OpenFile& file) { return Reply(foldingRangesOf(file.document, m_abilities)); });
}

Reply LanguageServer::formatting(const QJsonObject& params)
{
    return answerIn(params, [](const OpenFile& file) { return layoutOf(file.document); });
}

Reply LanguageServer::codeAction(const QJsonObject& params)
{
    return answerIn(params, [&](const OpenFile& file) {
        EditorRange range;
        if (!readRange(params.value(QLatin1String("range")), range))
            return Reply::failure(InvalidParams, QStringLiteral("`range` is none"));
        const QJsonValue only = objectIn(params, "context").value(QLatin1String("only"));
        const bool isWanted = !only.isArray() || only.toArray().contains(QStringLiteral("quickfix"));
        if (!isWanted || !m_abilities.literalActions)
            return Reply(QJsonArray());
        const OpenDocument& document = file.document;
        const Range place{document.offset(range.begin), document.offset(range.end)};
        // A moment after a change there are no findings yet; those with a fix need no run of the script.
        return Reply(fixesFor(
            document, file.result ? file.result->findings : check(document.uri(), document.stored()).findings,
            place, m_abilities));
    });
}

void LanguageServer::exit(const QJsonObject&)
{
    abandon();
}

LanguageServer::OpenFile* LanguageServer::findFile(const QJsonObject& params)
{
    const auto found = m_files.find(textIn(objectIn(params, "textDocument"), "uri"));
    return found == m_files.end() ? nullptr : &*found;
}

void LanguageServer::didOpen(const QJsonObject& params)
{
    const QJsonObject item = objectIn(params, "textDocument");
    const QString uri = textIn(item, "uri");
    if (uri.isEmpty())
        return;
    OpenFile& file = m_files[uri];
    file.document = OpenDocument(uri, textIn(item, "text"), item.value(QLatin1String("version")).toInt());
    file.result.reset();
    file.isChanged = true;
    checkChanged();
}

void LanguageServer::didChange(const QJsonObject& params)
{
    OpenFile* const file = findFile(params);
    if (!file)
        return;
    const QJsonArray changes = params.value(QLatin1String("contentChanges")).toArray();
    for (const QJsonValue& change : changes)
        applyChange(file->document, change.toObject());
    file->document.setVersion(objectIn(params, "textDocument").value(QLatin1String("version")).toInt());
    file->result.reset();
    file->isChanged = true;
    m_diagnoser.forget(file->document.uri());
    m_pause.start();
}

void LanguageServer::applyChange(OpenDocument& document, const QJsonObject& change)
{
    EditorRange range;
    const QJsonValue text = change.value(QLatin1String("text"));
    if (!text.isString())
        return;
    if (!change.contains(QLatin1String("range")))
        document.setText(text.toString());
    else if (readRange(change.value(QLatin1String("range")), range))
        document.change(range, text.toString());
}

void LanguageServer::didClose(const QJsonObject& params)
{
    const QString uri = textIn(objectIn(params, "textDocument"), "uri");
    if (m_files.remove(uri) == 0)
        return;
    m_diagnoser.forget(uri);
    notify("textDocument/publishDiagnostics",
           {{QStringLiteral("uri"), uri}, {QStringLiteral("diagnostics"), QJsonArray()}});
}

void LanguageServer::checkChanged()
{
    for (OpenFile& file : m_files) {
        if (!file.isChanged)
            continue;
        file.isChanged = false;
        file.check = m_diagnoser.submit(file.document.uri(), file.document.stored());
    }
}

void LanguageServer::publish(const QString& uri, int number, const Diagnoser::Result& result)
{
    const auto file = m_files.find(uri);
    if (m_state != State::Running || file == m_files.end() || file->isChanged || file->check != number)
        return;
    file->result = result;
    notify("textDocument/publishDiagnostics",
           {{QStringLiteral("uri"), uri},
            {QStringLiteral("version"), file->document.version()},
            {QStringLiteral("diagnostics"), diagnosticsJson(file->document, result->findings, m_abilities)}});
}

} // namespace Author
} // namespace Orvane
