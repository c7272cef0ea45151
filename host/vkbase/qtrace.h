#ifndef ZORVA_VKBASE_QTRACE_H
#define ZORVA_VKBASE_QTRACE_H

#include <vkbase/vkbase_export.h>

#include <QString>

#include <functional>

/// Takes each trace line: text, base name of the source file, line in it.
using TraceSink = std::function<void(const QString& message, const QString& file, unsigned short line)>;

/// Writes one trace line to the logging category "velk.trace" and to the sink,
/// if one is set. Callers test the trace mask first (`ErrorHandler`). The odd
/// name is the one that hosts know.
VKBASE_EXPORT void _Q_Trace(const QString& message, const QString& file, unsigned short line);

/// Sends each later trace line to `sink` as well; an empty one ends that.
VKBASE_EXPORT void SetTraceSink(TraceSink sink);

#endif
