#include <txmap/drawing/layers/BackgroundLayerPainter.h>

#include <txgraphics/TXGraphics.h>
#include <txgraphics/TXGraphicsEngine.h>
#include <txgraphics/TXLinearGradient.h>
#include <txmap/drawing/DrawingTools.h>
#include <txmap/drawing/layers/LayerScene.h>
#include <txmap/drawing/layers/PatternImages.h>
#include <txmap/style/document/LayerProperty.h>

namespace txmap
{

using TZObjects::TXLinearGradient;
using TZObjects::TXPoint;
using TZObjects::TXRefPtr;

namespace
{

// Where the colour of the poles is reached.
constexpr double kPolarLatitude = 85.0;

/// The gradient belongs to the globe, not to the picture: a part of the world has the colours that it has on the map of
/// the whole.
void FillBetweenPoles(MapCanvas& canvas, const Color& atEquator, const Color& atPoles)
{
    const MapView& view = canvas.View();
    const double longitude = view.VisibleDegrees().west;
    const TXPoint north = view.ToPixel(longitude, kPolarLatitude);
    const TXPoint south = view.ToPixel(longitude, -kPolarLatitude);
    TXRefPtr<TXLinearGradient> gradient(canvas.Engine().NewLinearGradient(north.x, north.y, south.x, south.y));
    RequireDrawn(gradient.get() != nullptr);
    gradient->SetColorAt(0.0, ToTXColor(atPoles));
    gradient->SetColorAt(0.5, ToTXColor(atEquator));
    gradient->SetColorAt(1.0, ToTXColor(atPoles));
    RequireDrawn(canvas.Surface().FillRect(view.PictureBox(), gradient.get()));
}

} // namespace

void DrawBackgroundLayer(const LayerScene& scene)
{
    const EvaluationContext context = scene.Context();
    const StyleLayer& layer = scene.layer;
    const double opacity = LayerProperty<double>(layer, "background-opacity", scene.Zoom(), context, 1.0).Constant();
    const LayerProperty<std::string> pattern(layer, "background-pattern", std::floor(scene.Zoom()), context);
    TZObjects::TXGraphics& surface = scene.canvas.Surface();
    if (pattern.IsSet())
    {
        if (const auto image = scene.patterns.Find(pattern.Constant()))
            RequireDrawn(surface.DrawImage(image.get(), opacity));
        return;
    }
    Color color = LayerProperty<Color>(layer, "background-color", scene.Zoom(), context).Constant();
    color.alpha *= opacity;
    if (layer.polarColor)
    {
        Color atPoles = *layer.polarColor;
        atPoles.alpha *= opacity;
        return FillBetweenPoles(scene.canvas, color, atPoles);
    }
    RequireDrawn(surface.fillRect(scene.canvas.View().PictureBox(), ToTXColor(color)));
}

} // namespace txmap
