#include "language.h"

#include <velkappstartup/translationcenter.h>

#include <QCoreApplication>
#include <QFileInfo>

namespace Orvane {
namespace Author {

QString speak(const QString& language, const QStringList& folders)
{
    TranslationCenter& center = TranslationCenter::Instance();
    center.AddFolder(QCoreApplication::applicationDirPath() + QStringLiteral("/" ZORVA_TRANSLATIONS));
    for (const QString& folder : folders) {
        if (!QFileInfo(folder).isDir())
            return QStringLiteral("there is no folder \"%1\"").arg(folder);
        center.AddFolder(folder);
    }
    if (language.isEmpty())
        return QString();
    const QLocale locale(language);
    if (locale.language() == QLocale::C)
        return QStringLiteral("there is no language \"%1\"").arg(language);
    QLocale::setDefault(locale);
    center.SetLocale(locale);
    return QString();
}

} // namespace Author
} // namespace Orvane
