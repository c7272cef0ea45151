#include "subcommand.h"
#include "terminal.h"

#include <author/picture/formstage.h>
#include <author/preview/previewwindow.h>

#include <QApplication>
#include <QCommandLineParser>
#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QIcon>
#include <QStyleFactory>
#include <QTimer>

using namespace Orvane::Author;

namespace {

QCommandLineOption valued(const char* name)
{
    return QCommandLineOption(QString::fromLatin1(name), QString(), QStringLiteral("VALUE"));
}

bool readNumber(const QString& text, int least, int most, int& number)
{
    bool ok = false;
    const int read = text.toInt(&ok);
    if (!ok || read < least || read > most)
        return false;
    number = read;
    return true;
}

/** What is wrong with the words; empty if all is well. */
QString read(const QStringList& words, PreviewOptions& options)
{
    QCommandLineParser parser;
    for (const char* const name : {"overlay", "width", "font", "language", "translations", "style"})
        parser.addOption(valued(name));
    for (const char* const name : {"dark", "rtl"})
        parser.addOption(QCommandLineOption(QString::fromLatin1(name)));
    if (!parser.parse(QStringList(QStringLiteral("zorva")) + words))
        return parser.errorText();
    const auto value = [&](const char* name) { return parser.value(QString::fromLatin1(name)); };
    const auto isSet = [&](const char* name) { return parser.isSet(QString::fromLatin1(name)); };
    const QStringList forms = parser.positionalArguments();
    if (forms.size() != 1)
        return forms.isEmpty() ? QStringLiteral("no form given") : QStringLiteral("one form at a time");
    options.file = forms.first();
    options.overlay = value("overlay");
    options.translationFolders = parser.values(QStringLiteral("translations"));
    options.look.language = value("language");
    options.look.style = value("style");
    options.look.isDark = isSet("dark");
    options.look.isRightToLeft = isSet("rtl");
    options.isLookGiven = isSet("language") || isSet("style") || isSet("dark");
    if (isSet("width") && !readNumber(value("width"), 1, FormStage::widest, options.look.width))
        return QStringLiteral("--width takes a whole number of pixels from 1 to %1").arg(FormStage::widest);
    if (isSet("font") &&
        !readNumber(value("font"), FormStage::smallestText, FormStage::largestText, options.look.textSize))
        return QStringLiteral("--font takes a whole number of points from %1 to %2")
            .arg(FormStage::smallestText)
            .arg(FormStage::largestText);
    return QString();
}

/** Why a file is nothing to watch; empty if it is. */
QString whyUnreadable(const QString& file)
{
    const QFileInfo info(file);
    if (!info.exists())
        return QStringLiteral("there is no such file");
    return info.isFile() ? QString() : QStringLiteral("it is no file");
}

/** For benches: appends to the file named by ZORVA_PREVIEW_TIMES when each form came up, in seconds. */
void tellTimes(const PreviewWindow& window)
{
    const QString path = qEnvironmentVariable("ZORVA_PREVIEW_TIMES");
    if (path.isEmpty())
        return;
    QObject::connect(&window, &PreviewWindow::reloaded, &window, [path] {
        // Once it is painted.
        QTimer::singleShot(0, qApp, [path] {
            QFile file(path);
            if (file.open(QIODevice::Append))
                file.write(QByteArray::number(static_cast<double>(QDateTime::currentMSecsSinceEpoch()) / 1000,
                                              'f', 3) +
                           '\n');
        });
    });
}

int run(const QStringList& words)
{
    PreviewOptions options;
    QString wrong = read(words, options);
    if (!wrong.isEmpty())
        return fail(QStringLiteral("preview: %1; see \"zorva preview --help\"").arg(wrong));
    for (const QString& file : {options.file, options.overlay}) {
        wrong = file.isEmpty() ? QString() : whyUnreadable(file);
        if (!wrong.isEmpty())
            return fail(QStringLiteral("preview: cannot read \"%1\": %2").arg(file, wrong));
    }
    if (!options.look.style.isEmpty() &&
        !QStyleFactory::keys().contains(options.look.style, Qt::CaseInsensitive))
        return fail(QStringLiteral("preview: there is no style \"%1\"; there is: %2")
                        .arg(options.look.style, QStyleFactory::keys().join(QLatin1String(", "))));
    options.scriptProgram = QCoreApplication::applicationFilePath();
    options.scriptArguments = QStringList{QLatin1String(serveScriptsCommand.name)};
    QApplication::setWindowIcon(QIcon::fromTheme(QStringLiteral("zorvashell")));
    PreviewWindow window(options);
    tellTimes(window);
    window.show();
    window.reload();
    return QApplication::exec();
}

} // namespace

const Subcommand previewCommand = {
    "preview",
    "shows a form, live, beside what its author wants to know",
    "Usage: zorva preview [OPTION...] FORM\n"
    "Shows a form, live, and takes up each change of its file in a moment; what was entered\n"
    "stays. Beside it: the problems that zorva check finds (Enter opens the editor at the\n"
    "line: $ZORVA_EDITOR, else $VISUAL, else the desktop's), values, parameter XML, what the\n"
    "script prints and throws, a simulated device, and what an overlay changes. A file\n"
    "that cannot be read leaves the last good form where it is.\n"
    "\n"
    "  --overlay FILE        try an overlay, and tell what it changes\n"
    "  --width W             in pixels; without it, as wide as the window leaves\n"
    "  --font PT             size of texts in points\n"
    "  --language L          in that language, as in de or de_CH: FORM_L.qm beside the form\n"
    "  --translations DIR    look for it there; may be repeated\n"
    "  --style S             a style of widgets\n"
    "  --dark                light on dark\n"
    "  --rtl                 from right to left\n"
    "\n"
    "Ends with 0 when the window is closed, 2 if there is nothing to show or no display.\n",
    Subcommand::Display,
    run,
};
