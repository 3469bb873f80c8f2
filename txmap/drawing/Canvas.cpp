#include <txmap/drawing/Canvas.h>

#include <txgraphics/TXGraphicsEngine.h>
#include <txmap/drawing/DrawingTools.h>

namespace txmap
{

using TZObjects::TXPen;
using TZObjects::TXRefPtr;

TXRefPtr<TXPen> Canvas::Pen(const Stroke& stroke) const
{
    return SolidPen(Engine(), stroke.color, stroke.width * unit);
}

void Canvas::Use(const Stroke& stroke) { Surface().SelectPen(Pen(stroke)); }

} // namespace txmap
