#include <txmap/drawing/LabelPainter.h>

#include <cmath>

#include <txgraphics/TXGraphics.h>
#include <txgraphics/TXGraphicsEngine.h>
#include <txgraphics/TXPen.h>
#include <txmap/drawing/Canvas.h>
#include <txmap/labels/HaloCopies.h>
#include <txmap/labels/LetterRuns.h>
#include <txmap/support/Failure.h>

namespace txmap
{

using TZObjects::TXColor;
using TZObjects::TXFont;
using TZObjects::TXGraphics;
using TZObjects::TXPen;
using TZObjects::TXPoint;
using TZObjects::TXRefPtr;
using TZObjects::TXString;

LabelPainter::LabelPainter(Canvas& canvas, LabelFonts& fonts) : canvas(canvas), fonts(fonts)
{
    TXGraphics& surface = canvas.Surface();
    const bool wanted = fonts.Path() == TextPath::Cairo;
    // Switched on over the pixels that the surface has by now, cairo has its settings for fonts, too.
    surface.EnableCairoDrawing(false);
    surface.EnableCairoDrawing(wanted);
    // The labels are made for the one path, and may mean something else, or much work, to the other.
    if (surface.CairoDrawingEnabled() != wanted)
        throw Failure(ExitCode::Drawing, "the plugin cannot draw labels by the --text that was asked for");
}

TXPoint LabelPainter::TopLeft(const PlacedLabel& label)
{
    return {label.box.left, label.box.top - fonts.BlankAbove(label.text, label.look)};
}

void LabelPainter::Draw(const std::vector<PlacedLabel>& labels)
{
    for (const PlacedLabel& label : labels)
        if (fonts.Path() == TextPath::Cairo)
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
    const TXRefPtr<TXFont> font = fonts.FontFor(look);
    font->SetFontHaloWidth(stroke);
    font->SetFontHaloColor(look.halo.color);
    canvas.Surface().SelectFont(font);
    RequireLabel(canvas.Surface().DrawOutlineString(topLeft.x, topLeft.y, TXGraphics::TextAlignTop,
                                                    TXGraphics::TextAlignHCenter, label.text.text, look.color, 0.0, 0.0,
                                                    1.0));
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
    const std::vector<LetterRun> runs = LetterRuns(*fonts.FontFor(look), look.spacing).Break(VisibleText(label.text));
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
    TXRefPtr<TXPen> pen(canvas.Engine().NewPen());
    RequireLabel(pen && pen->Create(TXPen::SolidLine, 1.0, color, TXPen::RoundCap, TXPen::RoundJoin));
    canvas.Surface().SelectPen(pen);
    canvas.Surface().SelectFont(fonts.FontFor(look));
    RequireLabel(canvas.Surface().DrawString(topLeft.x, topLeft.y, TXGraphics::TextAlignTop,
                                             TXGraphics::TextAlignHCenter, text, 0.0, 0.0, 1.0));
}

} // namespace txmap
