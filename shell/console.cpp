#include "console.h"

void print(FILE* stream, const QString& text)
{
    std::fputs(text.toLocal8Bit().constData(), stream);
}

int fail(const QString& message)
{
    print(stderr, QStringLiteral("zorvashell: %1\n").arg(message));
    return nothingToShow;
}
