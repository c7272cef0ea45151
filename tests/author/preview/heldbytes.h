#ifndef ZORVA_TESTS_HELDBYTES_H
#define ZORVA_TESTS_HELDBYTES_H

#include <QtGlobal>

/// Bytes in all blocks that this program and its libraries hold right now, to the byte: what the
/// allocator keeps for later does not count. 0 where it is not counted.
qint64 heldBytes();

#endif
