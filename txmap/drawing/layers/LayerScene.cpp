#include <txmap/drawing/layers/LayerScene.h>

#include <cmath>
#include <string>

#include <txmap/style/document/LayerProperty.h>

namespace txmap
{

EvaluationContext ContextOf(const MapStyle& style, const MapData& data, double zoom)
{
    EvaluationContext context;
    context.zoom = zoom;
    context.globalState = &style.globalState;
    context.availableImages = &data.Pictures().Names();
    return context;
}

EvaluationContext LayerScene::Context() const { return ContextOf(style, data, Zoom()); }

std::vector<PassedFeature> PassingFeatures(const LayerScene& scene, const PlacedFeatures& placed, const char* sortKey)
{
    scene.evaluating.Start();
    std::vector<PassedFeature> passing = PassingFeatures(scene.layer, placed, sortKey, scene.Context());
    scene.evaluating.Stop();
    return passing;
}

AffineMatrix TranslatedPixels(const LayerScene& scene, const char* prefix, int world)
{
    const EvaluationContext context = scene.Context();
    const std::string name = prefix;
    const auto by =
        LayerProperty<std::array<double, 2>>(scene.layer, (name + "-translate").c_str(), scene.Zoom(), context)
            .Constant();
    const auto anchor =
        LayerProperty<std::string>(scene.layer, (name + "-translate-anchor").c_str(), scene.Zoom(), context).Constant();
    AffineMatrix matrix = scene.canvas.View().ToPixels(world);
    const double size = scene.canvas.View().WorldSize() / scene.Scale();
    if (anchor == "viewport")
    {
        matrix.x0 += by[0] * scene.Scale();
        matrix.y0 += by[1] * scene.Scale();
    }
    else
    {
        matrix.x0 += (by[0] * matrix.xx + by[1] * matrix.xy) / size;
        matrix.y0 += (by[0] * matrix.yx + by[1] * matrix.yy) / size;
    }
    return matrix;
}

} // namespace txmap
