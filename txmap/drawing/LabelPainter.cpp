#include <txmap/drawing/LabelPainter.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <utility>

#include <txgraphics/TXGraphicsEngine.h>
#include <txgraphics/TXPen.h>
#include <txmap/drawing/HaloCopies.h>
#include <txmap/labels/LetterRuns.h>
#include <txmap/support/Failure.h>

namespace TZObjects
{
namespace
{

// How far letters without accents reach above the baseline, as a part of the text's size, in all usual faces.
constexpr double kTallestLetter = 0.8;

void Require(bool done)
{
    if (!done)
        throw Failure(ExitCode::Drawing, "the plugin refused to draw a label");
}

} // namespace

LabelPainter::LabelPainter(TXGraphicsEngine& engine, TXGraphics& surface, std::string face, TextPath path)
    : engine(engine), surface(surface), face(std::move(face)), path(path)
{
    // Switched on over the pixels that the surface has by now, cairo has its settings for fonts, too.
    surface.EnableCairoDrawing(false);
    surface.EnableCairoDrawing(path == TextPath::Cairo);
    // The labels are made for the one path, and may mean something else, or much work, to the other.
    if (surface.CairoDrawingEnabled() != (path == TextPath::Cairo))
        throw Failure(ExitCode::Drawing, "the plugin cannot draw labels by the --text that was asked for");
}

TXRefPtr<TXFont> LabelPainter::FontFor(const LabelLook& look)
{
    TXRefPtr<TXFont>& font = fonts[{look.size, look.spacing}];
    if (font)
        return font;
    font = TXRefPtr<TXFont>(engine.NewFont());
    Require(font && font->Create());
    font->SetFontName(face.c_str());
    font->SetFontHeight(look.size);
    // Runs of letters have their spaces between them.
    font->SetWordSpacing(path == TextPath::Qt ? look.spacing : 0.0);
    return font;
}

LabelExtent LabelPainter::Measure(const LabelText& text, const LabelLook& look)
{
    const TXRefPtr<TXFont> font = FontFor(look);
    LabelExtent extent;
    if (path == TextPath::Cairo)
        extent = LetterRuns(*font, look.spacing).Measure(VisibleText(text));
    else if (text.rich)
        Require(font->GetTextExtent(text.text, extent.width, extent.height, true));
    else
        extent = MeasureLines(text.text, look);
    extent.height -= BlankAbove(text, look);
    return extent;
}

LabelExtent LabelPainter::MeasureLines(const TXString& text, const LabelLook& look)
{
    const TXRefPtr<TXFont> font = FontFor(look);
    LabelExtent extent;
    Require(font->GetMultiTextExtent(text, extent.width, extent.height, true));
    if (look.spacing == 0.0)
        return extent;
    // Those are the bounds, which Qt measures without the spaces between letters.
    for (const TXString& line : text.split(L'\n'))
    {
        LabelExtent advance;
        Require(font->GetTextExtent(line, advance.width, advance.height, true));
        extent.width = std::max(extent.width, advance.width - look.spacing);
    }
    return extent;
}

double LabelPainter::BlankAbove(const LabelText& text, const LabelLook& look)
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

TXPoint LabelPainter::TopLeft(const PlacedLabel& label)
{
    return {label.box.left, label.box.top - BlankAbove(label.text, label.look)};
}

void LabelPainter::Draw(const std::vector<PlacedLabel>& labels)
{
    for (const PlacedLabel& label : labels)
        if (path == TextPath::Cairo)
            DrawRuns(label);
        else if (label.text.rich)
            DrawRich(label);
        else
            DrawPlain(label);
}

void LabelPainter::DrawPlain(const PlacedLabel& label)
{
    const LabelLook& look = label.look;
    const TXPoint topLeft = TopLeft(label);
    // The halo is a stroke along the outlines, the inner half of which the letters cover.
    const auto stroke = static_cast<int>(std::lround(2.0 * look.halo.width));
    if (stroke < 1)
    {
        DrawLetters(label.text.text, look, topLeft, look.color);
        return;
    }
    const TXRefPtr<TXFont> font = FontFor(look);
    font->SetFontHaloWidth(stroke);
    font->SetFontHaloColor(look.halo.color);
    surface.SelectFont(font);
    Require(surface.DrawOutlineString(topLeft.x, topLeft.y, TXGraphics::TextAlignTop, TXGraphics::TextAlignHCenter,
                                      label.text.text, look.color, 0.0, 0.0, 1.0));
}

void LabelPainter::DrawRich(const PlacedLabel& label)
{
    // Outlined text is drawn without its formatting, so the halo is made of the label itself, moved about.
    const TXPoint topLeft = TopLeft(label);
    for (const TXPoint& moved : HaloCopies(label.look.halo.width))
        DrawLetters(label.text.text, label.look, {topLeft.x + moved.x, topLeft.y + moved.y}, label.look.halo.color);
    DrawLetters(label.text.text, label.look, topLeft, label.look.color);
}

void LabelPainter::DrawRuns(const PlacedLabel& label)
{
    const LabelLook& look = label.look;
    const TXPoint topLeft = TopLeft(label);
    const std::vector<LetterRun> runs = LetterRuns(*FontFor(look), look.spacing).Break(VisibleText(label.text));
    const auto drawAll = [&](const TXPoint& moved, const TXColor& color)
    {
        for (const LetterRun& run : runs)
            DrawLetters(run.letters, look, {topLeft.x + run.left + moved.x, topLeft.y + run.top + moved.y}, color);
    };
    for (const TXPoint& moved : HaloCopies(look.halo.width))
        drawAll(moved, look.halo.color);
    drawAll({0.0, 0.0}, look.color);
}

void LabelPainter::DrawLetters(const TXString& text, const LabelLook& look, const TXPoint& topLeft,
                               const TXColor& color)
{
    TXRefPtr<TXPen> pen(engine.NewPen());
    Require(pen && pen->Create(TXPen::SolidLine, 1.0, color, TXPen::RoundCap, TXPen::RoundJoin));
    surface.SelectPen(pen);
    surface.SelectFont(FontFor(look));
    Require(surface.DrawString(topLeft.x, topLeft.y, TXGraphics::TextAlignTop, TXGraphics::TextAlignHCenter, text, 0.0,
                               0.0, 1.0));
}

} // namespace TZObjects
