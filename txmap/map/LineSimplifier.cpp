#include <txmap/map/LineSimplifier.h>

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace txmap
{

using TZObjects::TXPoint;

namespace
{

// Points of a picture are far from where squares overflow, and the standard function is several times slower.
double Length(const TXPoint& way) { return std::sqrt(way.x * way.x + way.y * way.y); }

double Cross(const TXPoint& a, const TXPoint& b) { return a.x * b.y - a.y * b.x; }

/// The directions from a point that pass all points after it closely.
class Cone
{
public:
    Cone(const TXPoint& apex, double distance) : apex(apex), distance(distance) {}

    /// Whether a line straight to a point passes all those before, and does not turn back before it.
    bool Holds(const TXPoint& point) const
    {
        const TXPoint way = WayTo(point);
        return Length(way) >= farthest && (!isOpen || (Cross(right, way) >= 0.0 && Cross(way, left) >= 0.0));
    }
    void Add(const TXPoint& point)
    {
        const TXPoint way = WayTo(point);
        const double length = Length(way);
        farthest = std::max(farthest, length);
        // All directions pass what is as close as this.
        if (length <= distance)
            return;
        const double sine = distance / length;
        const double cosine = std::sqrt(1.0 - sine * sine);
        const TXPoint toRight{way.x * cosine + way.y * sine, way.y * cosine - way.x * sine};
        const TXPoint toLeft{way.x * cosine - way.y * sine, way.y * cosine + way.x * sine};
        if (!isOpen || Cross(right, toRight) > 0.0)
            right = toRight;
        if (!isOpen || Cross(toLeft, left) > 0.0)
            left = toLeft;
        isOpen = true;
    }

private:
    TXPoint WayTo(const TXPoint& point) const { return {point.x - apex.x, point.y - apex.y}; }

    TXPoint apex;
    double distance;
    double farthest = 0.0;
    bool isOpen = false;
    TXPoint right; ///< Where the cone begins, counter-clockwise in coordinates whose y grows upward.
    TXPoint left;
};

} // namespace

void DropStraightPoints(std::vector<TXPoint>& line, double distance)
{
    if (line.size() < 3)
        return;
    std::size_t kept = 1;
    Cone cone(line.front(), distance);
    TXPoint before = line.front();
    for (std::size_t i = 1; i < line.size(); ++i)
    {
        const TXPoint point = line[i];
        if (i > 1 && !cone.Holds(point))
        {
            line[kept++] = before;
            cone = Cone(before, distance);
        }
        cone.Add(point);
        before = point;
    }
    line[kept++] = before;
    line.resize(kept);
}

} // namespace txmap
