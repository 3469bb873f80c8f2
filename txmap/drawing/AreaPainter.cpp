#include <txmap/drawing/AreaPainter.h>

#include <cstddef>
#include <vector>

#include <txgraphics/TXBrush.h>
#include <txgraphics/TXGraphics.h>
#include <txmap/drawing/Canvas.h>
#include <txmap/drawing/DrawingTools.h>
#include <txmap/map/MapLayer.h>
#include <txmap/style/Style.h>

namespace txmap
{

using TZObjects::TXBrush;
using TZObjects::TXRefPtr;

void AreaPainter::Draw(const MapLayer& layer)
{
    if (layer.areas.empty())
        return;
    std::vector<TXRefPtr<TXBrush>> brushes;
    for (int category = 0; category <= style.Categories(); ++category)
        brushes.push_back(SolidBrush(canvas.Engine(), IsLand(layer) ? style.Fill(category) : style.lake));
    canvas.Use(IsLand(layer) ? style.outline : style.lakeShore);
    for (const Area& area : layer.areas)
    {
        canvas.Surface().SelectBrush(brushes[static_cast<std::size_t>(area.category)]);
        RequireDrawn(canvas.Surface().PolyPolygon(layer.areaPoints.data() + area.firstPoint,
                                                  layer.ringSizes.data() + area.firstRing, area.rings));
    }
}

void AreaPainter::DrawOutlines(const MapLayer& layer)
{
    if (layer.ringSizes.empty())
        return;
    const auto draw = [&](const Stroke& stroke)
    {
        canvas.Use(stroke);
        RequireDrawn(canvas.Surface().PolyPolyline(layer.areaPoints.data(), layer.ringSizes.data(),
                                                   static_cast<int>(layer.ringSizes.size())));
    };
    if (IsLand(layer))
        draw(style.overRaster);
    draw(IsLand(layer) ? style.outline : style.lakeShore);
}

} // namespace txmap
