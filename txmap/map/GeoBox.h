#pragma once

namespace txmap
{

/// A box of degrees. `east` is greater than `west`, beyond 180 where the box crosses the date line.
struct GeoBox
{
    double west = 0.0;
    double south = 0.0;
    double east = 0.0;
    double north = 0.0;

    /// This box, moved east by so many degrees.
    GeoBox Shifted(double degrees) const { return {west + degrees, south, east + degrees, north}; }
};

/// The size of a picture in pixels.
struct PixelSize
{
    int width = 0;
    int height = 0;
};

} // namespace txmap
