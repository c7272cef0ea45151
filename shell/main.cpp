#include "commandline.h"
#include "shellmodule.h"
#include "terminationwatch.h"

#include <velkappstartup/velkapplication.h>

#include <QApplication>
#include <QFileInfo>
#include <QTabWidget>

#include <clocale>
#include <cstdio>
#include <cstdlib>

namespace {

constexpr int nothingToShow = 1;
constexpr int wrongCommandLine = 2;

void print(FILE* stream, const QString& text)
{
    std::fputs(text.toLocal8Bit().constData(), stream);
}

int fail(const QString& message)
{
    print(stderr, QStringLiteral("zorvashell: %1\n").arg(message));
    return nothingToShow;
}

QtMessageHandler ordinaryHandler = nullptr;

/** Qt ends the process when it finds no display to work on: with a sentence instead of a core dump. */
void endWithoutDisplay(QtMsgType type, const QMessageLogContext& context, const QString& text)
{
    if (type != QtFatalMsg) {
        ordinaryHandler(type, context, text);
        return;
    }
    fail(QStringLiteral("no display to show the window on. Start it in a graphical session, or with\n"
                        "xvfb-run zorvashell ... (DISPLAY is \"%1\")")
             .arg(qEnvironmentVariable("DISPLAY")));
    std::fflush(nullptr);
    std::_Exit(nothingToShow);
}

/** The arguments as the module counts them: the path is the fifth. */
QStringList moduleArguments(const QString& program, const CommandLine& line)
{
    QStringList arguments = {program, QStringLiteral("-module"), QStringLiteral("zorvaparser"),
                             QStringLiteral("ZorvaTest"), line.path};
    if (!line.option.isEmpty())
        arguments.append(line.option);
    return arguments;
}

QWidget* visibleWindow()
{
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget* window : windows) {
        if (window->isVisible())
            return window;
    }
    return nullptr;
}

/** The module's start says nothing of its outcome, but a window stands for a form; empty if there is one. */
QString whyNothingIsShown(const CommandLine& line)
{
    const QWidget* window = visibleWindow();
    if (!window)
        return QStringLiteral("%1 holds no form: there is no element KVParamGui in it").arg(line.path);
    const auto* tabs = window->findChild<QTabWidget*>(QStringLiteral("ZorVaTest_TabWidget"));
    if (!namesForm(line.path) && tabs && tabs->count() == 0)
        return QStringLiteral("%1 is no component list, or there is no form in it").arg(line.path);
    return QString();
}

int show(QApplication& application, const CommandLine& line)
{
    const VelkApplication host(moduleArguments(application.arguments().value(0), line));
    const TerminationWatch termination;
    ShellModule module;
    const QString failure = module.Load();
    if (!failure.isEmpty())
        return fail(failure);

    module.Start();
    // A script that stops in the debugger runs an event loop of its own.
    if (termination.IsRequested())
        return 0;
    const QString reason = whyNothingIsShown(line);
    if (!reason.isEmpty())
        return fail(reason);
    if (visibleWindow()->windowTitle().isEmpty())
        visibleWindow()->setWindowTitle(QFileInfo(line.path).fileName());
    return QApplication::exec();
}

int showOnDisplay(int argc, char** argv, const CommandLine& line)
{
    const QString reason = whyUnreadable(line.path);
    if (!reason.isEmpty())
        return fail(QStringLiteral("cannot read %1: %2").arg(line.path, reason));
    ordinaryHandler = qInstallMessageHandler(endWithoutDisplay);
    QApplication application(argc, argv);
    qInstallMessageHandler(ordinaryHandler);
    return show(application, line);
}

QStringList argumentList(int argc, char** argv)
{
    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments.append(QString::fromLocal8Bit(argv[i]));
    return arguments;
}

} // namespace

int main(int argc, char** argv)
{
    // File names are decoded before the application object sets this.
    std::setlocale(LC_ALL, "");
    const CommandLine line = readCommandLine(argumentList(argc, argv));
    switch (line.request) {
    case CommandLine::Request::Help:
        print(stdout, usageText());
        return 0;
    case CommandLine::Request::Version:
        print(stdout, QStringLiteral("zorvashell " ZORVASHELL_VERSION "\n"));
        return 0;
    case CommandLine::Request::Mistake:
        fail(QStringLiteral("%1\n\n%2").arg(line.mistake, usageText().trimmed()));
        return wrongCommandLine;
    case CommandLine::Request::Show:
        break;
    }
    return showOnDisplay(argc, argv, line);
}
