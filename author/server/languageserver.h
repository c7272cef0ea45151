#ifndef ZORVA_AUTHOR_LANGUAGESERVER_H
#define ZORVA_AUTHOR_LANGUAGESERVER_H

#include "diagnoser.h"
#include "messagereader.h"
#include "opendocument.h"
#include "protocol.h"

#include <QHash>
#include <QObject>
#include <QTimer>

#include <deque>
#include <functional>

namespace Orvane {
namespace Author {

/**
 * Speaks the language server protocol (3.16) about form descriptions. Knows nothing of
 * where the bytes come from and go to. Requests are answered one after the other, in
 * order; findings come by themselves, a moment after the last change.
 */
class LanguageServer : public QObject
{
    Q_OBJECT

public:
    struct Settings
    {
        QString version;
        /** A program that serves scripts, with its arguments; empty leaves scripts unrun. */
        QString scriptProgram;
        QStringList scriptArguments;
        /** Milliseconds without a change until a document is checked. */
        int pause = 100;
    };
    /** Takes whole messages with their heads. */
    using Sink = std::function<void(const QByteArray&)>;
    /** Called once, with the exit code, when there is nothing more to do. */
    using End = std::function<void(int)>;

    LanguageServer(const Settings& settings, Sink sink, End end);

    void receive(const QByteArray& bytes);
    /** Nothing more will be received: what has come is worked off, and that is the end. */
    void endInput();
    /** Ends at once: nobody is there any more. */
    void abandon();
    /** Process of the editor, as it said itself; 0 if it did not. */
    qint64 clientProcess() const { return m_clientProcess; }

private:
    enum class State { New, Running, ShutDown, Over };
    struct OpenFile
    {
        OpenDocument document;
        int check = 0; // number of the check that is under way
        bool isChanged = false;
        Diagnoser::Result result; // of exactly this state; null before it is there
    };
    using Answer = Reply (LanguageServer::*)(const QJsonObject& params);
    using Listen = void (LanguageServer::*)(const QJsonObject& params);

    using AnswerIn = std::function<Reply(const OpenFile& file)>;

    static const QHash<QString, Answer>& answers();
    static const QHash<QString, Listen>& listeners();

    void accept(const QByteArray& content);
    void cancel(const QJsonValue& id);
    void takeTurn();
    void handle(const QJsonObject& message);
    Reply answer(const QString& method, const QJsonObject& params);
    void listen(const QString& method, const QJsonObject& params);
    void finish(int code);
    void send(const QJsonObject& message);
    void sendReply(const QJsonValue& id, const Reply& reply);
    void notify(const char* method, const QJsonObject& params);

    QJsonObject capabilities() const;
    Reply initialize(const QJsonObject& params);
    Reply shutdown(const QJsonObject& params);
    Reply codeAction(const QJsonObject& params);
    Reply completion(const QJsonObject& params);
    Reply definition(const QJsonObject& params);
    Reply documentHighlight(const QJsonObject& params);
    Reply documentSymbol(const QJsonObject& params);
    Reply foldingRange(const QJsonObject& params);
    Reply formatting(const QJsonObject& params);
    Reply hover(const QJsonObject& params);
    Reply prepareRename(const QJsonObject& params);
    Reply references(const QJsonObject& params);
    Reply rename(const QJsonObject& params);
    void exit(const QJsonObject& params);
    void didOpen(const QJsonObject& params);
    void didChange(const QJsonObject& params);
    void didClose(const QJsonObject& params);

    /** The answer about the document that a request names, and about the place in it. */
    Reply answerIn(const QJsonObject& params, const AnswerIn& answerInFile);
    /** The same with what @p find makes of the document and the offset that the editor asks about. */
    template <typename Find>
    Reply answerAt(const QJsonObject& params, Find find);
    OpenFile* findFile(const QJsonObject& params);
    void applyChange(OpenDocument& document, const QJsonObject& change);
    void checkChanged();
    void publish(const QString& uri, int number, const Diagnoser::Result& result);

    const Settings m_settings;
    const Sink m_sink;
    const End m_end;
    State m_state = State::New;
    bool m_isInputOver = false;
    qint64 m_clientProcess = 0;
    ClientAbilities m_abilities;
    MessageReader m_reader;
    std::deque<QJsonObject> m_messages;
    QTimer m_turn;                    // between two messages, so that a cancellation can overtake
    QTimer m_pause;                   // runs since the last change
    QHash<QString, OpenFile> m_files; // by URI
    Diagnoser m_diagnoser;
};

} // namespace Author
} // namespace Orvane

#endif
