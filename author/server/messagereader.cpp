#include "messagereader.h"

#include <QJsonDocument>
#include <QJsonObject>

namespace Orvane {
namespace Author {

namespace {

constexpr int longestHead = 1 << 16;
constexpr qint64 longestContent = qint64(1) << 28;

/** Where the empty line behind a head begins, and how long its mark is; -1 if it is not there yet. */
int endOfHead(const QByteArray& bytes, int from, int& markSize)
{
    const int strict = bytes.indexOf("\r\n\r\n", from);
    const int loose = bytes.indexOf("\n\n", from);
    const bool isLoose = loose >= 0 && (strict < 0 || loose < strict);
    markSize = isLoose ? 2 : 4;
    return isLoose ? loose : strict;
}

} // namespace

void MessageReader::feed(const QByteArray& bytes)
{
    m_bytes.remove(0, m_begin);
    m_begin = 0;
    m_bytes += bytes;
}

void MessageReader::giveUp(const char* problem)
{
    m_problem = QString::fromLatin1(problem);
    m_bytes.clear();
    m_begin = 0;
}

bool MessageReader::readHead()
{
    int markSize = 0;
    const int end = endOfHead(m_bytes, m_begin, markSize);
    if (end < 0) {
        if (m_bytes.size() - m_begin > longestHead)
            giveUp("the head of a message has no end");
        return false;
    }
    const QList<QByteArray> lines = m_bytes.mid(m_begin, end - m_begin).split('\n');
    m_begin = end + markSize;
    m_hasHead = true;
    m_length = -1;
    for (const QByteArray& line : lines) {
        const int colon = line.indexOf(':');
        if (colon < 0 || line.left(colon).trimmed().toLower() != "content-length")
            continue;
        bool ok = false;
        m_length = line.mid(colon + 1).trimmed().toLongLong(&ok);
        if (!ok || m_length < 0 || m_length > longestContent) {
            giveUp("the length of a message is none");
            return false;
        }
    }
    return true;
}

std::optional<QByteArray> MessageReader::next()
{
    if (!m_problem.isEmpty() || (!m_hasHead && !readHead()))
        return std::nullopt;
    if (m_length < 0) {
        m_hasHead = false;
        return QByteArray();
    }
    const int length = static_cast<int>(m_length);
    if (m_bytes.size() - m_begin < length)
        return std::nullopt;
    // Not null even if it is empty.
    const QByteArray content = length == 0 ? QByteArray("") : m_bytes.mid(m_begin, length);
    m_begin += length;
    m_hasHead = false;
    return content;
}

QByteArray framedMessage(const QJsonObject& message)
{
    const QByteArray content = QJsonDocument(message).toJson(QJsonDocument::Compact);
    return "Content-Length: " + QByteArray::number(content.size()) + "\r\n\r\n" + content;
}

} // namespace Author
} // namespace Orvane
