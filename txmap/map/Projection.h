#pragma once

#include <optional>
#include <string>

#include <txbase/TXPoint.h>
#include <txmap/map/GeoBox.h>
#include <txmap/map/Mercator.h>

namespace txmap
{

/// A map projection in which meridians and parallels are straight lines, so that a box of degrees is a box on the map.
///
/// Places are in world coordinates, in which the world is 1 wide: x grows eastward from the date line, y southward, and
/// the equator lies at 0.5. Longitudes are not wrapped: 190 lies to the right of 180, by the same distance as on any
/// other meridian.
class Projection
{
public:
    /// By the name of a coordinate system, "EPSG:4326" or "EPSG:3857" in any case; nothing for every other name.
    static std::optional<Projection> FromName(const std::string& name);

    /// Degrees of longitude and latitude, equally long.
    static Projection PlateCarree() { return Projection(false); }
    /// The spherical Mercator projection of web maps.
    static Projection WebMercator() { return Projection(true); }

    /// The name of its coordinate system.
    const char* Name() const { return mercator ? "EPSG:3857" : "EPSG:4326"; }
    /// The world coordinates of a place in degrees. What lies beyond the outermost latitudes goes to the edge.
    TZObjects::TXPoint ToWorld(double longitude, double latitude) const;
    MercatorBox ToWorld(const GeoBox& box) const;
    /// Degrees, as (longitude, latitude), of world coordinates.
    TZObjects::TXPoint ToDegrees(const TZObjects::TXPoint& place) const;
    GeoBox ToDegrees(const MercatorBox& box) const;
    /// The northernmost latitude of a map; the southernmost is its negative. The poles, or for the Mercator projection
    /// the latitude that makes the world a square.
    double MaxLatitude() const { return mercator ? kMercatorMaxLatitude : 90.0; }
    /// The whole world.
    MercatorBox World() const { return mercator ? MercatorBox{0.0, 0.0, 1.0, 1.0} : MercatorBox{0.0, 0.25, 1.0, 0.75}; }
    /// How many units of its coordinate system, degrees or metres, the world is wide.
    double Circumference() const { return mercator ? 40075016.685578488 : 360.0; }

private:
    explicit Projection(bool mercator) : mercator(mercator) {}

    bool mercator;
};

} // namespace txmap
