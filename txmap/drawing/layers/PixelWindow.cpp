#include <txmap/drawing/layers/PixelWindow.h>

#include <algorithm>
#include <cmath>

#include <txgraphics/TXGraphics.h>
#include <txgraphics/TXGraphicsEngine.h>
#include <txgraphics/TXImage.h>
#include <txmap/drawing/DrawingTools.h>
#include <txmap/drawing/layers/MapCanvas.h>

namespace txmap
{

using TZObjects::TXImage;
using TZObjects::TXRect;
using TZObjects::TXRefPtr;

PixelWindow::PixelWindow(const MapCanvas& canvas, const TXRect& box)
{
    const PixelSize size = canvas.View().Size();
    left = static_cast<int>(std::floor(std::clamp(box.left, 0.0, static_cast<double>(size.width))));
    top = static_cast<int>(std::floor(std::clamp(box.top, 0.0, static_cast<double>(size.height))));
    width = static_cast<int>(std::ceil(std::clamp(box.right, 0.0, static_cast<double>(size.width)))) - left;
    height = static_cast<int>(std::ceil(std::clamp(box.bottom, 0.0, static_cast<double>(size.height)))) - top;
    if (!IsEmpty())
        pixels.resize(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
}

void PixelWindow::Draw(MapCanvas& canvas, double opacity)
{
    if (IsEmpty())
        return;
    const TXRefPtr<TXImage> image(canvas.Engine().NewImage());
    RequireDrawn(image && image->CreateImage(reinterpret_cast<unsigned char*>(pixels.data()), width, height,
                                             TXImage::Format_ARGB32_Premultiplied));
    const TXRect source(0.0, width, 0.0, height);
    const TXRect target(left, left + width, top, top + height);
    RequireDrawn(canvas.Surface().DrawImage(target, image.get(), source, opacity));
}

} // namespace txmap
