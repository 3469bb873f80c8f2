#include "AllocationFailure.h"

#include <atomic>
#include <cstdlib>
#include <new>

namespace
{

std::atomic<int> countdown{0};
std::atomic<bool> allLater{false};
std::atomic<bool> happened{false};
std::atomic<long> blocks{0};

bool Fails()
{
    if (countdown == 0)
        return false;
    if (countdown > 1)
    {
        --countdown;
        return false;
    }
    if (!allLater)
        countdown = 0;
    happened = true;
    return true;
}

void* Allocate(std::size_t size)
{
    void* const block = Fails() ? nullptr : std::malloc(size ? size : 1);
    if (!block)
        throw std::bad_alloc();
    ++blocks;
    return block;
}

void Free(void* block)
{
    if (block)
        --blocks;
    std::free(block);
}

} // namespace

AllocationFailure::AllocationFailure(int number, Extent extent) : before(blocks)
{
    happened = false;
    allLater = extent == AllLater;
    countdown = number;
}

AllocationFailure::~AllocationFailure() { Stop(); }

bool AllocationFailure::Happened() const { return happened; }

long AllocationFailure::Kept() const { return blocks - before; }

void AllocationFailure::Stop() { countdown = 0; }

void* operator new(std::size_t size) { return Allocate(size); }
void* operator new[](std::size_t size) { return Allocate(size); }
void* operator new(std::size_t size, const std::nothrow_t&) noexcept
{
    void* const block = Fails() ? nullptr : std::malloc(size ? size : 1);
    if (block)
        ++blocks;
    return block;
}
void* operator new[](std::size_t size, const std::nothrow_t& tag) noexcept { return operator new(size, tag); }
void operator delete(void* block) noexcept { Free(block); }
void operator delete[](void* block) noexcept { Free(block); }
void operator delete(void* block, std::size_t) noexcept { Free(block); }
void operator delete[](void* block, std::size_t) noexcept { Free(block); }
void operator delete(void* block, const std::nothrow_t&) noexcept { Free(block); }
void operator delete[](void* block, const std::nothrow_t&) noexcept { Free(block); }

// Qt loses the state of a painter whose beginning runs short of memory. The leak checker looks for this name among what
// the program exports.
// NOLINTNEXTLINE(bugprone-reserved-identifier): the name is the leak checker's own.
extern "C" __attribute__((visibility("default"))) const char* __lsan_default_suppressions()
{
    return "leak:QRasterPaintEngine::createState\n";
}
