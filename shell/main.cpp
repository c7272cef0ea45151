#include "commandline.h"
#include "console.h"
#include "debuggerplace.h"
#include "displaycheck.h"
#include "filewatch.h"
#include "shellmodule.h"
#include "terminationwatch.h"
#include "xmlfile.h"

#include <velkappstartup/translationcenter.h>
#include <velkappstartup/velkapplication.h>

#include <QApplication>
#include <QFileInfo>
#include <QLibraryInfo>
#include <QLocale>
#include <QTabWidget>
#include <QTimer>

#include <clocale>

namespace {

constexpr int timeForAPerson = 500; // milliseconds

QStringList argumentList(int argc, char** argv)
{
    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments.append(QString::fromLocal8Bit(argv[i]));
    return arguments;
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

/** Why the file holds nothing to show: its first mistake, or else @p otherwise. */
QString firstMistake(const QString& path, const QString& otherwise)
{
    const XmlFile file = readXmlFile(path);
    if (!file.wrongEncoding.isEmpty())
        return file.wrongEncoding;
    return file.wrongXml.isEmpty() ? otherwise : file.wrongXml;
}

QString noFormIn(const QString& path)
{
    return QStringLiteral("%1 holds no form: %2")
        .arg(path, firstMistake(path, QStringLiteral("there is no element KVParamGui in it")));
}

/** The module's start says nothing of its outcome, but a window stands for a form; empty if there is one. */
QString whyNothingIsShown(const CommandLine& line)
{
    const QWidget* window = visibleWindow();
    if (!window)
        return noFormIn(line.path);
    const auto* tabs = window->findChild<QTabWidget*>(QStringLiteral("ZorVaTest_TabWidget"));
    if (!namesForm(line.path) && tabs && tabs->count() == 0)
        return QStringLiteral("%1 is no component list, or there is no form in it (%2)")
            .arg(line.path, firstMistake(line.path, QStringLiteral("nothing else is wrong")));
    return QString();
}

/** A form is shown as far as its description can be read; says so if that is not to its end. */
void tellMistake(const CommandLine& line)
{
    const QString mistake = firstMistake(line.path, QString());
    if (!mistake.isEmpty())
        print(stderr,
              QStringLiteral("zorvashell: %1, %2; what stands before is shown\n").arg(line.path, mistake));
}

/** The texts of @p files; what is wrong with one of them goes to @p reason. */
QStringList textsOf(const QStringList& files, QString* reason)
{
    QStringList texts;
    for (const QString& path : files) {
        const QString unreadable = whyUnreadable(path);
        const XmlFile file = unreadable.isEmpty() ? readXmlFile(path) : XmlFile();
        for (const QString& mistake : {unreadable, file.wrongEncoding, file.wrongXml}) {
            if (reason->isEmpty() && !mistake.isEmpty())
                *reason = QStringLiteral("cannot read %1: %2").arg(path, mistake);
        }
        texts << file.text;
    }
    return texts;
}

/** What the module is to do with the form; what is wrong goes to @p reason. */
Orvane::FormShellOptions moduleOptions(const CommandLine& line, QString* reason)
{
    Orvane::FormShellOptions options;
    options.overlays = textsOf(line.overlays, reason);
    options.parameters = textsOf(line.parameters, reason);
    options.parameterFile = line.settings;
    options.storedAreRead = !line.fresh;
    return options;
}

bool isBusyWithAPerson()
{
    return QApplication::activeModalWidget() || QApplication::activePopupWidget();
}

/** Reads the form again; what is wrong with it is said, and what was shown stays. */
void reload(Orvane::FormShell* shell, const CommandLine& line)
{
    // A dialog or menu of the form has to end first.
    if (isBusyWithAPerson()) {
        QTimer::singleShot(timeForAPerson, qApp, [shell, &line] { reload(shell, line); });
        return;
    }
    QString reason;
    const Orvane::FormShellOptions options = moduleOptions(line, &reason);
    if (!reason.isEmpty()) {
        fail(reason);
        return;
    }
    shell->SetOptions(options);
    if (shell->Reload())
        tellMistake(line);
    else
        fail(noFormIn(line.path));
}

/** Makes the captions speak @p line's language; the reason if that cannot be, otherwise empty. */
QString chooseLanguage(const CommandLine& line)
{
    TranslationCenter& center = TranslationCenter::Instance();
    center.AddFolder(QLibraryInfo::location(QLibraryInfo::TranslationsPath));
    center.AddFolder(QApplication::applicationDirPath() + QStringLiteral("/" ZORVASHELL_TRANSLATIONS));
    for (const QString& folder : line.translationFolders) {
        if (!QFileInfo(folder).isDir())
            return QStringLiteral("there is no folder %1").arg(folder);
        center.AddFolder(folder);
    }
    if (!line.language.isEmpty()) {
        const QLocale locale(line.language);
        if (locale.language() == QLocale::C)
            return QStringLiteral("there is no language \"%1\"").arg(line.language);
        QLocale::setDefault(locale);
        center.SetLocale(locale);
    }
    // The words of Qt's dialogs, and those of the form.
    center.Register({QStringLiteral("qtbase"), QFileInfo(line.path).completeBaseName()});
    return QString();
}

int show(QApplication& application, const CommandLine& line)
{
    const VelkApplication host(moduleArguments(application.arguments().value(0), line));
    const TerminationWatch termination;
    QString failure = chooseLanguage(line);
    const Orvane::FormShellOptions options = moduleOptions(line, &failure);
    if (!failure.isEmpty())
        return fail(failure);
    const DebuggerPlace debuggerPlace; // which the module's forms leave behind
    ShellModule module;
    failure = module.Load();
    if (!failure.isEmpty())
        return fail(failure);

    Orvane::FormShell* const shell = module.Shell();
    if (shell)
        shell->SetOptions(options);
    // From before the form is read, so that no save is missed.
    const FileWatch watch(line.watch ? line.overlays + QStringList(line.path) : QStringList());
    QObject::connect(&watch, &FileWatch::changed, &application, [shell, &line] {
        if (shell)
            reload(shell, line);
    });
    module.Start();
    // A script that stops in the debugger runs an event loop of its own.
    if (termination.IsRequested())
        return 0;
    const QString reason = whyNothingIsShown(line);
    if (!reason.isEmpty())
        return fail(reason);
    tellMistake(line);
    if (visibleWindow()->windowTitle().isEmpty())
        visibleWindow()->setWindowTitle(QFileInfo(line.path).fileName());

    return QApplication::exec();
}

int showOnDisplay(int argc, char** argv, const CommandLine& line)
{
    const QString reason = whyUnreadable(line.path);
    if (!reason.isEmpty())
        return fail(QStringLiteral("cannot read %1: %2").arg(line.path, reason));
    // Nothing here is painted by OpenGL, and to load it takes half of the start and of the memory.
    if (qEnvironmentVariableIsEmpty("QT_XCB_GL_INTEGRATION"))
        qputenv("QT_XCB_GL_INTEGRATION", "none");
    DisplayCheck check(argumentList(argc, argv), fail);
    QApplication application(argc, argv);
    check.Pass();
    return show(application, line);
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
