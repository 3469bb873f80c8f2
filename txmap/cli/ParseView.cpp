#include <txmap/cli/ParseView.h>

#include <cmath>
#include <vector>

#include <txmap/cli/OptionValues.h>

namespace txmap
{
namespace
{

constexpr int kMaxSide = 16384;
constexpr double kSmallestBox = 1e-6;

} // namespace

PixelSize ParseSize(const std::string& text)
{
    const std::vector<int> sides = NumbersIn<int>(text, 'x');
    if (sides.size() != 2)
        Refuse("--size", text, "must be WIDTHxHEIGHT in pixels, such as 2048x1024");
    for (const int side : sides)
        if (side < 1 || side > kMaxSide)
            Refuse("--size", text, "each side must be from 1 to " + std::to_string(kMaxSide) + " pixels");
    return {sides[0], sides[1]};
}

GeoBox ParseBox(const std::string& text, const Projection& projection)
{
    const std::vector<double> edges = NumbersIn<double>(text, ',');
    if (edges.size() != 4)
        Refuse("--bbox", text, "must be WEST,SOUTH,EAST,NORTH in degrees, such as -10,35,30,60");
    GeoBox box{edges[0], edges[1], edges[2], edges[3]};
    // Written so that a NaN is refused as well.
    if (!(std::abs(box.west) <= 360.0 && std::abs(box.east) <= 360.0))
        Refuse("--bbox", text, "longitudes must be from -360 to 360");
    if (!(box.south >= -90.0 && box.north <= 90.0 && box.north - box.south >= kSmallestBox))
        Refuse("--bbox", text, "SOUTH must be less than NORTH, both from -90 to 90");
    if (box.east < box.west)
        box.east += 360.0;
    if (!(box.east - box.west >= kSmallestBox && box.east - box.west <= 360.0))
        Refuse("--bbox", text, "must be up to 360 degrees wide, and not empty");
    const double maxLatitude = projection.MaxLatitude();
    if (box.north <= kSmallestBox - maxLatitude || box.south >= maxLatitude - kSmallestBox)
        Refuse("--bbox", text, "lies beyond the outermost latitudes of the projection");
    return box;
}

double ParseScale(const std::string& text)
{
    const std::vector<double> scale = NumbersIn<double>(text, ',');
    if (scale.size() != 1 || !(scale[0] >= 0.25 && scale[0] <= 16.0))
        Refuse("--scale", text, "must be a number from 0.25 to 16");
    return scale[0];
}

double ParseGraticule(const std::string& text)
{
    const std::vector<double> step = NumbersIn<double>(text, ',');
    if (step.size() != 1 || !(step[0] >= 0.0 && step[0] <= 90.0))
        Refuse("--graticule", text, "must be a number of degrees from 0 to 90");
    return step[0];
}

} // namespace txmap
