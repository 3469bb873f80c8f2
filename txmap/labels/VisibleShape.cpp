#include <txmap/labels/VisibleShape.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

#include <txmap/map/PixelGeometry.h>

namespace txmap
{

using TZObjects::TXPoint;
using TZObjects::TXRect;

namespace
{

// Corners closer together than this do not move a label.
constexpr double kFinest = 0.75;

double SizeOf(const std::vector<TXPoint>& ring)
{
    double twice = 0.0;
    for (std::size_t i = 0, last = ring.size() - 1; i < ring.size(); last = i++)
        twice += ring[last].x * ring[i].y - ring[i].x * ring[last].y;
    return std::abs(twice) / 2.0;
}

/// The centre of gravity of a ring with an area.
TXPoint CentreOf(const std::vector<TXPoint>& ring)
{
    // Relative to a corner, so that nothing is lost far from the origin.
    const TXPoint& origin = ring[0];
    double sum = 0.0;
    double x = 0.0;
    double y = 0.0;
    for (std::size_t i = 2; i < ring.size(); ++i)
    {
        const TXPoint a{ring[i - 1].x - origin.x, ring[i - 1].y - origin.y};
        const TXPoint b{ring[i].x - origin.x, ring[i].y - origin.y};
        const double cross = a.x * b.y - b.x * a.y;
        sum += cross;
        x += cross * (a.x + b.x) / 3.0;
        y += cross * (a.y + b.y) / 3.0;
    }
    return {origin.x + x / sum, origin.y + y / sum};
}

/// Keeps what lies on one side of a line: where @p depth, a linear function of a point, is not negative.
template <class Depth>
std::vector<TXPoint> CutOff(const std::vector<TXPoint>& ring, Depth depth)
{
    std::vector<TXPoint> kept;
    kept.reserve(ring.size());
    for (std::size_t i = 0, last = ring.size() - 1; i < ring.size(); last = i++)
    {
        const double from = depth(ring[last]);
        const double to = depth(ring[i]);
        if ((from < 0.0) != (to < 0.0))
        {
            const double part = from / (from - to);
            kept.emplace_back(ring[last].x + part * (ring[i].x - ring[last].x),
                              ring[last].y + part * (ring[i].y - ring[last].y));
        }
        if (to >= 0.0)
            kept.push_back(ring[i]);
    }
    return kept;
}

std::vector<TXPoint> Thinned(const std::vector<TXPoint>& ring)
{
    std::vector<TXPoint> thin;
    for (const TXPoint& point : ring)
        if (thin.empty() || std::abs(point.x - thin.back().x) + std::abs(point.y - thin.back().y) >= kFinest)
            thin.push_back(point);
    return thin;
}

double SquaredDistance(const TXPoint& point, const TXPoint& from, const TXPoint& to, double xFactor)
{
    const double dx = (to.x - from.x) * xFactor;
    const double dy = to.y - from.y;
    const double px = (point.x - from.x) * xFactor;
    const double py = point.y - from.y;
    const double length = dx * dx + dy * dy;
    const double along = length > 0.0 ? std::clamp((px * dx + py * dy) / length, 0.0, 1.0) : 0.0;
    const double x = px - along * dx;
    const double y = py - along * dy;
    return x * x + y * y;
}

} // namespace

VisibleShape::VisibleShape(const MapLayer& layer, const Area& area, const TXRect& frame)
{
    const TXPoint* point = layer.areaPoints.data() + area.firstPoint;
    for (int i = 0; i < area.rings; ++i)
    {
        const int count = layer.ringSizes[area.firstRing + static_cast<std::size_t>(i)];
        Add({point, point + count}, frame);
        point += count;
    }
}

VisibleShape::VisibleShape(const std::vector<std::vector<TXPoint>>& rings, const TXRect& frame)
{
    for (const std::vector<TXPoint>& ring : rings)
        Add(ring, frame);
}

void VisibleShape::Add(std::vector<TXPoint> ring, const TXRect& frame)
{
    if (ring.empty() || BoundsOf(ring).Disjoint(frame))
        return;
    ring = Thinned(ring);
    ring = CutOff(ring, [&](const TXPoint& point) { return point.x - frame.left; });
    ring = ring.empty() ? ring : CutOff(ring, [&](const TXPoint& point) { return frame.right - point.x; });
    ring = ring.empty() ? ring : CutOff(ring, [&](const TXPoint& point) { return point.y - frame.top; });
    ring = ring.empty() ? ring : CutOff(ring, [&](const TXPoint& point) { return frame.bottom - point.y; });
    const double ringSize = ring.size() < 3 ? 0.0 : SizeOf(ring);
    if (!(ringSize > 0.0))
        return;
    const TXRect ringBounds = BoundsOf(ring);
    bounds = rings.empty() ? ringBounds : United(bounds, ringBounds);
    size += ringSize;
    if (ringSize > largestSize)
    {
        largestSize = ringSize;
        largestPart = ringBounds;
        centre = CentreOf(ring);
    }
    rings.push_back(std::move(ring));
}

bool VisibleShape::Contains(const TXPoint& point) const
{
    bool inside = false;
    for (const std::vector<TXPoint>& ring : rings)
        for (std::size_t i = 0, last = ring.size() - 1; i < ring.size(); last = i++)
            inside = Crosses(point, ring[last], ring[i]) ? !inside : inside;
    return inside;
}

double VisibleShape::DistanceToEdge(const TXPoint& point, double xFactor) const
{
    bool inside = false;
    double nearest = std::numeric_limits<double>::max();
    for (const std::vector<TXPoint>& ring : rings)
        for (std::size_t i = 0, last = ring.size() - 1; i < ring.size(); last = i++)
        {
            inside = Crosses(point, ring[last], ring[i]) ? !inside : inside;
            nearest = std::min(nearest, SquaredDistance(point, ring[last], ring[i], xFactor));
        }
    return inside ? std::sqrt(nearest) : -std::sqrt(nearest);
}

} // namespace txmap
