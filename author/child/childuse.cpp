#include "childuse.h"

#include <QFile>

#ifdef Q_OS_LINUX
#include <unistd.h>
#endif

namespace Orvane {
namespace Author {

qint64 memoryOf(qint64 process)
{
#ifdef Q_OS_LINUX
    QFile file(QStringLiteral("/proc/%1/statm").arg(process));
    if (file.open(QIODevice::ReadOnly))
        return file.readAll().split(' ').value(1).toLongLong() * sysconf(_SC_PAGESIZE);
#else
    Q_UNUSED(process)
#endif
    return 0;
}

qint64 processorTimeOf(qint64 process)
{
#ifdef Q_OS_LINUX
    QFile file(QStringLiteral("/proc/%1/stat").arg(process));
    if (file.open(QIODevice::ReadOnly)) {
        const QByteArray status = file.readAll();
        // The name in brackets may hold blanks; user and system time are the 12th and 13th behind it.
        const QList<QByteArray> fields = status.mid(status.lastIndexOf(')') + 2).split(' ');
        return (fields.value(11).toLongLong() + fields.value(12).toLongLong()) * 1000 / sysconf(_SC_CLK_TCK);
    }
#else
    Q_UNUSED(process)
#endif
    return -1;
}

} // namespace Author
} // namespace Orvane
