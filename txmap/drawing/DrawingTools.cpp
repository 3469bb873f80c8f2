#include <txmap/drawing/DrawingTools.h>

#include <txbase/TXPoint.h>
#include <txbase/TXRect.h>
#include <txgraphics/TXGraphics.h>
#include <txgraphics/TXGraphicsEngine.h>
#include <txmap/support/Failure.h>

namespace txmap
{

using TZObjects::TXBrush;
using TZObjects::TXColor;
using TZObjects::TXGraphicsEngine;
using TZObjects::TXPen;
using TZObjects::TXRefPtr;

void RequireDrawn(bool drawn)
{
    if (!drawn)
        throw Failure(ExitCode::Drawing, "the plugin refused to draw");
}

void DrawOutline(TZObjects::TXGraphics& surface, const TZObjects::TXRect& box)
{
    const TZObjects::TXPoint corners[] = {{box.left, box.top},
                                          {box.right, box.top},
                                          {box.right, box.bottom},
                                          {box.left, box.bottom},
                                          {box.left, box.top}};
    RequireDrawn(surface.Polyline(corners, 5));
}

TXRefPtr<TXPen> SolidPen(const TXGraphicsEngine& engine, const TXColor& color, double width)
{
    TXRefPtr<TXPen> pen(engine.NewPen());
    RequireDrawn(pen && pen->Create(TXPen::SolidLine, width, color, TXPen::RoundCap, TXPen::RoundJoin));
    return pen;
}

TXRefPtr<TXBrush> SolidBrush(const TXGraphicsEngine& engine, const TXColor& color)
{
    TXRefPtr<TXBrush> brush(engine.NewBrush());
    RequireDrawn(brush && brush->Create(color, TXBrush::SolidBrush));
    return brush;
}

} // namespace txmap
