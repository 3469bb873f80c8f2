#pragma once

#include <vector>

#include <txbase/Export.h>
#include <txbase/TXPoint.h>

namespace TZObjects
{

/// Geometry helpers.
class TXBASE_API TXMathUtil
{
public:
    /// Flattens a smooth curve through the given points into a polyline.
    ///
    /// The curve is a Catmull-Rom spline. It lacks a neighbour at each end, where the end point itself stands in. The
    /// polyline starts at the first point, passes through every other point in order and ends at the last. One point
    /// gives that point alone.
    /// @param points the points of the curve; they are not changed. Null gives nothing.
    /// @param count the number of points; less than 1 gives nothing.
    /// @param out receives the polyline behind what it already holds.
    /// @param tolerance the greatest distance between curve and polyline, in the units of the points. NaN and numbers
    /// up to 0 mean 0.1, a tenth of a pixel. No stretch between two points gets more than 1,024 segments.
    static void CurveToPolyline(TXPoint* points, int count, std::vector<TXPoint>& out, double tolerance);
};

} // namespace TZObjects
