#include <txmap/drawing/layers/LayerScene.h>

#include <algorithm>
#include <cmath>
#include <string>

#include <txmap/style/document/LayerProperty.h>

namespace txmap
{

EvaluationContext LayerScene::Context() const
{
    EvaluationContext context;
    context.zoom = Zoom();
    context.globalState = &style.globalState;
    context.availableImages = &data.Pictures().Names();
    return context;
}

std::vector<PassedFeature> PassingFeatures(const LayerScene& scene, const PlacedFeatures& placed, const char* sortKey)
{
    scene.evaluating.Start();
    EvaluationContext context = scene.Context();
    FeatureAttributes attributes(*placed.features);
    context.feature = &attributes;
    context.tileZoom = placed.tileZoom;
    // Filters see the zoom of tiles, which is whole.
    const double wholeZoom = std::floor(scene.Zoom());
    context.zoom = wholeZoom;
    std::optional<Expression> filter;
    if (scene.layer.filter)
        filter = scene.layer.filter->AtZoom(wholeZoom);
    const LayerProperty<double> key(scene.layer, sortKey, wholeZoom, context);
    std::vector<PassedFeature> passing;
    for (const SetFeature& feature : placed.features->features)
    {
        attributes.Select(feature);
        if (filter && filter->EvaluateOrDefault(context) != Value(true))
            continue;
        passing.push_back({&feature, key.At(context)});
    }
    if (key.IsSet())
        std::stable_sort(passing.begin(), passing.end(),
                         [](const PassedFeature& a, const PassedFeature& b) { return a.sortKey < b.sortKey; });
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
