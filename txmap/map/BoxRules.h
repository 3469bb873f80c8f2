#pragma once

#include <string>

#include <txmap/map/GeoBox.h>

namespace txmap
{

/// Checks a box of degrees that a user asks for, and moves its east behind its west where it crosses the date line.
/// @param maxLatitude the outermost latitude of the projection.
/// @return what is wrong with it; empty for nothing.
std::string CompleteBox(GeoBox& box, double maxLatitude);

} // namespace txmap
