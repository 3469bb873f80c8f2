#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include <txmap/map/MapView.h>

namespace txmap
{

/// A raster as a picture shows it.
struct Raster
{
    PixelSize size;                    ///< That of the picture.
    std::vector<std::uint32_t> pixels; ///< 0xAARRGGBB, not premultiplied, row by row.

    /// True when no pixel is visible.
    bool IsBlank() const;
};

/// Reads a georeferenced raster in the projection, the part of the world and the size of a view, on both sides of the
/// date line. Where the raster has no data it is transparent. Values of more than a byte are stretched between those
/// that two of a hundred fall below and exceed, over the whole raster and all of its colours alike.
/// @param name what the file is called in messages.
/// @throw Failure with `ExitCode::Data` when GDAL cannot.
Raster ReadRaster(const std::string& file, const MapView& view, const std::string& name);

} // namespace txmap
