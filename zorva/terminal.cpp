#include "terminal.h"

#include "subcommand.h"

#include <QtGlobal>

#include <cstdio>

#ifdef Q_OS_UNIX
#include <unistd.h>
#endif

void print(const QString& text)
{
    printBytes(text.toLocal8Bit());
}

int printBytes(const QByteArray& bytes)
{
    const auto size = static_cast<size_t>(bytes.size());
    const bool written = std::fwrite(bytes.constData(), 1, size, stdout) == size &&
                         std::fflush(stdout) == 0 && std::ferror(stdout) == 0;
    return written ? Clean : fail(QStringLiteral("cannot write to the standard output"));
}

bool mayBeColoured()
{
#ifdef Q_OS_UNIX
    return isatty(STDOUT_FILENO) && qEnvironmentVariableIsEmpty("NO_COLOR") && qgetenv("TERM") != "dumb";
#else
    return false;
#endif
}

int fail(const QString& message)
{
    std::fputs(QStringLiteral("zorva: %1\n").arg(message).toLocal8Bit().constData(), stderr);
    return Misuse;
}
