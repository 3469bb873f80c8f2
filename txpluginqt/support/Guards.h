#pragma once

#include <exception>
#include <new>
#include <utility>

#include <QPainter>

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

/// Saves a painter's state and restores it at the end of the scope.
class PainterStateScope
{
public:
    explicit PainterStateScope(QPainter& painter) : painter(painter) { painter.save(); }
    ~PainterStateScope() { painter.restore(); }
    PainterStateScope(const PainterStateScope&) = delete;
    PainterStateScope& operator=(const PainterStateScope&) = delete;

private:
    QPainter& painter;
};

/// Puts a painter's transform back at the end of the scope. Unlike saving the state, it takes no memory.
class TransformScope
{
public:
    explicit TransformScope(QPainter& painter)
        : painter(painter), world(painter.worldTransform()), enabled(painter.worldMatrixEnabled())
    {
    }
    ~TransformScope()
    {
        painter.setWorldTransform(world);
        if (!enabled)
            painter.setWorldMatrixEnabled(false);
        // What Qt found out about the state meanwhile it keeps until the state changes, and some of it, such as how
        // text is drawn, from a pen that is not looked at yet; restoring a saved state would have forgotten it.
        const double opacity = painter.opacity();
        painter.setOpacity(opacity > 0.5 ? 0.0 : 1.0);
        painter.setOpacity(opacity);
    }
    TransformScope(const TransformScope&) = delete;
    TransformScope& operator=(const TransformScope&) = delete;

private:
    QPainter& painter;
    QTransform world;
    bool enabled;
};

/// Puts a painter's pen and brush back at the end of the scope.
class PenAndBrushScope
{
public:
    explicit PenAndBrushScope(QPainter& painter) : painter(painter), pen(painter.pen()), brush(painter.brush()) {}
    ~PenAndBrushScope()
    {
        painter.setPen(pen);
        painter.setBrush(brush);
    }
    PenAndBrushScope(const PenAndBrushScope&) = delete;
    PenAndBrushScope& operator=(const PenAndBrushScope&) = delete;

private:
    QPainter& painter;
    QPen pen;
    QBrush brush;
};
