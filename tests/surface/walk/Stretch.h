#pragma once

#include <tests/txpluginqt/graphics/Rings.h>
#include <tests/txpluginqt/text/Label.h>

/// The part of an image that is drawn, which lies where it does however wide the surface is.
struct ImagePart : TZObjects::TXRect
{
    using TZObjects::TXRect::TXRect;
    ImagePart(const TZObjects::TXRect& rect) : TXRect(rect) {}
};

/// Moves arguments that were made for a small surface along a wide one, or spreads them over it. Plain numbers stay:
/// what takes them is moved by the surface's origin.
class Stretch
{
public:
    /// Leaves everything where it is.
    Stretch() = default;
    Stretch(double factor, double move) : factor(factor), move(move) {}

    void Apply(TZObjects::TXPoint& point) const { point.x = X(point.x); }
    void Apply(TZObjects::TXRect& rect) const
    {
        rect.left = X(rect.left);
        rect.right = X(rect.right);
    }
    void Apply(std::vector<TZObjects::TXPoint>& points) const
    {
        for (TZObjects::TXPoint& point : points)
            Apply(point);
    }
    void Apply(Rings& rings) const { Apply(rings.points); }
    void Apply(Label& label) const
    {
        for (double* const x : {&label.x, &label.left, &label.right})
            *x = X(*x);
    }
    template <class Other>
    void Apply(const Other&) const
    {
    }

private:
    double X(double x) const { return x * factor + move; }

    double factor = 1.0;
    double move = 0.0;
};
