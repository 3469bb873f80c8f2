#pragma once

#include <txmap/drawing/layers/LayerScene.h>

namespace txmap
{

/// Draws a layer of type symbol, as its symbols were placed.
void DrawSymbolLayer(const LayerScene& scene);

} // namespace txmap
