#pragma once

namespace txmap
{

struct LayerScene;

/// Fills areas with colours or patterns, and outlines them.
void DrawFillLayer(const LayerScene& scene);

} // namespace txmap
