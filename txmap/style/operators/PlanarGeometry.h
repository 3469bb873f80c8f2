#pragma once

#include <vector>

#include <txmap/style/EvaluationContext.h>

namespace txmap
{

/// A polygon's rings, the outer one first. The coordinates are any plane's.
using PlanarPolygon = std::vector<LonLatGeometry::Part>;

/// A rectangle around points; empty before the first.
struct Bounds
{
    double left = 0.0;
    double bottom = 0.0;
    double right = -1.0;
    double top = -1.0;

    bool IsEmpty() const { return right < left; }
    void Add(const LonLat& point);
    /// Whether this lies inside, touching no side.
    bool IsInside(const Bounds& other) const;
};

/// Whether a point is in a polygon, by counting edges. `onOutline` is the answer for points on an edge.
bool IsInPolygon(const LonLat& point, const PlanarPolygon& polygon, bool onOutline);
/// Whether two segments cross, each having an end on either side of the other.
bool SegmentsCross(const LonLat& a, const LonLat& b, const LonLat& c, const LonLat& d);

} // namespace txmap
