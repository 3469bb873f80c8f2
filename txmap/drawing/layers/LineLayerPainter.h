#pragma once

namespace txmap
{

struct LayerScene;

/// Strokes lines, and the outlines of areas.
void DrawLineLayer(const LayerScene& scene);

} // namespace txmap
