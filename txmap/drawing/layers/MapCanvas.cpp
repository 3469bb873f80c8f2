#include <txmap/drawing/layers/MapCanvas.h>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <string>

#include <txgraphics/TXGraphicsEngine.h>
#include <txgraphics/TXImage.h>
#include <txmap/drawing/DrawingTools.h>
#include <txmap/support/Failure.h>

namespace txmap
{

using TZObjects::TXBrush;
using TZObjects::TXColor;
using TZObjects::TXGraphics;
using TZObjects::TXImage;
using TZObjects::TXPen;
using TZObjects::TXPoint;
using TZObjects::TXRefPtr;

namespace
{

constexpr double kSeamlessHairline = 1.01;

int Channel(double value) { return static_cast<int>(std::lround(std::clamp(value, 0.0, 1.0) * 255.0)); }

} // namespace

TXColor ToTXColor(const Color& color)
{
    return {Channel(color.red), Channel(color.green), Channel(color.blue), Channel(color.alpha)};
}

MapCanvas::MapCanvas(TZObjects::TXGraphicsEngine& engine, const MapView& view)
    : engine(engine), view(view), surface(engine.NewGraphics())
{
    const PixelSize size = view.Size();
    const bool ready = surface && surface->CreateCompatibleGraphics(size.width, size.height) && surface->GetImage() &&
                       surface->GetImage()->GetWidth() == size.width;
    if (!ready)
        throw Failure(ExitCode::Drawing, "a picture of " + std::to_string(size.width) + "x" +
                                             std::to_string(size.height) + " pixels cannot be made");
    surface->ClearWithColor({0, 0, 0, 0});
}

void MapCanvas::UsePen(const PenLook& look)
{
    if (pen && *pen == look)
        return;
    const TXRefPtr<TXPen> made(engine.NewPen());
    // Surfaces may draw lines of one pixel another way, which depends on where in the picture they begin.
    const double width = view.GridOrigin() && look.width == 1.0 ? kSeamlessHairline : look.width;
    RequireDrawn(made && made->Create(TXPen::SolidLine, width, ToTXColor(look.color), look.cap, look.join));
    if (!look.dashes.empty())
        made->SetSteps(look.dashes);
    surface->SelectPen(made);
    pen = look;
}

void MapCanvas::UseNoPen()
{
    surface->SelectPen(TXPen::NullPen);
    pen.reset();
}

void MapCanvas::UseBrush(const Color& color)
{
    if (brush && *brush == color && !hatch)
        return;
    surface->SelectBrush(SolidBrush(engine, ToTXColor(color)));
    brush = color;
    hatch.reset();
    texture = nullptr;
}

void MapCanvas::UseHatch(const Color& color, TXBrush::BrushStyle style)
{
    if (brush && *brush == color && hatch == style)
        return;
    const TXRefPtr<TXBrush> made(engine.NewBrush());
    RequireDrawn(made && made->Create(ToTXColor(color), style));
    surface->SelectBrush(made);
    brush = color;
    hatch = style;
    texture = nullptr;
}

void MapCanvas::UseGradient(const TXGraphics::stGradientParams& gradient, const TZObjects::TXRect& box)
{
    // Only shapes of one ring are filled with such a gradient, but the gradient stays for the next shape.
    const TXPoint corners[] = {
        {box.left, box.top}, {box.right, box.top}, {box.right, box.bottom}, {box.left, box.bottom}};
    surface->SetOpacity(0.0);
    RequireDrawn(surface->Polygon(corners, static_cast<int>(std::size(corners)), gradient));
    surface->SetOpacity(1.0);
    pen.reset();
    brush.reset();
    hatch.reset();
    texture = nullptr;
}

void MapCanvas::UseTexture(const TXRefPtr<TXImage>& image)
{
    if (texture == image.get())
        return;
    const TXRefPtr<TXBrush> made = SolidBrush(engine, {0, 0, 0, 0});
    made->SetTextureImage(image);
    surface->SelectBrush(made);
    brush.reset();
    texture = image.get();
}

} // namespace txmap
