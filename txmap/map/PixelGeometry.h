#pragma once

#include <cstdint>
#include <vector>

#include <txbase/TXPoint.h>
#include <txbase/TXRect.h>

namespace txmap
{

/// The smallest rectangle around points, of which there is at least one.
TZObjects::TXRect BoundsOf(const std::vector<TZObjects::TXPoint>& points);

/// The smallest rectangle around two.
TZObjects::TXRect United(const TZObjects::TXRect& a, const TZObjects::TXRect& b);

/// What two rectangles share; its right lies left of its left, or its bottom above its top, when they share nothing.
TZObjects::TXRect Common(const TZObjects::TXRect& a, const TZObjects::TXRect& b);

/// A point at steps of 1/64 of a pixel, as surfaces round outlines, but never in the middle of a pixel: surfaces draw a
/// line within one pixel as a dot, and which pixel a middle belongs to depends on its sign, and so on where the picture
/// begins.
TZObjects::TXPoint OnGrid(const TZObjects::TXPoint& point);

/// The number of the square in which a point lies, where squares of a size lie side by side. Points far away share one.
std::uint64_t SpotOf(const TZObjects::TXPoint& point, double size);

/// Whether a ray from the point to the right crosses the edge.
inline bool Crosses(const TZObjects::TXPoint& point, const TZObjects::TXPoint& from, const TZObjects::TXPoint& to)
{
    return (from.y > point.y) != (to.y > point.y) &&
           point.x < from.x + (point.y - from.y) / (to.y - from.y) * (to.x - from.x);
}

} // namespace txmap
