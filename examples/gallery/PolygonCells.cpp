#include "Cells.h"

#include <cmath>
#include <cstddef>
#include <iterator>
#include <string>

#include "Scenery.h"

namespace gallery
{

namespace
{

/// A survey: stations, and the lines of sight between them.
void Triangulation(TXGraphics& s)
{
    const Points stations = {{22, 118}, {64, 30}, {108, 122}, {150, 44}, {196, 116}, {212, 24}, {254, 84}};
    UsePen(s, kDeepWater);
    for (std::size_t i = 1; i < stations.size(); ++i)
    {
        s.Line(stations[i - 1], stations[i]);
        if (i > 1)
            s.Line(stations[i - 2].x, stations[i - 2].y, stations[i].x, stations[i].y);
    }
    UsePen(s, kInk);
    UseBrush(s, kBrick);
    for (const TXPoint& station : stations)
        s.Ellipse(station, 4, 4);
}

void RiverSystem(TXGraphics& s)
{
    const Points rivers[] = {River({12, 24}, {132, 84}, 2.5, 12.0), River({30, 136}, {132, 84}, 2.0, 10.0),
                             River({132, 84}, {268, 62}, 2.0, 14.0)};
    double width = 2.0;
    for (const Points& river : rivers)
    {
        UsePen(s, kDeepWater, width);
        s.Polyline(river.data(), Count(river));
        width += 1.5;
    }
}

/// The last of the coasts fits into one pixel, and stays visible as a dot of the pen's width.
void ShrinkingCoasts(TXGraphics& s)
{
    UsePen(s, kBrick, 5.0);
    double x = 56.0;
    for (const double radius : {46.0, 25.0, 12.0, 4.0, 0.2})
    {
        const Points coast = Island(std::floor(x) + 0.1, 75.1, radius, radius, 1.5);
        s.Polyline(coast.data(), Count(coast));
        x += radius * 1.05 + 26.0;
    }
}

void Contours(TXGraphics& s)
{
    Parts contours;
    for (int level = 1; level <= 4; ++level)
        contours.Add(Island(144.0 - 3.0 * level, 77.0, 33.0 * level, 20.0 * level, 2.0 + 0.08 * level));
    UsePen(s, TXColor(172, 118, 72, 255), 1.5);
    s.PolyPolyline(contours.points.data(), contours.counts.data(), contours.Count());
}

void CurveThroughPoints(TXGraphics& s)
{
    const Points points = {{20, 110}, {62, 34}, {104, 108}, {150, 62}, {196, 122}, {254, 30}};
    UsePen(s, Translucent(kInk, 70));
    s.Polyline(points.data(), Count(points));
    UsePen(s, kDeepWater, 3.0);
    s.Curve(points.data(), Count(points));
    UsePen(s, kInk);
    UseBrush(s, kGold);
    for (const TXPoint& point : points)
        s.Ellipse(point, 4, 4);
}

void Parcels(TXGraphics& s)
{
    const Points parcels[] = {{{18, 22}, {92, 14}, {104, 70}, {26, 82}},
                              {{92, 14}, {176, 26}, {168, 84}, {104, 70}},
                              {{176, 26}, {258, 16}, {252, 78}, {168, 84}},
                              {{26, 82}, {104, 70}, {118, 132}, {34, 136}},
                              {{104, 70}, {168, 84}, {252, 78}, {244, 134}, {118, 132}}};
    const TXColor colors[] = {kMeadow, kLand, kForest, kGold, kSea};
    UsePen(s, kInk, 1.5);
    for (std::size_t i = 0; i < std::size(parcels); ++i)
    {
        UseBrush(s, colors[i]);
        s.Polygon(parcels[i].data(), Count(parcels[i]));
    }
}

void CrossingItself(TXGraphics& s)
{
    UsePen(s, kInk, 2.0);
    UseBrush(s, kGold);
    double x = 74.0;
    for (const int tips : {5, 7})
    {
        const Points corners = Regular(x, 78.0, 58.0, tips);
        Points star;
        for (int i = 0; i < tips; ++i)
            star.push_back(corners[static_cast<std::size_t>(i * (tips / 2) % tips)]);
        s.Polygon(star.data(), tips);
        x += 128.0;
    }
}

void LinearAngles(TXGraphics& s)
{
    for (int i = 0; i < 8; ++i)
    {
        const double x = 40.0 + i % 4 * 65.0;
        const double y = 32.0 + i / 4 * 72.0;
        const Points hexagon = Regular(x, y, 27.0, 6);
        s.Polygon(hexagon.data(), Count(hexagon), Gradient(0, kLand, kDeepWater, 45.0 * i));
        Note(s, x, y + 27.0, std::to_wstring(45 * i) + L"\u00b0");
    }
}

void LinearMiddles(TXGraphics& s)
{
    int row = 0;
    for (const int middle : {10, 50, 90})
    {
        const double y = 20.0 + 43.0 * row++;
        const Points bar = Box(50.0, 262.0, y, y + 24.0);
        s.Polygon(bar.data(), Count(bar), Gradient(0, kGold, kPlum, 0.0, middle));
        Note(s, 26.0, y + 4.0, std::to_wstring(middle) + L" %", 12);
    }
}

/// Both ends are translucent, and what lies between them is not.
void OpaqueMiddle(TXGraphics& s)
{
    for (double x = 9.0; x < kWidth; x += 18.0)
        s.fillRect(TXRect(x, x + 9.0, 0.0, kHeight), Translucent(kInk, 50));
    const Points lake = Island(138.0, 75.0, 134.0, 76.0, 0.8);
    s.Polygon(lake.data(), Count(lake), Gradient(0, Translucent(kForest, 0), Translucent(kDeepWater, 0)));
}

void GradientIsland(TXGraphics& s, int type)
{
    const Points island = Island(140.0, 76.0, 118.0, 62.0, 5.2);
    s.Polygon(island.data(), Count(island), Gradient(type, TXColor(250, 236, 190, 255), kForest));
}

Parts LakesAndIslands()
{
    return Parts()
        .Add(Island(130.0, 75.0, 140.0, 76.0, 0.8))
        .Add(Island(92.0, 76.0, 54.0, 40.0, 3.6))
        .Add(Island(93.0, 78.0, 22.0, 16.0, 1.2))
        .Add(Island(190.0, 76.0, 36.0, 34.0, 2.2));
}

void ManyRings(TXGraphics& s)
{
    const Parts rings = LakesAndIslands();
    UsePen(s, kInk, 1.5);
    UseBrush(s, kMeadow);
    s.PolyPolygon(rings.points.data(), rings.counts.data(), rings.Count());
}

/// On the left the rings come as they are closed, on the right without their last segment.
void OpenRings(TXGraphics& s)
{
    UsePen(s, kBrick, 3.0, TXPen::SolidLine, TXPen::FlatCap, TXPen::MiterJoin);
    UseBrush(s, kLand);
    for (const bool closed : {true, false})
    {
        const double x = closed ? 12.0 : 144.0;
        Points outer = Box(x, x + 120.0, 16.0, 134.0);
        Points inner = Box(x + 34.0, x + 86.0, 48.0, 102.0);
        if (!closed)
        {
            outer.pop_back();
            inner.pop_back();
        }
        const Parts rings = Parts().Add(outer).Add(inner);
        s.PolyPolygon(rings.points.data(), rings.counts.data(), rings.Count());
    }
}

void RingsIgnoreGradient(TXGraphics& s)
{
    const Parts rings = LakesAndIslands();
    UsePen(s, kDeepWater, 1.5);
    UseBrush(s, kDeepWater, TXBrush::CrossHatch);
    s.PolyPolygon(rings.points.data(), rings.counts.data(), rings.Count(), Gradient(1, kGold, kBrick));
}

} // namespace

Cells PolygonCells()
{
    return {
        {"Line: whole pixels", Triangulation},
        {"Polyline", RiverSystem},
        {"Polyline: within a pixel it is a dot", ShrinkingCoasts},
        {"PolyPolyline", Contours},
        {"Curve", CurveThroughPoints},
        {"Polygon", Parcels},
        {"Polygon: odd-even", CrossingItself},
        {"Polygon: linear gradient by angle", LinearAngles},
        {"Polygon: linear gradient by middle", LinearMiddles},
        {"Polygon: the gradient's middle is opaque", OpaqueMiddle},
        {"Polygon: radial gradient", [](TXGraphics& s) { GradientIsland(s, 1); }},
        {"Polygon: conical gradient", [](TXGraphics& s) { GradientIsland(s, 2); }},
        {"PolyPolygon", ManyRings},
        {"PolyPolygon: rings are outlined as given", OpenRings},
        {"PolyPolygon: images ignore the gradient", RingsIgnoreGradient},
    };
}

} // namespace gallery
