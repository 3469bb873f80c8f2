#pragma once

#include <optional>
#include <string>
#include <vector>

#include <txbase/TXPoint.h>
#include <txbase/TXString.h>
#include <txmap/style/Color.h>
#include <txmap/symbols/text/TextStyle.h>

namespace txmap
{

class SymbolFace;
class SymbolFonts;

/// A letter of a piece that is drawn by itself.
struct PieceLetter
{
    const TZObjects::TXString* text = nullptr; ///< The face has it.
    double left = 0.0;                         ///< From the piece's origin, along its baseline, in pixels.
};

/// Letters of one look side by side. Lengths are in pixels, from the top left of the block.
struct TextPiece
{
    TZObjects::TXString text; ///< Certainly plain for every drawing operation.
    /// Where letters neither join nor change their order, each of them: backends keep outlines of letters, which many
    /// texts share. Empty where the text is shaped and drawn whole.
    std::vector<PieceLetter> letters;
    const SymbolFace* face = nullptr;
    double size = 0.0;
    double spacing = 0.0;      ///< After each letter of a text that is drawn whole, in ems.
    TZObjects::TXPoint origin; ///< The left end of the baseline.
    double width = 0.0;
    double angle = 0.0;         ///< About the origin, clockwise, in degrees: 0, or 90 for what is turned in a column.
    std::optional<Color> color; ///< None: that of the ink.
};

/// A picture among letters.
struct ImagePiece
{
    std::string image;
    TZObjects::TXPoint topLeft; ///< In pixels, from the top left of the block.
    double width = 0.0;
    double height = 0.0;
};

/// A text in lines. Its box is as wide as the widest line, and as high as the lines' heights together, whatever ink is
/// in them.
struct TextBlock
{
    std::vector<TextPiece> pieces;
    std::vector<ImagePiece> images;
    double width = 0.0; ///< In pixels.
    double height = 0.0;
    std::size_t lines = 0;
    double size = 0.0; ///< That of the style.

    bool IsEmpty() const { return pieces.empty() && images.empty(); }
};

/// Breaks a text into lines of about the same width and places its letters. Straight text is shaped whole, a run of one
/// look in a line at a time; its order is that of the Unicode bidirectional algorithm.
///
/// Explicit line breaks hold. Else lines break at spaces, hyphens and the like, between ideographs, and at zero-width
/// spaces.
/// @throw Failure with `ExitCode::Drawing` when the backend refused to measure.
TextBlock LayOutText(const std::vector<TextSection>& sections, const TextStyle& style, SymbolFonts& fonts);

/// True when a text has letters that stand upright in a column: others are not set in columns.
bool CanBeVertical(const std::vector<TextSection>& sections);

} // namespace txmap
