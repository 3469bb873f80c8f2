#include "Cells.h"

#include <iterator>
#include <string>

#include "Scenery.h"

namespace gallery
{

namespace
{

void PenStyles(TXGraphics& s)
{
    double y = 18.0;
    for (const TXPen::PenStyle style :
         {TXPen::SolidLine, TXPen::DashLine, TXPen::DotLine, TXPen::DashDotLine, TXPen::DashDotDotLine})
    {
        const Points line = River({16.0, y}, {260.0, y}, 1.0, 7.0);
        UsePen(s, kInk, 3.0, style, TXPen::FlatCap);
        s.Polyline(line.data(), Count(line));
        y += 28.0;
    }
}

void PenCaps(TXGraphics& s)
{
    double y = 30.0;
    for (const TXPen::PenCapStyle cap : {TXPen::FlatCap, TXPen::SquareCap, TXPen::RoundCap})
    {
        UsePen(s, kWater, 22.0, TXPen::SolidLine, cap);
        s.Line(44.0, y, 232.0, y);
        UsePen(s, kInk);
        s.Line(44.0, y, 232.0, y);
        y += 45.0;
    }
}

void DashCaps(TXGraphics& s)
{
    double y = 30.0;
    for (const TXPen::PenCapStyle cap : {TXPen::FlatCap, TXPen::SquareCap, TXPen::RoundCap})
    {
        UsePen(s, kBrick, 9.0, TXPen::DashDotLine, cap);
        s.Line(24.0, y, 252.0, y);
        y += 45.0;
    }
}

void PenJoins(TXGraphics& s)
{
    double x = 10.0;
    for (const TXPen::PenJoinStyle join : {TXPen::BevelJoin, TXPen::MiterJoin, TXPen::RoundJoin})
    {
        const Points bend = {{x + 12.0, 124.0}, {x + 40.0, 40.0}, {x + 68.0, 124.0}};
        UsePen(s, kForest, 20.0, TXPen::SolidLine, TXPen::FlatCap, join);
        s.Polyline(bend.data(), Count(bend));
        UsePen(s, kInk);
        s.Polyline(bend.data(), Count(bend));
        x += 88.0;
    }
}

void PenSteps(TXGraphics& s)
{
    const std::vector<double> patterns[] = {{6, 2}, {1, 3}, {8, 2, 1, 2}, {8, 2, 1, 2, 1, 2}, {12, 1, 3, 1}};
    double y = 18.0;
    for (const std::vector<double>& pattern : patterns)
    {
        const TXRefPtr<TXPen> pen = s.NewPen();
        pen->Create(TXPen::SolidLine, 4.0, kPlum, TXPen::FlatCap, TXPen::RoundJoin);
        pen->SetSteps(pattern);
        s.SelectPen(pen);
        const Points line = River({16.0, y}, {260.0, y}, 1.0, 7.0);
        s.Polyline(line.data(), Count(line));
        y += 28.0;
    }
}

void PenWidths(TXGraphics& s)
{
    double x = 18.0;
    for (const double width : {0.5, 1.0, 2.0, 4.0, 7.0, 11.0, 16.0})
    {
        UsePen(s, kDeepWater, width);
        const Points line = River({x, 16.0}, {x + 16.0, 134.0}, 1.0, 10.0);
        s.Polyline(line.data(), Count(line));
        x += 25.0 + width;
    }
}

void PenAlpha(TXGraphics& s)
{
    double shift = 0.0;
    for (const TXColor& color : {kBrick, kGold, kForest, kWater, kPlum})
    {
        UsePen(s, Translucent(color, 130), 18.0);
        const Points line = River({18.0, 26.0 + shift}, {258.0, 124.0 - shift}, 1.0, 20.0 - 0.2 * shift);
        s.Polyline(line.data(), Count(line));
        shift += 24.0;
    }
}

void ThinPens(TXGraphics& s)
{
    double y = 14.0;
    UseNoBrush(s);
    for (const TXPen::PenStyle style :
         {TXPen::SolidLine, TXPen::DashLine, TXPen::DotLine, TXPen::DashDotLine, TXPen::DashDotDotLine})
    {
        s.SelectPen(style);
        s.Rectangle(2.0 * y - 4.0, y, 276.0 - 4.0 * y + 8.0, 150.0 - 2.0 * y);
        y += 12.0;
    }
}

void BrushStyles(TXGraphics& s)
{
    UsePen(s, kInk);
    const TXBrush::BrushStyle styles[] = {TXBrush::SolidBrush, TXBrush::HorizontalHatch, TXBrush::VerticalHatch,
                                          TXBrush::CrossHatch};
    const TXColor colors[] = {kMeadow, kDeepWater, kForest, kBrick};
    for (int i = 0; i < 4; ++i)
    {
        UseBrush(s, colors[i], styles[i]);
        const Points parcel = Island(74.0 + i % 2 * 128.0, 40.0 + i / 2 * 70.0, 70.0, 38.0, 1.3 * i);
        s.Polygon(parcel.data(), Count(parcel));
    }
}

/// A wood, filled with repetitions of one tree.
void Texture(TXGraphics& s)
{
    const TXRefPtr<TXGraphics> tree = NewSurface(18, 18);
    tree->ClearWithColor(kMeadow);
    UsePen(*tree, kInk, 1.0);
    tree->Line(9.0, 12.0, 9.0, 16.0);
    UseBrush(*tree, kForest);
    tree->Ellipse(TXPoint(9.0, 7.0), 4, 5);

    const TXRefPtr<TXBrush> brush = s.NewBrush();
    brush->Create(kForest, TXBrush::SolidBrush);
    brush->SetTextureImage(tree->GetImage());
    s.SelectBrush(brush);
    UsePen(s, kInk, 1.5);
    const Points wood = Island(138.0, 75.0, 136.0, 74.0, 2.9);
    s.Polygon(wood.data(), Count(wood));
}

void SelectedGradient(TXGraphics& s, TXGradient* gradient)
{
    gradient->SetColorAt(0.0, kGold);
    gradient->SetColorAt(0.5, kMeadow);
    gradient->SetColorAt(1.0, kDeepWater);
    UsePen(s, kInk, 1.5);
    s.SelectGradient(gradient);
    for (const Points& island : {Island(70.0, 78.0, 68.0, 74.0, 0.3), Island(206.0, 48.0, 62.0, 46.0, 2.0),
                                 Island(202.0, 116.0, 58.0, 30.0, 4.0)})
        s.Polygon(island.data(), Count(island));
}

void Opacities(TXGraphics& s)
{
    DrawMap(s);
    UsePen(s, kInk, 1.5);
    UseBrush(s, kBrick);
    double x = 38.0;
    for (const double opacity : {0.2, 0.4, 0.6, 0.8, 1.0})
    {
        s.SetOpacity(opacity);
        s.Ellipse(x, 75.0, 44.0, 96.0, 0, true);
        x += 50.0;
    }
}

/// Each mode draws the square over the disc and the ground, on a surface of its own.
void Compositions(TXGraphics& s, int first, int last, int columns, const TXColor& ground, int alpha)
{
    const double step = 272.0 / columns;
    const int width = static_cast<int>(step) - 6;
    for (int mode = first; mode <= last; ++mode)
    {
        const TXRefPtr<TXGraphics> tile = NewSurface(width, 46);
        tile->ClearWithColor(ground);
        UseNoPen(*tile);
        UseBrush(*tile, Translucent(kDeepWater, alpha));
        tile->Ellipse(width * 0.4, 18.0, width * 0.8, 34.0, 0, true);
        tile->SetCompositionMode(static_cast<TXGraphics::TXCompositionMode>(mode));
        UseBrush(*tile, Translucent(kGold, alpha));
        tile->Rectangle(width * 0.4, 16.0, width * 0.6, 30.0);
        const double x = 5.0 + (mode - first) % columns * step;
        const double y = 8.0 + (mode - first) / columns * 72.0;
        tile->BiltTo(&s, static_cast<int>(x), static_cast<int>(y));
        Note(s, x + width / 2.0, y + 48.0, std::to_wstring(mode), 9);
    }
}

/// A shadow over half of the map.
void Multiplied(TXGraphics& s)
{
    DrawMap(s);
    s.SetCompositionMode(TXGraphics::CompositionMode_Multiply);
    UseNoPen(s);
    UseBrush(s, TXColor(168, 160, 196, 255));
    s.Ellipse(190.0, 64.0, 230.0, 150.0, -20, true);
}

void WithoutAntialiasing(TXGraphics& s)
{
    UsePen(s, kInk, 2.0);
    UseBrush(s, kMeadow);
    for (const bool smooth : {true, false})
    {
        s.EnableAntialiasing(smooth);
        const double x = smooth ? 72.0 : 204.0;
        const Points island = Island(x, 64.0, 64.0, 62.0, 5.0);
        s.Polygon(island.data(), Count(island));
        const Points river = River({x - 58.0, 138.0}, {x + 58.0, 128.0}, 2.0, 6.0);
        s.Polyline(river.data(), Count(river));
    }
}

void MovedOrigins(TXGraphics& s)
{
    const Points island = Island(10.0, 19.0, 52.0, 36.0, 3.3);
    for (const TXColor& color : {kLand, kMeadow, kForest, kWater, kDeepWater})
    {
        s.SetWindowOrg(42, 20);
        UsePen(s, kInk);
        UseBrush(s, Translucent(color, 220));
        s.Polygon(island.data(), Count(island));
    }
}

/// The state is kept for the outer islands, and what happens in between is forgotten.
void SaveAndRestore(TXGraphics& s)
{
    UsePen(s, kInk, 2.0);
    UseBrush(s, kMeadow);
    const auto island = [&](double x)
    {
        const Points coast = Island(x, 75.0, 46.0, 64.0, 1.1);
        s.Polygon(coast.data(), Count(coast));
    };
    island(48.0);
    s.Save();
    UsePen(s, kBrick, 3.0, TXPen::DotLine);
    UseBrush(s, kBrick, TXBrush::CrossHatch);
    s.SetOpacity(0.6);
    island(138.0);
    s.Restore();
    island(228.0);
}

} // namespace

Cells StyleCells()
{
    return {
        {"Pen: styles", PenStyles},
        {"Pen: flat, square and round caps", PenCaps},
        {"Pen: bevel, miter and round joins", PenJoins},
        {"Pen: dashes with each cap", DashCaps},
        {"Pen: SetSteps", PenSteps},
        {"Pen: widths", PenWidths},
        {"Pen: translucent colours", PenAlpha},
        {"SelectPen of a style", ThinPens},
        {"Brush: styles", BrushStyles},
        {"Brush: SetTextureImage", Texture},
        {"SelectGradient: linear",
         [](TXGraphics& s)
         {
             const TXRefPtr<TXGradient> gradient = Engine().NewLinearGradient(20.0, 20.0, 256.0, 130.0);
             SelectedGradient(s, gradient.get());
         }},
        {"SelectGradient: radial",
         [](TXGraphics& s)
         {
             const TXRefPtr<TXGradient> gradient = Engine().NewRadialGradient(138.0, 75.0, 130.0);
             SelectedGradient(s, gradient.get());
         }},
        {"SetOpacity: 0.2 to 1", Opacities},
        {"SetCompositionMode: Porter and Duff", [](TXGraphics& s) { Compositions(s, 0, 11, 6, kNothing, 230); }},
        {"SetCompositionMode: blend modes", [](TXGraphics& s) { Compositions(s, 12, 23, 6, kNothing, 230); }},
        {"SetCompositionMode: raster operations", [](TXGraphics& s) { Compositions(s, 24, 37, 7, kLand, 255); }},
        {"SetCompositionMode: multiply", Multiplied},
        {"EnableAntialiasing: on and off", WithoutAntialiasing},
        {"SetWindowOrg: adds up", MovedOrigins},
        {"Save and Restore the state", SaveAndRestore},
    };
}

} // namespace gallery
