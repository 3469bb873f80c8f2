#pragma once

#include <cstdint>

#include <txbase/TXPoint.h>
#include <txmap/drawing/layers/IconPainter.h>

namespace txmap
{

/// The pixels of an icon in its place.
class IconPixels
{
public:
    /// All must outlive this object; the other parameters are those of `IconPainter::Draw`.
    IconPixels(const IconShape& shape, const TZObjects::TXPoint& at, double angle, double scale, const IconInk& ink);

    /// True when each pixel of the picture is one of the map, once it is moved to whole pixels.
    bool IsPixelForPixel() const;
    /// What it covers, edges washed out by antialiasing included.
    TZObjects::TXRect Box() const;
    /// The colour at the middle of a pixel: 0xAARRGGBB, premultiplied.
    std::uint32_t At(const TZObjects::TXPoint& point) const;

private:
    struct Sample
    {
        double red = 0.0, green = 0.0, blue = 0.0, alpha = 0.0; ///< Premultiplied, from 0 to 1.
    };
    Sample Picture(const TZObjects::TXPoint& point) const;
    Sample Pixel(long x, long y) const;
    Sample Coloured(double distance) const;

    const IconShape& shape;
    TZObjects::TXPoint at;
    double angle;
    double cosine;
    double sine;
    double scale;
    const IconInk& ink;
    int samples; ///< So many in each direction make a pixel of the map, if the picture is much denser.
};

} // namespace txmap
