#include "Scenery.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <iterator>

namespace gallery
{

namespace
{

constexpr double kPi = 3.14159265358979323846;

} // namespace

const TXColor kNothing(255, 255, 255, 0);
const TXColor kInk(40, 50, 70, 255);
const TXColor kBackground(238, 243, 244, 255);
const TXColor kSea(208, 226, 234, 255);
const TXColor kWater(116, 172, 206, 255);
const TXColor kDeepWater(46, 98, 148, 255);
const TXColor kLand(242, 230, 198, 255);
const TXColor kForest(122, 164, 112, 255);
const TXColor kMeadow(190, 210, 150, 255);
const TXColor kBrick(204, 92, 64, 255);
const TXColor kGold(240, 186, 72, 255);
const TXColor kPlum(126, 78, 124, 255);

TXGraphicsEngine& Engine() { return *TXGraphicsEngineManager::instance("")->Engine(); }

TXColor Translucent(const TXColor& color, int alpha) { return {color.getR(), color.getG(), color.getB(), alpha}; }

TXRefPtr<TXGraphics> NewSurface(int width, int height)
{
    TXRefPtr<TXGraphics> surface = Engine().NewGraphics();
    surface->CreateCompatibleGraphics(width, height);
    return surface;
}

TXGraphics::stGradientParams Gradient(int type, const TXColor& from, const TXColor& to, double angle, double middle)
{
    TXGraphics::stGradientParams gradient;
    gradient.type = type;
    gradient.startColor = from;
    gradient.endColor = to;
    gradient.angle = angle;
    gradient.middle = middle;
    return gradient;
}

void UsePen(TXGraphics& s, const TXColor& color, double width, TXPen::PenStyle style, TXPen::PenCapStyle cap,
            TXPen::PenJoinStyle join)
{
    const TXRefPtr<TXPen> pen = s.NewPen();
    pen->Create(style, width, color, cap, join);
    s.SelectPen(pen);
}

void UseNoPen(TXGraphics& s) { UsePen(s, kInk, 1.0, TXPen::NullPen); }

void UseBrush(TXGraphics& s, const TXColor& color, TXBrush::BrushStyle style)
{
    const TXRefPtr<TXBrush> brush = s.NewBrush();
    brush->Create(color, style);
    s.SelectBrush(brush);
}

void UseNoBrush(TXGraphics& s) { UseBrush(s, kNothing); }

void UseFont(TXGraphics& s, int height)
{
    const TXRefPtr<TXFont> font = s.NewFont();
    font->Create();
    font->SetFontName("DejaVu Sans");
    font->SetFontHeight(height);
    s.SelectFont(font);
}

void Note(TXGraphics& s, double x, double y, const TXString& text, int height)
{
    UseFont(s, height);
    UsePen(s, kInk);
    double textWidth = 0.0;
    double textHeight = 0.0;
    s.GetFont()->GetTextExtent(text, textWidth, textHeight, true);
    s.DrawString(std::round(x - textWidth / 2.0), y, TXGraphics::TextAlignTop, TXGraphics::TextAlignLeft, text, 0.0,
                 0.0, 1.0);
}

Parts& Parts::Add(const Points& part)
{
    points.insert(points.end(), part.begin(), part.end());
    counts.push_back(gallery::Count(part));
    return *this;
}

int Count(const Points& points) { return static_cast<int>(points.size()); }

Points Island(double cx, double cy, double rx, double ry, double seed)
{
    constexpr int kSteps = 72;
    Points coast;
    for (int i = 0; i < kSteps; ++i)
    {
        const double t = 2.0 * kPi * i / kSteps;
        const double r = 0.8 + 0.1 * std::sin(2.0 * t + seed) + 0.07 * std::sin(3.0 * t + 2.0 * seed) +
                         0.05 * std::sin(5.0 * t + 3.0 * seed) + 0.025 * std::sin(11.0 * t + 5.0 * seed);
        coast.emplace_back(cx + rx * r * std::cos(t), cy + ry * r * std::sin(t));
    }
    coast.push_back(coast.front());
    return coast;
}

Points River(const TXPoint& from, const TXPoint& to, double bends, double amplitude)
{
    constexpr int kSteps = 80;
    const double dx = to.x - from.x;
    const double dy = to.y - from.y;
    const double length = std::hypot(dx, dy);
    Points line;
    for (int i = 0; i <= kSteps; ++i)
    {
        const double t = static_cast<double>(i) / kSteps;
        const double off = amplitude * std::sin(kPi * t) * std::sin(2.0 * kPi * bends * t);
        line.emplace_back(from.x + t * dx - off * dy / length, from.y + t * dy + off * dx / length);
    }
    return line;
}

Points Regular(double cx, double cy, double radius, int corners)
{
    Points polygon;
    for (int i = 0; i < corners; ++i)
    {
        const double t = 2.0 * kPi * i / corners - kPi / 2.0;
        polygon.emplace_back(cx + radius * std::cos(t), cy + radius * std::sin(t));
    }
    return polygon;
}

Points Star(int tips, double outer, double inner)
{
    Points star = Regular(0.0, 0.0, outer, 2 * tips);
    for (std::size_t i = 1; i < star.size(); i += 2)
        star[i] = {star[i].x * inner / outer, star[i].y * inner / outer};
    return star;
}

Points Box(double left, double right, double top, double bottom)
{
    return {{left, top}, {right, top}, {right, bottom}, {left, bottom}, {left, top}};
}

Points Placed(const Points& points, double x, double y, double scale)
{
    Points placed;
    std::transform(points.begin(), points.end(), std::back_inserter(placed),
                   [=](const TXPoint& p) { return TXPoint(x + scale * p.x, y + scale * p.y); });
    return placed;
}

void DrawMap(TXGraphics& s)
{
    s.fillRect(TXRect(0.0, kWidth, 0.0, kHeight), kLand);
    UseNoPen(s);
    UseBrush(s, kMeadow);
    for (const Points& meadow : {Island(40.0, 34.0, 74.0, 46.0, 1.0), Island(222.0, 118.0, 84.0, 52.0, 2.5)})
        s.Polygon(meadow.data(), Count(meadow));
    UseBrush(s, kForest);
    for (const Points& wood : {Island(58.0, 118.0, 54.0, 34.0, 4.0), Island(226.0, 28.0, 52.0, 30.0, 3.0)})
        s.Polygon(wood.data(), Count(wood));
    UsePen(s, kDeepWater);
    UseBrush(s, kWater);
    const Points lake = Island(140.0, 74.0, 52.0, 34.0, 0.4);
    s.Polygon(lake.data(), Count(lake));
    UsePen(s, kWater, 4.0);
    const Points river = River({-4.0, 88.0}, {104.0, 76.0}, 2.0, 9.0);
    s.Polyline(river.data(), Count(river));
    const Points outflow = River({178.0, 78.0}, {282.0, 62.0}, 2.0, 8.0);
    s.Polyline(outflow.data(), Count(outflow));
    const Points road = River({30.0, -4.0}, {250.0, 154.0}, 1.0, -46.0);
    UsePen(s, kInk, 5.0);
    s.Polyline(road.data(), Count(road));
    UsePen(s, kGold, 3.0);
    s.Polyline(road.data(), Count(road));
}

TXRefPtr<TXImage> Relief(int width, int height)
{
    const TXColor bands[] = {
        kDeepWater,          kWater, kSea, kLand, kMeadow, kForest, {206, 176, 118, 255}, {172, 128, 92, 255},
        {250, 250, 250, 255}};
    constexpr int kBands = static_cast<int>(std::size(bands));
    TXRefPtr<TXImage> image = Engine().NewImage();
    image->CreateCompatibleImage(nullptr, width, height);
    for (int y = 0; y < height; ++y)
    {
        for (int x = 0; x < width; ++x)
        {
            const double u = (x + 0.5) / width;
            const double v = (y + 0.5) / height;
            const double peak = std::exp(-10.0 * (std::pow(u - 0.36, 2) + 1.6 * std::pow(v - 0.42, 2)));
            const double ridge = std::exp(-24.0 * (std::pow(u - 0.76, 2) + std::pow(v - 0.62, 2)));
            const double rough = 0.05 * std::sin(17.0 * u + 5.0 * v) + 0.05 * std::sin(13.0 * v - 7.0 * u);
            const double level = (1.06 * peak + 0.72 * ridge + rough) * kBands;
            image->SetPixel(x, y, bands[std::clamp(static_cast<int>(level), 0, kBands - 1)]);
        }
    }
    return image;
}

} // namespace gallery
