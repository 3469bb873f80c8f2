#include <txmap/symbols/PoleOfInaccessibility.h>

#include <algorithm>
#include <cmath>
#include <queue>

#include <txbase/TXRect.h>

namespace txmap
{

using TZObjects::TXPoint;
using TZObjects::TXRect;

namespace
{

// Many more than polygons need that are not meant to be difficult.
constexpr int kMostCells = 4000;
// Bounds the time that polygons of very many points take.
constexpr double kMostSteps = 4e6;

double SquaredDistance(const TXPoint& point, const TXPoint& a, const TXPoint& b)
{
    const double dx = b.x - a.x;
    const double dy = b.y - a.y;
    const double length = dx * dx + dy * dy;
    const double part =
        length > 0.0 ? std::clamp(((point.x - a.x) * dx + (point.y - a.y) * dy) / length, 0.0, 1.0) : 0.0;
    const double x = a.x + part * dx - point.x;
    const double y = a.y + part * dy - point.y;
    return x * x + y * y;
}

/// How far a point is inside of the edge; below 0 outside.
double Depth(const PolygonRings& polygon, const TXPoint& point)
{
    bool inside = false;
    double nearest = 1e300;
    for (const PolygonRings::Ring& ring : polygon.rings)
        for (std::size_t i = 1; i < ring.count; ++i)
        {
            const TXPoint& a = ring.points[i - 1];
            const TXPoint& b = ring.points[i];
            if ((a.y > point.y) != (b.y > point.y) && point.x < (b.x - a.x) * (point.y - a.y) / (b.y - a.y) + a.x)
                inside = !inside;
            nearest = std::min(nearest, SquaredDistance(point, a, b));
        }
    return (inside ? 1.0 : -1.0) * std::sqrt(nearest);
}

struct Cell
{
    TXPoint centre;
    double half = 0.0;
    double depth = 0.0;

    Cell(const PolygonRings& polygon, const TXPoint& centre, double half)
        : centre(centre), half(half), depth(Depth(polygon, centre))
    {
    }
    /// No point in it is deeper.
    double Most() const { return depth + half * 1.4142135623730951; }
};

bool operator<(const Cell& a, const Cell& b) { return a.Most() < b.Most(); }

TXPoint Centroid(const PolygonRings::Ring& ring)
{
    // Relative to the first point, as world coordinates of small areas have few digits left.
    const TXPoint& origin = ring.points[0];
    double area = 0.0;
    double x = 0.0;
    double y = 0.0;
    for (std::size_t i = 1; i < ring.count; ++i)
    {
        const TXPoint a{ring.points[i - 1].x - origin.x, ring.points[i - 1].y - origin.y};
        const TXPoint b{ring.points[i].x - origin.x, ring.points[i].y - origin.y};
        const double part = a.x * b.y - b.x * a.y;
        area += part * 3.0;
        x += (a.x + b.x) * part;
        y += (a.y + b.y) * part;
    }
    return area == 0.0 ? origin : TXPoint(origin.x + x / area, origin.y + y / area);
}

} // namespace

TXPoint PoleOfInaccessibility(const PolygonRings& polygon, double precision)
{
    const PolygonRings::Ring& outer = polygon.rings.front();
    TXRect box{1e300, -1e300, 1e300, -1e300};
    for (std::size_t i = 0; i < outer.count; ++i)
        box = {std::min(box.left, outer.points[i].x), std::max(box.right, outer.points[i].x),
               std::min(box.top, outer.points[i].y), std::max(box.bottom, outer.points[i].y)};
    const double size = std::min(box.right - box.left, box.bottom - box.top);
    if (!(size > 0.0))
        return {box.left, box.top};

    std::size_t points = 0;
    for (const PolygonRings::Ring& ring : polygon.rings)
        points += ring.count;
    const int most = static_cast<int>(std::clamp(kMostSteps / static_cast<double>(points), 40.0, 1.0 * kMostCells));

    std::priority_queue<Cell> cells;
    // A polygon that is much longer than wide begins with larger cells.
    const double step = std::max(size, std::max(box.right - box.left, box.bottom - box.top) / 16.0);
    for (double x = box.left; x < box.right; x += step)
        for (double y = box.top; y < box.bottom; y += step)
            cells.emplace(polygon, TXPoint(x + step / 2.0, y + step / 2.0), step / 2.0);
    Cell best(polygon, Centroid(outer), 0.0);
    for (int count = 0; !cells.empty() && count < most; ++count)
    {
        const Cell cell = cells.top();
        cells.pop();
        if (cell.depth > best.depth)
            best = cell;
        if (cell.Most() - best.depth <= precision)
            break;
        const double half = cell.half / 2.0;
        for (const double dx : {-half, half})
            for (const double dy : {-half, half})
                cells.emplace(polygon, TXPoint(cell.centre.x + dx, cell.centre.y + dy), half);
    }
    return best.centre;
}

} // namespace txmap
