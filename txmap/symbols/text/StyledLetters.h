#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include <txmap/symbols/text/TextStyle.h>

namespace txmap
{

class SymbolFace;
class SymbolFonts;

/// The look that the letters of a section share.
struct LetterLook
{
    const SymbolFace* face = nullptr;
    const TextSection* section = nullptr;
    double scale = 1.0; ///< Of letters against the size of the style.

    bool IsImage() const { return !section->image.empty(); }
};

/// A text with the look of each letter. A picture is one letter, U+FFFC.
struct StyledLetters
{
    std::wstring letters;
    std::vector<std::size_t> look; ///< For each letter, in `looks`.
    std::vector<LetterLook> looks;
    /// In ems of the style's size, spaces between letters included. Of letters with marks all stands at the first
    /// character, and marks have 0.
    std::vector<double> advances;
    double spacing = 0.0;     ///< Between letters, in ems of the style's size.
    bool rightToLeft = false; ///< Whether there is any letter of such a script.
};

/// The style with the size that is drawn: cairo draws sizes in whole pixels.
TextStyle WithUsableSize(TextStyle style);

/// True when sizes and distances of a style are such that letters can be seen.
bool IsVisible(const TextStyle& style);

/// Puts the sections of a text together. It keeps pointers to the sections. Sections whose scale is not above 0 and
/// those without text and picture are left out.
StyledLetters MakeStyledLetters(const std::vector<TextSection>& sections, const TextStyle& style, SymbolFonts& fonts);

} // namespace txmap
