#include "ShapeCalls.h"

#include <tests/support/TestEngine.h>

using namespace TZObjects;

namespace
{

constexpr int kCounts[] = {4, 3};
const TXPoint kPoints[] = {{3, 4}, {50, 5}, {45, 35}, {4, 30}, {10, 10}, {30, 10}, {20, 25}};
const TXRect kRect(5.5, 40.5, 3.5, 30.5);

std::vector<ShapeCall> AllShapeCalls()
{
    TXGraphics::stGradientParams gradient;
    gradient.angle = 30.0;
    return {
        {"Line", [](TXGraphics& s) { return s.Line(1.5, 2.5, 50.5, 30.5); }},
        {"Line by points", [](TXGraphics& s) { return s.Line(TXPoint(1, 2), TXPoint(40, 30)); }},
        {"Polyline", [](TXGraphics& s) { return s.Polyline(kPoints, 7); }},
        {"Polyline of a point", [](TXGraphics& s) { return s.Polyline(kPoints, 1); }},
        {"PolyPolyline", [](TXGraphics& s) { return s.PolyPolyline(kPoints, kCounts, 2); }},
        {"Polygon", [](TXGraphics& s) { return s.Polygon(kPoints, 7); }},
        {"Polygon with gradient", [=](TXGraphics& s) { return s.Polygon(kPoints, 7, gradient); }},
        {"PolyPolygon", [](TXGraphics& s) { return s.PolyPolygon(kPoints, kCounts, 2); }},
        {"PolyPolygon with gradient", [=](TXGraphics& s) { return s.PolyPolygon(kPoints, kCounts, 2, gradient); }},
        {"Rectangle", [](TXGraphics& s) { return s.Rectangle(5.5, 6.5, 30.5, 20.5); }},
        {"Rectangle by edges", [](TXGraphics& s) { return s.Rectangle(kRect); }},
        {"Ellipse of radii", [](TXGraphics& s) { return s.Ellipse(TXPoint(30, 20), 20, 10); }},
        {"Ellipse by edges", [](TXGraphics& s) { return s.Ellipse(kRect, 20, true); }},
        {"Ellipse of diameters", [](TXGraphics& s) { return s.Ellipse(30.5, 20.5, 40.5, 20.5, 30, false); }},
        {"EllipseByRadialGradient",
         [](TXGraphics& s) { return s.EllipseByRadialGradient(TXPoint(30, 20), 15, TXColor::RED_, TXColor::WHITE_); }},
        {"Curve", [](TXGraphics& s) { return s.Curve(kPoints, 7); }},
        {"Arc", [](TXGraphics& s) { return s.Arc(5.5, 6.5, 30.5, 20.5, 20.5, 200.5); }},
        {"Arc by edges", [](TXGraphics& s) { return s.Arc(kRect, 20.5, 200.5); }},
        {"Pie", [](TXGraphics& s) { return s.Pie(5.5, 6.5, 30.5, 20.5, 20.5, 200.5); }},
        {"Pie by edges", [](TXGraphics& s) { return s.Pie(kRect, 20.5, 200.5); }},
        {"fillRect", [](TXGraphics& s) { return s.fillRect(kRect, TXColor(1, 2, 3, 100)); }},
        {"FillRect",
         [](TXGraphics& s)
         {
             const TXRefPtr<TXLinearGradient> linear = TestEngine().NewLinearGradient(0, 0, 40, 30);
             return s.FillRect(kRect, linear.get());
         }},
    };
}

} // namespace

const std::vector<ShapeCall>& ShapeCalls()
{
    static const std::vector<ShapeCall> calls = AllShapeCalls();
    return calls;
}

void DrawEverything(TXGraphics& surface)
{
    for (const ShapeCall& call : ShapeCalls())
        call.draw(surface);
    surface.MoveTo(3, 4);
    surface.LineTo(40, 5);
    surface.QuadTo(50, 20, 30, 30);
    surface.CurveTo(20, 35, 10, 30, 5, 20);
    surface.ClosePath();
    surface.DrawPath();
}

void ChangeEverything(TXGraphics& surface)
{
    const TXRefPtr<TXPen> pen = surface.NewPen();
    pen->Create();
    const TXRefPtr<TXBrush> brush = surface.NewBrush();
    brush->Create(TXColor(10, 200, 30, 100), TXBrush::SolidBrush);
    const TXRefPtr<TXFont> font = surface.NewFont();
    font->Create();
    const TXRefPtr<TXRadialGradient> gradient = TestEngine().NewRadialGradient(20, 20, 10);
    surface.Save();
    surface.SelectPen(TXPen::DashLine);
    surface.SelectPen(pen);
    surface.SelectBrush(brush);
    surface.SelectFont(font);
    surface.SelectGradient(gradient.get());
    surface.SelectRgn(nullptr);
    surface.GetPen();
    surface.GetBrush();
    surface.GetFont();
    surface.GetImage();
    surface.SetOpacity(0.5);
    surface.GetOpacity();
    surface.SetWindowOrg(3, 4);
    surface.SetWindowOrg(TXPoint(-3, -4));
    surface.GetWindowOrg();
    surface.SetCompositionMode(TXGraphics::CompositionMode_Multiply);
    surface.EnableAntialiasing(false);
    surface.EnableAntialiasing(true);
    surface.EnableCairoDrawing(true);
    surface.EnableCairoDrawing(false);
    surface.Restore();
}
