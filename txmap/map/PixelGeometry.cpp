#include <txmap/map/PixelGeometry.h>

#include <algorithm>
#include <cmath>

namespace txmap
{

using TZObjects::TXPoint;
using TZObjects::TXRect;

TXRect BoundsOf(const std::vector<TXPoint>& points)
{
    TXRect bounds(points[0].x, points[0].x, points[0].y, points[0].y);
    for (const TXPoint& point : points)
        bounds = {std::min(bounds.left, point.x), std::max(bounds.right, point.x), std::min(bounds.top, point.y),
                  std::max(bounds.bottom, point.y)};
    return bounds;
}

TXRect United(const TXRect& a, const TXRect& b)
{
    return {std::min(a.left, b.left), std::max(a.right, b.right), std::min(a.top, b.top), std::max(a.bottom, b.bottom)};
}

TXRect Common(const TXRect& a, const TXRect& b)
{
    return {std::max(a.left, b.left), std::min(a.right, b.right), std::max(a.top, b.top), std::min(a.bottom, b.bottom)};
}

TXPoint OnGrid(const TXPoint& point)
{
    constexpr double kSteps = 64.0;
    const auto rounded = [](double value)
    {
        const double step = std::round(value * kSteps) / kSteps;
        return step - std::floor(step) == 0.5 ? step + 1.0 / kSteps : step;
    };
    return {rounded(point.x), rounded(point.y)};
}

std::uint64_t SpotOf(const TXPoint& point, double size)
{
    const auto number = [&](double place)
    { return static_cast<std::uint32_t>(std::lround(std::clamp(place / size, -1e9, 1e9))); };
    return std::uint64_t{number(point.x)} << 32 | number(point.y);
}

} // namespace txmap
