#pragma once

#include <vector>

#include <txbase/TXPoint.h>
#include <txbase/TXRect.h>
#include <txmap/map/MapLayer.h>

namespace txmap
{

/// What a picture shows of an area, in pixels: its rings, cut off at an edge, as precise as labels need it. Inside is
/// what is drawn as inside, odd-even.
class VisibleShape
{
public:
    /// @param layer the layer that holds the area.
    /// @param area the area.
    /// @param frame what is visible.
    VisibleShape(const MapLayer& layer, const Area& area, const TZObjects::TXRect& frame);
    /// From rings, cut off at the edges of @p frame.
    VisibleShape(const std::vector<std::vector<TZObjects::TXPoint>>& rings, const TZObjects::TXRect& frame);

    /// True when nothing with an area is visible.
    bool IsEmpty() const { return rings.empty(); }
    /// The sum over all parts, in square pixels. Holes, which are rare and small, count as well.
    double Size() const { return size; }
    /// The bounds of everything that is visible.
    const TZObjects::TXRect& Bounds() const { return bounds; }
    /// The bounds of the largest part.
    const TZObjects::TXRect& LargestPart() const { return largestPart; }
    /// The centre of gravity of the largest part, which may lie outside of it.
    const TZObjects::TXPoint& Centre() const { return centre; }
    bool Contains(const TZObjects::TXPoint& point) const;
    /// How far a point is from the nearest edge when distances along x are multiplied by @p xFactor; negative outside.
    double DistanceToEdge(const TZObjects::TXPoint& point, double xFactor) const;

private:
    void Add(std::vector<TZObjects::TXPoint> ring, const TZObjects::TXRect& frame);

    std::vector<std::vector<TZObjects::TXPoint>> rings;
    TZObjects::TXRect bounds;
    TZObjects::TXRect largestPart;
    TZObjects::TXPoint centre;
    double largestSize = 0.0;
    double size = 0.0;
};

} // namespace txmap
