#include <txmap/labels/HaloCopies.h>

#include <algorithm>
#include <cmath>

namespace txmap
{

using TZObjects::TXPoint;

namespace
{

constexpr double kTurn = 6.283185307179586;
// How far copies lie apart, in pixels: no more than letters are thick. Where there are many, a wide halo hides more.
constexpr double kStep = 1.0;
constexpr double kMostRings = 16.0;
constexpr double kFewestDirections = 16.0;

} // namespace

std::vector<TXPoint> HaloCopies(double width)
{
    std::vector<TXPoint> copies;
    const double step = std::max(kStep, width / kMostRings);
    const auto rings = static_cast<int>(std::ceil(std::max(0.0, width) / step));
    for (int ring = 0; ring < rings; ++ring)
    {
        const double radius = width - ring * step;
        const auto directions = static_cast<int>(std::max(kFewestDirections, std::ceil(kTurn * radius / step)));
        for (int i = 0; i < directions; ++i)
        {
            const double angle = kTurn * i / directions;
            copies.emplace_back(radius * std::cos(angle), radius * std::sin(angle));
        }
    }
    return copies;
}

} // namespace txmap
