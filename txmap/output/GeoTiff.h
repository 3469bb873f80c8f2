#pragma once

#include <string>

#include <txmap/output/GeoReference.h>

namespace txmap
{

/// Writes a picture again as a GeoTIFF: the same pixels, compressed without loss, in tiles. GDAL must know its drivers.
/// @param picture a file that GDAL reads. @param path where the GeoTIFF is to be; a file there is replaced.
/// @param name what it is called in messages.
/// @throw Failure with `ExitCode::Drawing` when that fails.
void WriteGeoTiff(const std::string& picture, const std::string& path, const std::string& name,
                  const GeoReference& reference);

} // namespace txmap
