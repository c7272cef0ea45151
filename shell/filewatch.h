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
    /** Milliseconds without a change after which a save counts as complete: an editor writes in several
     * steps. */
    static constexpr int restAfterSave = 100;

    explicit FileWatch(const QStringList& paths, QObject* parent = nullptr, int rest = restAfterSave);

Q_SIGNALS:
    /** At least one file has come to rest with another content. Not while one is missing. */
    void changed();
    /** A file is not there to be read, at rest; told once until all are there again. */
    void missing();
    /** All are there again, as they were before. */
    void returned();

private:
    void look();
    void noteMissing();

    QFileSystemWatcher m_watcher;
    QTimer m_rest;  // runs while a save may be under way
    QTimer m_again; // runs while a file is missing: with its folder gone, too, nobody tells of its return
    bool m_isMissing = false;
    QHash<QString, QByteArray> m_contentOf; // digests, by path
};

#endif
