#ifndef ZORVA_TESTS_SERVERTALK_H
#define ZORVA_TESTS_SERVERTALK_H

#include <author/server/languageserver.h>

#include <QJsonArray>
#include <QJsonObject>

/// One editor and one language server in one process, speaking whole messages.
class ServerTalk
{
public:
    /// `pause` in milliseconds before a check.
    explicit ServerTalk(int pause = 0);

    /// Says hello with these capabilities; gives the server's.
    QJsonObject initialize(const QJsonObject& capabilities = QJsonObject());
    /// The whole answer, with "result" or "error"; empty if none comes.
    QJsonObject ask(const char* method, const QJsonValue& params = QJsonObject());
    /// The result of a request about a place in the document.
    QJsonValue askAt(const char* method, int offset, QJsonObject params = QJsonObject());
    void tell(const char* method, const QJsonObject& params = QJsonObject());
    void sendBytes(const QByteArray& bytes) { m_server.receive(bytes); }

    /// Opens the one document, or replaces it.
    void open(const QString& text);
    void change(const QJsonArray& changes);
    const QString& text() const { return m_text; }
    /// The findings of the document as it stands; waits for them.
    QJsonArray diagnostics();
    QJsonObject position(int offset) const;
    /// The text with "edits" (a list of TextEdit) applied to it.
    QString edited(const QJsonArray& edits) const;
    /// The edits of a workspace edit that are about the document.
    static QJsonArray editsOf(const QJsonValue& workspaceEdit);

    /// Everything that came, oldest first.
    const QList<QJsonObject>& received() const { return m_received; }
    /// The messages that bear this id.
    QList<QJsonObject> answersTo(const QJsonValue& id) const;
    bool isOver() const { return m_code >= 0; }
    int code() const { return m_code; }
    Orvane::Author::LanguageServer& server() { return m_server; }

    static QString uri();

private:
    static QByteArray framed(const QJsonObject& message);
    int offsetOf(const QJsonValue& position) const;

    Orvane::Author::MessageReader m_reader;
    QList<QJsonObject> m_received;
    QString m_text;
    int m_version = 0;
    int m_lastId = 0;
    int m_code = -1;
    Orvane::Author::LanguageServer m_server;
};

/// Markdown or plain text of a hover, a completion item's documentation and the like.
QString textOfMarkup(const QJsonValue& markup);

#endif
