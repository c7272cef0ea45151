#include "wholefile.h"

#include <hostkit/settingsstore.h>

#include <QFile>
#include <QFileInfo>

#include <cstdio>

namespace Orvane {
namespace Author {

namespace {

/** All that comes, but of what is too large only so much that it shows. */
QByteArray readBounded(QIODevice& device)
{
    constexpr int piece = 1 << 16;
    QByteArray bytes;
    while (bytes.size() <= largestFile) {
        const QByteArray more = device.read(piece);
        if (more.isEmpty())
            break;
        bytes += more;
    }
    return bytes;
}

QString tooLarge()
{
    return QStringLiteral("it is larger than %1 MB").arg(largestFile >> 20);
}

} // namespace

FileContent readWhole(const QString& path)
{
    FileContent content;
    const bool isInput = path == QLatin1String("-");
    content.name = isInput ? QStringLiteral("standard input") : path;
    QFile file(path);
    const bool isOpen = isInput ? file.open(stdin, QIODevice::ReadOnly) : file.open(QIODevice::ReadOnly);
    if (isOpen)
        content.bytes = readBounded(file);
    if (content.bytes.size() > largestFile)
        return {content.name, QByteArray(), tooLarge()};
    if (!isOpen || file.error() != QFileDevice::NoError)
        content.problem = QFileInfo(path).isDir() ? QStringLiteral("it is a folder") : file.errorString();
    return content;
}

FileContent readStored(const QString& path)
{
    const QFileInfo info(path);
    const bool isOdd = info.exists() && !info.isFile() && !info.isDir();
    return isOdd ? FileContent{path, QByteArray(), QStringLiteral("it is no file")} : readWhole(path);
}

QString writeWhole(const QString& path, const QByteArray& bytes)
{
    QString problem;
    hostkit::saveBytes(path, bytes, &problem);
    return problem;
}

} // namespace Author
} // namespace Orvane
