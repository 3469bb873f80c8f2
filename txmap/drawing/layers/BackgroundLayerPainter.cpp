#include <txmap/drawing/layers/BackgroundLayerPainter.h>

#include <txgraphics/TXGraphics.h>
#include <txmap/drawing/DrawingTools.h>
#include <txmap/drawing/layers/LayerProperty.h>
#include <txmap/drawing/layers/LayerScene.h>
#include <txmap/drawing/layers/PatternImages.h>

namespace txmap
{

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
    RequireDrawn(surface.fillRect(scene.canvas.View().PictureBox(), ToTXColor(color)));
}

} // namespace txmap
