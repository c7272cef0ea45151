#include "filewatch.h"

#include <QCryptographicHash>
#include <QFile>
#include <QFileInfo>

namespace {

constexpr int restAfterSave = 100; // milliseconds; an editor writes in several steps

/** Null if there is no file to read. */
QByteArray digestOf(const QString& path)
{
    QFile file(path);
    QCryptographicHash digest(QCryptographicHash::Sha1);
    const bool isReadable =
        QFileInfo(path).isFile() && file.open(QIODevice::ReadOnly) && digest.addData(&file);
    return isReadable ? digest.result() : QByteArray();
}

} // namespace

FileWatch::FileWatch(const QStringList& paths, QObject* parent)
    : QObject(parent)
{
    for (const QString& path : paths)
        m_contentOf.insert(path, digestOf(path));
    m_rest.setSingleShot(true);
    m_rest.setInterval(restAfterSave);
    const auto wait = [this] { m_rest.start(); };
    connect(&m_watcher, &QFileSystemWatcher::fileChanged, this, wait);
    connect(&m_watcher, &QFileSystemWatcher::directoryChanged, this, wait);
    connect(&m_rest, &QTimer::timeout, this, &FileWatch::look);
    look();
}

void FileWatch::look()
{
    bool isNew = false;
    for (auto file = m_contentOf.begin(); file != m_contentOf.end(); ++file) {
        // A file that was replaced is no longer watched, its folder is.
        m_watcher.addPath(file.key());
        m_watcher.addPath(QFileInfo(file.key()).absolutePath());
        const QByteArray digest = digestOf(file.key());
        if (digest.isNull())
            return;
        isNew = isNew || digest != *file;
        *file = digest;
    }
    if (isNew)
        Q_EMIT changed();
}
