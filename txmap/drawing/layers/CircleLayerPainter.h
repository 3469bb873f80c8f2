#pragma once

namespace txmap
{

struct LayerScene;

/// Draws circles at the points of features.
void DrawCircleLayer(const LayerScene& scene);

} // namespace txmap
