#include <txmap/drawing/layers/RasterLayerPainter.h>

#include <algorithm>
#include <cmath>

#include <txmap/drawing/layers/LayerScene.h>
#include <txmap/drawing/layers/PixelSampler.h>
#include <txmap/drawing/layers/PixelWindow.h>
#include <txmap/style/document/LayerProperty.h>

namespace txmap
{

using TZObjects::TXPoint;
using TZObjects::TXRect;

namespace
{

constexpr double kPi = 3.14159265358979323846;

/// Changes colours as a layer says.
class ColorChange
{
public:
    ColorChange(const StyleLayer& layer, double zoom, const EvaluationContext& context)
    {
        const auto number = [&](const char* name, double fallback)
        { return LayerProperty<double>(layer, name, zoom, context, fallback).Constant(); };
        const double hue = number("raster-hue-rotate", 0.0) * kPi / 180.0;
        const double saturation = number("raster-saturation", 0.0);
        const double contrast = number("raster-contrast", 0.0);
        low = number("raster-brightness-min", 0.0);
        high = number("raster-brightness-max", 1.0);
        const double sine = std::sin(hue) * std::sqrt(3.0);
        const double cosine = std::cos(hue);
        weights = {(2.0 * cosine + 1.0) / 3.0, (1.0 - cosine - sine) / 3.0, (1.0 - cosine + sine) / 3.0};
        toAverage = saturation > 0.0 ? 1.0 - 1.0 / (1.001 - saturation) : -saturation;
        spread = contrast > 0.0 ? 1.0 / std::max(1e-3, 1.0 - contrast) : 1.0 + contrast;
        changes = hue != 0.0 || saturation != 0.0 || contrast != 0.0 || low != 0.0 || high != 1.0;
    }

    SampledColor Of(const SampledColor& color) const
    {
        if (!changes || color.alpha <= 0.0)
            return color;
        const double r = color.red / color.alpha;
        const double g = color.green / color.alpha;
        const double b = color.blue / color.alpha;
        const std::array<double, 3> turned = {r * weights[0] + g * weights[1] + b * weights[2],
                                              r * weights[2] + g * weights[0] + b * weights[1],
                                              r * weights[1] + g * weights[2] + b * weights[0]};
        const double average = (turned[0] + turned[1] + turned[2]) / 3.0;
        std::array<double, 3> result = {};
        for (std::size_t i = 0; i < 3; ++i)
        {
            const double channel = (turned[i] + (average - turned[i]) * toAverage - 0.5) * spread + 0.5;
            result[i] = std::clamp(low + (high - low) * channel, 0.0, 1.0) * color.alpha;
        }
        return {result[0], result[1], result[2], color.alpha};
    }

private:
    std::array<double, 3> weights;
    double toAverage;
    double spread;
    double low;
    double high;
    bool changes;
};

/// Where a pixel of the map lies in a picture with four corners: as if the picture were seen in perspective.
class QuadMapping
{
public:
    QuadMapping(const std::array<TXPoint, 4>& corners, const PixelSize& size) : size(size)
    {
        // The matrix that takes the unit square to the corners, with 1 at its lower right.
        const TXPoint right(corners[1].x - corners[2].x, corners[1].y - corners[2].y);
        const TXPoint bottom(corners[3].x - corners[2].x, corners[3].y - corners[2].y);
        const TXPoint bend(corners[0].x - corners[1].x + corners[2].x - corners[3].x,
                           corners[0].y - corners[1].y + corners[2].y - corners[3].y);
        const double area = right.x * bottom.y - bottom.x * right.y;
        const double g = (bend.x * bottom.y - bottom.x * bend.y) / area;
        const double h = (right.x * bend.y - bend.x * right.y) / area;
        const double a = corners[1].x - corners[0].x + g * corners[1].x;
        const double b = corners[3].x - corners[0].x + h * corners[3].x;
        const double c = corners[0].x;
        const double d = corners[1].y - corners[0].y + g * corners[1].y;
        const double e = corners[3].y - corners[0].y + h * corners[3].y;
        const double f = corners[0].y;
        // Its inverse but for a factor, which falls out.
        inverse = {{{e - f * h, c * h - b, b * f - c * e},
                    {f * g - d, a - c * g, c * d - a * f},
                    {d * h - e * g, b * g - a * h, a * e - b * d}}};
    }

    /// False for a point outside.
    bool Find(double x, double y, TXPoint& place) const
    {
        const auto row = [&](std::size_t i) { return inverse[i][0] * x + inverse[i][1] * y + inverse[i][2]; };
        const double depth = row(2);
        const TXPoint part(row(0) / depth, row(1) / depth);
        constexpr double kSlack = 1e-9;
        if (!(part.x >= -kSlack && part.x <= 1.0 + kSlack && part.y >= -kSlack && part.y <= 1.0 + kSlack))
            return false;
        place = {part.x * size.width, part.y * size.height};
        return true;
    }

private:
    std::array<std::array<double, 3>, 3> inverse;
    PixelSize size;
};

void DrawImage(const LayerScene& scene, const PlacedImage& placed, int world, const ColorChange& change, bool linear,
               double opacity)
{
    const MapView& view = scene.canvas.View();
    const AffineMatrix matrix = view.ToPixels(world);
    std::array<TXPoint, 4> corners;
    TXRect box(1e300, -1e300, 1e300, -1e300);
    for (std::size_t i = 0; i < 4; ++i)
    {
        corners[i] = matrix.Map(placed.corners[i]);
        box = {std::min(box.left, corners[i].x), std::max(box.right, corners[i].x), std::min(box.top, corners[i].y),
               std::max(box.bottom, corners[i].y)};
    }
    const double area = (corners[1].x - corners[0].x) * (corners[3].y - corners[0].y) -
                        (corners[1].y - corners[0].y) * (corners[3].x - corners[0].x);
    if (std::abs(area) < 1e-9)
        return;
    PixelWindow window(scene.canvas, box);
    if (window.IsEmpty())
        return;
    const QuadMapping mapping(corners, placed.image->size);
    const PixelSampler sampler(*placed.image, linear, PixelSampler::Beyond::Edge);
    window.Fill(
        [&](double x, double y) -> std::uint32_t
        {
            TXPoint place;
            return mapping.Find(x, y, place) ? change.Of(sampler.At(place.x, place.y)).Packed() : 0;
        });
    window.Draw(scene.canvas, opacity);
}

} // namespace

void DrawRasterLayer(const LayerScene& scene)
{
    const EvaluationContext context = scene.Context();
    const StyleLayer& layer = scene.layer;
    const ColorChange change(layer, scene.Zoom(), context);
    const double opacity = LayerProperty<double>(layer, "raster-opacity", scene.Zoom(), context, 1.0).Constant();
    const auto isNearest = [&](const char* name)
    { return LayerProperty<std::string>(layer, name, scene.Zoom(), context).Constant() == "nearest"; };
    const bool linear = !isNearest("raster-resampling") && !isNearest("resampling");
    if (opacity <= 0.0)
        return;
    for (const PlacedImage& placed : scene.data.Images(layer))
        for (const int world : placed.worlds)
            DrawImage(scene, placed, world, change, linear, opacity);
}

} // namespace txmap
