#pragma once

#include <functional>
#include <string>

namespace txmap
{

struct AtlasOptions;

/// Reads the data, draws the map and writes the picture.
/// @param warn takes what is wrong with a picture although it can be drawn.
/// @throw Failure when there is no picture, or not the one that was asked for.
void DrawAtlas(const AtlasOptions& options, const std::function<void(const std::string&)>& warn);

} // namespace txmap
