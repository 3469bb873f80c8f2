#include "Cells.h"

#include "Scenery.h"

namespace gallery
{

namespace
{

const TXRect kAll(0.0, kWidth, 0.0, kHeight);

TXRect RectOf(TXImage& image) { return {0.0, double(image.GetWidth()), 0.0, double(image.GetHeight())}; }

/// Squares that show through what is translucent.
void Checkers(TXGraphics& s)
{
    for (int y = 0; y < kHeight; y += 15)
    {
        for (int x = y % 2 == 0 ? 0 : 15; x < kWidth; x += 30)
            s.fillRect(TXRect(x, x + 15.0, y, y + 15.0), Translucent(kInk, 36));
    }
}

void Outline(TXGraphics& s, const TXRect& rect)
{
    UsePen(s, kBrick, 1.0, TXPen::DashLine, TXPen::FlatCap);
    UseNoBrush(s);
    s.Rectangle(rect);
}

/// An emblem on transparent ground.
TXRefPtr<TXImage> Emblem(int size)
{
    const TXRefPtr<TXGraphics> surface = NewSurface(size, size);
    UsePen(*surface, kInk, 2.0);
    UseBrush(*surface, kBrick);
    surface->Ellipse(TXPoint(size / 2.0, size / 2.0), size / 2 - 2, size / 2 - 2);
    UseBrush(*surface, TXColor::WHITE_);
    const Points star = Placed(Star(5, 1.0, 0.42), size / 2.0, size / 2.0, size * 0.36);
    surface->Polygon(star.data(), Count(star));
    return surface->GetImage();
}

/// An island and haze over transparency, in an image of another layout of pixels.
void InFormat(TXGraphics& s, TXImage::Format format)
{
    Checkers(s);
    const TXRefPtr<TXImage> image = s.NewImage();
    image->CreateImage(kWidth - 40, kHeight - 30, format);
    image->Fill(0u);
    {
        const TXRefPtr<TXGraphics> surface = Engine().NewGraphics(image.get());
        surface->SetWindowOrg(-20, -15);
        const Points coast = Island(138.0, 74.0, 120.0, 66.0, 1.9);
        const int count = Count(coast);
        surface->SetClipRegion(coast.data(), &count, 1, false, kNothing);
        DrawMap(*surface);
        surface->RestoreClipRegion();
        const TXRefPtr<TXGradient> haze = Engine().NewLinearGradient(20.0, 0.0, 256.0, 0.0);
        haze->SetColorAt(0.0, Translucent(kDeepWater, 230));
        haze->SetColorAt(1.0, Translucent(kDeepWater, 0));
        surface->FillRect(TXRect(20.0, 256.0, 94.0, 135.0), haze.get());
    }
    s.DrawImage(TXRect(20.0, 256.0, 15.0, 135.0), image.get(), RectOf(*image), 1.0);
}

void Whole(TXGraphics& s, double opacity)
{
    Checkers(s);
    const TXRefPtr<TXImage> image = Relief(240, 130);
    s.DrawImage(image.get(), opacity);
}

void Scaled(TXGraphics& s, int width, int height)
{
    const TXRefPtr<TXImage> image = Relief(width, height);
    s.DrawImage(kAll, image.get(), RectOf(*image), 1.0);
}

void ScaledDown(TXGraphics& s)
{
    const TXRefPtr<TXImage> image = Relief(552, 300);
    double x = 8.0;
    for (const double width : {138.0, 69.0, 34.0})
    {
        const TXRect dst(x, x + width, 75.0 - width * 0.27, 75.0 + width * 0.27);
        s.DrawImage(dst, image.get(), RectOf(*image), 1.0);
        x += width + 10.0;
    }
}

void PartUnscaled(TXGraphics& s)
{
    const TXRefPtr<TXImage> image = Relief(kWidth, kHeight);
    s.DrawImage(image.get(), 0.25);
    for (const TXRect& part : {TXRect(60.0, 140.0, 26.0, 96.0), TXRect(180.0, 250.0, 62.0, 130.0)})
    {
        s.DrawImage(part, image.get(), part, 1.0);
        Outline(s, part);
    }
}

void PartEnlarged(TXGraphics& s)
{
    const TXRefPtr<TXImage> image = Relief(120, 66);
    const TXRect part(34.0, 62.0, 12.0, 40.0);
    s.DrawImage(TXRect(10.0, 130.0, 42.0, 108.0), image.get(), RectOf(*image), 1.0);
    Outline(s, TXRect(10.0 + part.left, 10.0 + part.right, 42.0 + part.top, 42.0 + part.bottom));
    s.DrawImage(TXRect(142.0, 268.0, 12.0, 138.0), image.get(), part, 1.0);
    Outline(s, TXRect(142.0, 268.0, 12.0, 138.0));
}

void OverEdges(TXGraphics& s)
{
    const TXRefPtr<TXImage> image = Emblem(72);
    for (const TXPoint& corner : {TXPoint(-34, -34), TXPoint(102, -30), TXPoint(236, -36), TXPoint(-28, 104),
                                  TXPoint(240, 108), TXPoint(102, 96)})
        s.DrawImage(TXRect(corner.x, corner.x + 72.0, corner.y, corner.y + 72.0), image.get(), RectOf(*image), 1.0);
}

void OverAllEdges(TXGraphics& s)
{
    const TXRefPtr<TXImage> image = Emblem(60);
    s.DrawImage(TXRect(-32.0, 308.0, -95.0, 245.0), image.get(), RectOf(*image), 1.0);
}

void Turned(TXGraphics& s)
{
    const TXRefPtr<TXImage> image = Relief(84, 56);
    double x = 10.0;
    for (const double angle : {0.0, 30.0, 60.0})
    {
        s.DrawImage4BitmapRotate(TXRect(x, x + 78.0, 49.0, 101.0), image.get(), RectOf(*image), angle, 1.0);
        x += 88.0;
    }
}

void TurnedWhole(TXGraphics& s)
{
    Checkers(s);
    const TXRefPtr<TXImage> image = Relief(kWidth, kHeight);
    s.DrawImage4BitmapRotate(kAll, image.get(), kAll, 15.0, 0.9);
}

/// What lies beyond the edge is cut off before the rest is turned.
void TurnedOverEdge(TXGraphics& s)
{
    const TXRefPtr<TXImage> image = Relief(160, 100);
    s.DrawImage4BitmapRotate(TXRect(-60.0, 100.0, 25.0, 125.0), image.get(), RectOf(*image), 20.0, 1.0);
    s.DrawImage4BitmapRotate(TXRect(176.0, 336.0, 25.0, 125.0), image.get(), RectOf(*image), -20.0, 1.0);
}

void TurnedTranslucent(TXGraphics& s)
{
    DrawMap(s);
    const TXRefPtr<TXImage> image = Emblem(110);
    double x = 14.0;
    for (const double opacity : {0.3, 0.6, 1.0})
    {
        s.DrawImage4BitmapRotate(TXRect(x, x + 78.0, 36.0, 114.0), image.get(), RectOf(*image), 50.0 * opacity,
                                 opacity);
        x += 85.0;
    }
}

void EmblemsOverMap(TXGraphics& s)
{
    DrawMap(s);
    const TXRefPtr<TXImage> image = Emblem(48);
    for (const TXPoint& p : {TXPoint(16, 14), TXPoint(112, 50), TXPoint(208, 86)})
        s.DrawImage(TXRect(p.x, p.x + 48.0, p.y, p.y + 48.0), image.get(), RectOf(*image), 1.0);
}

void Stretched(TXGraphics& s)
{
    const TXRefPtr<TXGraphics> map = NewSurface(kWidth, kHeight);
    DrawMap(*map);
    s.StretchBlt(TXRect(10.0, 122.0, 12.0, 74.0), map.get(), kAll);
    s.StretchBlt(TXRect(132.0, 266.0, 12.0, 138.0), map.get(), TXRect(90.0, 157.0, 30.0, 93.0));
    s.StretchBlt(TXRect(10.0, 122.0, 86.0, 138.0), map.get(), TXRect(190.0, 246.0, 10.0, 36.0));
}

void Blitted(TXGraphics& s)
{
    const TXRefPtr<TXGraphics> stamp = NewSurface(64, 40);
    UsePen(*stamp, kInk, 1.5);
    UseBrush(*stamp, Translucent(kGold, 200));
    const Points island = Island(33.0, 20.0, 32.0, 20.0, 0.9);
    stamp->Polygon(island.data(), Count(island));
    for (int i = 0; i < 5; ++i)
        stamp->BiltTo(&s, 12 + 47 * i, 10 + 22 * i);
    for (int i = 0; i < 5; ++i)
        stamp->BiltTo(&s, 200 - 47 * i, 10 + 22 * i);
}

/// Over the clip and over what was there.
void Cleared(TXGraphics& s)
{
    DrawMap(s);
    s.ClearWithColor(Translucent(kGold, 140));
    Note(s, 138.0, 66.0, L"nothing of the map is left", 14);
}

/// The surface goes on in the selected image, and what it drew stays in the images before.
void SelectedImages(TXGraphics& s)
{
    const TXRefPtr<TXImage> own = s.GetImage();
    const TXRefPtr<TXImage> sheets[] = {Relief(120, 130), Relief(120, 130)};
    int number = 0;
    for (const TXRefPtr<TXImage>& sheet : sheets)
    {
        s.SelectImage(sheet);
        UsePen(s, number == 0 ? kBrick : kPlum, 6.0);
        s.Line(0.0, 0.0, 120.0, 130.0);
        s.Line(0.0, 130.0, 120.0, 0.0);
        ++number;
    }
    s.SelectImage(own);
    s.DrawImage(TXRect(10.0, 130.0, 10.0, 140.0), sheets[0].get(), RectOf(*sheets[0]), 1.0);
    s.DrawImage(TXRect(146.0, 266.0, 10.0, 140.0), sheets[1].get(), RectOf(*sheets[1]), 1.0);
}

} // namespace

Cells ImageCells()
{
    const auto format = [](TXImage::Format f) { return [f](TXGraphics& s) { InFormat(s, f); }; };
    return {
        {"DrawImage: at the origin", [](TXGraphics& s) { Whole(s, 1.0); }},
        {"DrawImage: opacity 0.5", [](TXGraphics& s) { Whole(s, 0.5); }},
        {"DrawImage: enlarged, fast", [](TXGraphics& s) { Scaled(s, 46, 25); }},
        {"DrawImage: reduced, fast", ScaledDown},
        {"DrawImage: transparent ground", EmblemsOverMap},
        {"DrawImage: parts", PartUnscaled},
        {"DrawImage: a part enlarged", PartEnlarged},
        {"DrawImage: over the edges", OverEdges},
        {"DrawImage: over all edges, enlarged", OverAllEdges},
        {"StretchBlt from another surface", Stretched},
        {"DrawImage4BitmapRotate", Turned},
        {"DrawImage4BitmapRotate: whole", TurnedWhole},
        {"DrawImage4BitmapRotate: over the edges", TurnedOverEdge},
        {"DrawImage4BitmapRotate: opacities", TurnedTranslucent},
        {"DrawImage4BitmapRotate: enlarged, smooth",
         [](TXGraphics& s)
         {
             const TXRefPtr<TXImage> image = Relief(46, 25);
             s.DrawImage4BitmapRotate(kAll, image.get(), RectOf(*image), 0.0, 1.0);
         }},
        {"Format_RGB32", format(TXImage::Format_RGB32)},
        {"Format_ARGB32_Premultiplied", format(TXImage::Format_ARGB32_Premultiplied)},
        {"Format_RGB444", format(TXImage::Format_RGB444)},
        {"Format_ARGB4444_Premultiplied", format(TXImage::Format_ARGB4444_Premultiplied)},
        {"Format_Grayscale8", format(TXImage::Format_Grayscale8)},
        {"Format_Alpha8", format(TXImage::Format_Alpha8)},
        {"Format_Mono", format(TXImage::Format_Mono)},
        {"BiltTo another surface", Blitted},
        {"SelectImage: one surface, two images", SelectedImages},
        {"ClearWithColor", Cleared},
    };
}

} // namespace gallery
