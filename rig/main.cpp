// zorva-rig: a radio behind a form.

#include "commandline.h"
#include "formwriter.h"
#include "models.h"
#include "session.h"
#include "window.h"

#include <hostkit/settingsstore.h>
#include <shell/withoutdisplay.h>

#include <QApplication>
#include <QFile>
#include <QTextStream>
#include <QTimer>

#include <cstdlib>

namespace {

using radio::CommandLine;

/** Milliseconds that a call may hang before --save gives up. */
constexpr int longestWait = 4000;

enum ExitCode { Success = 0, Failure = 1, Usage = 2 };

int complain(const QString& what, ExitCode code)
{
    QTextStream(stderr) << "zorva-rig: " << what << '\n';
    return code;
}

int list(const QString& pattern)
{
    const QList<radio::Model> found = radio::models(pattern);
    QTextStream out(stdout);
    for (const radio::Model& model : found)
        out << QStringLiteral("%1  %2  %3  %4\n")
                   .arg(model.number, 6)
                   .arg(model.maker, -22)
                   .arg(model.name, -28)
                   .arg(model.status);
    return found.isEmpty() ? complain(QStringLiteral("no model matches %1").arg(pattern), Failure) : Success;
}

int writeText(const QString& fileName, const QString& text)
{
    QString error;
    if (fileName == QLatin1String("-")) {
        QFile out;
        const QByteArray bytes = text.toUtf8();
        const bool written =
            out.open(stdout, QIODevice::WriteOnly) && out.write(bytes) == bytes.size() && out.flush();
        return written ? Success
                       : complain(QStringLiteral("standard output: %1").arg(out.errorString()), Failure);
    }
    return hostkit::saveText(fileName, text, &error)
               ? Success
               : complain(QStringLiteral("%1: %2").arg(fileName, error), Failure);
}

int writeForm(const CommandLine& commandLine)
{
    radio::Model model;
    if (!radio::findModel(commandLine.model, &model))
        return complain(QStringLiteral("Hamlib has no model %1").arg(commandLine.model), Failure);
    return writeText(commandLine.output, radio::formFor(model));
}

/** Ends the program although a call hangs in a thread: nothing is left to be cleaned up. */
int finish(radio::Window& window, int code)
{
    if (!window.stop())
        std::_Exit(code);
    return code;
}

/** Reads the radio once and stores what it said; a radio that does not answer is no reason to wait for ever.
 */
int save(const CommandLine& commandLine, radio::Window& window)
{
    int code = Failure;
    QTimer patience;
    patience.setSingleShot(true);
    patience.setInterval(longestWait);
    const auto giveUp = [&window] {
        const hostkit::DeviceLink& link = window.link().link();
        const bool isDown = link.state() == hostkit::LinkState::Down;
        complain(isDown ? QStringLiteral("no radio: %1").arg(link.reason())
                        : QStringLiteral("the radio does not answer"),
                 Failure);
        QCoreApplication::exit();
    };
    QObject::connect(&patience, &QTimer::timeout, giveUp);
    QObject::connect(&window.link(), &hostkit::FormLink::readAll, &patience, [&] {
        code = writeText(commandLine.output, window.link().settings() + QLatin1Char('\n'));
        QCoreApplication::exit();
    });
    QObject::connect(&window.link().link(), &hostkit::DeviceLink::stateChanged, &patience,
                     [&](hostkit::LinkState state) {
                         if (state == hostkit::LinkState::Down)
                             giveUp();
                         else if (state == hostkit::LinkState::Slow)
                             patience.start();
                         else
                             patience.stop();
                     });
    window.start();
    QApplication::exec();
    return code;
}

int operate(const CommandLine& commandLine)
{
    radio::Session session;
    QString error;
    if (!session.prepare(commandLine, &error))
        return complain(error, Failure);
    if (!session.damage.isEmpty())
        complain(session.damage, Success);
    QString settings;
    if (!commandLine.restore.isEmpty() && !hostkit::loadText(commandLine.restore, &settings, &error))
        return complain(QStringLiteral("%1: %2").arg(commandLine.restore, error), Failure);
    radio::Window window(session.model.title(), session.form, session.device);
    if (commandLine.task == CommandLine::Save)
        return finish(window, save(commandLine, window));
    if (!commandLine.restore.isEmpty())
        window.restore(commandLine.restore);
    window.show();
    window.start();
    return finish(window, QApplication::exec());
}

int run(const CommandLine& commandLine)
{
    switch (commandLine.task) {
    case CommandLine::Help:
        QTextStream(stdout) << CommandLine::help();
        return Success;
    case CommandLine::Version:
        QTextStream(stdout) << "zorva-rig " << ZORVA_RIG_VERSION << " (" << hamlib_version << ")\n";
        return Success;
    case CommandLine::List:
        return list(commandLine.pattern);
    case CommandLine::WriteForm:
        return writeForm(commandLine);
    case CommandLine::Save:
    case CommandLine::Operate:
        break;
    }
    return operate(commandLine);
}

} // namespace

int main(int argc, char* argv[])
{
    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments.append(QString::fromLocal8Bit(argv[i]));
    CommandLine commandLine;
    QString error;
    if (!CommandLine::parse(arguments, &commandLine, &error))
        return complain(error + QStringLiteral("\nTry zorva-rig --help."), Usage);
    // Without a window there is no need of a display.
    if (commandLine.task != CommandLine::Operate && qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        leaveDisplay();
    const QApplication application(argc, argv);
    return run(commandLine);
}
