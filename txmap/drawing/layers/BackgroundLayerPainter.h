#pragma once

namespace txmap
{

struct LayerScene;

/// Covers the picture with a colour or a pattern.
void DrawBackgroundLayer(const LayerScene& scene);

} // namespace txmap
