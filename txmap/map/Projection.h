#pragma once

#include <optional>
#include <string>

#include <txbase/TXPoint.h>

namespace txmap
{

/// A map projection in which meridians and parallels are straight lines, so that a box of degrees is a box on the map.
///
/// Longitudes are not wrapped: 190 lies to the right of 180, by the same distance as on any other meridian.
class Projection
{
public:
    /// By the name of a coordinate system, "EPSG:4326" or "EPSG:3857" in any case; nothing for every other name.
    static std::optional<Projection> FromName(const std::string& name);

    /// Degrees of longitude and latitude, used as they are.
    static Projection PlateCarree() { return Projection(false); }
    /// The spherical Mercator projection of web maps, in metres.
    static Projection WebMercator() { return Projection(true); }

    /// The name of its coordinate system.
    const char* Name() const { return mercator ? "EPSG:3857" : "EPSG:4326"; }
    /// Map coordinates (x to the right, y upward) of a place in degrees. Beyond the latitudes that a map shows, results
    /// stay finite and outside the map.
    TZObjects::TXPoint Forward(double longitude, double latitude) const;
    /// Degrees, as (longitude, latitude), of map coordinates.
    TZObjects::TXPoint Inverse(double x, double y) const;
    /// The northernmost latitude of a map; the southernmost is its negative. The poles, or for the Mercator projection
    /// the latitude that makes the world a square.
    double MaxLatitude() const;

private:
    explicit Projection(bool mercator) : mercator(mercator) {}

    bool mercator;
};

} // namespace txmap
