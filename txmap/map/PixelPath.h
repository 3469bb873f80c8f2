#pragma once

#include <cstddef>
#include <vector>

#include <txbase/TXPoint.h>
#include <txmap/map/View.h>

class OGRSimpleCurve;

namespace txmap
{

/// Appends a line's points in pixels, moved by @p offset degrees, without those that are too close to the one before to
/// be seen and those that are not finite.
/// @return how many were appended.
int AppendLine(const View& view, const OGRSimpleCurve& line, double offset, std::vector<TZObjects::TXPoint>& points);

/// The same for a ring. It ends with its first point, and one that is too small for the scale keeps an area, so that it
/// still leaves a dot.
int AppendRing(const View& view, const OGRSimpleCurve& ring, double offset, std::vector<TZObjects::TXPoint>& points);

} // namespace txmap
