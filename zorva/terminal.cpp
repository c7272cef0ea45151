#include "terminal.h"

#include "subcommand.h"

#include <cstdio>

void print(const QString& text)
{
    const QByteArray bytes = text.toLocal8Bit();
    std::fwrite(bytes.constData(), 1, static_cast<size_t>(bytes.size()), stdout);
}

int fail(const QString& message)
{
    std::fputs(QStringLiteral("zorva: %1\n").arg(message).toLocal8Bit().constData(), stderr);
    return Misuse;
}
