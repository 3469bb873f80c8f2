#pragma once

#include <mutex>

namespace TZObjects
{

/// A mutex, which a `TXScopedLock` takes. It is not recursive: a thread that holds it must not take it again.
class TXLock
{
public:
    /// Makes a free mutex.
    TXLock() = default;
    TXLock(const TXLock&) = delete;
    TXLock& operator=(const TXLock&) = delete;

private:
    friend class TXScopedLock;
    std::mutex mutex;
};

/// Takes a `TXLock` and frees it at the end of the scope.
class TXScopedLock
{
public:
    /// Waits until @p lock is free, then takes it. The lock must outlive this guard.
    explicit TXScopedLock(TXLock& lock) : guard(lock.mutex) {}
    TXScopedLock(const TXScopedLock&) = delete;
    TXScopedLock& operator=(const TXScopedLock&) = delete;

private:
    std::lock_guard<std::mutex> guard;
};

} // namespace TZObjects
