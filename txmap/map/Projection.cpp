#include <txmap/map/Projection.h>

#include <algorithm>
#include <cctype>

namespace txmap
{

using TZObjects::TXPoint;

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

TXPoint Projection::ToWorld(double longitude, double latitude) const
{
    if (mercator)
        return ToMercator(longitude, latitude);
    return {longitude / 360.0 + 0.5, 0.5 - std::clamp(latitude, -90.0, 90.0) / 360.0};
}

TXPoint Projection::ToDegrees(const TXPoint& place) const
{
    if (mercator)
        return FromMercator(place);
    return {(place.x - 0.5) * 360.0, (0.5 - place.y) * 360.0};
}

MercatorBox Projection::ToWorld(const GeoBox& box) const
{
    const TXPoint northWest = ToWorld(box.west, box.north);
    const TXPoint southEast = ToWorld(box.east, box.south);
    return {northWest.x, northWest.y, southEast.x, southEast.y};
}

GeoBox Projection::ToDegrees(const MercatorBox& box) const
{
    const TXPoint northWest = ToDegrees(TXPoint(box.left, box.top));
    const TXPoint southEast = ToDegrees(TXPoint(box.right, box.bottom));
    return {northWest.x, southEast.y, southEast.x, northWest.y};
}

} // namespace txmap
