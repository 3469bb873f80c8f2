#pragma once

#include <txbase/Export.h>

namespace TZObjects
{

/// A rectangle, given by its edges in the order left, right, top, bottom.
///
/// The order is not that of position and size: an image of width w and height h covers `TXRect(0, w, 0, h)`. The edges
/// stay as they are given. When the right edge lies left of the left one, the width is negative.
struct TXRect
{
    /// Makes the empty rectangle at the origin.
    constexpr TXRect() = default;
    /// Makes a rectangle from its edges.
    constexpr TXRect(double left, double right, double top, double bottom)
        : left(left), right(right), top(top), bottom(bottom)
    {
    }

    /// Returns right - left.
    constexpr double Width() const { return right - left; }
    /// Returns bottom - top.
    constexpr double Height() const { return bottom - top; }
    /// Returns true when the rectangles share no point. Edges belong to a rectangle: touching ones share points.
    constexpr bool Disjoint(const TXRect& other) const
    {
        return other.left > right || other.right < left || other.top > bottom || other.bottom < top;
    }

    double left = 0.0;   ///< The smallest x.
    double right = 0.0;  ///< The largest x.
    double top = 0.0;    ///< The smallest y.
    double bottom = 0.0; ///< The largest y.
};

static_assert(sizeof(TXRect) == 4 * sizeof(double), "backends read left and top as the first and third field");

/// Returns true when all four edges are equal.
TXBASE_API bool operator==(const TXRect& a, const TXRect& b);
/// Returns true when an edge differs.
TXBASE_API bool operator!=(const TXRect& a, const TXRect& b);

} // namespace TZObjects
