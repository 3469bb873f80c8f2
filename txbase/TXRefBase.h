#pragma once

#include <atomic>

#include <txbase/Export.h>

namespace TZObjects
{

/// Base of every reference-counted object.
///
/// The count starts at 0: a factory hands out a raw pointer without a reference, and the caller takes ownership by
/// putting it into a `TXRefPtr`. The count is atomic, so that references to one object may be dropped on any thread;
/// the object itself gives no promise beyond that.
class TXBASE_API TXRefBase
{
public:
    TXRefBase() noexcept = default;
    /// A copy is an object of its own: its count starts at 0, whatever the source's is.
    TXRefBase(const TXRefBase&) noexcept {}
    /// The target keeps its own count.
    TXRefBase& operator=(const TXRefBase&) noexcept { return *this; }
    virtual ~TXRefBase();

    /// Takes a reference.
    void AddRef() noexcept;
    /// Drops a reference and destroys the object when none is left; one that never had a reference is destroyed too.
    /// @return true when this call destroyed the object.
    bool Release() noexcept;

private:
    std::atomic<int> count{0};
};

} // namespace TZObjects
