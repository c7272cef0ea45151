#include "parameterfile_p.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSaveFile>

#include <csignal>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace Orvane {

namespace {

/** While one lives, a write beyond a limit on the size of files fails instead of ending the program. */
class SizeLimitIgnored
{
public:
    SizeLimitIgnored() { previous = std::signal(SIGXFSZ, SIG_IGN); }
    ~SizeLimitIgnored() { std::signal(SIGXFSZ, previous); }
    SizeLimitIgnored(const SizeLimitIgnored&) = delete;
    SizeLimitIgnored& operator=(const SizeLimitIgnored&) = delete;

private:
    void (*previous)(int);
};

/** Takes the file for this process, until it is closed; false if another one has it. */
bool lock(int file)
{
    return flock(file, LOCK_EX | LOCK_NB) == 0;
}

bool isPlainFile(int file)
{
    struct stat info = {};
    return fstat(file, &info) == 0 && S_ISREG(info.st_mode) && info.st_nlink == 1;
}

void removeUnlessInUse(const QString& path)
{
    const QByteArray name = QFile::encodeName(path);
    const int file = open(name.constData(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
    if (file < 0)
        return;
    if (isPlainFile(file) && lock(file))
        unlink(name.constData());
    close(file);
}

QString reasonOf(const QFileDevice& file)
{
    return file.error() == QFileDevice::NoError ? QStringLiteral("there is no room for all of it")
                                                : file.errorString();
}

bool put(QFile* file, const QByteArray& content)
{
    return file->seek(0) && file->write(content) == content.size() && file->flush() &&
           file->resize(content.size());
}

} // namespace

ParameterFile::ParameterFile(const QString& filePath)
    : path(filePath)
{
}

QString ParameterFile::whyUnusable() const
{
    const QFileInfo info(path);
    if (info.isDir())
        return QStringLiteral("it is a folder");
    // A pipe or a device could keep the program waiting for ever.
    return info.exists() && !info.isFile() ? QStringLiteral("it is not a regular file") : QString();
}

QByteArray ParameterFile::Read()
{
    reason = whyUnusable();
    if (!reason.isEmpty() || !QFileInfo::exists(path))
        return QByteArray();
    QFile file(path);
    if (file.open(QIODevice::ReadOnly))
        return file.readAll();
    reason = file.errorString();
    return QByteArray();
}

bool ParameterFile::Store(const QByteArray& content)
{
    reason = whyUnusable();
    if (!reason.isEmpty())
        return false;
    const SizeLimitIgnored ignored;
    sweepLeftovers();
    return replace(content) || (QFileInfo::exists(path) && writeOver(content));
}

// A killed store leaves its new file beside the one to be replaced, under that
// one's name and six letters. A name of one case may be a person's (".backup").
void ParameterFile::sweepLeftovers() const
{
    static const QRegularExpression leftover(QStringLiteral("\\A\\.(?=.*[a-z])(?=.*[A-Z])[A-Za-z]{6}\\z"));
    const QFileInfo target(QFileInfo::exists(path) ? QFileInfo(path).canonicalFilePath() : path);
    const QString name = target.fileName();
    const QStringList beside = target.dir().entryList(QDir::Files | QDir::Hidden | QDir::NoSymLinks);
    for (const QString& other : beside) {
        if (other.startsWith(name) && leftover.match(other.mid(name.size())).hasMatch())
            removeUnlessInUse(target.dir().filePath(other));
    }
}

bool ParameterFile::replace(const QByteArray& content)
{
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly)) {
        reason = file.errorString();
        return false;
    }
    lock(file.handle());
    // A write is only buffered and commit() does not look whether the rest got out.
    const bool written = file.write(content) == content.size() && file.flush();
    if (!written)
        reason = reasonOf(file);
    else if (!file.commit())
        reason = file.errorString();
    else
        reason.clear();
    return reason.isEmpty();
}

bool ParameterFile::writeOver(const QByteArray& content)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadWrite | QIODevice::ExistingOnly))
        return false; // the reason is that of the new file
    const QByteArray before = file.readAll();
    if (put(&file, content)) {
        reason.clear();
        return true;
    }
    reason = reasonOf(file);
    put(&file, before);
    return false;
}

} // namespace Orvane
