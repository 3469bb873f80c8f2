#pragma once

#include <QPainter>

namespace txqt
{

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
        // Qt caches decisions, such as how text is drawn, until its state changes. Restoring a saved state would have
        // made it forget them.
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

/// Paints with another opacity, and puts the painter's own back unless told to keep the other.
class OpacityScope
{
public:
    OpacityScope(QPainter& painter, double opacity) : painter(painter), old(painter.opacity())
    {
        painter.setOpacity(opacity);
    }
    ~OpacityScope()
    {
        if (!isKept)
            painter.setOpacity(old);
    }
    OpacityScope(const OpacityScope&) = delete;
    OpacityScope& operator=(const OpacityScope&) = delete;

    void Keep() { isKept = true; }

private:
    QPainter& painter;
    double old;
    bool isKept = false;
};

} // namespace txqt
