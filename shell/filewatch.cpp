#include "filewatch.h"

#include <QCryptographicHash>
#include <QFile>
#include <QFileInfo>

namespace {

constexpr int pause = 500; // milliseconds between two looks for what is missing

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

FileWatch::FileWatch(const QStringList& paths, QObject* parent, int rest)
    : QObject(parent)
{
    for (const QString& path : paths)
        m_contentOf.insert(path, digestOf(path));
    m_rest.setSingleShot(true);
    m_rest.setInterval(rest);
    m_again.setSingleShot(true);
    m_again.setInterval(pause);
    const auto wait = [this] { m_rest.start(); };
    connect(&m_watcher, &QFileSystemWatcher::fileChanged, this, wait);
    connect(&m_watcher, &QFileSystemWatcher::directoryChanged, this, wait);
    connect(&m_rest, &QTimer::timeout, this, &FileWatch::look);
    connect(&m_again, &QTimer::timeout, this, &FileWatch::look);
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
        if (digest.isNull()) {
            noteMissing();
            return;
        }
        isNew = isNew || digest != *file;
        *file = digest;
    }
    const bool isBack = m_isMissing;
    m_isMissing = false;
    if (isNew)
        Q_EMIT changed();
    else if (isBack)
        Q_EMIT returned();
}

void FileWatch::noteMissing()
{
    m_again.start();
    if (m_isMissing)
        return;
    m_isMissing = true;
    Q_EMIT missing();
}
