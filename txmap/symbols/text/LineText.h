#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include <txbase/TXPoint.h>
#include <txmap/map/LineShape.h>
#include <txmap/symbols/text/TextBlock.h>

namespace txmap
{

/// Letters that stay together along a line: a letter with its marks, a syllable of a script that reorders. Letters that
/// join have the form that they have beside their neighbours.
struct LineCluster
{
    TextPiece piece;      ///< Its origin is seen from the middle of its advance, on the line.
    double advance = 0.0; ///< In pixels.
    bool upright = false; ///< An ideograph or the like: on a steep line it stands upright.
};

/// A text to be set along a line, of one line whatever its length.
struct LineText
{
    std::vector<LineCluster> clusters; ///< From the left as they are seen: right-to-left text in its order.
    double length = 0.0;               ///< In pixels, all clusters together.
    double size = 0.0;                 ///< That of the style.

    bool IsEmpty() const { return clusters.empty(); }
};

/// Pictures in sections are left out: they do not follow lines.
/// @throw Failure with `ExitCode::Drawing` when the backend refused to measure.
LineText MakeLineText(const std::vector<TextSection>& sections, const TextStyle& style, SymbolFonts& fonts);

/// How a text follows a line.
struct LineFit
{
    double maxAngle = 45.0;   ///< In degrees: how much the line may turn within a letter's width or so.
    bool keepUpright = true;  ///< Turns the text about where it would stand upside down.
    double alongOffset = 0.0; ///< In pixels, in reading direction.
    double sideOffset = 0.0;  ///< In pixels, towards below the text.
};

/// A cluster in its place.
struct FittedCluster
{
    std::size_t cluster = 0; ///< In `LineText::clusters`.
    TZObjects::TXPoint at;   ///< The middle of its advance, on the line.
    double angle = 0.0;      ///< In degrees, clockwise.
};

/// What a text along a line covers is a chain of circles.
struct LineCircle
{
    TZObjects::TXPoint center;
    double radius = 0.0;
};

struct FittedText
{
    std::vector<FittedCluster> clusters;
    std::vector<LineCircle> circles;
    bool turned = false; ///< Whether it runs against the direction of the line.
};

/// Sets a text along a line, in pixels of the picture. Ideographs go down a line that is steeper than it is wide, and
/// stand upright, where texts are kept upright.
/// @param anchor how far from the start of the line the middle of the text lies.
/// @return nothing when the line is too short there, turns too much, or a number is not finite.
std::optional<FittedText> FitAlong(const LineText& text, const PixelLine& line, double anchor, const LineFit& fit);

} // namespace txmap
