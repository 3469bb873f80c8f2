#include <txmap/labels/LabelFonts.h>

#include <algorithm>
#include <utility>

#include <txgraphics/TXGraphicsEngine.h>
#include <txmap/labels/LetterRuns.h>
#include <txmap/support/Failure.h>

namespace txmap
{

using TZObjects::TXFont;
using TZObjects::TXGraphicsEngine;
using TZObjects::TXRefPtr;
using TZObjects::TXString;

namespace
{

// How far letters without accents reach above the baseline, as a part of the text's size, in all usual faces.
constexpr double kTallestLetter = 0.8;

} // namespace

void RequireLabel(bool done)
{
    if (!done)
        throw Failure(ExitCode::Drawing, "the plugin refused to draw a label");
}

LabelFonts::LabelFonts(TXGraphicsEngine& engine, std::string face, TextPath path)
    : engine(engine), face(std::move(face)), path(path)
{
}

TXRefPtr<TXFont> LabelFonts::FontFor(const LabelLook& look)
{
    TXRefPtr<TXFont>& font = fonts[{look.size, look.spacing}];
    if (font)
        return font;
    font = TXRefPtr<TXFont>(engine.NewFont());
    RequireLabel(font && font->Create());
    font->SetFontName(face.c_str());
    font->SetFontHeight(look.size);
    // Runs of letters have their spaces between them.
    font->SetWordSpacing(path == TextPath::Qt ? look.spacing : 0.0);
    return font;
}

LabelExtent LabelFonts::Measure(const LabelText& text, const LabelLook& look)
{
    const TXRefPtr<TXFont> font = FontFor(look);
    LabelExtent extent;
    if (path == TextPath::Cairo)
        extent = LetterRuns(*font, look.spacing).Measure(VisibleText(text));
    else if (text.rich)
        RequireLabel(font->GetTextExtent(text.text, extent.width, extent.height, true));
    else
        extent = MeasureLines(text.text, look);
    extent.height -= BlankAbove(text, look);
    return extent;
}

LabelExtent LabelFonts::MeasureLines(const TXString& text, const LabelLook& look)
{
    const TXRefPtr<TXFont> font = FontFor(look);
    LabelExtent extent;
    RequireLabel(font->GetMultiTextExtent(text, extent.width, extent.height, true));
    if (look.spacing == 0.0)
        return extent;
    // Those are the bounds, which Qt measures without the spaces between letters.
    for (const TXString& line : text.split(L'\n'))
    {
        LabelExtent advance;
        RequireLabel(font->GetTextExtent(line, advance.width, advance.height, true));
        extent.width = std::max(extent.width, advance.width - look.spacing);
    }
    return extent;
}

double LabelFonts::BlankAbove(const LabelText& text, const LabelLook& look)
{
    const std::wstring letters = text.text.toStdWString();
    const bool plain = std::all_of(letters.begin(), letters.end(), [](wchar_t c) { return c < 0x80; });
    if (text.rich || !plain)
        return 0.0;
    double height = 0.0;
    double ascent = 0.0;
    double descent = 0.0;
    FontFor(look)->GetFontMetricsInfo(height, ascent, descent, path == TextPath::Qt);
    return std::max(0.0, ascent - kTallestLetter * look.size);
}

} // namespace txmap
