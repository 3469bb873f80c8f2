#include "AllocationCount.h"

#include <atomic>
#include <cstdlib>

namespace
{

std::atomic<bool> counting{false};
std::atomic<std::size_t> count{0};
std::atomic<std::size_t> bytes{0};

void Note(std::size_t size)
{
    if (counting)
    {
        ++count;
        bytes += size;
    }
}

} // namespace

// The names below are the C library's and the sanitizer's own.
// NOLINTBEGIN(bugprone-reserved-identifier)
#if defined(__SANITIZE_ADDRESS__)

// The sanitizer has replaced the allocator already and tells of every block; not every compiler has the header for it.
extern "C" int __sanitizer_install_malloc_and_free_hooks(void (*allocated)(const volatile void*, std::size_t),
                                                         void (*freed)(const volatile void*));

AllocationCounter::AllocationCounter()
{
    static const int installed = __sanitizer_install_malloc_and_free_hooks(
        [](const volatile void*, std::size_t size) { Note(size); }, [](const volatile void*) {});
    count = installed ? 0 : 1;
    bytes = 0;
    counting = true;
}

#else

// Defined in the program, these stand before the ones of the C library for every library of the process.
extern "C"
{
    void* __libc_malloc(std::size_t size);
    void* __libc_calloc(std::size_t number, std::size_t size);
    void* __libc_realloc(void* block, std::size_t size);
    void* __libc_memalign(std::size_t alignment, std::size_t size);

    void* malloc(std::size_t size)
    {
        Note(size);
        return __libc_malloc(size);
    }

    void* calloc(std::size_t number, std::size_t size)
    {
        Note(number * size);
        return __libc_calloc(number, size);
    }

    void* realloc(void* block, std::size_t size)
    {
        Note(size);
        return __libc_realloc(block, size);
    }

    void* aligned_alloc(std::size_t alignment, std::size_t size)
    {
        Note(size);
        return __libc_memalign(alignment, size);
    }
}

AllocationCounter::AllocationCounter()
{
    count = 0;
    bytes = 0;
    counting = true;
}

#endif
// NOLINTEND(bugprone-reserved-identifier)

AllocationCounter::~AllocationCounter() { counting = false; }

Allocations AllocationCounter::SoFar() const { return {count, bytes}; }

Allocations AllocationsOf(const std::function<void()>& draw)
{
    for (int i = 0; i < 3; ++i)
        draw();
    const AllocationCounter counter;
    draw();
    return counter.SoFar();
}
