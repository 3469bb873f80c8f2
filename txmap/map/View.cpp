#include <txmap/map/View.h>

#include <algorithm>
#include <cmath>

namespace txmap
{

using TZObjects::TXPoint;

namespace
{

// More than half the width of the widest line, so that no cut edge of a clipped shape can be seen.
constexpr double kClipMargin = 32.0;

PixelSize SizeFor(double width, double height)
{
    const double side = View::kDefaultSide;
    const double factor = side / std::max(width, height);
    const auto pixels = [&](double length) { return std::max(1, static_cast<int>(std::lround(length * factor))); };
    return {pixels(width), pixels(height)};
}

} // namespace

GeoBox GeoBox::Grown(double factor) const
{
    const double dx = (east - west) * factor;
    const double dy = (north - south) * factor;
    return {west - dx, south - dy, east + dx, north + dy};
}

View::View(Projection projection, const std::optional<GeoBox>& box, const std::optional<PixelSize>& size)
    : projection(projection)
{
    const double maxLatitude = projection.MaxLatitude();
    GeoBox shown = box.value_or(GeoBox{-180.0, -maxLatitude, 180.0, maxLatitude});
    shown = shown.Shifted(-360.0 * std::ceil(((shown.west + shown.east) / 2.0 - 180.0) / 360.0));
    shown.south = std::max(shown.south, -maxLatitude);
    shown.north = std::min(shown.north, maxLatitude);

    const TXPoint low = projection.Forward(shown.west, shown.south);
    const TXPoint high = projection.Forward(shown.east, shown.north);
    const double mapWidth = high.x - low.x;
    const double mapHeight = high.y - low.y;
    this->size = size.value_or(SizeFor(mapWidth, mapHeight));
    scale = std::min(this->size.width / mapWidth, this->size.height / mapHeight);
    origin = {(low.x + high.x - this->size.width / scale) / 2.0, (low.y + high.y + this->size.height / scale) / 2.0};

    const double centre = (shown.west + shown.east) / 2.0;
    const TXPoint topLeft = ToPixel(centre - 180.0, maxLatitude);
    const TXPoint bottomRight = ToPixel(centre + 180.0, -maxLatitude);
    frame = {std::max(0.0, std::round(topLeft.x)), std::min<double>(this->size.width, std::round(bottomRight.x)),
             std::max(0.0, std::round(topLeft.y)), std::min<double>(this->size.height, std::round(bottomRight.y))};

    const TXPoint northWest = ToDegrees(frame.left, frame.top);
    const TXPoint southEast = ToDegrees(frame.right, frame.bottom);
    visible = {northWest.x, southEast.y, southEast.x, northWest.y};
    const TXPoint outerNorthWest = ToDegrees(frame.left - kClipMargin, frame.top - kClipMargin);
    const TXPoint outerSouthEast = ToDegrees(frame.right + kClipMargin, frame.bottom + kClipMargin);
    clipBox = {outerNorthWest.x, outerSouthEast.y, outerSouthEast.x, outerNorthWest.y};
}

} // namespace txmap
