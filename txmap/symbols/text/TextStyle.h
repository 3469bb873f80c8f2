#pragma once

#include <optional>
#include <string>
#include <vector>

#include <txmap/labels/TextPath.h>
#include <txmap/style/Color.h>

namespace txmap
{

/// Which edges of lines meet.
enum class TextJustify
{
    Left,
    Center,
    Right
};

enum class WritingMode
{
    Horizontal,
    Vertical ///< Columns from right to left: ideographs stand upright, all else is turned clockwise.
};

/// How a text is laid out. A size that is not above 0, and
/// other numbers that are not finite, give a block without letters.
struct TextStyle
{
    std::vector<std::string> fontStack; ///< Names of faces, tried in order; see `SymbolFonts`.
    double size = 16.0;                 ///< In pixels of the picture; fractions count.
    double letterSpacing = 0.0;         ///< In ems. Texts with letters that join ignore it.
    double lineHeight = 1.2;            ///< In ems.
    double maxWidth = 10.0;             ///< In ems. 0 breaks lines wherever it can, a negative number and
                                        ///< infinity only where the text has line breaks.
    TextJustify justify = TextJustify::Center;
    WritingMode mode = WritingMode::Horizontal;
    TextPath engine = TextPath::Qt; ///< What measures and draws.
};

/// Where a section stands in a line of greater height.
enum class SectionAlign
{
    Bottom,
    Center,
    Top
};

/// A part of a text that has a look of its own, or a picture.
struct TextSection
{
    std::string text;                   ///< In UTF-8. What is broken becomes a replacement character.
    double scale = 1.0;                 ///< Multiplies the size.
    std::vector<std::string> fontStack; ///< Empty: that of the style.
    std::optional<Color> color;         ///< None: that of the ink.
    std::string image;                  ///< The name of a picture, which stands instead of the text; empty for none.
    double imageWidth = 0.0;            ///< In pixels of the picture, before the scale.
    double imageHeight = 0.0;
    SectionAlign align = SectionAlign::Bottom;
};

/// Longer texts are cut, and end with an ellipsis.
constexpr std::size_t kLongestText = 500;

} // namespace txmap
