#include "displaycheck.h"

#include <QFileInfo>
#include <QRegularExpression>

#include <cstdio>
#include <cstdlib>
#include <utility>

namespace {

QtMessageHandler ordinaryHandler = nullptr;
QString wantedPlatform; // as the person named it; empty: Qt's choice
QString programName;
DisplayCheck::Fail failWith = nullptr;

/** The platforms in Qt's last words: "... Available platform plugins are: a, b, c." */
QStringList availablePlatforms(const QString& text)
{
    static const QRegularExpression list(QStringLiteral("platform plugins are: ([^.]*)\\."));
    return list.match(text).captured(1).split(QStringLiteral(", "), Qt::SkipEmptyParts);
}

QString whyThereIsNoWindow(const QString& lastWords)
{
    const QStringList available = availablePlatforms(lastWords);
    if (!wantedPlatform.isEmpty() && !available.isEmpty() && !available.contains(wantedPlatform))
        return QStringLiteral("there is no platform \"%1\" to show the window on; there are: %2")
            .arg(wantedPlatform, available.join(QStringLiteral(", ")));
    return QStringLiteral("no display to show the window on. Start it in a graphical session, or with\n"
                          "xvfb-run %1 ... (DISPLAY is \"%2\")")
        .arg(programName, qEnvironmentVariable("DISPLAY"));
}

/** Qt ends the process when it finds no display to work on: with a sentence instead of a core dump. */
void endWithoutDisplay(QtMsgType type, const QMessageLogContext& context, const QString& text)
{
    if (type != QtFatalMsg) {
        ordinaryHandler(type, context, text);
        return;
    }
    const int status = failWith(whyThereIsNoWindow(text));
    std::fflush(nullptr);
    std::_Exit(status);
}

/** The platform that Qt will be asked for: "name:arguments" on the command line, or in the environment. */
QString platformNamed(const QStringList& arguments)
{
    QString platform = qEnvironmentVariable("QT_QPA_PLATFORM");
    for (int i = 1; i + 1 < arguments.size(); ++i) {
        if (arguments.at(i) == QLatin1String("-platform") || arguments.at(i) == QLatin1String("--platform"))
            platform = arguments.at(i + 1);
    }
    return platform.section(QLatin1Char(':'), 0, 0);
}

} // namespace

DisplayCheck::DisplayCheck(const QStringList& arguments, Fail fail)
{
    failWith = fail;
    programName = QFileInfo(arguments.value(0)).fileName();
    wantedPlatform = platformNamed(arguments);
    ordinaryHandler = qInstallMessageHandler(endWithoutDisplay);
}

void DisplayCheck::Pass()
{
    if (ordinaryHandler)
        qInstallMessageHandler(std::exchange(ordinaryHandler, nullptr));
}
