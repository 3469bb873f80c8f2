#pragma once

namespace txmap
{

struct LayerScene;

/// Shades the relief of heights.
void DrawHillshadeLayer(const LayerScene& scene);

} // namespace txmap
