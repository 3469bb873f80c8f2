#pragma once

#include <cstddef>
#include <functional>

/// How many blocks were allocated, and how many bytes they were asked to have in all.
struct Allocations
{
    std::size_t count = 0;
    std::size_t bytes = 0;
};

/// Counts what this process allocates from its construction on, in every library. One at a time.
class AllocationCounter
{
public:
    AllocationCounter();
    ~AllocationCounter();
    AllocationCounter(const AllocationCounter&) = delete;
    AllocationCounter& operator=(const AllocationCounter&) = delete;

    Allocations SoFar() const;
};

/// What @p draw allocates once everything is there that it keeps from one call to the next.
Allocations AllocationsOf(const std::function<void()>& draw);
