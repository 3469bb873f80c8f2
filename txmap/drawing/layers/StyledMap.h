#pragma once

#include <txmap/drawing/layers/LayerScene.h>

namespace txmap
{

/// Draws the layers of a style, one over the other.
/// @param evaluating gets the time that expressions take.
void DrawLayers(MapCanvas& canvas, const MapStyle& style, const MapData& data, Stopwatch& evaluating);

} // namespace txmap
