#include <txmap/drawing/layers/PixelSampler.h>

#include <algorithm>
#include <cmath>

namespace txmap
{
namespace
{

std::uint32_t Byte(double value) { return static_cast<std::uint32_t>(std::lround(std::clamp(value, 0.0, 255.0))); }

double Between(double a, double b, double position) { return a + (b - a) * position; }

SampledColor Between(const SampledColor& a, const SampledColor& b, double position)
{
    return {Between(a.red, b.red, position), Between(a.green, b.green, position), Between(a.blue, b.blue, position),
            Between(a.alpha, b.alpha, position)};
}

long Wrapped(long index, long count)
{
    const long rest = index % count;
    return rest < 0 ? rest + count : rest;
}

} // namespace

std::uint32_t SampledColor::Packed() const
{
    return Byte(alpha) << 24 | Byte(red) << 16 | Byte(green) << 8 | Byte(blue);
}

SampledColor PixelSampler::Pixel(long x, long y) const
{
    const long width = raster.size.width;
    const long height = raster.size.height;
    const long column = beyond == Beyond::Repeat ? Wrapped(x, width) : std::clamp(x, 0L, width - 1);
    const long row = beyond == Beyond::Repeat ? Wrapped(y, height) : std::clamp(y, 0L, height - 1);
    const std::uint32_t pixel = raster.pixels[static_cast<std::size_t>(row * width + column)];
    const double alpha = pixel >> 24;
    const double part = alpha / 255.0;
    return {(pixel >> 16 & 255) * part, (pixel >> 8 & 255) * part, (pixel & 255) * part, alpha};
}

SampledColor PixelSampler::At(double x, double y) const
{
    if (!linear)
        return Pixel(static_cast<long>(std::floor(x)), static_cast<long>(std::floor(y)));
    const double left = std::floor(x - 0.5);
    const double top = std::floor(y - 0.5);
    const auto column = static_cast<long>(left);
    const auto row = static_cast<long>(top);
    const double across = x - 0.5 - left;
    return Between(Between(Pixel(column, row), Pixel(column + 1, row), across),
                   Between(Pixel(column, row + 1), Pixel(column + 1, row + 1), across), y - 0.5 - top);
}

} // namespace txmap
