#include "iconfile_p.h"

#include <zorvaparser/bounds_p.h>

#include <QFile>
#include <QFileInfo>
#include <QImageReader>
#include <QRegularExpression>
#include <QSize>

namespace Orvane {

namespace {

/**
 * Whether @p path is a drawing that names images of its own: they would be opened
 * whatever they are. A compressed one does not tell.
 */
bool mayNameFurtherFiles(const QString& path)
{
    static const QRegularExpression reference(
        QStringLiteral("<!ENTITY|<[\\w:]*image\\b[^>]*href\\s*=\\s*[\"']\\s*(?!data:)"));
    const bool isDrawing = path.contains(QLatin1String(".svg"), Qt::CaseInsensitive) ||
                           QImageReader(path).format().startsWith("svg");
    QFile file(path);
    if (!isDrawing || !file.open(QIODevice::ReadOnly))
        return false;
    const QByteArray content = file.readAll();
    return content.startsWith("\x1f\x8b") || QString::fromUtf8(content).contains(reference);
}

} // namespace

QIcon iconFromFile(const QString& path)
{
    const QFileInfo info(path);
    if (!info.isFile() || info.size() > largestImageFile || mayNameFurtherFiles(path))
        return QIcon();
    const QSize size = QImageReader(path).size();
    const bool isTooLarge = size.width() > largestImage || size.height() > largestImage;
    return isTooLarge ? QIcon() : QIcon(path);
}

QVariant boundedIconSize(const QVariant& size)
{
    if (size.userType() != QMetaType::QSize)
        return size;
    return size.toSize().boundedTo(QSize(largestIcon, largestIcon));
}

} // namespace Orvane
