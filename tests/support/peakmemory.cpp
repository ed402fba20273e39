#include "peakmemory.h"

#include <atomic>

#include <malloc.h>

namespace {

std::atomic<qint64> inUse{0};
std::atomic<qint64> peak{0};
std::atomic<qint64> calls{0};
qint64 start = 0;

[[maybe_unused]] void countTaken(qint64 bytes)
{
    ++calls;
    qint64 known = peak;
    while (bytes > known && !peak.compare_exchange_weak(known, bytes)) { }
}

} // namespace

#if defined(__SANITIZE_ADDRESS__)

// The sanitizer has an allocator of its own and lets others look at each call.
extern "C" {
std::size_t __sanitizer_get_allocated_size(const volatile void *);

Q_DECL_EXPORT void __sanitizer_malloc_hook(const volatile void *, std::size_t size)
{
    countTaken(inUse += qint64(size));
}

Q_DECL_EXPORT void __sanitizer_free_hook(const volatile void *memory)
{
    inUse -= qint64(__sanitizer_get_allocated_size(memory));
}
}

#elif !defined(__SANITIZE_THREAD__)

extern "C" {
void *__libc_malloc(std::size_t);
void *__libc_calloc(std::size_t, std::size_t);
void *__libc_realloc(void *, std::size_t);
void __libc_free(void *);

static void *counted(void *memory)
{
    countTaken(inUse += qint64(malloc_usable_size(memory)));
    return memory;
}
Q_DECL_EXPORT void *malloc(std::size_t size)
{
    return counted(__libc_malloc(size));
}
Q_DECL_EXPORT void *calloc(std::size_t count, std::size_t size)
{
    return counted(__libc_calloc(count, size));
}
Q_DECL_EXPORT void *realloc(void *memory, std::size_t size)
{
    inUse -= qint64(malloc_usable_size(memory));
    return counted(__libc_realloc(memory, size));
}
Q_DECL_EXPORT void free(void *memory)
{
    inUse -= qint64(malloc_usable_size(memory));
    __libc_free(memory);
}
}

#endif

qint64 heapPeak()
{
    return peak - start;
}

qint64 heapCalls()
{
    return calls;
}

void resetHeapPeak()
{
    calls = 0;
    start = inUse;
    peak = start;
}
