#include <txmap/drawing/SeaPainter.h>

#include <txgraphics/TXGraphics.h>
#include <txgraphics/TXGraphicsEngine.h>
#include <txgraphics/TXLinearGradient.h>
#include <txmap/drawing/Canvas.h>
#include <txmap/drawing/DrawingTools.h>
#include <txmap/map/View.h>
#include <txmap/style/Style.h>

namespace txmap
{

using TZObjects::TXLinearGradient;
using TZObjects::TXPoint;
using TZObjects::TXRect;
using TZObjects::TXRefPtr;

void SeaPainter::Draw(const View& view)
{
    // The gradient belongs to the globe, not to the picture: a part of the world has the colours that it has on the map
    // of the whole.
    const TXRect& frame = view.Frame();
    const GeoBox& box = view.Visible();
    const TXPoint equator = view.ToPixel(box.west, 0.0);
    const TXPoint north = view.ToPixel(box.west, 85.0);
    const TXPoint south = view.ToPixel(box.west, -85.0);
    TXRefPtr<TXLinearGradient> gradient(canvas.Engine().NewLinearGradient(equator.x, north.y, equator.x, south.y));
    RequireDrawn(gradient.get() != nullptr);
    gradient->SetColorAt(0.0, style.oceanAtPoles);
    gradient->SetColorAt(0.5, style.oceanAtEquator);
    gradient->SetColorAt(1.0, style.oceanAtPoles);
    RequireDrawn(canvas.Surface().FillRect(frame, gradient.get()));
}

} // namespace txmap
