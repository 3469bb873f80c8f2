#pragma once

#include <txbase/TXPoint.h>
#include <txgraphics/TXGraphics.h>
#include <txmap/style/Color.h>
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
    double haloBlur = 0.0;  ///< By how much its edge is washed out, in pixels.
};

/// Draws texts on a surface. It leaves the surface as it found it when it ends: pen, font, opacity, text path.
///
/// Every operation throws a `Failure` with `ExitCode::Drawing` when the backend refuses. Numbers that are not finite
/// draw nothing.
class TextPainter
{
public:
    /// Both must outlive the painter.
    TextPainter(TZObjects::TXGraphicsEngine& engine, TZObjects::TXGraphics& surface);
    ~TextPainter();
    TextPainter(const TextPainter&) = delete;
    TextPainter& operator=(const TextPainter&) = delete;

    /// Draws the letters of a block; its pictures are the caller's.
    /// @param at where in the picture the origin comes to lie.
    /// @param origin a point of the block, from its top left; the block is turned about it.
    /// @param angle in degrees, clockwise.
    void Draw(const TextBlock& block, const TZObjects::TXPoint& at, const TZObjects::TXPoint& origin, double angle,
              const TextInk& ink);
    /// Draws a text along a line, as it was fitted.
    void Draw(const LineText& text, const FittedText& fitted, const TextInk& ink);

private:
    struct Letters;
    void DrawLetters(const std::vector<Letters>& letters, const TextInk& ink);

    TZObjects::TXGraphicsEngine& engine;
    TZObjects::TXGraphics& surface;
    bool wasCairo;
};

} // namespace txmap
