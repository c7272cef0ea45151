#ifndef ZORVA_TESTS_HELDBYTES_H
#define ZORVA_TESTS_HELDBYTES_H

#include <QtGlobal>

/// Bytes in all blocks that this program and its libraries hold right now, to the byte: what the
/// allocator keeps for later does not count. Nor do blocks above 64 KB: those are pictures that the
/// toolkit makes and drops as it paints. 0 where nothing is counted.
qint64 heldBytes();

#endif
