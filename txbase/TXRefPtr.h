#pragma once

#include <cstddef>
#include <type_traits>
#include <utility>

namespace TZObjects
{

/// A pointer that holds a reference to an object derived from `TXRefBase`, or null.
///
/// It is as wide as a raw pointer and crosses interfaces by value. `T` may be incomplete where no reference is taken or
/// dropped.
template <class T>
class TXRefPtr
{
public:
    /// Makes a null pointer.
    TXRefPtr() noexcept = default;
    /// Makes a null pointer.
    TXRefPtr(std::nullptr_t) noexcept {}
    /// Takes a reference to @p object, which may be null.
    TXRefPtr(T* object) noexcept : pointee(object) { Take(); }
    /// Takes a reference of its own.
    TXRefPtr(const TXRefPtr& other) noexcept : pointee(other.pointee) { Take(); }
    /// Takes the reference of @p other over, which becomes null.
    TXRefPtr(TXRefPtr&& other) noexcept : pointee(std::exchange(other.pointee, nullptr)) {}
    /// Takes a reference of its own to an object of a derived class.
    template <class U, class = std::enable_if_t<std::is_convertible_v<U*, T*>>>
    TXRefPtr(const TXRefPtr<U>& other) noexcept : pointee(other.get())
    {
        Take();
    }
    /// Drops the reference.
    ~TXRefPtr() { Drop(pointee); }

    /// Takes a reference to the new object, then drops the one to the old. The new object may therefore be one that
    /// only the old object holds.
    // NOLINTNEXTLINE(bugprone-unhandled-self-assignment): copying and swapping is safe for itself.
    TXRefPtr& operator=(const TXRefPtr& other) noexcept
    {
        TXRefPtr(other).swap(*this);
        return *this;
    }
    /// Takes the reference of @p other over, then drops the one to the old object.
    TXRefPtr& operator=(TXRefPtr&& other) noexcept
    {
        TXRefPtr(std::move(other)).swap(*this);
        return *this;
    }

    /// Returns the object, or null. The reference stays here.
    T* get() const noexcept { return pointee; }
    /// Returns the object; the pointer must not be null.
    T* operator->() const noexcept { return pointee; }
    /// Returns the object; the pointer must not be null.
    T& operator*() const noexcept { return *pointee; }
    /// Returns true when the pointer is not null.
    explicit operator bool() const noexcept { return pointee != nullptr; }

    /// Exchanges the objects of two pointers; no count changes.
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

/// Returns true when both point to the same object, or both are null.
template <class T, class U>
bool operator==(const TXRefPtr<T>& a, const TXRefPtr<U>& b) noexcept
{
    return a.get() == b.get();
}
/// Returns true when they point to different objects, or one of them is null.
template <class T, class U>
bool operator!=(const TXRefPtr<T>& a, const TXRefPtr<U>& b) noexcept
{
    return a.get() != b.get();
}
/// Returns true when both point to the same object, or both are null.
template <class T, class U>
bool operator==(const TXRefPtr<T>& a, const U* b) noexcept
{
    return a.get() == b;
}
/// Returns true when they point to different objects, or one of them is null.
template <class T, class U>
bool operator!=(const TXRefPtr<T>& a, const U* b) noexcept
{
    return a.get() != b;
}
/// Returns true when both point to the same object, or both are null.
template <class T, class U>
bool operator==(const T* a, const TXRefPtr<U>& b) noexcept
{
    return a == b.get();
}
/// Returns true when they point to different objects, or one of them is null.
template <class T, class U>
bool operator!=(const T* a, const TXRefPtr<U>& b) noexcept
{
    return a != b.get();
}
/// Returns true when the pointer is null.
template <class T>
bool operator==(const TXRefPtr<T>& a, std::nullptr_t) noexcept
{
    return !a.get();
}
/// Returns true when the pointer is not null.
template <class T>
bool operator!=(const TXRefPtr<T>& a, std::nullptr_t) noexcept
{
    return a.get() != nullptr;
}
/// Returns true when the pointer is null.
template <class T>
bool operator==(std::nullptr_t, const TXRefPtr<T>& b) noexcept
{
    return !b.get();
}
/// Returns true when the pointer is not null.
template <class T>
bool operator!=(std::nullptr_t, const TXRefPtr<T>& b) noexcept
{
    return b.get() != nullptr;
}

} // namespace TZObjects
