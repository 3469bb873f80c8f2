#include <txmap/style/operators/PlanarGeometry.h>

#include <algorithm>

namespace txmap
{
namespace
{

// Twice the area of a triangle, positive if it turns left.
double Area(const LonLat& a, const LonLat& b, const LonLat& c)
{
    return (b.lon - a.lon) * (c.lat - a.lat) - (c.lon - a.lon) * (b.lat - a.lat);
}

bool IsOnSegment(const LonLat& point, const LonLat& a, const LonLat& b)
{
    return Area(a, b, point) == 0.0 && (point.lon - a.lon) * (point.lon - b.lon) <= 0.0 &&
           (point.lat - a.lat) * (point.lat - b.lat) <= 0.0;
}

bool RayCrosses(const LonLat& point, const LonLat& a, const LonLat& b)
{
    return (a.lat > point.lat) != (b.lat > point.lat) &&
           point.lon < (b.lon - a.lon) * (point.lat - a.lat) / (b.lat - a.lat) + a.lon;
}

bool OppositeSides(double a, double b) { return (a > 0.0 && b < 0.0) || (a < 0.0 && b > 0.0); }

} // namespace

void Bounds::Add(const LonLat& point)
{
    if (IsEmpty())
    {
        *this = {point.lon, point.lat, point.lon, point.lat};
        return;
    }
    left = std::min(left, point.lon);
    bottom = std::min(bottom, point.lat);
    right = std::max(right, point.lon);
    top = std::max(top, point.lat);
}

bool Bounds::IsInside(const Bounds& other) const
{
    return left > other.left && right < other.right && bottom > other.bottom && top < other.top;
}

bool IsInPolygon(const LonLat& point, const PlanarPolygon& polygon, bool onOutline)
{
    bool inside = false;
    for (const LonLatGeometry::Part& ring : polygon)
        for (std::size_t i = 0; i < ring.size(); ++i)
        {
            const LonLat& a = ring[i];
            const LonLat& b = ring[i + 1 == ring.size() ? 0 : i + 1];
            if (IsOnSegment(point, a, b))
                return onOutline;
            if (RayCrosses(point, a, b))
                inside = !inside;
        }
    return inside;
}

bool SegmentsCross(const LonLat& a, const LonLat& b, const LonLat& c, const LonLat& d)
{
    // Segments that only touch, or lie on one another, do not cross.
    return OppositeSides(Area(c, d, a), Area(c, d, b)) && OppositeSides(Area(a, b, c), Area(a, b, d));
}

} // namespace txmap
