#pragma once

#include <string>
#include <string_view>

#include <txmap/sources/Raster.h>

namespace txmap
{

/// Decodes a picture in the PNG, JPEG or WebP format, whatever its file is called.
/// @param longestSide the most pixels of a side: what claims more is refused before memory is taken.
/// @throw std::runtime_error with the reason, also for a picture that ends too early.
Raster DecodeImage(std::string_view data, int longestSide);

} // namespace txmap
