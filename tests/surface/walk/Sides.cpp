#include "Sides.h"

using namespace TZObjects;

UnderTest::Pen UnderTest::NewPen(const TXGraphics& surface)
{
    const Pen pen = surface.NewPen();
    pen->Create();
    return pen;
}

UnderTest::Brush UnderTest::NewBrush(const TXGraphics& surface)
{
    const Brush brush = surface.NewBrush();
    brush->Create(TXColor(255, 255, 255, 0), TXBrush::SolidBrush);
    return brush;
}

UnderTest::Font UnderTest::NewFont(const TXGraphics& surface)
{
    const Font font = surface.NewFont();
    font->Create();
    return font;
}

UnderTest::Gradient UnderTest::NewLinear(double x1, double y1, double x2, double y2)
{
    return Gradient(TestEngine().NewLinearGradient(x1, y1, x2, y2));
}

UnderTest::Gradient UnderTest::NewRadial(double x, double y, double radius)
{
    return Gradient(TestEngine().NewRadialGradient(x, y, radius));
}

Modelled::Gradient Modelled::NewLinear(double x1, double y1, double x2, double y2)
{
    return std::make_shared<ModelGradient>(QLinearGradient(x1, y1, x2, y2));
}

Modelled::Gradient Modelled::NewRadial(double x, double y, double radius)
{
    return std::make_shared<ModelGradient>(QRadialGradient(x, y, radius));
}
