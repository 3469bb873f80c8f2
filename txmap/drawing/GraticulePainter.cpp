#include <txmap/drawing/GraticulePainter.h>

#include <txgraphics/TXGraphics.h>
#include <txgraphics/TXPen.h>
#include <txmap/drawing/Canvas.h>
#include <txmap/drawing/DrawingTools.h>
#include <txmap/map/Graticule.h>
#include <txmap/style/Style.h>

namespace txmap
{

using TZObjects::TXPen;
using TZObjects::TXPoint;
using TZObjects::TXRefPtr;

void GraticulePainter::Draw(const std::vector<GraticuleLine>& graticule)
{
    TXRefPtr<TXPen> pen = canvas.Pen(style.graticule);
    pen->SetPenCapStyle(TXPen::FlatCap);
    pen->SetSteps(style.graticuleDashes);
    canvas.Surface().SelectPen(pen);
    for (const GraticuleLine& line : graticule)
    {
        const TXPoint ends[] = {line.from, line.to};
        RequireDrawn(canvas.Surface().Polyline(ends, 2));
    }
}

} // namespace txmap
