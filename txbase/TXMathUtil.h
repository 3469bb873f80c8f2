#pragma once

#include <vector>

#include <txbase/Export.h>
#include <txbase/TXPoint.h>

namespace TZObjects
{

/// Static geometry helpers.
class TXBASE_API TXMathUtil
{
public:
    /// Flattens the smooth curve that runs through all of the given points, in order, into a polyline.
    ///
    /// The curve is a Catmull-Rom spline, whose end points stand in for the neighbours that they lack. The polyline
    /// starts at the first point, passes through every other one and ends at the last, so one point gives that point
    /// alone.
    /// @param points the points that the curve passes through; they are not written to. Null gives nothing.
    /// @param count how many; below 1 gives nothing.
    /// @param out the polyline is appended here; what it held before is kept.
    /// @param tolerance the farthest that the curve may lie from the polyline, in the units of the points; 0 or less,
    /// or
    ///        NaN, means 0.1, a tenth of a pixel. Each stretch between two points gets at most 1,024 segments, whatever
    ///        the tolerance asks for.
    static void CurveToPolyline(TXPoint* points, int count, std::vector<TXPoint>& out, double tolerance);
};

} // namespace TZObjects
