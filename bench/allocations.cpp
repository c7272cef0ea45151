#include "allocations.h"

#include <atomic>
#include <cstddef>

// glibc's allocator under its own names: the plain ones are taken over below, for
// this program and all libraries that it loads.
extern "C" {
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* block, std::size_t size);
}

namespace {

std::atomic<bool> counting{false};
std::atomic<qint64> counted{0};

void note()
{
    if (counting.load(std::memory_order_relaxed))
        counted.fetch_add(1, std::memory_order_relaxed);
}

qint64 countSide(const Work& work)
{
    work.before();
    work.run();
    work.after();
    work.before();
    counted = 0;
    counting = true;
    work.run();
    counting = false;
    work.after();
    return counted;
}

} // namespace

extern "C" {

Q_DECL_EXPORT void* malloc(std::size_t size) noexcept
{
    note();
    return __libc_malloc(size);
}

Q_DECL_EXPORT void* calloc(std::size_t count, std::size_t size) noexcept
{
    note();
    return __libc_calloc(count, size);
}

Q_DECL_EXPORT void* realloc(void* block, std::size_t size) noexcept
{
    note();
    return __libc_realloc(block, size);
}
}

Allocations countAllocations(const Comparison& comparison)
{
    const qint64 floor = countSide(comparison.floor);
    return {floor, countSide(comparison.ours)};
}
