#pragma once

#include <atomic>

#include <txbase/Export.h>

namespace TZObjects
{

/// An object that counts the references to it. Every surface, resource and engine is one.
///
/// The count starts at 0. A factory returns a raw pointer without a reference; put it into a `TXRefPtr`, which owns it
/// from then on. The count is atomic: any thread may take and drop references. All other use of an object belongs to
/// one thread at a time.
class TXBASE_API TXRefBase
{
public:
    /// Makes an object without references.
    TXRefBase() noexcept = default;
    /// Makes an object without references, whatever the count of the source is.
    TXRefBase(const TXRefBase&) noexcept {}
    /// Keeps this object's own count.
    TXRefBase& operator=(const TXRefBase&) noexcept { return *this; }
    virtual ~TXRefBase();

    /// Takes a reference.
    void AddRef() noexcept;
    /// Drops a reference, and destroys the object when none is left. An object that never had a reference is destroyed
    /// as well.
    /// @return true when this call destroyed the object.
    bool Release() noexcept;

private:
    std::atomic<int> count{0};
};

} // namespace TZObjects
