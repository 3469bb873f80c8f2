#include <txmap/drawing/NorthArrow.h>

#include <algorithm>
#include <cmath>
#include <vector>

#include <txgraphics/TXGraphics.h>
#include <txgraphics/TXGraphicsEngine.h>
#include <txgraphics/TXImage.h>
#include <txmap/drawing/Canvas.h>
#include <txmap/drawing/DrawingTools.h>
#include <txmap/map/PixelGeometry.h>

namespace txmap
{

using TZObjects::TXColor;
using TZObjects::TXGraphics;
using TZObjects::TXGraphicsEngine;
using TZObjects::TXPoint;
using TZObjects::TXRect;
using TZObjects::TXRefPtr;

namespace
{

// In pixels of a picture of the usual size.
constexpr double kUsualSize = 84.0;
constexpr double kUsualMargin = 14.0;
constexpr double kSmallestSize = 32.0;
constexpr double kLargestPart = 0.3; ///< Of the shorter side of the map.
constexpr double kSmallestArrow = 8.0;
constexpr double kStep = 2.0;

using Shape = std::vector<TXPoint>;

// All shapes lie in a circle about (0.5, 0.5) that touches the sides of the square from (0, 0) to (1, 1).
const Shape kWest = {{0.5, 0.285}, {0.5, 0.79}, {0.3, 0.91}};
const Shape kEast = {{0.5, 0.285}, {0.7, 0.91}, {0.5, 0.79}};
const Shape kNeedle = {{0.5, 0.285}, {0.7, 0.91}, {0.5, 0.79}, {0.3, 0.91}};

/// The letter N, whose slanted stroke runs from corner to corner.
Shape LetterN()
{
    constexpr double kLeft = 0.425;
    constexpr double kTop = 0.055;
    constexpr double kWidth = 0.15;
    constexpr double kHeight = 0.175;
    constexpr double kStem = 0.034;
    constexpr double kSlant = 0.045; ///< The width of the slanted stroke, along the top.
    constexpr double kDrop = kHeight * kStem / (kWidth - kSlant);
    Shape letter = {{0.0, 0.0},       {kSlant, 0.0},     {kWidth - kStem, kHeight - kDrop}, {kWidth - kStem, 0.0},
                    {kWidth, 0.0},    {kWidth, kHeight}, {kWidth - kSlant, kHeight},        {kStem, kDrop},
                    {kStem, kHeight}, {0.0, kHeight}};
    for (TXPoint& point : letter)
        point = {point.x + kLeft, point.y + kTop};
    return letter;
}

/// Draws shapes of the unit square on a surface of so many pixels.
class UnitSquare
{
public:
    UnitSquare(const TXGraphicsEngine& engine, TXGraphics& surface, double size)
        : engine(engine), surface(surface), size(size)
    {
    }

    void Draw(const Shape& shape, const TXColor& fill, const Stroke& outline) const
    {
        surface.SelectBrush(SolidBrush(engine, fill));
        surface.SelectPen(SolidPen(engine, outline.color, outline.width * size));
        Shape pixels;
        for (const TXPoint& point : shape)
            pixels.emplace_back(point.x * size, point.y * size);
        RequireDrawn(surface.Polygon(pixels.data(), static_cast<int>(pixels.size())));
    }

private:
    const TXGraphicsEngine& engine;
    TXGraphics& surface;
    double size;
};

void DrawUpright(const TXGraphicsEngine& engine, TXGraphics& surface, double size, const ArrowStyle& style)
{
    constexpr double kGlow = 0.055;
    constexpr double kLine = 0.016;
    const UnitSquare square(engine, surface, size);
    const Shape letter = LetterN();
    for (const Shape& shape : {letter, kNeedle})
        square.Draw(shape, style.glow, {style.glow, kGlow});
    square.Draw(letter, style.dark, {style.dark, 0.3 * kLine});
    square.Draw(kEast, style.light, {style.dark, kLine});
    square.Draw(kWest, style.dark, {style.dark, kLine});
}

} // namespace

NorthArrow::NorthArrow(const ArrowRequest& request, const MapView& view, const FrameShape* frame, double unit)
    : angle(request.angle)
{
    const TXRect map = frame ? Common(view.Frame(), frame->Bounds()) : view.Frame();
    const double side = std::min(map.Width(), map.Height());
    const double size =
        2.0 * std::floor(std::min(std::max(kSmallestSize, kUsualSize * unit), kLargestPart * side) / 2.0);
    const auto boxAt = [&](double margin)
    {
        const double left = std::round(request.left ? map.left + margin : map.right - margin - size);
        const double top = std::round(request.bottom ? map.bottom - margin - size : map.top + margin);
        return TXRect(left, left + size, top, top + size);
    };
    const double margin = std::min(kUsualMargin * std::max(0.5, unit), 0.1 * side);
    box = boxAt(margin);
    // On the paper beside the map it hides nothing.
    if (!frame || frame->Avoids(box))
        return;
    for (int step = 0; step * kStep < side / 2.0; ++step)
        if (const TXRect moved = boxAt(margin + step * kStep); frame->Contains(moved))
        {
            box = moved;
            break;
        }
}

void NorthArrow::Draw(Canvas& canvas, const ArrowStyle& style) const
{
    const double size = box.Width();
    if (!(size >= kSmallestArrow))
        return;
    const TXRefPtr<TXGraphics> drawing(canvas.Engine().NewGraphics());
    const int side = static_cast<int>(size);
    RequireDrawn(drawing && drawing->CreateCompatibleGraphics(side, side) && drawing->GetImage());
    drawing->ClearWithColor({255, 255, 255, 0});
    DrawUpright(canvas.Engine(), *drawing, size, style);
    RequireDrawn(
        canvas.Surface().DrawImage4BitmapRotate(box, drawing->GetImage().get(), {0.0, size, 0.0, size}, angle, 1.0));
}

} // namespace txmap
