#pragma once

#include <optional>
#include <string>

#include <txmap/map/GeoBox.h>

namespace txmap
{

/// The degrees that a georeferenced raster covers; nothing when they cannot be told.
std::optional<GeoBox> RasterExtent(const std::string& file);

} // namespace txmap
