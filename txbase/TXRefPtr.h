#pragma once

#include <cstddef>
#include <type_traits>
#include <utility>

namespace TZObjects
{

/// Shares ownership of an object derived from `TXRefBase` through the count inside it.
///
/// It is one pointer wide, crosses interfaces by value, and may be null. `T` may be incomplete wherever no reference is
/// taken or dropped.
template <class T>
class TXRefPtr
{
public:
    /// Null.
    TXRefPtr() noexcept = default;
    /// Null.
    TXRefPtr(std::nullptr_t) noexcept {}
    /// Takes a reference to @p object, which may be null.
    TXRefPtr(T* object) noexcept : pointee(object) { Take(); }
    TXRefPtr(const TXRefPtr& other) noexcept : pointee(other.pointee) { Take(); }
    TXRefPtr(TXRefPtr&& other) noexcept : pointee(std::exchange(other.pointee, nullptr)) {}
    /// From a pointer to a derived class.
    template <class U, class = std::enable_if_t<std::is_convertible_v<U*, T*>>>
    TXRefPtr(const TXRefPtr<U>& other) noexcept : pointee(other.get())
    {
        Take();
    }
    ~TXRefPtr() { Drop(pointee); }

    /// Takes the reference to the new pointee before it drops the one to the old, so that an object which is kept alive
    /// by the old one only may be assigned.
    // NOLINTNEXTLINE(bugprone-unhandled-self-assignment): copying and swapping is safe for itself.
    TXRefPtr& operator=(const TXRefPtr& other) noexcept
    {
        TXRefPtr(other).swap(*this);
        return *this;
    }
    TXRefPtr& operator=(TXRefPtr&& other) noexcept
    {
        TXRefPtr(std::move(other)).swap(*this);
        return *this;
    }

    /// The object, or null; ownership stays here.
    T* get() const noexcept { return pointee; }
    T* operator->() const noexcept { return pointee; }
    T& operator*() const noexcept { return *pointee; }
    /// True when not null.
    explicit operator bool() const noexcept { return pointee != nullptr; }

    void swap(TXRefPtr& other) noexcept { std::swap(pointee, other.pointee); }

private:
    void Take() const noexcept
    {
        if (pointee)
            pointee->AddRef();
    }
    static void Drop(T* object) noexcept
    {
        if (object)
            object->Release();
    }

    T* pointee = nullptr;
};

template <class T, class U>
bool operator==(const TXRefPtr<T>& a, const TXRefPtr<U>& b) noexcept
{
    return a.get() == b.get();
}
template <class T, class U>
bool operator!=(const TXRefPtr<T>& a, const TXRefPtr<U>& b) noexcept
{
    return a.get() != b.get();
}
template <class T, class U>
bool operator==(const TXRefPtr<T>& a, const U* b) noexcept
{
    return a.get() == b;
}
template <class T, class U>
bool operator!=(const TXRefPtr<T>& a, const U* b) noexcept
{
    return a.get() != b;
}
template <class T, class U>
bool operator==(const T* a, const TXRefPtr<U>& b) noexcept
{
    return a == b.get();
}
template <class T, class U>
bool operator!=(const T* a, const TXRefPtr<U>& b) noexcept
{
    return a != b.get();
}
template <class T>
bool operator==(const TXRefPtr<T>& a, std::nullptr_t) noexcept
{
    return !a.get();
}
template <class T>
bool operator!=(const TXRefPtr<T>& a, std::nullptr_t) noexcept
{
    return a.get() != nullptr;
}
template <class T>
bool operator==(std::nullptr_t, const TXRefPtr<T>& b) noexcept
{
    return !b.get();
}
template <class T>
bool operator!=(std::nullptr_t, const TXRefPtr<T>& b) noexcept
{
    return b.get() != nullptr;
}

} // namespace TZObjects
