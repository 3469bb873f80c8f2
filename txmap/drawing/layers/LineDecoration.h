#pragma once

#include <cstddef>

#include <txmap/drawing/layers/LineLook.h>
#include <txmap/map/LineShape.h>

namespace txmap
{

/// Draws a line whose colour changes along it.
/// @param span where the piece lies on the whole line, from 0 to 1. @param gradient the colour by that place.
void DrawGradientLine(const LayerScene& scene, const TZObjects::TXPoint* points, std::size_t count,
                      const LineLook& look, const LineSpan& span, const Expression& gradient);

} // namespace txmap
