#include <txmap/map/FrameShape.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <utility>

#include <txmap/map/MapLayer.h>
#include <txmap/map/PixelGeometry.h>

namespace txmap
{

using TZObjects::TXPoint;
using TZObjects::TXRect;

namespace
{

constexpr double kQuarterTurn = 1.5707963267948966;
// Corners this far apart, in pixels, make a circle of any size look round.
constexpr double kArcStep = 4.0;
constexpr double kMostArcSteps = 256.0;

/// True when all points lie on one line.
bool IsFlat(const std::vector<TXPoint>& ring)
{
    const TXPoint& origin = ring[0];
    const auto farthest = std::max_element(
        ring.begin(), ring.end(),
        [&](const TXPoint& a, const TXPoint& b)
        { return std::hypot(a.x - origin.x, a.y - origin.y) < std::hypot(b.x - origin.x, b.y - origin.y); });
    const TXPoint along{farthest->x - origin.x, farthest->y - origin.y};
    const double length = std::hypot(along.x, along.y);
    return std::all_of(ring.begin(), ring.end(),
                       [&](const TXPoint& point)
                       {
                           const double cross = (point.x - origin.x) * along.y - (point.y - origin.y) * along.x;
                           return std::abs(cross) <= 1e-6 * length;
                       });
}

/// Narrows the part of an edge, from 0 to 1, to where `start + part * step` lies between two limits.
bool Narrow(double start, double step, double low, double high, double& from, double& to)
{
    if (step == 0.0)
        return start >= low && start <= high;
    const auto [enter, leave] = std::minmax({(low - start) / step, (high - start) / step});
    from = std::max(from, enter);
    to = std::min(to, leave);
    return from <= to;
}

bool Touches(const TXPoint& a, const TXPoint& b, const TXRect& box)
{
    double from = 0.0;
    double to = 1.0;
    return Narrow(a.x, b.x - a.x, box.left, box.right, from, to) &&
           Narrow(a.y, b.y - a.y, box.top, box.bottom, from, to);
}

} // namespace

FrameShape FrameShape::RoundedRectangle(const TXRect& rect, double radius)
{
    const double r = std::clamp(radius, 0.0, std::max(0.0, std::min(rect.Width(), rect.Height()) / 2.0));
    const int steps = static_cast<int>(std::clamp(std::ceil(r * kQuarterTurn / kArcStep), 1.0, kMostArcSteps));
    const TXPoint centres[] = {{rect.right - r, rect.top + r},
                               {rect.right - r, rect.bottom - r},
                               {rect.left + r, rect.bottom - r},
                               {rect.left + r, rect.top + r}};
    std::vector<TXPoint> ring;
    for (int corner = 0; corner < 4; ++corner)
        for (int i = 0; i <= steps; ++i)
        {
            const double angle = kQuarterTurn * (corner - 1 + static_cast<double>(i) / steps);
            ring.emplace_back(centres[corner].x + r * std::cos(angle), centres[corner].y + r * std::sin(angle));
        }
    return Polygon(std::move(ring));
}

FrameShape FrameShape::Polygon(std::vector<TXPoint> corners)
{
    FrameShape shape;
    shape.Add(std::move(corners));
    return shape;
}

FrameShape FrameShape::Areas(const MapLayer& layer)
{
    FrameShape shape;
    const TXPoint* point = layer.areaPoints.data();
    for (const int count : layer.ringSizes)
    {
        shape.Add({point, point + count});
        point += count;
    }
    return shape;
}

void FrameShape::Add(std::vector<TXPoint> ring)
{
    if (ring.size() < 3 || IsFlat(ring))
        return;
    if (ring.front().x != ring.back().x || ring.front().y != ring.back().y)
        ring.push_back(ring.front());
    const TXRect box = BoundsOf(ring);
    bounds = counts.empty() ? box : United(bounds, box);
    points.insert(points.end(), ring.begin(), ring.end());
    counts.push_back(static_cast<int>(ring.size()));
}

template <class Visit>
void FrameShape::ForEachEdge(Visit visit) const
{
    const TXPoint* point = points.data();
    for (const int count : counts)
    {
        for (int i = 1; i < count; ++i)
            visit(point[i - 1], point[i]);
        point += count;
    }
}

bool FrameShape::Misses(const TXRect& rect) const { return counts.empty() || bounds.Disjoint(rect); }

FrameShape::Side FrameShape::SideOf(const TXRect& box) const
{
    // What no edge touches lies on one side as a whole.
    const TXPoint centre{(box.left + box.right) / 2.0, (box.top + box.bottom) / 2.0};
    bool touched = false;
    bool inside = false;
    ForEachEdge(
        [&](const TXPoint& a, const TXPoint& b)
        {
            touched = touched || Touches(a, b, box);
            inside = Crosses(centre, a, b) ? !inside : inside;
        });
    return touched ? Side::Both : inside ? Side::Inside : Side::Outside;
}

} // namespace txmap
