#pragma once

#include <cstdint>
#include <vector>

#include <txbase/TXRect.h>
#include <txgraphics/TXGraphics.h>
#include <txmap/symbols/text/LetterPencil.h>

namespace txmap
{

/// What an image of a halo shows.
struct HaloLook
{
    LetterHalo halo;      ///< In an opaque colour.
    double opacity = 1.0; ///< From 0 to 1.
    double blur = 0.0;    ///< In pixels: its edge becomes a ramp that reaches about so far to both sides.
};

/// Draws the halo of letters by way of an image of its own: with a soft edge, and cut out where letters are, so that
/// the map is seen through it and it is not seen through letters.
/// @param surface with a selected image. @param clip the part of the surface that can be seen, in pixels.
void DrawHaloImage(TZObjects::TXGraphicsEngine& engine, TZObjects::TXGraphics& surface, const TZObjects::TXRect& clip,
                   const std::vector<PlacedLetters>& letters, const HaloLook& look);

/// Washes out the alpha of pixels, premultiplied as `0xAARRGGBB`, which are all of one colour.
/// @param blur as in `HaloLook`.
void BlurAlpha(std::vector<std::uint32_t>& pixels, int width, int height, double blur, const TZObjects::TXColor& color);

} // namespace txmap
