#include "surroundings.h"

#include <author/files/wholefile.h>
#include <author/live/language.h>
#include <shell/withoutdisplay.h>

#include <velkappstartup/translationcenter.h>

#include <QApplication>
#include <QFileInfo>
#include <QFont>
#include <QLocale>
#include <QLoggingCategory>
#include <QPalette>
#include <QStyle>
#include <QStyleFactory>
#include <QTemporaryDir>

static void initialiseFonts()
{
    Q_INIT_RESOURCE(pictures);
}

namespace Orvane {
namespace Author {

namespace {

const QColor darkWindow(0x2b, 0x2d, 0x30);
const QColor darkBase(0x1e, 0x1f, 0x22);
const QColor darkText(0xdf, 0xe1, 0xe5);
const QColor darkFaint(0x7a, 0x7e, 0x85);
const QColor darkHighlight(0x2e, 0x6f, 0xd0);

QPalette darkPalette()
{
    QPalette palette(darkText, darkWindow, darkWindow.lighter(150), darkWindow.darker(160),
                     darkWindow.darker(120), darkText, Qt::white, darkBase, darkWindow);
    palette.setColor(QPalette::Button, darkWindow.lighter(115));
    palette.setColor(QPalette::AlternateBase, darkWindow);
    palette.setColor(QPalette::ToolTipBase, darkWindow);
    palette.setColor(QPalette::ToolTipText, darkText);
    palette.setColor(QPalette::PlaceholderText, darkFaint);
    palette.setColor(QPalette::Highlight, darkHighlight);
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Link, darkHighlight.lighter(140));
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, darkFaint);
    return palette;
}

QString putOnStyle(const Look& look)
{
    QStyle* const style = QStyleFactory::create(look.style);
    if (!style)
        return QStringLiteral("there is no style \"%1\"; there is: %2")
            .arg(look.style, QStyleFactory::keys().join(QLatin1String(", ")));
    QApplication::setStyle(style); // which owns it
    QApplication::setPalette(look.dark ? darkPalette() : style->standardPalette());
    QFont font = QApplication::font();
    font.setPointSize(look.fontSize);
    QApplication::setFont(font);
    return QString();
}

QString putOnLanguage(const Look& look)
{
    const bool isFile = !look.form.isEmpty() && look.form != QLatin1String("-");
    const QStringList own = isFile ? QStringList(QFileInfo(look.form).absolutePath()) : QStringList();
    if (look.language.isEmpty()) {
        // Not that of the session either.
        QLocale::setDefault(QLocale::c());
        TranslationCenter::Instance().SetLocale(QLocale::c());
    }
    return speak(look.language, own + look.translationFolders);
}

} // namespace

void forgetDesktop()
{
    for (const char* name : {"QT_SCALE_FACTOR", "QT_SCREEN_SCALE_FACTORS", "QT_AUTO_SCREEN_SCALE_FACTOR",
                             "QT_ENABLE_HIGHDPI_SCALING"})
        qunsetenv(name);
    leaveDisplay();
    qputenv("QT_FONT_DPI", "96");
    // Remarks on what a platform without a screen cannot do.
    QLoggingCategory::setFilterRules(QStringLiteral("default.warning=false"));
}

BundledFonts::BundledFonts()
    : m_folder(new QTemporaryDir)
{
    initialiseFonts();
    if (!m_folder->isValid()) {
        m_problem = m_folder->errorString();
        return;
    }
    for (const char* const name : {"DejaVuSans.ttf", "DejaVuSans-Bold.ttf"}) {
        const QString file = QString::fromLatin1(name);
        if (!put(file, readWhole(QStringLiteral(":/author/fonts/") + file).bytes))
            return;
    }
    QByteArray settings = readWhole(QStringLiteral(":/author/fonts/fonts.conf")).bytes;
    settings.replace("@FOLDER@", m_folder->path().toUtf8());
    if (put(QStringLiteral("fonts.conf"), settings))
        qputenv("FONTCONFIG_FILE", m_folder->filePath(QStringLiteral("fonts.conf")).toLocal8Bit());
}

BundledFonts::~BundledFonts()
{
    delete m_folder;
}

bool BundledFonts::put(const QString& name, const QByteArray& bytes)
{
    m_problem = writeWhole(m_folder->filePath(name), bytes);
    return m_problem.isEmpty();
}

QString putOn(const Look& look)
{
    const QString problem = putOnStyle(look);
    return problem.isEmpty() ? putOnLanguage(look) : problem;
}

} // namespace Author
} // namespace Orvane
