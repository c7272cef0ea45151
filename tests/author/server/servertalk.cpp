#include "servertalk.h"

#include <QJsonDocument>
#include <QTest>

using namespace Orvane::Author;

namespace {

LanguageServer::Settings settingsWith(int pause)
{
    LanguageServer::Settings settings;
    settings.version = QStringLiteral("1.0");
    settings.pause = pause;
    return settings;
}

} // namespace

ServerTalk::ServerTalk(int pause)
    : m_server(
          settingsWith(pause),
          [this](const QByteArray& bytes) {
              m_reader.feed(bytes);
              while (const auto content = m_reader.next())
                  m_received.append(QJsonDocument::fromJson(*content).object());
          },
          [this](int code) { m_code = code; })
{
}

QString ServerTalk::uri()
{
    return QStringLiteral("file:///tmp/form.zorva");
}

QByteArray ServerTalk::framed(const QJsonObject& message)
{
    QJsonObject whole = message;
    whole.insert(QStringLiteral("jsonrpc"), QStringLiteral("2.0"));
    return framedMessage(whole);
}

QJsonObject ServerTalk::initialize(const QJsonObject& capabilities)
{
    const QJsonObject answer = ask("initialize", QJsonObject{{QStringLiteral("processId"), QJsonValue()},
                                                             {QStringLiteral("rootUri"), QJsonValue()},
                                                             {QStringLiteral("capabilities"), capabilities}});
    tell("initialized");
    return answer.value(QStringLiteral("result")).toObject().value(QStringLiteral("capabilities")).toObject();
}

QList<QJsonObject> ServerTalk::answersTo(const QJsonValue& id) const
{
    QList<QJsonObject> found;
    for (const QJsonObject& message : m_received) {
        if (message.contains(QStringLiteral("id")) && message.value(QStringLiteral("id")) == id)
            found.append(message);
    }
    return found;
}

QJsonObject ServerTalk::ask(const char* method, const QJsonValue& params)
{
    const int id = ++m_lastId;
    m_server.receive(framed({{QStringLiteral("id"), id},
                             {QStringLiteral("method"), QLatin1String(method)},
                             {QStringLiteral("params"), params}}));
    const bool came = QTest::qWaitFor([&] { return isOver() || !answersTo(id).isEmpty(); }, 60000);
    return came && !answersTo(id).isEmpty() ? answersTo(id).first() : QJsonObject();
}

QJsonValue ServerTalk::askAt(const char* method, int offset, QJsonObject params)
{
    params.insert(QStringLiteral("textDocument"), QJsonObject{{QStringLiteral("uri"), uri()}});
    params.insert(QStringLiteral("position"), position(offset));
    return ask(method, params).value(QStringLiteral("result"));
}

void ServerTalk::tell(const char* method, const QJsonObject& params)
{
    m_server.receive(
        framed({{QStringLiteral("method"), QLatin1String(method)}, {QStringLiteral("params"), params}}));
}

void ServerTalk::open(const QString& text)
{
    m_text = text;
    m_received.clear();
    tell("textDocument/didOpen", {{QStringLiteral("textDocument"),
                                   QJsonObject{{QStringLiteral("uri"), uri()},
                                               {QStringLiteral("languageId"), QStringLiteral("zorva")},
                                               {QStringLiteral("version"), ++m_version},
                                               {QStringLiteral("text"), text}}}});
}

void ServerTalk::change(const QJsonArray& changes)
{
    tell("textDocument/didChange",
         {{QStringLiteral("textDocument"),
           QJsonObject{{QStringLiteral("uri"), uri()}, {QStringLiteral("version"), ++m_version}}},
          {QStringLiteral("contentChanges"), changes}});
}

QJsonArray ServerTalk::diagnostics()
{
    const auto latest = [this] {
        QJsonObject params;
        for (const QJsonObject& message : qAsConst(m_received)) {
            if (message.value(QStringLiteral("method")) == QStringLiteral("textDocument/publishDiagnostics"))
                params = message.value(QStringLiteral("params")).toObject();
        }
        return params;
    };
    const bool came = QTest::qWaitFor(
        [&] { return latest().value(QStringLiteral("version")).toInt() == m_version; }, 60000);
    return came ? latest().value(QStringLiteral("diagnostics")).toArray()
                : QJsonArray{QStringLiteral("no findings came")};
}

QJsonObject ServerTalk::position(int offset) const
{
    const QString before = m_text.left(offset);
    return {{QStringLiteral("line"), before.count(QLatin1Char('\n'))},
            {QStringLiteral("character"), offset - 1 - before.lastIndexOf(QLatin1Char('\n'))}};
}

int ServerTalk::offsetOf(const QJsonValue& position) const
{
    int offset = 0;
    for (int line = position.toObject().value(QStringLiteral("line")).toInt(); line > 0; --line)
        offset = m_text.indexOf(QLatin1Char('\n'), offset) + 1;
    return offset + position.toObject().value(QStringLiteral("character")).toInt();
}

QString ServerTalk::edited(const QJsonArray& edits) const
{
    QMap<int, QPair<int, QString>> byPlace;
    for (const QJsonValue& value : edits) {
        const QJsonObject range = value.toObject().value(QStringLiteral("range")).toObject();
        byPlace.insert(offsetOf(range.value(QStringLiteral("start"))),
                       {offsetOf(range.value(QStringLiteral("end"))),
                        value.toObject().value(QStringLiteral("newText")).toString()});
    }
    QString text = m_text;
    for (auto edit = byPlace.end(); edit != byPlace.begin();) {
        --edit;
        text.replace(edit.key(), edit->first - edit.key(), edit->second);
    }
    return text;
}

QJsonArray ServerTalk::editsOf(const QJsonValue& workspaceEdit)
{
    return workspaceEdit.toObject().value(QStringLiteral("changes")).toObject().value(uri()).toArray();
}

QString textOfMarkup(const QJsonValue& markup)
{
    return markup.isObject() ? markup.toObject().value(QStringLiteral("value")).toString()
                             : markup.toString();
}
