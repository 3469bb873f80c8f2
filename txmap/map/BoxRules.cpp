#include <txmap/map/BoxRules.h>

#include <cmath>

namespace txmap
{
namespace
{

constexpr double kSmallestBox = 1e-6;

} // namespace

std::string CompleteBox(GeoBox& box, double maxLatitude)
{
    // Written so that a NaN is refused as well.
    if (!(std::abs(box.west) <= 360.0 && std::abs(box.east) <= 360.0))
        return "longitudes must be from -360 to 360";
    if (!(box.south >= -90.0 && box.north <= 90.0 && box.north - box.south >= kSmallestBox))
        return "SOUTH must be less than NORTH, both from -90 to 90";
    if (box.east < box.west)
        box.east += 360.0;
    if (!(box.east - box.west >= kSmallestBox && box.east - box.west <= 360.0))
        return "must be up to 360 degrees wide, and not empty";
    if (box.north <= kSmallestBox - maxLatitude || box.south >= maxLatitude - kSmallestBox)
        return "lies beyond the outermost latitudes of the projection";
    return {};
}

} // namespace txmap
