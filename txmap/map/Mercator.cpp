#include <txmap/map/Mercator.h>

#include <algorithm>
#include <cmath>

namespace txmap
{

using TZObjects::TXPoint;

namespace
{

constexpr double kPi = 3.141592653589793;

} // namespace

TXPoint ToMercator(double longitude, double latitude)
{
    // The poles lie infinitely far away. Everything beyond the square goes to its edge, as it does in web maps, so that
    // Antarctica ends with the picture and not with a spike.
    const double sine = std::sin(std::clamp(latitude, -90.0, 90.0) * kPi / 180.0);
    const double y = 0.5 - 0.25 * std::log((1.0 + sine) / (1.0 - sine)) / kPi;
    return {longitude / 360.0 + 0.5, std::clamp(y, 0.0, 1.0)};
}

TXPoint FromMercator(const TXPoint& place)
{
    return {(place.x - 0.5) * 360.0, std::atan(std::sinh((0.5 - place.y) * 2.0 * kPi)) * 180.0 / kPi};
}

} // namespace txmap
