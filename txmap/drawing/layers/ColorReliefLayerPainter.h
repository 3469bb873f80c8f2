#pragma once

namespace txmap
{

struct LayerScene;

/// Colours the ground by its height.
void DrawColorReliefLayer(const LayerScene& scene);

} // namespace txmap
