#pragma once

#include <txbase/TXPoint.h>

namespace txmap
{

/// Web Mercator coordinates in which the world is a square of side 1: x grows eastward from the date line, y southward
/// from the outermost latitude in the north. A place may lie a world further east or west, where x is above 1 or
/// below 0. Geometry of styled maps is kept in these; a `MapView` brings it to pixels with one affine matrix.
TZObjects::TXPoint ToMercator(double longitude, double latitude);

/// Degrees, as (longitude, latitude). Longitudes are not wrapped.
TZObjects::TXPoint FromMercator(const TZObjects::TXPoint& place);

/// The latitude at which the square of the world ends.
constexpr double kMercatorMaxLatitude = 85.051128779806604;

/// A box of Mercator coordinates; `top` is the lesser y.
struct MercatorBox
{
    double left = 0.0;
    double top = 0.0;
    double right = 1.0;
    double bottom = 1.0;

    /// True when the two have a point in common.
    bool Intersects(const MercatorBox& other) const
    {
        return left <= other.right && other.left <= right && top <= other.bottom && other.top <= bottom;
    }
    /// True when the other box lies in this one.
    bool Contains(const MercatorBox& other) const
    {
        return left <= other.left && other.right <= right && top <= other.top && other.bottom <= bottom;
    }
    bool Contains(const TZObjects::TXPoint& place) const
    {
        return left <= place.x && place.x <= right && top <= place.y && place.y <= bottom;
    }
    /// This box, so many worlds further east.
    MercatorBox Shifted(double worlds) const { return {left + worlds, top, right + worlds, bottom}; }
    /// This box, larger by so much on every side.
    MercatorBox Grown(double by) const { return {left - by, top - by, right + by, bottom + by}; }
};

} // namespace txmap
