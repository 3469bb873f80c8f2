#include <txmap/drawing/layers/IconPixels.h>

#include <algorithm>
#include <cmath>

#include <txmap/sources/Sprites.h>

namespace txmap
{

using TZObjects::TXPoint;
using TZObjects::TXRect;

namespace
{

constexpr double kPi = 3.141592653589793;

// Distance fields: the value at the edge of a shape, and by how many pixels a value of 1 is more than one of 0.
constexpr double kEdge = 0.75;
constexpr double kFieldPixels = 8.0;
// Half the width of an edge, as a value of the field.
constexpr double kEdgeWidth = 0.105;
// How much a pixel of blur washes out an edge, in pixels.
constexpr double kBlurFactor = 1.19;

double SmoothStep(double from, double to, double value)
{
    const double part = std::clamp((value - from) / std::max(to - from, 1e-9), 0.0, 1.0);
    return part * part * (3.0 - 2.0 * part);
}

/// Where in the picture a place in the map lies, in one direction. Beyond the ends the last stretch goes on.
double PictureOf(const std::vector<IconStop>& stops, double place)
{
    std::size_t i = 1;
    while (i + 1 < stops.size() && place > stops[i].place)
        ++i;
    const IconStop& a = stops[i - 1];
    const IconStop& b = stops[i];
    const double length = b.place - a.place;
    return length > 0.0 ? a.picture + (place - a.place) * (b.picture - a.picture) / length : b.picture;
}

/// The most pixels of the picture for one of the map.
double Density(const std::vector<IconStop>& stops)
{
    double density = 0.0;
    for (std::size_t i = 1; i < stops.size(); ++i)
        if (const double length = stops[i].place - stops[i - 1].place; length > 0.0)
            density = std::max(density, (stops[i].picture - stops[i - 1].picture) / length);
    return density;
}

std::uint32_t Byte(double value)
{
    return static_cast<std::uint32_t>(std::lround(std::clamp(value, 0.0, 1.0) * 255.0));
}

} // namespace

IconPixels::IconPixels(const IconShape& shape, const TXPoint& at, double angle, double scale, const IconInk& ink)
    : shape(shape), at(at), angle(angle), cosine(std::cos(angle * kPi / 180.0)), sine(std::sin(angle * kPi / 180.0)),
      scale(scale), ink(ink),
      samples(static_cast<int>(
          std::clamp(std::floor(std::max(Density(shape.across), Density(shape.down)) / 1.5 + 0.3), 1.0, 6.0)))
{
}

bool IconPixels::IsPixelForPixel() const
{
    const auto isExact = [](const std::vector<IconStop>& stops) {
        return std::abs(stops.back().place - stops.front().place - (stops.back().picture - stops.front().picture)) <
               1e-6;
    };
    return angle == 0.0 && !shape.picture->isDistanceField && isExact(shape.across) && isExact(shape.down) &&
           shape.across.size() == 2 && shape.down.size() == 2;
}

TXRect IconPixels::Box() const
{
    TXRect box = shape.Box();
    // Half a pixel of the picture on each side passes into nothing.
    const double edge = 1.0 + 0.5 * std::max((box.right - box.left) / std::max(1, shape.picture->pixels.size.width),
                                             (box.bottom - box.top) / std::max(1, shape.picture->pixels.size.height));
    box = TurnedBox({box.left - edge, box.right + edge, box.top - edge, box.bottom + edge}, angle);
    return {box.left + at.x, box.right + at.x, box.top + at.y, box.bottom + at.y};
}

IconPixels::Sample IconPixels::Pixel(long x, long y) const
{
    const Raster& raster = shape.picture->pixels;
    if (x < 0 || y < 0 || x >= raster.size.width || y >= raster.size.height)
        return {};
    const std::uint32_t pixel = raster.pixels[static_cast<std::size_t>(y * raster.size.width + x)];
    const double alpha = (pixel >> 24) / 255.0;
    const double part = alpha / 255.0;
    return {(pixel >> 16 & 255) * part, (pixel >> 8 & 255) * part, (pixel & 255) * part, alpha};
}

IconPixels::Sample IconPixels::Picture(const TXPoint& point) const
{
    const double dx = point.x - at.x;
    const double dy = point.y - at.y;
    const double x = PictureOf(shape.across, dx * cosine + dy * sine) - 0.5;
    const double y = PictureOf(shape.down, dy * cosine - dx * sine) - 0.5;
    if (!(x > -1.0 && y > -1.0 && x < shape.picture->pixels.size.width && y < shape.picture->pixels.size.height))
        return {};
    const double left = std::floor(x);
    const double top = std::floor(y);
    const auto column = static_cast<long>(left);
    const auto row = static_cast<long>(top);
    Sample sum;
    for (const long right : {0L, 1L})
        for (const long below : {0L, 1L})
        {
            const double part = (right != 0 ? x - left : 1.0 - x + left) * (below != 0 ? y - top : 1.0 - y + top);
            const Sample pixel = Pixel(column + right, row + below);
            sum.red += pixel.red * part;
            sum.green += pixel.green * part;
            sum.blue += pixel.blue * part;
            sum.alpha += pixel.alpha * part;
        }
    return sum;
}

IconPixels::Sample IconPixels::Coloured(double distance) const
{
    const double edge = kEdgeWidth / scale;
    const double fill = SmoothStep(kEdge - edge, kEdge + edge, distance) * ink.color.alpha;
    Sample result{ink.color.red * fill, ink.color.green * fill, ink.color.blue * fill, fill};
    if (ink.haloWidth <= 0.0 || ink.haloColor.alpha <= 0.0)
        return result;
    // The halo leaves the shape free, which may be translucent.
    const double haloEdge = ink.haloBlur * kBlurFactor / kFieldPixels / scale + edge;
    const double end = kEdge - ink.haloWidth / kFieldPixels / scale;
    const double inside = SmoothStep(kEdge, kEdge + 2.0 * haloEdge, distance);
    const double halo =
        std::min(SmoothStep(end - haloEdge, end + haloEdge, distance), 1.0 - inside) * ink.haloColor.alpha;
    const double below = halo * (1.0 - fill);
    result.red += ink.haloColor.red * below;
    result.green += ink.haloColor.green * below;
    result.blue += ink.haloColor.blue * below;
    result.alpha += below;
    return result;
}

std::uint32_t IconPixels::At(const TXPoint& point) const
{
    Sample sum;
    for (int i = 0; i < samples; ++i)
        for (int k = 0; k < samples; ++k)
        {
            const Sample one = Picture({point.x + (i + 0.5) / samples - 0.5, point.y + (k + 0.5) / samples - 0.5});
            sum.red += one.red;
            sum.green += one.green;
            sum.blue += one.blue;
            sum.alpha += one.alpha;
        }
    const double part = 1.0 / (samples * samples);
    if (shape.picture->isDistanceField)
    {
        sum = Coloured(sum.alpha * part);
        return Byte(sum.alpha) << 24 | Byte(sum.red) << 16 | Byte(sum.green) << 8 | Byte(sum.blue);
    }
    return Byte(sum.alpha * part) << 24 | Byte(sum.red * part) << 16 | Byte(sum.green * part) << 8 |
           Byte(sum.blue * part);
}

} // namespace txmap
