#pragma once

#include <txmap/render/RenderOptions.h>
#include <txmap/render/StyleFile.h>

namespace txmap
{

/// Reads a style and its data, draws the map and writes the picture.
/// @param warn takes what is wrong with a picture although it can be drawn, and @p tell takes what was asked for.
/// @throw Failure when there is no picture.
void RenderMap(const RenderOptions& options, const MessageSink& warn, const MessageSink& tell);

} // namespace txmap
