#ifndef ZORVA_AUTHOR_MESSAGEREADER_H
#define ZORVA_AUTHOR_MESSAGEREADER_H

#include <QByteArray>
#include <QString>

#include <optional>

class QJsonObject;

namespace Orvane {
namespace Author {

/**
 * Takes messages out of a stream of bytes that comes in pieces: a head of lines like
 * "Content-Length: 42", an empty line, and that many bytes of content.
 */
class MessageReader
{
public:
    void feed(const QByteArray& bytes);
    /** The content of the next whole message. One whose head tells no length has a null content. */
    std::optional<QByteArray> next();
    /** What made it impossible to find any further message; empty as long as nothing did. */
    const QString& problem() const { return m_problem; }

private:
    bool readHead();
    void giveUp(const char* problem);

    QByteArray m_bytes;
    int m_begin = 0;      // what is before it has been taken
    qint64 m_length = -1; // of the content that is awaited
    bool m_hasHead = false;
    QString m_problem;
};

/** A message as it goes onto the stream. */
QByteArray framedMessage(const QJsonObject& message);

} // namespace Author
} // namespace Orvane

#endif
