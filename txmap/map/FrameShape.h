#pragma once

#include <vector>

#include <txbase/TXPoint.h>
#include <txbase/TXRect.h>

namespace txmap
{

struct MapLayer;

/// What a map is cut to, in pixels: closed rings, of which odd-even is inside.
class FrameShape
{
public:
    /// A rectangle with rounded corners. A radius of more than half its shorter side becomes that half.
    static FrameShape RoundedRectangle(const TZObjects::TXRect& rect, double radius);
    /// One ring of at least three corners; the last one is joined with the first.
    static FrameShape Polygon(std::vector<TZObjects::TXPoint> corners);
    /// All areas of a layer.
    static FrameShape Areas(const MapLayer& layer);

    /// True when nothing of a rectangle can lie inside: there is no ring with an area about it.
    bool Misses(const TZObjects::TXRect& rect) const;
    /// True when all of a box lies inside.
    bool Contains(const TZObjects::TXRect& box) const { return SideOf(box) == Side::Inside; }
    /// True when all of a box lies outside.
    bool Avoids(const TZObjects::TXRect& box) const { return SideOf(box) == Side::Outside; }
    /// The smallest rectangle around all rings.
    const TZObjects::TXRect& Bounds() const { return bounds; }

    /// The corners of all rings, one ring after another. Each ring ends with its first corner.
    const std::vector<TZObjects::TXPoint>& Points() const { return points; }
    /// How many corners each ring has.
    const std::vector<int>& Counts() const { return counts; }

private:
    enum class Side
    {
        Inside,
        Outside,
        Both
    };

    Side SideOf(const TZObjects::TXRect& box) const;
    void Add(std::vector<TZObjects::TXPoint> ring);
    template <class Visit>
    void ForEachEdge(Visit visit) const;

    std::vector<TZObjects::TXPoint> points;
    std::vector<int> counts;
    TZObjects::TXRect bounds;
};

} // namespace txmap
