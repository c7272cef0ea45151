#ifndef ZORVA_AUTHOR_CHILDUSE_H
#define ZORVA_AUTHOR_CHILDUSE_H

#include <QtGlobal>

namespace Orvane {
namespace Author {

/** Bytes of memory that the process has; 0 where nobody tells. */
qint64 memoryOf(qint64 process);
/** Milliseconds of the processor that it has had; -1 where nobody tells. */
qint64 processorTimeOf(qint64 process);

} // namespace Author
} // namespace Orvane

#endif
