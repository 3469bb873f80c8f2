#pragma once

#include <txbase/Export.h>

namespace TZObjects
{

/// A rectangle by its edges, in the order left, right, top, bottom.
///
/// Mind the order: an image of width w and height h covers `TXRect(0, w, 0, h)`. Nothing is normalised; a rectangle
/// whose right lies left of its left has a negative width.
struct TXRect
{
    /// The empty rectangle at the origin.
    constexpr TXRect() = default;
    constexpr TXRect(double left, double right, double top, double bottom)
        : left(left), right(right), top(top), bottom(bottom)
    {
    }

    /// right - left.
    constexpr double Width() const { return right - left; }
    /// bottom - top.
    constexpr double Height() const { return bottom - top; }
    /// True when the two have no point in common. Rectangles are closed: touching ones are not disjoint.
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

/// True when all four edges are equal.
TXBASE_API bool operator==(const TXRect& a, const TXRect& b);
/// True when an edge differs.
TXBASE_API bool operator!=(const TXRect& a, const TXRect& b);

} // namespace TZObjects
