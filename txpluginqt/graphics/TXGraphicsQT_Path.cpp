// The current path.
#include <txpluginqt/graphics/TXGraphicsQT.h>

#include <txpluginqt/raster/Drawing.h>
#include <txpluginqt/support/Numbers.h>

using namespace txqt;

bool TXGraphicsQT::MoveTo(double x, double y)
{
    return !IsDrawable(x, y) || BuildPath([&](QPainterPath& p) { p.moveTo(x, y); });
}

bool TXGraphicsQT::LineTo(double x, double y)
{
    return !IsDrawable(x, y) || BuildPath([&](QPainterPath& p) { p.lineTo(x, y); });
}

bool TXGraphicsQT::CurveTo(const double& c1x, const double& c1y, const double& c2x, const double& c2y, const double& x,
                           const double& y)
{
    return !IsDrawable(c1x, c1y, c2x, c2y, x, y) ||
           BuildPath([&](QPainterPath& p) { p.cubicTo(c1x, c1y, c2x, c2y, x, y); });
}

bool TXGraphicsQT::QuadTo(const double& cx, const double& cy, const double& x, const double& y)
{
    return !IsDrawable(cx, cy, x, y) || BuildPath([&](QPainterPath& p) { p.quadTo(cx, cy, x, y); });
}

void TXGraphicsQT::ClosePath()
{
    if (path)
        Succeeds([&] { path->closeSubpath(); });
}

void TXGraphicsQT::DrawPath()
{
    if (!path || !painter)
        return;
    Paint([&](QPainter& p) { txqt::DrawPath(p, *path); });
    QPainterPath().swap(*path);
}
