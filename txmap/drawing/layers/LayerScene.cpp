#include <txmap/drawing/layers/LayerScene.h>

#include <cmath>
#include <string>

#include <txmap/style/document/LayerProperty.h>

namespace txmap
{

using TZObjects::TXRect;

namespace
{

// By so many pixels, places that are rounded may come nearer.
constexpr double kRounding = 1.0;

} // namespace

EvaluationContext ContextOf(const MapStyle& style, const MapData& data, double zoom)
{
    EvaluationContext context;
    context.zoom = zoom;
    context.globalState = &style.globalState;
    context.availableImages = &data.Pictures().Names();
    return context;
}

EvaluationContext LayerScene::Context() const { return ContextOf(style, data, Zoom()); }

std::vector<PassedFeature> PassingFeatures(const LayerScene& scene, const PlacedFeatures& placed, const char* prefix,
                                           double reach)
{
    scene.evaluating.Start();
    std::vector<MercatorBox> seen;
    if (placed.index)
        for (const int world : placed.worlds)
        {
            const TXRect picture = scene.canvas.View().PictureBox(reach + kRounding);
            const TXRect box = TranslatedPixels(scene, prefix, world).Inverted().MapBox(picture);
            seen.push_back({box.left, box.top, box.right, box.bottom});
        }
    const std::string sortKey = std::string(prefix) + "-sort-key";
    std::vector<PassedFeature> passing = PassingFeatures(scene.layer, placed, sortKey.c_str(), scene.Context(), seen);
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
