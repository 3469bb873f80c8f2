#pragma once

#include <vector>

#include <txgraphics/txgraphics.h>

namespace gallery
{

using namespace TZObjects;

/// What the pictures of the operations have in common: their size, their colours, and made-up geodata.
constexpr int kWidth = 276;
constexpr int kHeight = 150;

extern const TXColor kNothing;
extern const TXColor kInk;
extern const TXColor kBackground;
extern const TXColor kSea;
extern const TXColor kWater;
extern const TXColor kDeepWater;
extern const TXColor kLand;
extern const TXColor kForest;
extern const TXColor kMeadow;
extern const TXColor kBrick;
extern const TXColor kGold;
extern const TXColor kPlum;

/// The engine of this process.
TXGraphicsEngine& Engine();
/// The same colour, as opaque as @p alpha says.
TXColor Translucent(const TXColor& color, int alpha);
/// A surface of its own, transparent.
TXRefPtr<TXGraphics> NewSurface(int width, int height);

/// What an operation with a computed gradient takes.
TXGraphics::stGradientParams Gradient(int type, const TXColor& from, const TXColor& to, double angle = 0.0,
                                      double middle = 50.0);

void UsePen(TXGraphics& s, const TXColor& color, double width = 1.0, TXPen::PenStyle style = TXPen::SolidLine,
            TXPen::PenCapStyle cap = TXPen::RoundCap, TXPen::PenJoinStyle join = TXPen::RoundJoin);
void UseNoPen(TXGraphics& s);
void UseBrush(TXGraphics& s, const TXColor& color, TXBrush::BrushStyle style = TXBrush::SolidBrush);
/// Only outlines from now on.
void UseNoBrush(TXGraphics& s);
void UseFont(TXGraphics& s, int height);
/// A small text in ink, centred about @p x, with its top at @p y.
void Note(TXGraphics& s, double x, double y, const TXString& text, int height = 10);

using Points = std::vector<TXPoint>;

/// Several rings or lines in one array, as the operations take them.
struct Parts
{
    Points points;
    std::vector<int> counts;

    Parts& Add(const Points& part);
    int Count() const { return static_cast<int>(counts.size()); }
};

int Count(const Points& points);
/// A coast about a centre, closed: its first point comes again at its end. Seeds give different coasts.
Points Island(double cx, double cy, double rx, double ry, double seed);
/// A winding line between two points; the amplitude is that of its bends.
Points River(const TXPoint& from, const TXPoint& to, double bends, double amplitude);
/// A regular polygon, its first corner up.
Points Regular(double cx, double cy, double radius, int corners);
/// A star about the origin, its first tip up.
Points Star(int tips, double outer, double inner);
Points Box(double left, double right, double top, double bottom);
/// The same about another place and as large as @p scale says.
Points Placed(const Points& points, double x, double y, double scale = 1.0);

/// A picture full of a map: land, lake, woods, a river and a road.
void DrawMap(TXGraphics& s);
/// Heights in bands of colour, from the deep sea to the snow.
TXRefPtr<TXImage> Relief(int width, int height);

} // namespace gallery
