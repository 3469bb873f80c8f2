#include <txmap/cli/ParseView.h>

#include <vector>

#include <txmap/cli/OptionValues.h>
#include <txmap/map/BoxRules.h>

namespace txmap
{
namespace
{

constexpr int kMaxSide = 16384;

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
    if (const std::string problem = CompleteBox(box, projection.MaxLatitude()); !problem.empty())
        Refuse("--bbox", text, problem);
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
