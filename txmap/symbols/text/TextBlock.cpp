#include <txmap/symbols/text/TextBlock.h>

#include <algorithm>
#include <cmath>

#include <txmap/symbols/text/PlainText.h>
#include <txmap/symbols/text/SymbolFonts.h>

namespace txmap
{

TextBlock LayOutText(const std::vector<TextSection>& sections, const TextStyle& style, SymbolFonts& fonts)
{
    TextBlock block;
    if (!(style.size > 0.0) || !std::isfinite(style.size))
        return block;
    const SymbolFace& face = fonts.Find(style.fontStack, style.engine);
    block.size = style.size;
    block.lines = 1;
    block.height = style.lineHeight * style.size;
    for (const TextSection& section : sections)
    {
        TextPiece piece;
        const std::wstring letters = VisibleLetters(section.text);
        piece.text = PlainText(letters, style.engine);
        piece.face = &face;
        piece.size = style.size;
        piece.origin = {block.width, block.height / 2.0 + 0.4375 * style.size};
        piece.width = face.Advance(piece.text) * style.size;
        piece.color = section.color;
        block.width += piece.width;
        block.pieces.push_back(piece);
    }
    return block;
}

bool CanBeVertical(const std::vector<TextSection>& sections)
{
    return std::any_of(sections.begin(), sections.end(),
                       [](const TextSection& section)
                       {
                           const std::wstring letters = VisibleLetters(section.text);
                           return std::any_of(letters.begin(), letters.end(), [](wchar_t c) { return c >= 0x2E80; });
                       });
}

} // namespace txmap
