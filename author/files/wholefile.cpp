#include "wholefile.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <cstdio>

namespace Orvane {
namespace Author {

FileContent readWhole(const QString& path)
{
    FileContent content;
    const bool isInput = path == QLatin1String("-");
    content.name = isInput ? QStringLiteral("standard input") : path;
    QFile file(path);
    const bool isOpen = isInput ? file.open(stdin, QIODevice::ReadOnly) : file.open(QIODevice::ReadOnly);
    if (isOpen)
        content.bytes = file.readAll();
    if (!isOpen || file.error() != QFileDevice::NoError)
        content.problem = QFileInfo(path).isDir() ? QStringLiteral("it is a folder") : file.errorString();
    return content;
}

QString writeWhole(const QString& path, const QByteArray& bytes)
{
    QSaveFile file(path);
    const bool written =
        file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.commit();
    return written ? QString() : file.errorString();
}

} // namespace Author
} // namespace Orvane
