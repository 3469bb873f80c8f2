#pragma once

#include <vector>

#include <txmap/map/MapLayer.h>
#include <txmap/style/Value.h>

namespace txmap
{

class AtlasSources;
struct AtlasOptions;
struct Style;

/// Adds layers for the names of an atlas to its style: for areas a source of its own, with a point in the largest part
/// of each and the size that its name has in the atlas; for places their own source.
/// @param layers what is visible of the sources of land, in their order.
void AddNameLayers(Json& document, const AtlasOptions& options, const Style& style, const AtlasSources& sources,
                   const std::vector<MapLayer>& layers);

} // namespace txmap
