#pragma once

#include <cstddef>

#include <txmap/drawing/layers/LineLook.h>
#include <txmap/map/LineShape.h>
#include <txmap/sources/Sprites.h>

namespace txmap
{

/// Draws a line whose colour changes along it.
/// @param span where the piece lies on the whole line, from 0 to 1. @param gradient the colour by that place.
void DrawGradientLine(const LayerScene& scene, const TZObjects::TXPoint* points, std::size_t count,
                      const LineLook& look, const LineSpan& span, const Expression& gradient);

/// Lays a picture along a line, again and again, as high as the line is wide at most.
void DrawPatternLine(const LayerScene& scene, const PixelLine& line, const LineLook& look,
                     const SpritePicture& picture);

} // namespace txmap
