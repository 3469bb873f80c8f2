#pragma once

#include <cstddef>
#include <vector>

#include <txbase/TXPoint.h>
#include <txmap/map/LineShape.h>

namespace txmap
{

/// A line whose points are found by their distance from its start, in time that grows with the logarithm of their
/// number.
class MeasuredLine
{
public:
    /// Points that repeat the one before are left out.
    explicit MeasuredLine(const PixelLine& points);

    /// False for a line without length, or with a coordinate that is not finite.
    bool IsUsable() const { return usable; }
    double Length() const { return distances.back(); }
    /// The point at a distance; beyond the ends, where the line would go on straight.
    TZObjects::TXPoint PointAt(double distance) const;
    /// The same, moved to the right of the line's direction.
    TZObjects::TXPoint PointBeside(double distance, double side) const;
    /// The distance at which the line is nearest to a point.
    double Nearest(const TZObjects::TXPoint& point) const;

    MeasuredLine Reversed() const;
    /// The line that runs beside it, to the right of its direction.
    MeasuredLine Moved(double side) const;

    /// @name Corners: the points between the first and the last
    /// @{
    std::size_t CornerCount() const { return points.size() - 2; }
    double CornerAt(std::size_t corner) const { return distances[corner + 1]; }
    /// By how much the line turns there, in radians from 0 to pi.
    double TurnAt(std::size_t corner) const;
    std::size_t FirstCornerBehind(double distance) const;
    /// @}

private:
    std::size_t SegmentAt(double distance) const;

    PixelLine points;
    std::vector<double> distances;
    bool usable = false;
};

} // namespace txmap
