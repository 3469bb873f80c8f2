#pragma once

#include <string>

#include <txmap/map/GeoBox.h>
#include <txmap/map/Projection.h>

namespace txmap
{

/// Reads the value of --size. @throw Failure with `ExitCode::Usage`.
PixelSize ParseSize(const std::string& text);

/// Reads the value of --bbox. East comes out greater than west, beyond 180 where the box crosses the date line.
/// @throw Failure with `ExitCode::Usage`, also for a box in which the projection shows nothing.
GeoBox ParseBox(const std::string& text, const Projection& projection);

/// Reads the value of --graticule. @throw Failure with `ExitCode::Usage`.
double ParseGraticule(const std::string& text);

/// Reads the value of --scale. @throw Failure with `ExitCode::Usage`.
double ParseScale(const std::string& text);

} // namespace txmap
