#pragma once

#include <exception>
#include <new>
#include <utility>

namespace txqt
{

/// A new object, or null when memory is short: nothing throws across the interface.
template <class T, class... Arguments>
T* NewOrNull(Arguments&&... arguments) noexcept
{
    try
    {
        return new T(std::forward<Arguments>(arguments)...);
    }
    catch (const std::bad_alloc&)
    {
        return nullptr;
    }
}

/// Runs @p work, which returns nothing. @return false when it threw.
template <class Work>
bool Succeeds(Work&& work) noexcept
{
    try
    {
        std::forward<Work>(work)();
        return true;
    }
    catch (const std::exception&)
    {
        return false;
    }
}

/// What @p work returns, or @p fallback when it threw.
template <class T, class Work>
T ResultOr(T fallback, Work&& work) noexcept
{
    try
    {
        return std::forward<Work>(work)();
    }
    catch (const std::exception&)
    {
        return fallback;
    }
}

/// Changes a backend's object, unless it is absent. @return false when memory was short.
template <class T, class Change>
bool IfPresent(T* object, Change&& change) noexcept
{
    return !object || Succeeds([&] { std::forward<Change>(change)(*object); });
}

} // namespace txqt
