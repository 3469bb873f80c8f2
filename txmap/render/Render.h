#pragma once

#include <functional>
#include <string>

#include <txmap/render/RenderOptions.h>

namespace txmap
{

/// Where messages go, one line each.
using MessageSink = std::function<void(const std::string&)>;

/// Reads a style and its data, draws the map and writes the picture.
/// @param warn takes what is wrong with a picture although it can be drawn, and @p tell takes what was asked for.
/// @throw Failure when there is no picture.
void RenderMap(const RenderOptions& options, const MessageSink& warn, const MessageSink& tell);

} // namespace txmap
