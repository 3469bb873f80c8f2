#include <txmap/drawing/LinePainter.h>

#include <txgraphics/TXGraphics.h>
#include <txmap/drawing/Canvas.h>
#include <txmap/drawing/DrawingTools.h>
#include <txmap/map/MapLayer.h>
#include <txmap/style/Style.h>

namespace txmap
{

void LinePainter::Draw(const MapLayer& layer)
{
    if (layer.lines.empty())
        return;
    canvas.Use(layer.role == LayerRole::Borders ? style.border : style.river);
    for (const Line& line : layer.lines)
        RequireDrawn(canvas.Surface().Polyline(layer.linePoints.data() + line.firstPoint, line.count));
}

} // namespace txmap
