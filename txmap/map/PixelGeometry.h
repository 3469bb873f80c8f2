#pragma once

#include <vector>

#include <txbase/TXPoint.h>
#include <txbase/TXRect.h>

namespace TZObjects
{

/// The smallest rectangle around points, of which there is at least one.
TXRect BoundsOf(const std::vector<TXPoint>& points);

/// The smallest rectangle around two.
TXRect United(const TXRect& a, const TXRect& b);

/// What two rectangles share; its right lies left of its left, or its bottom above its top, when they share nothing.
TXRect Common(const TXRect& a, const TXRect& b);

/// Whether a ray from the point to the right crosses the edge.
inline bool Crosses(const TXPoint& point, const TXPoint& from, const TXPoint& to)
{
    return (from.y > point.y) != (to.y > point.y) &&
           point.x < from.x + (point.y - from.y) / (to.y - from.y) * (to.x - from.x);
}

} // namespace TZObjects
