#ifndef ZORVA_SHELL_FILEWATCH_H
#define ZORVA_SHELL_FILEWATCH_H

#include <QByteArray>
#include <QFileSystemWatcher>
#include <QHash>
#include <QObject>
#include <QStringList>
#include <QTimer>

/**
 * Tells when the content of files changes, however an editor saves them: in
 * place, by a new file under the old name, or by way of no file at all.
 */
class FileWatch : public QObject
{
    Q_OBJECT

public:
    explicit FileWatch(const QStringList& paths, QObject* parent = nullptr);

Q_SIGNALS:
    /** At least one file has come to rest with another content. Not while one is missing. */
    void changed();

private:
    void look();

    QFileSystemWatcher m_watcher;
    QTimer m_rest;                          // runs while a save may be under way
    QHash<QString, QByteArray> m_contentOf; // digests, by path
};

#endif
