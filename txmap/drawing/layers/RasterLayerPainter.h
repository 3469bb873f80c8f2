#pragma once

namespace txmap
{

struct LayerScene;

/// Draws pictures, with other colours if the style says so.
void DrawRasterLayer(const LayerScene& scene);

} // namespace txmap
