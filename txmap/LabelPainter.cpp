#include <txmap/LabelPainter.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <utility>

#include <txgraphics/TXGraphicsEngine.h>
#include <txgraphics/TXPen.h>
#include <txmap/Failure.h>

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

LabelPainter::LabelPainter(TXGraphicsEngine& engine, TXGraphics& surface, std::string face)
    : engine(engine), surface(surface), face(std::move(face))
{
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
    font->SetWordSpacing(look.spacing);
    return font;
}

LabelExtent LabelPainter::Measure(const LabelText& text, const LabelLook& look)
{
    const TXRefPtr<TXFont> font = FontFor(look);
    LabelExtent extent;
    Require(text.rich ? font->GetTextExtent(text.text, extent.width, extent.height, true)
                      : font->GetMultiTextExtent(text.text, extent.width, extent.height, true));
    extent.height -= BlankAbove(text, look);
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
    FontFor(look)->GetFontMetricsInfo(height, ascent, descent, true);
    return std::max(0.0, ascent - kTallestLetter * look.size);
}

TXPoint LabelPainter::TopLeft(const PlacedLabel& label)
{
    return {label.box.left, label.box.top - BlankAbove(label.text, label.look)};
}

void LabelPainter::Draw(const std::vector<PlacedLabel>& labels)
{
    for (const PlacedLabel& label : labels)
        label.text.rich ? DrawRich(label) : DrawPlain(label);
}

void LabelPainter::DrawPlain(const PlacedLabel& label)
{
    const TXRefPtr<TXFont> font = FontFor(label.look);
    // The halo is a stroke along the outlines, the inner half of which the letters cover.
    const auto stroke = static_cast<int>(std::lround(2.0 * label.look.halo.width));
    if (stroke < 1)
    {
        DrawLetters(label, TopLeft(label), label.look.color);
        return;
    }
    font->SetFontHaloWidth(stroke);
    font->SetFontHaloColor(label.look.halo.color);
    surface.SelectFont(font);
    const TXPoint topLeft = TopLeft(label);
    Require(surface.DrawOutlineString(topLeft.x, topLeft.y, TXGraphics::TextAlignTop, TXGraphics::TextAlignHCenter,
                                      label.text.text, label.look.color, 0.0, 0.0, 1.0));
}

void LabelPainter::DrawRich(const PlacedLabel& label)
{
    // Outlined text is drawn without its formatting, so the halo is made of the label itself, moved about.
    constexpr double kTurn = 6.283185307179586;
    constexpr int kDirections = 16;
    const double halo = label.look.halo.width;
    for (int i = 0; i < kDirections && halo > 0.0; ++i)
    {
        const double angle = kTurn * i / kDirections;
        DrawLetters(label, {label.box.left + halo * std::cos(angle), label.box.top + halo * std::sin(angle)},
                    label.look.halo.color);
    }
    DrawLetters(label, TopLeft(label), label.look.color);
}

void LabelPainter::DrawLetters(const PlacedLabel& label, const TXPoint& topLeft, const TXColor& color)
{
    TXRefPtr<TXPen> pen(engine.NewPen());
    Require(pen && pen->Create(TXPen::SolidLine, 1.0, color, TXPen::RoundCap, TXPen::RoundJoin));
    surface.SelectPen(pen);
    surface.SelectFont(FontFor(label.look));
    Require(surface.DrawString(topLeft.x, topLeft.y, TXGraphics::TextAlignTop, TXGraphics::TextAlignHCenter,
                               label.text.text, 0.0, 0.0, 1.0));
}

} // namespace TZObjects
