#pragma once

#include <vector>

#include <txbase/TXPoint.h>
#include <txbase/TXRect.h>
#include <txgraphics/TXGraphics.h>
#include <txmap/style/Color.h>
#include <txmap/symbols/text/LetterPencil.h>
#include <txmap/symbols/text/LineText.h>
#include <txmap/symbols/text/TextBlock.h>

namespace TZObjects
{
class TXGraphicsEngine;
} // namespace TZObjects

namespace txmap
{

/// What letters are drawn with.
struct TextInk
{
    Color color;          ///< Of letters whose section has none of its own.
    double opacity = 1.0; ///< Of letters and halo.
    Color haloColor{0.0, 0.0, 0.0, 0.0};
    double haloWidth = 0.0; ///< How far it reaches beyond the letters, in pixels; at most a quarter of the size.
    double haloBlur = 0.0;  ///< By how much its edge is washed out, in pixels; at most a quarter of the size.
};

/// Draws texts on a surface with a selected image. It leaves the surface as it found it when it ends. As long as it
/// lives, nobody else selects a pen, a font or a text path there: it does so only where another one is wanted than the
/// last. Images may be drawn in between.
///
/// A halo is drawn under all letters of a text. One that lets the map through is not seen through the letters: it is
/// drawn on an image of its own, and the letters are cut out of it.
///
/// Every operation throws a `Failure` with `ExitCode::Drawing` when the backend refuses. What has numbers that are not
/// finite, or lies farther from the picture than a million pixels, is not drawn.
class TextPainter
{
public:
    /// Both must outlive the painter.
    TextPainter(TZObjects::TXGraphicsEngine& engine, TZObjects::TXGraphics& surface);

    /// Draws the letters of a block; its pictures are the caller's.
    /// @param at where in the picture the origin comes to lie.
    /// @param origin a point of the block, from its top left; the block is turned about it.
    /// @param angle in degrees, clockwise.
    void Draw(const TextBlock& block, const TZObjects::TXPoint& at, const TZObjects::TXPoint& origin, double angle,
              const TextInk& ink);
    /// Draws a text along a line, as it was fitted.
    void Draw(const LineText& text, const FittedText& fitted, const TextInk& ink);

private:
    void Draw(const std::vector<PlacedLetters>& letters, double size, const TextInk& ink);
    void DrawHalo(const std::vector<PlacedLetters>& letters, double size, const TextInk& ink);

    TZObjects::TXGraphicsEngine& engine;
    TZObjects::TXGraphics& surface;
    TZObjects::TXRect picture;
    LetterPencil pencil;
};

} // namespace txmap
