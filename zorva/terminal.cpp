#include "terminal.h"

#include "subcommand.h"

#include <cstdio>

void print(const QString& text)
{
    printBytes(text.toLocal8Bit());
}

int printBytes(const QByteArray& bytes)
{
    const auto size = static_cast<size_t>(bytes.size());
    const bool written = std::fwrite(bytes.constData(), 1, size, stdout) == size && std::fflush(stdout) == 0;
    return written ? Clean : fail(QStringLiteral("cannot write to the standard output"));
}

int fail(const QString& message)
{
    std::fputs(QStringLiteral("zorva: %1\n").arg(message).toLocal8Bit().constData(), stderr);
    return Misuse;
}
