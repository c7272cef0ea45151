// A program with one window of zorva-rig, for tests that want a second one beside
// their own: it does what the lines of its standard input say and answers each
// with a line.
//
//   zorva-rig-otherprogram HOST:PORT

#include "operator.h"

#include <QApplication>
#include <QSocketNotifier>
#include <QTextStream>

#include <unistd.h>

namespace {

class Servant
{
public:
    explicit Servant(Operator& operatorAtWindow)
        : m_operator(operatorAtWindow)
    {
    }

    /** The answer to "verb argument rest". */
    QString obey(const QString& line)
    {
        const QString verb = line.section(QLatin1Char(' '), 0, 0);
        const QString name = line.section(QLatin1Char(' '), 1, 1);
        const QString rest = line.section(QLatin1Char(' '), 2);
        if (verb == QLatin1String("shown"))
            return m_operator.shown(name);
        if (verb == QLatin1String("state"))
            return hostkit::RowStates::word(m_operator.state(name));
        if (verb == QLatin1String("link"))
            return QString::number(static_cast<int>(m_operator.window->link().link().state()));
        if (verb == QLatin1String("seen"))
            return m_operator.seen(name).join(QLatin1Char(' '));
        if (verb == QLatin1String("watch"))
            m_operator.watch(name);
        else if (verb == QLatin1String("apply"))
            m_operator.apply();
        else if (verb == QLatin1String("quit"))
            QCoreApplication::quit();
        else if (verb == QLatin1String("type"))
            return answer(m_operator.type(name, rest));
        else if (verb == QLatin1String("enter"))
            return answer(m_operator.type(name, rest + QLatin1Char('\r')));
        else
            return answer(false);
        return answer(true);
    }

private:
    static QString answer(bool done) { return done ? QStringLiteral("done") : QStringLiteral("failed"); }

    Operator& m_operator;
};

} // namespace

int main(int argc, char* argv[])
{
    const QApplication application(argc, argv);
    Operator operatorAtWindow;
    const QString error = operatorAtWindow.prepare(QCoreApplication::arguments().value(1));
    QTextStream out(stdout);
    if (!error.isEmpty()) {
        out << error << '\n';
        return 1;
    }
    operatorAtWindow.show();
    operatorAtWindow.window->start();
    Servant servant(operatorAtWindow);
    QByteArray waiting;
    QSocketNotifier input(STDIN_FILENO, QSocketNotifier::Read);
    QObject::connect(&input, &QSocketNotifier::activated, &application, [&] {
        char bytes[1024];
        const ssize_t count = ::read(STDIN_FILENO, bytes, sizeof bytes);
        if (count <= 0)
            QCoreApplication::quit();
        waiting.append(bytes, static_cast<int>(qMax<ssize_t>(count, 0)));
        for (int end = waiting.indexOf('\n'); end >= 0; end = waiting.indexOf('\n')) {
            out << servant.obey(QString::fromUtf8(waiting.left(end))) << '\n';
            out.flush();
            waiting.remove(0, end + 1);
        }
    });
    QApplication::exec();
    return operatorAtWindow.leave(20000) ? 0 : 1;
}
