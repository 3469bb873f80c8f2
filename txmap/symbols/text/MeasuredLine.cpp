#include <txmap/symbols/text/MeasuredLine.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace txmap
{

using TZObjects::TXPoint;

namespace
{

double DistanceOf(const TXPoint& a, const TXPoint& b) { return std::hypot(b.x - a.x, b.y - a.y); }

} // namespace

MeasuredLine::MeasuredLine(const PixelLine& given)
{
    for (const TXPoint& point : given)
    {
        const double step = points.empty() ? 0.0 : DistanceOf(points.back(), point);
        if (!points.empty() && step == 0.0)
            continue;
        distances.push_back(points.empty() ? 0.0 : distances.back() + step);
        points.push_back(point);
    }
    usable = points.size() > 1 && std::isfinite(distances.back());
}

std::size_t MeasuredLine::SegmentAt(double distance) const
{
    const auto behind = std::upper_bound(distances.begin() + 1, distances.end() - 1, distance);
    return static_cast<std::size_t>(behind - distances.begin()) - 1;
}

TXPoint MeasuredLine::PointAt(double distance) const { return PointBeside(distance, 0.0); }

TXPoint MeasuredLine::PointBeside(double distance, double side) const
{
    const std::size_t segment = SegmentAt(distance);
    const TXPoint& a = points[segment];
    const TXPoint& b = points[segment + 1];
    const double length = distances[segment + 1] - distances[segment];
    const double part = (distance - distances[segment]) / length;
    const double beside = side / length;
    return {a.x + (b.x - a.x) * part - (b.y - a.y) * beside, a.y + (b.y - a.y) * part + (b.x - a.x) * beside};
}

double MeasuredLine::Nearest(const TXPoint& point) const
{
    double nearest = 0.0;
    double least = std::numeric_limits<double>::infinity();
    for (std::size_t i = 0; i + 1 < points.size(); ++i)
    {
        const TXPoint& a = points[i];
        const TXPoint& b = points[i + 1];
        const double length = distances[i + 1] - distances[i];
        const double along = ((point.x - a.x) * (b.x - a.x) + (point.y - a.y) * (b.y - a.y)) / length;
        const double distance = distances[i] + std::clamp(along, 0.0, length);
        const double off = DistanceOf(point, PointAt(distance));
        if (off >= least)
            continue;
        least = off;
        nearest = distance;
    }
    return nearest;
}

MeasuredLine MeasuredLine::Reversed() const { return MeasuredLine(PixelLine(points.rbegin(), points.rend())); }

MeasuredLine MeasuredLine::Moved(double side) const
{
    return MeasuredLine(OffsetLine(points.data(), points.size(), side));
}

double MeasuredLine::TurnAt(std::size_t corner) const
{
    const TXPoint& a = points[corner];
    const TXPoint& b = points[corner + 1];
    const TXPoint& c = points[corner + 2];
    const double cross = (b.x - a.x) * (c.y - b.y) - (b.y - a.y) * (c.x - b.x);
    const double dot = (b.x - a.x) * (c.x - b.x) + (b.y - a.y) * (c.y - b.y);
    return std::abs(std::atan2(cross, dot));
}

std::size_t MeasuredLine::FirstCornerBehind(double distance) const
{
    const auto behind = std::upper_bound(distances.begin() + 1, distances.end() - 1, distance);
    return static_cast<std::size_t>(behind - distances.begin()) - 1;
}

} // namespace txmap
