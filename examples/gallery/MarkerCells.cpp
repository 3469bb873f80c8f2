#include "Cells.h"

#include <cmath>
#include <cstddef>
#include <string>

#include "Scenery.h"

namespace gallery
{

namespace
{

constexpr char kFace[] = "DejaVu Sans";
/// A star, an aeroplane, a flag, an anchor, a hot spring, and hammer and pick.
constexpr short kSymbols[] = {0x2605, 0x2708, 0x2691, 0x2693, 0x2668, 0x2692};

/// An arrow of height 2 about the origin that points to the right.
Points Arrow() { return {{-1.0, -0.3}, {0.2, -0.3}, {0.2, -0.8}, {1.0, 0.0}, {0.2, 0.8}, {0.2, 0.3}, {-1.0, 0.3}}; }

Points House() { return {{-0.8, 0.9}, {-0.8, -0.1}, {0.0, -0.9}, {0.8, -0.1}, {0.8, 0.9}}; }

/// A wind barb whose foot is the origin.
Points Barb() { return {{0.0, 0.0}, {0.0, -1.0}, {0.45, -1.2}, {0.0, -1.0}, {0.0, -0.75}, {0.45, -0.95}}; }

void Cross(TXGraphics& s, double x, double y)
{
    UsePen(s, Translucent(kInk, 150));
    s.Line(x - 6.0, y, x + 6.0, y);
    s.Line(x, y - 6.0, x, y + 6.0);
}

void ClosedSymbols(TXGraphics& s)
{
    const Points symbols[] = {Regular(0.0, 0.0, 1.0, 3),
                              Regular(0.0, 0.0, 1.0, 4),
                              Star(5, 1.0, 0.42),
                              Regular(0.0, 0.0, 1.0, 6),
                              Arrow(),
                              Star(4, 1.0, 0.35),
                              House(),
                              Star(8, 1.0, 0.7)};
    const TXColor colors[] = {kForest, kGold, kBrick, kWater, kPlum, kDeepWater, kLand, kMeadow};
    UsePen(s, kInk, 1.5);
    int number = 0;
    for (const Points& symbol : symbols)
    {
        UseBrush(s, colors[number]);
        s.VectorMarker(40.0 + number % 4 * 65.0, 42.0 + number / 4 * 68.0, 26.0, 26.0, 0.0, symbol.data(),
                       Count(symbol), true);
        ++number;
    }
}

void OpenSymbols(TXGraphics& s)
{
    const Points symbols[] = {{{-1.0, 0.6}, {-0.4, -0.6}, {0.1, 0.4}, {0.4, -0.1}, {1.0, 0.6}},
                              {{-0.9, 0.0}, {-0.2, 0.8}, {0.9, -0.8}},
                              House(),
                              {{-1.0, -0.7}, {0.0, 0.7}, {1.0, -0.7}},
                              Barb(),
                              River({-1.0, 0.0}, {1.0, 0.0}, 1.5, 0.7),
                              Arrow(),
                              {{-0.7, -0.9}, {0.7, -0.9}, {0.0, -0.9}, {0.0, 0.9}}};
    UsePen(s, kDeepWater, 3.0);
    UseBrush(s, kGold);
    int number = 0;
    for (const Points& symbol : symbols)
    {
        s.VectorMarker(40.0 + number % 4 * 65.0, 42.0 + number / 4 * 68.0, 25.0, 25.0, 0.0, symbol.data(),
                       Count(symbol), false);
        ++number;
    }
}

void ScaledSymbols(TXGraphics& s)
{
    const Points peak = Regular(0.0, 0.0, 1.0, 3);
    UsePen(s, kInk);
    UseBrush(s, kForest);
    double x = 20.0;
    for (const double scale : {6.0, 10.0, 15.0, 21.0, 28.0})
    {
        s.VectorMarker(x, 44.0, scale, scale, 0.0, peak.data(), Count(peak), true);
        x += 2.2 * scale + 14.0;
    }
    UseBrush(s, kGold);
    x = 38.0;
    for (const double stretch : {0.4, 0.8, 1.6, -1.6})
    {
        const Points arrow = Arrow();
        s.VectorMarker(x, 108.0, 20.0 * stretch, 20.0 / std::abs(stretch) * 0.8, 0.0, arrow.data(), Count(arrow), true);
        x += 46.0 + 14.0 * std::abs(stretch);
    }
}

void TurnedSymbols(TXGraphics& s)
{
    const Points arrow = Arrow();
    for (int i = 0; i < 12; ++i)
    {
        const double x = 26.0 + i % 6 * 45.0;
        const double y = 38.0 + i / 6 * 66.0;
        UsePen(s, kInk);
        UseBrush(s, i == 0 ? kBrick : kWater);
        s.VectorMarker(x, y, 18.0, 18.0, 30.0 * i, arrow.data(), Count(arrow), true);
        Note(s, x, y + 21.0, std::to_wstring(30 * i) + L"\u00b0");
    }
}

/// Every house has the same offset from its cross, about which it turns.
void OffsetSymbols(TXGraphics& s)
{
    const Points house = House();
    double x = 70.0;
    for (const double angle : {30.0, 45.0})
    {
        Cross(s, x, 75.0);
        UsePen(s, kInk);
        for (int i = 0; i * angle < 360.0; ++i)
        {
            UseBrush(s, i == 0 ? kBrick : kMeadow);
            s.VectorMarker(x, 75.0 - 54.0, 10.0, 10.0, x, 75.0, i * angle, house.data(), Count(house), true);
        }
        x += 136.0;
    }
}

void AnchoredSymbols(TXGraphics& s)
{
    const Points towns[] = {{{40, 50}, {92, 104}, {148, 46}, {196, 96}, {238, 44}}};
    UsePen(s, kGold, 3.0);
    s.Polyline(towns->data(), Count(*towns));
    UsePen(s, kInk, 1.5);
    UseBrush(s, TXColor::WHITE_);
    const Points square = Regular(0.0, 0.0, 1.0, 4);
    for (const TXPoint& town : *towns)
        s.VectorMarker(town, 15.0, 15.0, 45.0, square.data(), Count(square), true);
    UseBrush(s, kBrick);
    const Points star = Star(5, 1.0, 0.42);
    for (const TXPoint& town : *towns)
        s.VectorMarker(town, 8.0, 8.0, 0.0, star.data(), Count(star), true);
}

void StyledSymbols(TXGraphics& s)
{
    const Points star = Star(6, 1.0, 0.6);
    const auto mark = [&](double x) { s.VectorMarker(x, 75.0, 40.0, 40.0, 0.0, star.data(), Count(star), true); };
    UsePen(s, kBrick, 3.0, TXPen::DotLine);
    UseBrush(s, kLand);
    mark(50.0);
    UsePen(s, kForest, 2.0);
    UseBrush(s, kForest, TXBrush::CrossHatch);
    mark(138.0);
    // The gradient turns and moves with the symbol.
    const TXRefPtr<TXGradient> gradient = Engine().NewRadialGradient(0.0, 0.0, 40.0);
    gradient->SetColorAt(0.0, TXColor::WHITE_);
    gradient->SetColorAt(1.0, kPlum);
    s.SelectGradient(gradient.get());
    mark(226.0);
}

void HollowSymbols(TXGraphics& s)
{
    UsePen(s, kInk, 2.0);
    UseBrush(s, kWater);
    double x = 56.0;
    for (const int tips : {5, 7, 9})
    {
        const Points corners = Regular(0.0, 0.0, 1.0, tips);
        Points star;
        for (int i = 0; i < tips; ++i)
            star.push_back(corners[static_cast<std::size_t>(i * (tips / 2) % tips)]);
        s.VectorMarker(x, 78.0, 40.0, 40.0, 0.0, star.data(), Count(star), true);
        x += 84.0;
    }
}

/// Which way a river flows, and the wind over it.
void AlongALine(TXGraphics& s)
{
    const Points river = River({10.0, 110.0}, {266.0, 88.0}, 1.5, 26.0);
    UsePen(s, kWater, 9.0);
    s.Polyline(river.data(), Count(river));
    UsePen(s, TXColor::WHITE_, 2.0);
    const Points chevron = {{-0.6, -0.6}, {0.4, 0.0}, {-0.6, 0.6}};
    for (std::size_t i = 6; i + 6 < river.size(); i += 8)
    {
        const double slope = std::atan2(river[i + 1].y - river[i - 1].y, river[i + 1].x - river[i - 1].x);
        s.VectorMarker(river[i], 5.0, 5.0, slope * 180.0 / 3.14159265358979323846, chevron.data(), Count(chevron),
                       false);
    }
    UsePen(s, kPlum, 2.0);
    const Points barb = Barb();
    for (int i = 0; i < 6; ++i)
        s.VectorMarker(TXPoint(24.0 + 40.0 * i, 52.0), 30.0, 30.0, 10.0 * i, barb.data(), Count(barb), false);
}

void Symbols(TXGraphics& s, bool cairo)
{
    const TXColor colors[] = {kBrick, kDeepWater, kPlum, kInk, kForest, TXColor(120, 84, 52, 255)};
    UseFont(s, 12);
    s.EnableCairoDrawing(cairo);
    int number = 0;
    for (const short symbol : kSymbols)
    {
        const double x = 52.0 + number % 3 * 86.0;
        const double y = 40.0 + number / 3 * 70.0;
        UsePen(s, colors[number]);
        s.FontMarker(x, y, 48.0, 48.0, 0.0, kFace, symbol);
        ++number;
    }
}

void SmallSymbols(TXGraphics& s, bool cairo)
{
    int number = 0;
    for (int size = 5; size <= 18; ++size)
    {
        const double x = 26.0 + number % 7 * 37.0;
        const double y = 26.0 + number / 7 * 68.0;
        UsePen(s, Translucent(kInk, 170));
        s.EnableCairoDrawing(cairo);
        s.FontMarker(x, y, size, size, 0.0, kFace, kSymbols[1]);
        s.EnableCairoDrawing(false);
        Note(s, x, y + 17.0, std::to_wstring(size));
        ++number;
    }
}

/// The small crosses are the points that the symbols are meant for: cairo turns them about the foot of the character.
void TurnedFontSymbols(TXGraphics& s, bool cairo)
{
    int number = 0;
    for (int angle = -60; angle <= 150; angle += 30)
    {
        const double x = 40.0 + number % 4 * 65.0;
        const double y = 40.0 + number / 4 * 72.0;
        Cross(s, x, y);
        UseFont(s, 12);
        UsePen(s, kBrick);
        s.EnableCairoDrawing(cairo);
        s.FontMarker(x, y, 30.0, 30.0, angle, kFace, kSymbols[1]);
        s.EnableCairoDrawing(false);
        Note(s, x, y - 33.0, std::to_wstring(angle) + L"\u00b0");
        ++number;
    }
}

/// The box's height is the size of the character; its width only says where the middle is.
void Boxes(TXGraphics& s)
{
    const TXPoint sizes[] = {{24, 48}, {48, 48}, {96, 48}, {40, 20}};
    double x = 16.0;
    for (const TXPoint& size : sizes)
    {
        UsePen(s, kWater);
        UseBrush(s, TXColor::WHITE_);
        s.Rectangle(x, 75.0 - size.y / 2.0, size.x, size.y);
        UsePen(s, kPlum);
        UseFont(s, 12);
        s.FontMarker(TXPoint(x + size.x / 2.0, 75.0), size.x, size.y, 0.0, kFace, kSymbols[0]);
        x += size.x + 12.0;
    }
}

void TranslucentSymbols(TXGraphics& s)
{
    DrawMap(s);
    UseFont(s, 12);
    UsePen(s, kBrick);
    double x = 38.0;
    for (const double opacity : {0.2, 0.4, 0.6, 0.8, 1.0})
    {
        s.SetOpacity(opacity);
        s.FontMarker(x, 75.0, 50.0, 50.0, 0.0, kFace, kSymbols[0]);
        x += 50.0;
    }
}

void Faces(TXGraphics& s)
{
    UseFont(s, 12);
    double x = 38.0;
    for (const char* face : {"DejaVu Sans", "DejaVu Serif", "DejaVu Sans Mono"})
    {
        UsePen(s, kForest);
        s.FontMarker(x, 40.0, 46.0, 46.0, 0.0, face, L'R');
        UsePen(s, kPlum);
        s.FontMarker(x, 108.0, 46.0, 46.0, 0.0, face, 0x00A7);
        x += 100.0;
    }
}

void SymbolsOnAMap(TXGraphics& s, bool cairo)
{
    DrawMap(s);
    const struct
    {
        TXPoint at;
        short symbol;
        TXColor color;
    } places[] = {{{140, 72}, kSymbols[3], TXColor::WHITE_},
                  {{66, 110}, 0x2663, TXColor(38, 84, 48, 255)},
                  {{226, 30}, 0x2663, TXColor(38, 84, 48, 255)},
                  {{36, 34}, kSymbols[1], kInk},
                  {{220, 116}, kSymbols[4], kPlum},
                  {{122, 24}, kSymbols[2], kBrick},
                  {{136, 130}, kSymbols[5], kInk}};
    UseFont(s, 12);
    s.EnableCairoDrawing(cairo);
    for (const auto& place : places)
    {
        UsePen(s, place.color);
        s.FontMarker(place.at, 26.0, 26.0, 0.0, kFace, place.symbol);
    }
}

} // namespace

Cells MarkerCells()
{
    return {
        {"VectorMarker: closed", ClosedSymbols},
        {"VectorMarker: open", OpenSymbols},
        {"VectorMarker: scaled along each axis", ScaledSymbols},
        {"VectorMarker: turned", TurnedSymbols},
        {"VectorMarker: turned about another point", OffsetSymbols},
        {"VectorMarker at a point", AnchoredSymbols},
        {"VectorMarker: pens and brushes", StyledSymbols},
        {"VectorMarker: odd-even", HollowSymbols},
        {"VectorMarker: along a line", AlongALine},
        {"FontMarker: several faces", Faces},
        {"FontMarker", [](TXGraphics& s) { Symbols(s, false); }},
        {"FontMarker: below 10 drawn twice", [](TXGraphics& s) { SmallSymbols(s, false); }},
        {"FontMarker: turned", [](TXGraphics& s) { TurnedFontSymbols(s, false); }},
        {"FontMarker: the box", Boxes},
        {"FontMarker: on a map", [](TXGraphics& s) { SymbolsOnAMap(s, false); }},
        {"FontMarker, cairo", [](TXGraphics& s) { Symbols(s, true); }},
        {"FontMarker, cairo: below 15 drawn twice", [](TXGraphics& s) { SmallSymbols(s, true); }},
        {"FontMarker, cairo: turned from 1 degree on", [](TXGraphics& s) { TurnedFontSymbols(s, true); }},
        {"FontMarker: SetOpacity", TranslucentSymbols},
        {"FontMarker, cairo: on a map", [](TXGraphics& s) { SymbolsOnAMap(s, true); }},
    };
}

} // namespace gallery
