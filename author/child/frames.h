#ifndef ZORVA_AUTHOR_FRAMES_H
#define ZORVA_AUTHOR_FRAMES_H

#include <QByteArray>
#include <QDataStream>
#include <QFile>

namespace Orvane {
namespace Author {

/** The bytes of what a message is to hold. */
template <typename... Parts>
QByteArray packed(const Parts&... parts)
{
    QByteArray content;
    QDataStream stream(&content, QIODevice::WriteOnly);
    (stream << ... << parts);
    return content;
}

/** Takes the parts out of a message again. */
template <typename... Parts>
void unpack(const QByteArray& content, Parts&... parts)
{
    QDataStream stream(content);
    (stream >> ... >> parts);
}

/** @p content as one message between two processes. */
QByteArray framed(const QByteArray& content);
/** True, and @p content taken from the front of @p bytes, if a whole message is there. */
bool takeFrame(QByteArray& bytes, QByteArray& content);

/**
 * The child's end of the talk with the program that started it: messages come by the standard
 * input and go by the standard output, which is closed to whatever else this process prints.
 */
class ParentLink
{
public:
    ParentLink();
    ParentLink(const ParentLink&) = delete;
    ParentLink& operator=(const ParentLink&) = delete;

    /** Waits for the next message; false if there will be none. */
    bool receive(QByteArray& content);
    void send(const QByteArray& content);

private:
    QFile m_input;
    QFile m_output;
    bool m_isOpen = false;
};

} // namespace Author
} // namespace Orvane

#endif
