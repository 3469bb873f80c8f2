#include "Cells.h"

#include <cstddef>
#include <cstdlib>
#include <iterator>

#include "Scenery.h"

namespace gallery
{

namespace
{

void CityBlocks(TXGraphics& s)
{
    UsePen(s, kInk);
    const TXColor colors[] = {kLand, kMeadow, kLand, kBrick, kSea};
    int number = 0;
    double x = 12.4;
    for (const double width : {44.6, 62.6, 36.6, 82.6})
    {
        double y = 12.4;
        for (const double height : {30.6, 44.6, 34.6})
        {
            UseBrush(s, colors[number++ % 5]);
            if (number % 2 == 0)
                s.Rectangle(x, y, width, height);
            else
                s.Rectangle(TXRect(x, x + width, y, y + height));
            y += height + 7.4;
        }
        x += width + 8.4;
    }
}

void EllipsesByRadii(TXGraphics& s)
{
    UsePen(s, kDeepWater, 1.5);
    const TXColor colors[] = {kSea, kWater, kLand, kMeadow, kForest};
    int step = 0;
    for (const TXColor& color : colors)
    {
        UseBrush(s, color);
        s.Ellipse(TXPoint(138.0, 75.0), 126 - 25 * step, 66 - 13 * step);
        ++step;
    }
}

/// How a projection distorts circles from place to place.
void Indicatrices(TXGraphics& s, bool fill)
{
    UsePen(s, Translucent(kInk, 60));
    for (int i = -1; i <= 1; ++i)
    {
        s.Line(138.0 + 88.0 * i, 4.0, 138.0 + 88.0 * i, 146.0);
        s.Line(4.0, 75.0 + 47.0 * i, 272.0, 75.0 + 47.0 * i);
    }
    UsePen(s, kBrick, 1.5);
    UseBrush(s, Translucent(kGold, 190));
    for (int row = -1; row <= 1; ++row)
    {
        for (int column = -1; column <= 1; ++column)
            s.Ellipse(138.0 + 88.0 * column, 75.0 + 47.0 * row, 36.0 + 16.0 * std::abs(column),
                      36.0 - 10.0 * std::abs(row), 25 * column * row, fill);
    }
}

void EllipsesInRectangles(TXGraphics& s)
{
    int angle = 0;
    for (const double x : {10.0, 98.0, 186.0})
    {
        const TXRect rect(x, x + 80.0, 46.0, 104.0);
        UsePen(s, Translucent(kInk, 120), 1.0, TXPen::DashLine);
        UseNoBrush(s);
        s.Rectangle(rect);
        UsePen(s, kDeepWater, 2.0);
        UseBrush(s, kWater);
        s.Ellipse(rect, angle, true);
        angle += 30;
    }
}

void Glows(TXGraphics& s)
{
    s.ClearWithColor(TXColor(52, 62, 92, 255));
    const TXPoint cities[] = {{62, 58}, {156, 92}, {226, 48}, {112, 36}};
    int radius = 42;
    for (const TXPoint& city : cities)
    {
        s.EllipseByRadialGradient(city, radius, TXColor(255, 240, 190, 255), TXColor(240, 150, 60, 0));
        radius -= 6;
    }
}

void RangeArcs(TXGraphics& s)
{
    int ring = 0;
    for (const TXColor& color : {kBrick, kGold, kForest, kWater, kDeepWater, kPlum})
    {
        const double radius = 14.0 + 11.0 * ring;
        UsePen(s, color, 6.0, TXPen::SolidLine, TXPen::FlatCap);
        if (ring % 2 == 0)
            s.Arc(138.0 - 1.8 * radius, 75.0 - radius, 3.6 * radius, 2.0 * radius, 30.0 * ring, 240.0);
        else
            s.Arc(TXRect(138.0 - 1.8 * radius, 138.0 + 1.8 * radius, 75.0 - radius, 75.0 + radius), 30.0 * ring, 240.0);
        ++ring;
    }
}

void LandUse(TXGraphics& s)
{
    const double shares[] = {34.0, 27.0, 18.0, 13.0, 8.0};
    const TXColor colors[] = {kForest, kGold, kMeadow, kWater, kBrick};
    UsePen(s, TXColor::WHITE_, 2.0);
    double start = 90.0;
    for (std::size_t i = 0; i < std::size(shares); ++i)
    {
        UseBrush(s, colors[i]);
        const double span = -3.6 * shares[i];
        s.Pie(14.0, 13.0, 124.0, 124.0, start, span);
        s.Pie(TXRect(154.0, 264.0, 45.0, 105.0), start, span);
        start += span;
    }
}

void Swatches(TXGraphics& s)
{
    const TXColor colors[] = {kSea, kWater, kDeepWater, kLand, kMeadow, kForest, kGold, kBrick, kPlum, kInk};
    int number = 0;
    for (const TXColor& color : colors)
    {
        const double x = 12.0 + number % 5 * 52.0;
        const double y = number < 5 ? 12.0 : 79.0;
        s.fillRect(TXRect(x, x + 44.0, y, y + 59.0), Translucent(color, number < 5 ? 255 : 150));
        ++number;
    }
}

void LinearFill(TXGraphics& s)
{
    const TXRefPtr<TXGradient> gradient = Engine().NewLinearGradient(12.0, 0.0, 264.0, 0.0);
    double position = 0.0;
    for (const TXColor& color : {kDeepWater, kWater, kSea, kLand, kMeadow, kForest})
    {
        gradient->SetColorAt(position, color);
        position += 0.2;
    }
    s.FillRect(TXRect(12.0, 264.0, 16.0, 134.0), gradient.get());
}

void RadialFill(TXGraphics& s)
{
    const TXRefPtr<TXGradient> gradient = Engine().NewRadialGradient(104.0, 62.0, 150.0);
    gradient->SetColorAt(0.0, TXColor::WHITE_);
    gradient->SetColorAt(0.4, kGold);
    gradient->SetColorAt(1.0, kPlum);
    s.FillRect(TXRect(32.0, 244.0, 26.0, 124.0), gradient.get());
}

void StraightPath(TXGraphics& s)
{
    UsePen(s, kInk, 2.0);
    UseBrush(s, kMeadow);
    s.MoveTo(20.0, 130.0);
    for (const TXPoint& p : Points{{20, 70}, {70, 18}, {120, 70}, {120, 40}, {176, 40}, {256, 92}, {256, 130}})
        s.LineTo(p.x, p.y);
    s.ClosePath();
    s.DrawPath();
}

/// Without `MoveTo` a path begins at the origin.
void PathFromOrigin(TXGraphics& s)
{
    UsePen(s, kInk, 2.0);
    UseBrush(s, kLand);
    for (const TXPoint& p : Points{{250, 60}, {212, 132}, {132, 84}, {52, 136}})
        s.LineTo(p.x, p.y);
    s.ClosePath();
    s.DrawPath();
}

void CurvedPath(TXGraphics& s)
{
    UsePen(s, kDeepWater, 2.0);
    UseBrush(s, kWater);
    s.MoveTo(22.0, 78.0);
    s.CurveTo(40.0, -18.0, 132.0, 14.0, 148.0, 56.0);
    s.QuadTo(176.0, 6.0, 252.0, 34.0);
    s.CurveTo(284.0, 108.0, 214.0, 150.0, 168.0, 114.0);
    s.QuadTo(92.0, 172.0, 22.0, 78.0);
    s.ClosePath();
    s.DrawPath();
}

void PathWithHoles(TXGraphics& s)
{
    UsePen(s, kInk, 1.5);
    UseBrush(s, kForest);
    for (const Points& ring : {Island(140.0, 70.0, 150.0, 66.0, 4.4), Island(92.0, 72.0, 40.0, 34.0, 2.0),
                               Island(184.0, 72.0, 38.0, 26.0, 3.0)})
    {
        s.MoveTo(ring.front().x, ring.front().y);
        for (const TXPoint& p : ring)
            s.LineTo(p.x, p.y);
        s.ClosePath();
    }
    s.DrawPath();
}

} // namespace

Cells FigureCells()
{
    return {
        {"Rectangle: whole pixels", CityBlocks},
        {"Ellipse by radii", EllipsesByRadii},
        {"Ellipse, filled and turned", [](TXGraphics& s) { Indicatrices(s, true); }},
        {"Ellipse, not filled", [](TXGraphics& s) { Indicatrices(s, false); }},
        {"Ellipse in a rectangle, turned", EllipsesInRectangles},
        {"EllipseByRadialGradient", Glows},
        {"Arc", RangeArcs},
        {"Pie", LandUse},
        {"fillRect: colours", Swatches},
        {"FillRect: linear gradient", LinearFill},
        {"FillRect: radial gradient", RadialFill},
        {"Path: LineTo, ClosePath", StraightPath},
        {"Path: LineTo from the origin", PathFromOrigin},
        {"Path: CurveTo, QuadTo", CurvedPath},
        {"Path of several rings", PathWithHoles},
    };
}

} // namespace gallery
