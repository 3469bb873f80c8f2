#include <txmap/drawing/Canvas.h>

#include <algorithm>

#include <txgraphics/TXGraphicsEngine.h>
#include <txgraphics/TXImage.h>
#include <txmap/drawing/DrawingTools.h>
#include <txmap/support/Failure.h>

namespace txmap
{

using TZObjects::TXGraphicsEngine;
using TZObjects::TXPen;
using TZObjects::TXRefPtr;

namespace
{

// The shorter side of the map that the style's widths are meant for.
constexpr double kUsualSide = 1024.0;
// In small pictures lines and places get thinner only so far.
constexpr double kSmallestUnit = 0.5;

} // namespace

Canvas::Canvas(TXGraphicsEngine& engine, const View& view)
    : engine(engine), unit(std::max(kSmallestUnit, std::min(view.Frame().Width(), view.Frame().Height()) / kUsualSide)),
      surface(engine.NewGraphics())
{
    const PixelSize size = view.Size();
    const bool ready = surface && surface->CreateCompatibleGraphics(size.width, size.height) && surface->GetImage() &&
                       surface->GetImage()->GetWidth() == size.width;
    if (!ready)
        throw Failure(ExitCode::Drawing, "a picture of " + std::to_string(size.width) + "x" +
                                             std::to_string(size.height) + " pixels cannot be made");
}

TXRefPtr<TXPen> Canvas::Pen(const Stroke& stroke) const { return SolidPen(engine, stroke.color, stroke.width * unit); }

void Canvas::Use(const Stroke& stroke) { surface->SelectPen(Pen(stroke)); }

bool Canvas::Save(const std::string& path) { return surface->Save(path.c_str()); }

} // namespace txmap
