#pragma once

#include <txmap/drawing/layers/LineLook.h>
#include <txmap/map/LineShape.h>
#include <txmap/sources/Sprites.h>

namespace txmap
{

/// Lays a picture along a line, again and again, as high as the line is wide.
void DrawPatternLine(const LayerScene& scene, const PixelLine& line, const LineLook& look,
                     const SpritePicture& picture);

} // namespace txmap
