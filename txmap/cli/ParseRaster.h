#pragma once

#include <string>

namespace txmap
{

/// Reads the value of --raster-opacity. @throw Failure with `ExitCode::Usage`.
double ParseRasterOpacity(const std::string& text);

/// Reads the value of --raster-blend: whether the raster multiplies. @throw Failure with `ExitCode::Usage`.
bool ParseRasterBlend(const std::string& text);

} // namespace txmap
