#include "standardstreams.h"

#include <QCoreApplication>
#include <QSocketNotifier>

#include <array>
#include <cerrno>
#include <csignal>

#include <poll.h>
#include <unistd.h>

namespace Orvane {
namespace Author {

namespace {

constexpr int pieceSize = 1 << 16;
constexpr int lookAtClient = 2000; // milliseconds

/** False if nobody reads any more. */
bool writeAll(const QByteArray& bytes)
{
    int written = 0;
    while (written < bytes.size()) {
        const ssize_t count =
            ::write(STDOUT_FILENO, bytes.constData() + written, static_cast<size_t>(bytes.size() - written));
        if (count > 0) {
            written += static_cast<int>(count);
        } else if (errno == EAGAIN) {
            pollfd output{STDOUT_FILENO, POLLOUT, 0};
            ::poll(&output, 1, -1);
        } else if (errno != EINTR) {
            return false;
        }
    }
    return true;
}

/** True if there is input, or its end, which is an empty piece. */
bool readPiece(QByteArray& piece)
{
    std::array<char, pieceSize> bytes;
    const ssize_t count = ::read(STDIN_FILENO, bytes.data(), bytes.size());
    if (count < 0 && (errno == EAGAIN || errno == EINTR))
        return false;
    piece = QByteArray(bytes.data(), static_cast<int>(qMax<ssize_t>(count, 0)));
    return true;
}

bool isDead(qint64 process)
{
    return process > 0 && ::kill(static_cast<pid_t>(process), 0) != 0 && errno == ESRCH;
}

} // namespace

int serveStandardStreams(const LanguageServer::Settings& settings)
{
    // An editor that dies while it is written to is no reason to die of a signal.
    std::signal(SIGPIPE, SIG_IGN);
    LanguageServer* served = nullptr;
    bool isHeard = true;
    LanguageServer server(
        settings,
        [&](const QByteArray& message) {
            if (!isHeard)
                return;
            isHeard = writeAll(message);
            if (!isHeard)
                QMetaObject::invokeMethod(
                    served, [&served] { served->abandon(); }, Qt::QueuedConnection);
        },
        [](int code) { QCoreApplication::exit(code); });
    served = &server;

    QSocketNotifier input(STDIN_FILENO, QSocketNotifier::Read);
    QObject::connect(&input, &QSocketNotifier::activated, &server, [&] {
        QByteArray piece;
        if (!readPiece(piece))
            return;
        if (!piece.isEmpty()) {
            server.receive(piece);
            return;
        }
        input.setEnabled(false);
        server.endInput();
    });
    QTimer life;
    QObject::connect(&life, &QTimer::timeout, &server, [&server] {
        if (isDead(server.clientProcess()))
            server.abandon();
    });
    life.start(lookAtClient);
    return QCoreApplication::exec();
}

} // namespace Author
} // namespace Orvane
