#pragma once

#include <string>

#include <txmap/output/GeoReference.h>

namespace txmap
{

/// The name of the world file of a picture: the first and the last letter of its suffix, and a w, as GDAL looks for it.
std::string WorldFileName(const std::string& picture);

/// Writes a world file: six numbers, a line each, for the middle of the top left pixel and the steps from pixel to
/// pixel. @return whether that was possible.
bool WriteWorldFile(const std::string& path, const GeoReference& reference);

} // namespace txmap
