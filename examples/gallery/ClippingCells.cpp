#include "Cells.h"

#include "Scenery.h"

namespace gallery
{

namespace
{

Points Frame() { return Island(136.0, 72.0, 150.0, 70.0, 4.1); }

Parts WithHole() { return Parts().Add(Frame()).Add(Island(150.0, 74.0, 48.0, 36.0, 1.0)); }

/// Clips without painting.
void Clip(TXGraphics& s, const Parts& region)
{
    s.SetClipRegion(region.points.data(), region.counts.data(), region.Count(), false, kNothing);
}

void ClipAndFill(TXGraphics& s, const Parts& region, const TXColor& color)
{
    s.SetClipRegion(region.points.data(), region.counts.data(), region.Count(), true, color);
}

void ClipAndFill(TXGraphics& s, const Parts& region, const TXGraphics::stGradientParams& gradient)
{
    s.SetClipRegion(region.points.data(), region.counts.data(), region.Count(), gradient);
}

void OutlineOf(TXGraphics& s, const Parts& region, const TXColor& color = kBrick)
{
    UsePen(s, color, 1.5, TXPen::DashLine, TXPen::FlatCap);
    UseNoBrush(s);
    s.PolyPolygon(region.points.data(), region.counts.data(), region.Count());
}

/// Lines all over the picture, of which the clip shows what lies inside.
void Stripes(TXGraphics& s, const TXColor& color = kDeepWater)
{
    UsePen(s, color, 3.0);
    for (int x = -144; x < kWidth; x += 12)
        s.Line(x, 150.0, x + 150.0, 0.0);
}

void MapInside(TXGraphics& s, const Parts& region)
{
    Clip(s, region);
    DrawMap(s);
    s.RestoreClipRegion();
    OutlineOf(s, region);
}

void Overlapping(TXGraphics& s)
{
    MapInside(s, Parts().Add(Island(98.0, 75.0, 100.0, 76.0, 0.2)).Add(Island(182.0, 76.0, 100.0, 70.0, 3.1)));
}

/// Only the second region counts, also where the first one lies outside of it.
void Replaced(TXGraphics& s)
{
    const Parts first = Parts().Add(Island(98.0, 72.0, 96.0, 70.0, 2.0));
    const Parts second = Parts().Add(Island(176.0, 75.0, 92.0, 70.0, 0.6));
    Clip(s, first);
    Clip(s, second);
    DrawMap(s);
    s.RestoreClipRegion();
    OutlineOf(s, first, kPlum);
    OutlineOf(s, second);
}

void Restored(TXGraphics& s)
{
    const Parts region = Parts().Add(Box(20.0, 130.0, 16.0, 134.0));
    ClipAndFill(s, region, kLand);
    Stripes(s);
    s.RestoreClipRegion();
    UsePen(s, kBrick, 3.0);
    const Points river = River({10.0, 40.0}, {266.0, 112.0}, 2.0, 26.0);
    s.Polyline(river.data(), Count(river));
}

void Filled(TXGraphics& s, const TXColor& color)
{
    Stripes(s, Translucent(kWater, 120));
    ClipAndFill(s, WithHole(), color);
    Stripes(s, Translucent(kBrick, 160));
}

void GradientFilled(TXGraphics& s, int type, double angle)
{
    ClipAndFill(s, WithHole(), Gradient(type, kGold, kDeepWater, angle));
    Stripes(s, TXColor(255, 255, 255, 90));
}

/// The vertices lie on halves: what Qt draws is cut along whole pixels.
void Rounded(TXGraphics& s)
{
    const Parts steps = Parts().Add({{2.5, 2.5}, {6.5, 1.5}, {10.5, 3.5}, {9.4, 7.5}, {5.5, 6.6}, {1.5, 7.4}});
    const TXRefPtr<TXGraphics> small = NewSurface(12, 9);
    small->ClearWithColor(kSea);
    ClipAndFill(*small, steps, kBrick);
    s.StretchBlt(TXRect(38.0, 238.0, 0.0, 150.0), small.get(), TXRect(0.0, 12.0, 0.0, 9.0));
    UsePen(s, kInk, 2.0);
    UseNoBrush(s);
    const Points exact = Placed(steps.points, 38.0, 0.0, 200.0 / 12.0);
    s.Polygon(exact.data(), Count(exact));
}

void Label(TXGraphics& s, bool cairo)
{
    UseFont(s, 44);
    UsePen(s, kInk);
    s.EnableCairoDrawing(cairo);
    s.DrawString(14.0, 12.0, TXGraphics::TextAlignTop, TXGraphics::TextAlignHCenter, L"Schleswig\nHolstein", 0.0, 6.0,
                 1.0);
    s.EnableCairoDrawing(false);
}

void LabelInside(TXGraphics& s, bool cairo)
{
    // The region reaches cairo only while the surface draws through cairo.
    s.EnableCairoDrawing(cairo);
    ClipAndFill(s, WithHole(), kMeadow);
    Label(s, cairo);
}

void LabelBesideGradient(TXGraphics& s)
{
    s.EnableCairoDrawing(true);
    ClipAndFill(s, WithHole(), Gradient(0, kMeadow, kWater));
    Stripes(s, TXColor(255, 255, 255, 120));
    Label(s, true);
}

void LabelRestored(TXGraphics& s)
{
    s.EnableCairoDrawing(true);
    ClipAndFill(s, WithHole(), kMeadow);
    s.RestoreClipRegion();
    Label(s, true);
}

void MarkersInside(TXGraphics& s)
{
    ClipAndFill(s, WithHole(), kLand);
    const Points star = Star(5, 1.0, 0.42);
    UsePen(s, kInk);
    UseBrush(s, kBrick);
    for (int i = 0; i < 28; ++i)
    {
        s.VectorMarker(20.0 + i % 7 * 40.0, 16.0 + i / 7 * 40.0, 15.0, 15.0, 10.0 * i, star.data(), Count(star), true);
    }
}

void FontMarkersInside(TXGraphics& s)
{
    ClipAndFill(s, WithHole(), kMeadow);
    UseFont(s, 12);
    for (int i = 0; i < 28; ++i)
    {
        UsePen(s, TXColor(38, 84, 48, 255));
        s.FontMarker(20.0 + i % 7 * 40.0, 16.0 + i / 7 * 40.0, 32.0, 32.0, 0.0, "DejaVu Sans", 0x2663);
    }
}

void ImageInside(TXGraphics& s)
{
    Clip(s, WithHole());
    const TXRefPtr<TXImage> image = Relief(kWidth, kHeight);
    s.DrawImage(image.get(), 1.0);
    s.RestoreClipRegion();
    OutlineOf(s, WithHole());
}

void TurnedImageInside(TXGraphics& s)
{
    Clip(s, WithHole());
    const TXRefPtr<TXImage> image = Relief(200, 120);
    s.DrawImage4BitmapRotate(TXRect(18.0, 258.0, 5.0, 145.0), image.get(), TXRect(0.0, 200.0, 0.0, 120.0), 25.0, 1.0);
    s.RestoreClipRegion();
    OutlineOf(s, WithHole());
}

/// The clip belongs to the state: what was saved comes back.
void SavedAndRestored(TXGraphics& s)
{
    const Parts left = Parts().Add(Box(12.0, 132.0, 12.0, 138.0));
    const Parts right = Parts().Add(Island(206.0, 75.0, 66.0, 74.0, 1.0));
    Clip(s, left);
    s.Save();
    Clip(s, right);
    Stripes(s, kBrick);
    s.Restore();
    Stripes(s);
}

} // namespace

Cells ClippingCells()
{
    return {
        {"SetClipRegion: a polygon", [](TXGraphics& s) { MapInside(s, Parts().Add(Frame())); }},
        {"SetClipRegion: with a hole", [](TXGraphics& s) { MapInside(s, WithHole()); }},
        {"SetClipRegion: odd-even", Overlapping},
        {"SetClipRegion: replaces the one before", Replaced},
        {"RestoreClipRegion", Restored},
        {"SetClipRegion: filled", [](TXGraphics& s) { Filled(s, kLand); }},
        {"SetClipRegion: filled, translucent", [](TXGraphics& s) { Filled(s, Translucent(kGold, 110)); }},
        {"SetClipRegion: linear gradient", [](TXGraphics& s) { GradientFilled(s, 0, 45.0); }},
        {"SetClipRegion: radial gradient", [](TXGraphics& s) { GradientFilled(s, 1, 0.0); }},
        {"SetClipRegion: conical gradient", [](TXGraphics& s) { GradientFilled(s, 2, 0.0); }},
        {"Label inside", [](TXGraphics& s) { LabelInside(s, false); }},
        {"Label inside, cairo", [](TXGraphics& s) { LabelInside(s, true); }},
        {"Label, cairo: a gradient does not clip it", LabelBesideGradient},
        {"Label, cairo: RestoreClipRegion", LabelRestored},
        {"SetClipRegion: whole pixels", Rounded},
        {"VectorMarker inside", MarkersInside},
        {"FontMarker inside", FontMarkersInside},
        {"DrawImage inside", ImageInside},
        {"DrawImage4BitmapRotate inside", TurnedImageInside},
        {"Save and Restore keep the clip", SavedAndRestored},
    };
}

} // namespace gallery
