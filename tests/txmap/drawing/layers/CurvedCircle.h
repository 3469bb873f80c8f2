#pragma once

#include <txgraphics/TXGraphics.h>

/// Adds a circle of four curves to the current path of a surface.
inline void AddCurvedCircle(TZObjects::TXGraphics& surface, const TZObjects::TXPoint& centre, double radius)
{
    const double bend = radius * 0.5522847498307936;
    const double x = centre.x;
    const double y = centre.y;
    surface.MoveTo(x + radius, y);
    surface.CurveTo(x + radius, y + bend, x + bend, y + radius, x, y + radius);
    surface.CurveTo(x - bend, y + radius, x - radius, y + bend, x - radius, y);
    surface.CurveTo(x - radius, y - bend, x - bend, y - radius, x, y - radius);
    surface.CurveTo(x + bend, y - radius, x + radius, y - bend, x + radius, y);
    surface.ClosePath();
}
