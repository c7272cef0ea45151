#include "heldbytes.h"

#if defined(__GLIBC__) && !defined(__SANITIZE_ADDRESS__)

#include <atomic>
#include <cerrno>
#include <cstddef>
#include <malloc.h>

// glibc's allocator under its own names: the plain ones are taken over below, for
// this program and all libraries that it loads.
extern "C" {
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* block, std::size_t size);
void* __libc_memalign(std::size_t alignment, std::size_t size);
void __libc_free(void* block);
}

namespace {

constexpr std::size_t largest = 64 * 1024;

std::atomic<qint64> held{0};

qint64 countedSize(void* block)
{
    const std::size_t size = malloc_usable_size(block);
    return size > largest ? 0 : static_cast<qint64>(size);
}

void* taken(void* block)
{
    held.fetch_add(countedSize(block), std::memory_order_relaxed);
    return block;
}

void given(void* block)
{
    held.fetch_sub(countedSize(block), std::memory_order_relaxed);
}

} // namespace

extern "C" {

Q_DECL_EXPORT void* malloc(std::size_t size) noexcept
{
    return taken(__libc_malloc(size));
}

Q_DECL_EXPORT void* calloc(std::size_t count, std::size_t size) noexcept
{
    return taken(__libc_calloc(count, size));
}

Q_DECL_EXPORT void* realloc(void* block, std::size_t size) noexcept
{
    const qint64 before = countedSize(block);
    void* const moved = __libc_realloc(block, size);
    if (moved || size == 0)
        held.fetch_sub(before, std::memory_order_relaxed);
    return taken(moved);
}

Q_DECL_EXPORT void* memalign(std::size_t alignment, std::size_t size) noexcept
{
    return taken(__libc_memalign(alignment, size));
}

Q_DECL_EXPORT void* aligned_alloc(std::size_t alignment, std::size_t size) noexcept
{
    return memalign(alignment, size);
}

Q_DECL_EXPORT int posix_memalign(void** block, std::size_t alignment, std::size_t size) noexcept
{
    *block = memalign(alignment, size);
    return *block ? 0 : ENOMEM;
}

Q_DECL_EXPORT void free(void* block) noexcept
{
    given(block);
    __libc_free(block);
}
}

qint64 heldBytes()
{
    return held;
}

#else

qint64 heldBytes()
{
    return 0;
}

#endif
