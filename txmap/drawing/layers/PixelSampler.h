#pragma once

#include <cstdint>

#include <txmap/sources/Raster.h>

namespace txmap
{

/// A colour with its opacity multiplied in, each from 0 to 255.
struct SampledColor
{
    double red = 0.0;
    double green = 0.0;
    double blue = 0.0;
    double alpha = 0.0;

    /// 0xAARRGGBB, premultiplied.
    std::uint32_t Packed() const;
};

/// Takes colours from a raster between its pixels.
class PixelSampler
{
public:
    enum class Beyond
    {
        Edge,  ///< Beyond the raster, its edge goes on.
        Repeat ///< The raster repeats.
    };

    PixelSampler(const Raster& raster, bool linear, Beyond beyond) : raster(raster), linear(linear), beyond(beyond) {}

    /// The colour at a point; pixel (0, 0) has its centre at (0.5, 0.5).
    SampledColor At(double x, double y) const;

private:
    SampledColor Pixel(long x, long y) const;

    const Raster& raster;
    bool linear;
    Beyond beyond;
};

} // namespace txmap
