#include <txmap/drawing/FramePainter.h>

#include <algorithm>

#include <txgraphics/TXGraphics.h>
#include <txmap/drawing/Canvas.h>
#include <txmap/drawing/DrawingTools.h>
#include <txmap/map/FrameShape.h>
#include <txmap/map/MapView.h>
#include <txmap/style/Style.h>

namespace txmap
{

using TZObjects::TXRect;

namespace
{

// The clip has its corners at whole pixels, so its edge is up to this far from the frame, on both sides of it.
constexpr double kNarrowestFrame = 2.0;

} // namespace

double FramePainter::Width() const { return std::max(kNarrowestFrame, style.frame.width * canvas.Unit()); }

void FramePainter::Clip(const FrameShape& frame)
{
    RequireDrawn(canvas.Surface().ClearWithColor(style.paper));
    canvas.Surface().SetClipRegion(frame.Points().data(), frame.Counts().data(),
                                   static_cast<int>(frame.Counts().size()), false, style.paper);
}

void FramePainter::Draw(const FrameShape& frame)
{
    canvas.Surface().RestoreClipRegion();
    canvas.Surface().SelectPen(SolidPen(canvas.Engine(), style.frame.color, Width()));
    RequireDrawn(canvas.Surface().PolyPolyline(frame.Points().data(), frame.Counts().data(),
                                               static_cast<int>(frame.Counts().size())));
}

void FramePainter::DrawMargins(const MapView& view)
{
    const TXRect& frame = view.Frame();
    const double width = view.Size().width;
    const double height = view.Size().height;
    for (const TXRect& margin : {TXRect(0.0, width, 0.0, frame.top), TXRect(0.0, width, frame.bottom, height),
                                 TXRect(0.0, frame.left, 0.0, height), TXRect(frame.right, width, 0.0, height)})
        if (margin.Width() > 0.0 && margin.Height() > 0.0)
            RequireDrawn(canvas.Surface().fillRect(margin, style.paper));
}

} // namespace txmap
