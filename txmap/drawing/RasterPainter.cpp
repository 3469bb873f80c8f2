#include <txmap/drawing/RasterPainter.h>

#include <txgraphics/TXGraphics.h>
#include <txgraphics/TXGraphicsEngine.h>
#include <txgraphics/TXImage.h>
#include <txmap/drawing/Canvas.h>
#include <txmap/drawing/DrawingTools.h>
#include <txmap/sources/Raster.h>

namespace txmap
{

using TZObjects::TXImage;
using TZObjects::TXRefPtr;

void RasterPainter::Draw(Raster& raster, double opacity)
{
    const TXRefPtr<TXImage> image(canvas.Engine().NewImage());
    RequireDrawn(image && image->CreateImage(reinterpret_cast<unsigned char*>(raster.pixels.data()), raster.size.width,
                                             raster.size.height, TXImage::Format_ARGB32));
    RequireDrawn(canvas.Surface().DrawImage(image.get(), opacity));
}

} // namespace txmap
