#include "rigctlddevice.h"

#include <QDeadlineTimer>

#include <cerrno>
#include <cstring>
#include <memory>

#include <fcntl.h>
#include <netdb.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

namespace radio {

using hostkit::Answer;

namespace {

// No answer of the daemon comes near; who sends more is no rigctld.
constexpr int longestLine = 65536;
constexpr int mostLines = 4096;

QString systemWords(int code)
{
    return QString::fromLocal8Bit(std::strerror(code));
}

/** The daemon's words for a call, without arguments. */
QString commandOf(const Parameter& parameter)
{
    switch (parameter.call) {
    case Call::Frequency:
        return QStringLiteral("freq");
    case Call::Mode:
    case Call::Passband:
        return QStringLiteral("mode");
    case Call::Vfo:
        return QStringLiteral("vfo");
    case Call::TuningStep:
        return QStringLiteral("ts");
    case Call::Rit:
        return QStringLiteral("rit");
    case Call::Xit:
        return QStringLiteral("xit");
    case Call::RepeaterShift:
        return QStringLiteral("rptr_shift");
    case Call::RepeaterOffset:
        return QStringLiteral("rptr_offs");
    case Call::Antenna:
        return QStringLiteral("ant");
    case Call::Split:
        return QStringLiteral("split_vfo");
    case Call::TransmitFrequency:
        return QStringLiteral("split_freq");
    case Call::TransmitMode:
        return QStringLiteral("split_mode");
    case Call::CtcssTone:
        return QStringLiteral("ctcss_tone");
    case Call::CtcssSquelch:
        return QStringLiteral("ctcss_sql");
    case Call::DcsCode:
        return QStringLiteral("dcs_code");
    case Call::DcsSquelch:
        return QStringLiteral("dcs_sql");
    case Call::Level:
        return QStringLiteral("level ") + parameter.word;
    case Call::Function:
        return QStringLiteral("func ") + parameter.word;
    case Call::Setting:
        return QStringLiteral("parm ") + parameter.word;
    }
    return QString();
}

/** "VFOA" of "VFO: VFOA". */
QString valueOf(const QString& line)
{
    const int colon = line.indexOf(QLatin1String(": "));
    return (colon < 0 ? line : line.mid(colon + 2)).trimmed();
}

QString errorWords(int code)
{
    return QString::fromLocal8Bit(rigerror2(code)).section(QLatin1Char('\n'), 0, 0).trimmed();
}

} // namespace

bool Endpoint::parse(const QString& text, Endpoint* endpoint)
{
    Endpoint result;
    const int bracket = text.lastIndexOf(QLatin1Char(']'));
    const int colon = text.lastIndexOf(QLatin1Char(':'));
    QString host = text;
    if (colon > bracket) {
        bool ok = false;
        result.port = text.mid(colon + 1).toUShort(&ok);
        if (!ok || result.port == 0)
            return false;
        host = text.left(colon);
    }
    if (host.startsWith(QLatin1Char('[')) && host.endsWith(QLatin1Char(']')))
        host = host.mid(1, host.size() - 2);
    if (!host.isEmpty())
        result.host = host;
    if (text.isEmpty())
        return false;
    *endpoint = result;
    return true;
}

RigctldConnection::RigctldConnection()
{
    int ends[2] = {-1, -1};
    if (::pipe2(ends, O_CLOEXEC | O_NONBLOCK) == 0) {
        m_wakeRead = ends[0];
        m_wakeWrite = ends[1];
    }
}

RigctldConnection::~RigctldConnection()
{
    close();
    for (const int end : {m_wakeRead, m_wakeWrite}) {
        if (end >= 0)
            ::close(end);
    }
}

bool RigctldConnection::fail(const QString& why)
{
    m_error = why;
    return false;
}

void RigctldConnection::interrupt()
{
    m_interrupted = true;
    const char byte = 0;
    // A full pipe has woken the other side already.
    if (::write(m_wakeWrite, &byte, 1) < 0)
        return;
}

bool RigctldConnection::waitFor(short events)
{
    const QDeadlineTimer deadline(m_patience);
    while (!m_interrupted) {
        pollfd watched[2] = {{m_socket, events, 0}, {m_wakeRead, POLLIN, 0}};
        const int count = ::poll(watched, 2, static_cast<int>(deadline.remainingTime()));
        if (count < 0 && errno != EINTR)
            return fail(systemWords(errno));
        if (count > 0 && watched[0].revents)
            return true;
        if (deadline.hasExpired())
            return fail(QStringLiteral("no answer within %1 s").arg(m_patience / 1000.0));
    }
    return fail(QStringLiteral("interrupted"));
}

bool RigctldConnection::open(const Endpoint& endpoint, int patience)
{
    close();
    m_patience = patience;
    if (m_interrupted)
        return fail(QStringLiteral("interrupted"));
    addrinfo hints = {};
    hints.ai_family = AF_UNSPEC;
    hints.ai_socktype = SOCK_STREAM;
    addrinfo* found = nullptr;
    const int result = ::getaddrinfo(endpoint.host.toLocal8Bit().constData(),
                                     QByteArray::number(endpoint.port).constData(), &hints, &found);
    if (result != 0)
        return fail(QString::fromLocal8Bit(::gai_strerror(result)));
    const std::unique_ptr<addrinfo, decltype(&::freeaddrinfo)> owner(found, ::freeaddrinfo);
    for (const addrinfo* address = found; address; address = address->ai_next) {
        m_socket = ::socket(address->ai_family, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
        if (m_socket >= 0 && connectTo(m_socket, address->ai_addr, address->ai_addrlen))
            return true;
        close();
    }
    return false;
}

bool RigctldConnection::connectTo(int socket, const void* address, unsigned length)
{
    if (::connect(socket, static_cast<const sockaddr*>(address), length) != 0) {
        if (errno != EINPROGRESS)
            return fail(systemWords(errno));
        if (!waitFor(POLLOUT))
            return false;
    }
    int code = 0;
    socklen_t size = sizeof code;
    if (::getsockopt(socket, SOL_SOCKET, SO_ERROR, &code, &size) != 0 || code != 0)
        return fail(systemWords(code != 0 ? code : errno));
    const int now = 1;
    ::setsockopt(socket, IPPROTO_TCP, TCP_NODELAY, &now, sizeof now);
    return true;
}

void RigctldConnection::close()
{
    if (m_socket >= 0)
        ::close(m_socket);
    m_socket = -1;
    m_buffer.clear();
}

bool RigctldConnection::send(const QByteArray& line)
{
    QByteArray rest = line + '\n';
    while (!rest.isEmpty()) {
        if (!waitFor(POLLOUT))
            return false;
        const ssize_t sent =
            ::send(m_socket, rest.constData(), static_cast<size_t>(rest.size()), MSG_NOSIGNAL);
        if (sent < 0 && errno != EAGAIN && errno != EINTR)
            return fail(systemWords(errno));
        rest.remove(0, static_cast<int>(qMax<ssize_t>(sent, 0)));
    }
    return true;
}

bool RigctldConnection::receive(QByteArray* line)
{
    int end = -1;
    while ((end = m_buffer.indexOf('\n')) < 0) {
        if (m_buffer.size() > longestLine)
            return fail(QStringLiteral("no rigctld: an endless line"));
        if (!waitFor(POLLIN))
            return false;
        char bytes[4096];
        const ssize_t count = ::recv(m_socket, bytes, sizeof bytes, 0);
        if (count == 0)
            return fail(QStringLiteral("the daemon has closed the connection"));
        if (count < 0 && errno != EAGAIN && errno != EINTR)
            return fail(systemWords(errno));
        m_buffer.append(bytes, static_cast<int>(qMax<ssize_t>(count, 0)));
    }
    *line = m_buffer.left(end);
    m_buffer.remove(0, end + 1);
    if (line->endsWith('\r'))
        line->chop(1);
    return true;
}

RigctldDevice::RigctldDevice(const Endpoint& endpoint, const QList<Parameter>& parameters, int patience)
    : RigDevice(parameters)
    , m_endpoint(endpoint)
    , m_patience(patience)
{
}

Answer RigctldDevice::open()
{
    return m_connection.open(m_endpoint, m_patience) ? Answer::done() : Answer::lost(m_connection.error());
}

void RigctldDevice::close()
{
    m_connection.close();
}

void RigctldDevice::interrupt()
{
    m_connection.interrupt();
}

// An answer is "get_level: AF", its lines, and "RPRT" with the result.
Answer RigctldDevice::ask(const QString& command, QStringList* lines)
{
    const QByteArray bytes = command.toLatin1();
    QByteArray line;
    if (!m_connection.send("+\\" + bytes) || !m_connection.receive(&line))
        return Answer::lost(m_connection.error());
    const int blank = bytes.indexOf(' ');
    const QByteArray name = bytes.left(blank < 0 ? bytes.size() : blank);
    const QByteArray arguments = blank < 0 ? QByteArray() : bytes.mid(blank + 1);
    QByteArray echo = name + ':';
    if (!arguments.isEmpty())
        echo += ' ' + arguments;
    if (line.trimmed() != echo)
        return Answer::lost(QStringLiteral("an answer to something else: ") +
                            QString::fromLatin1(line.left(80)));
    for (int count = 0; count < mostLines; ++count) {
        if (!m_connection.receive(&line))
            return Answer::lost(m_connection.error());
        if (line.startsWith("RPRT ")) {
            const int code = line.mid(5).toInt();
            return code == 0 ? Answer::done() : Answer::refused(errorWords(code));
        }
        lines->append(QString::fromLatin1(line));
    }
    return Answer::lost(QStringLiteral("no rigctld: an endless answer"));
}

Answer RigctldDevice::get(const Parameter& parameter)
{
    QStringList lines;
    QString command = QStringLiteral("get_") + commandOf(parameter);
    if (parameter.call == Call::Antenna)
        command += QLatin1String(" 0");
    const Answer answer = ask(command, &lines);
    if (answer.outcome != Answer::Done)
        return answer;
    if (lines.isEmpty())
        return Answer::refused(QStringLiteral("an empty answer"));
    QString text = valueOf(lines.first());
    if (parameter.isMode() || parameter.call == Call::Split)
        text += QLatin1Char(' ') + valueOf(lines.value(1));
    if (parameter.call == Call::Antenna) {
        const int number = text.midRef(3).toInt(); // of "ANT2"
        text = number > 0 ? QString::number(number) : QString();
    }
    return Answer::done(text);
}

Answer RigctldDevice::set(const Parameter& parameter, const QString& text)
{
    QStringList lines;
    QString command = QStringLiteral("set_%1 %2").arg(commandOf(parameter), text);
    if (parameter.call == Call::Antenna)
        command += QLatin1String(" 0");
    return ask(command, &lines);
}

rig_model_t RigctldDevice::modelAt(const Endpoint& endpoint, int patience, QString* error)
{
    RigctldConnection connection;
    QByteArray protocol;
    QByteArray model;
    if (!connection.open(endpoint, patience) || !connection.send("\\dump_state") ||
        !connection.receive(&protocol) || !connection.receive(&model)) {
        *error = connection.error();
        return 0;
    }
    const rig_model_t number = model.toUInt();
    if (number == 0)
        *error = QStringLiteral("no rigctld: ") + QString::fromLatin1(model.left(80));
    return number;
}

} // namespace radio
