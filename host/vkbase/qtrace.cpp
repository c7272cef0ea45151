#include <vkbase/qtrace.h>

#include <QLoggingCategory>

#include <utility>

namespace {

Q_LOGGING_CATEGORY(velkTrace, "velk.trace")

TraceSink& sink()
{
    // Never destroyed: lines may still be written while the program ends.
    static TraceSink* const instance = new TraceSink;
    return *instance;
}

} // namespace

void _Q_Trace(const QString& message, const QString& file, unsigned short line)
{
    qCInfo(velkTrace).noquote().nospace() << file << ':' << line << ": " << message;
    const TraceSink current = sink(); // a copy: it may set another one
    if (current)
        current(message, file, line);
}

void SetTraceSink(TraceSink newSink)
{
    sink() = std::move(newSink);
}
