#ifndef ZORVA_BENCH_ALLOCATIONS_H
#define ZORVA_BENCH_ALLOCATIONS_H

#include "comparison.h"

#include <QtGlobal>

/// Blocks of memory that one run asked the allocator for.
struct Allocations
{
    qint64 floor = 0;
    qint64 ours = 0;
};

/// One run of each side after one that warms up. Blocks that grow in place count, too.
Allocations countAllocations(const Comparison& comparison);

#endif
