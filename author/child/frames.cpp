#include "frames.h"

#include <cstdio>

#ifdef Q_OS_UNIX
#include <fcntl.h>
#include <unistd.h>
#endif

namespace Orvane {
namespace Author {

namespace {

constexpr quint32 largest = quint32(1) << 30; // bytes of one message
constexpr int head = static_cast<int>(sizeof(quint32));

} // namespace

QByteArray framed(const QByteArray& content)
{
    return packed(content);
}

bool takeFrame(QByteArray& bytes, QByteArray& content)
{
    if (bytes.size() < head)
        return false;
    quint32 size = 0;
    QDataStream(bytes) >> size;
    if (size > largest || bytes.size() - head < static_cast<int>(size))
        return false;
    content = bytes.mid(head, static_cast<int>(size));
    bytes.remove(0, head + static_cast<int>(size));
    return true;
}

ParentLink::ParentLink()
{
#ifdef Q_OS_UNIX
    const int answers = dup(STDOUT_FILENO);
    const int nowhere = ::open("/dev/null", O_WRONLY);
    dup2(nowhere, STDOUT_FILENO);
    close(nowhere);
    m_isOpen =
        m_input.open(STDIN_FILENO, QIODevice::ReadOnly | QIODevice::Unbuffered) &&
        m_output.open(answers, QIODevice::WriteOnly | QIODevice::Unbuffered, QFileDevice::AutoCloseHandle);
#else
    m_isOpen = m_input.open(stdin, QIODevice::ReadOnly) && m_output.open(stdout, QIODevice::WriteOnly);
#endif
}

bool ParentLink::receive(QByteArray& content)
{
    QByteArray bytes;
    int wanted = head;
    while (m_isOpen && bytes.size() < wanted) {
        const QByteArray piece = m_input.read(wanted - bytes.size());
        if (piece.isEmpty())
            return false;
        bytes += piece;
        if (bytes.size() == head) {
            quint32 size = 0;
            QDataStream(bytes) >> size;
            wanted = size > largest ? head : head + static_cast<int>(size);
        }
    }
    return m_isOpen && takeFrame(bytes, content);
}

void ParentLink::send(const QByteArray& content)
{
    m_output.write(framed(content));
}

} // namespace Author
} // namespace Orvane
