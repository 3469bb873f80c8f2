#include <txmap/map/Projection.h>

#include <algorithm>
#include <cctype>
#include <cmath>

namespace txmap
{

using TZObjects::TXPoint;

namespace
{

constexpr double kPi = 3.141592653589793;
constexpr double kRadians = kPi / 180.0;
constexpr double kEarthRadius = 6378137.0;
constexpr double kMercatorLatitude = 85.05112877980659;
// The pole itself lies infinitely far away on a Mercator map; this is as far as anything is placed.
constexpr double kFarthestLatitude = 89.0;

} // namespace

std::optional<Projection> Projection::FromName(const std::string& name)
{
    std::string upper = name;
    std::transform(upper.begin(), upper.end(), upper.begin(),
                   [](unsigned char letter) { return static_cast<char>(std::toupper(letter)); });
    if (upper == "EPSG:4326")
        return PlateCarree();
    if (upper == "EPSG:3857")
        return WebMercator();
    return std::nullopt;
}

TXPoint Projection::Forward(double longitude, double latitude) const
{
    if (!mercator)
        return {longitude, latitude};
    const double phi = std::clamp(latitude, -kFarthestLatitude, kFarthestLatitude) * kRadians;
    return {kEarthRadius * longitude * kRadians, kEarthRadius * std::asinh(std::tan(phi))};
}

TXPoint Projection::Inverse(double x, double y) const
{
    if (!mercator)
        return {x, y};
    return {x / kEarthRadius / kRadians, std::atan(std::sinh(y / kEarthRadius)) / kRadians};
}

double Projection::MaxLatitude() const { return mercator ? kMercatorLatitude : 90.0; }

} // namespace txmap
