#include <txgraphics/TXFont.h>

#include <txgraphics/KnownFontNames.h>

namespace TZObjects
{

TXFont::TXFont() = default;
TXFont::~TXFont() = default;

TXFont::TXItalicMode TXFont::GetFontItalicMode() { return italicMode; }

const TXString& TXFont::GetEnglishNameForKnownFont(const TXString& name) { return EnglishFontName(name); }

} // namespace TZObjects
