#pragma once

#include <cstddef>
#include <vector>

#include <txbase/TXPoint.h>

namespace txmap
{

/// A polygon in the points of a feature: its outer ring and the holes that follow. Rings are closed.
struct PolygonRings
{
    struct Ring
    {
        const TZObjects::TXPoint* points = nullptr;
        std::size_t count = 0;
    };
    std::vector<Ring> rings;
};

/// The point in a polygon from which its edge is farthest.
/// @param precision a point that is better by less than this is as good.
TZObjects::TXPoint PoleOfInaccessibility(const PolygonRings& polygon, double precision);

} // namespace txmap
