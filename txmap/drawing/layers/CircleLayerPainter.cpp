#include <txmap/drawing/layers/CircleLayerPainter.h>

#include <algorithm>
#include <cmath>

#include <txgraphics/TXGraphics.h>
#include <txmap/drawing/layers/LayerProperty.h>
#include <txmap/drawing/layers/LayerScene.h>
#include <txmap/map/PixelParts.h>

namespace txmap
{

using TZObjects::TXGraphics;
using TZObjects::TXPoint;

namespace
{

// How far circles reach whose size depends on the feature, in logical pixels.
constexpr double kUnknownReach = 128.0;
constexpr int kMostBlurSteps = 32;

/// How a feature looks. Lengths are in pixels.
struct CircleLook
{
    double radius = 0.0;
    Color color;
    double blur = 0.0; ///< As a part of the radius.
    double strokeWidth = 0.0;
    Color strokeColor;
};

/// Adds a circle to the current path, of four curves.
void AddCircle(TXGraphics& surface, const TXPoint& centre, double radius)
{
    // With this part of the radius, curves are circles but for a few ten-thousandths of it.
    const double bend = radius * 0.5522847498307936;
    const double x = centre.x;
    const double y = centre.y;
    surface.MoveTo(x + radius, y);
    surface.CurveTo(x + radius, y + bend, x + bend, y + radius, x, y + radius);
    surface.CurveTo(x - bend, y + radius, x - radius, y + bend, x - radius, y);
    surface.CurveTo(x - radius, y - bend, x - bend, y - radius, x, y - radius);
    surface.CurveTo(x + bend, y - radius, x + radius, y - bend, x + radius, y);
    surface.ClosePath();
}

class CircleLayerPainter
{
public:
    explicit CircleLayerPainter(const LayerScene& scene)
        : scene(scene), context(scene.Context()), radius(scene.layer, "circle-radius", scene.Zoom(), context, 5.0),
          color(scene.layer, "circle-color", scene.Zoom(), context),
          blur(scene.layer, "circle-blur", scene.Zoom(), context),
          opacity(scene.layer, "circle-opacity", scene.Zoom(), context, 1.0),
          strokeWidth(scene.layer, "circle-stroke-width", scene.Zoom(), context),
          strokeColor(scene.layer, "circle-stroke-color", scene.Zoom(), context),
          strokeOpacity(scene.layer, "circle-stroke-opacity", scene.Zoom(), context, 1.0)
    {
    }

    void Draw()
    {
        for (const PlacedFeatures& placed : scene.data.Features(scene.layer))
        {
            const std::vector<PassedFeature> passing = PassingFeatures(scene, placed, "circle-sort-key");
            for (const int world : placed.worlds)
                DrawWorld(placed, passing, world);
        }
    }

private:
    void DrawWorld(const PlacedFeatures& placed, const std::vector<PassedFeature>& passing, int world)
    {
        const bool isKnown = radius.IsConstant() && strokeWidth.IsConstant();
        const double reach = isKnown ? radius.Constant() + strokeWidth.Constant() + 2.0 : kUnknownReach;
        PixelParts parts(TranslatedPixels(scene, "circle", world),
                         scene.canvas.View().PictureBox(reach * scene.Scale()), placed.tile);
        FeatureAttributes attributes(*placed.features);
        context.feature = &attributes;
        context.tileZoom = placed.tileZoom;
        scene.canvas.UseNoPen();
        for (const PassedFeature& passed : passing)
        {
            parts.Result().Clear();
            placed.features->ForEachPart(*passed.feature,
                                         [&](const TXPoint* points, std::size_t count)
                                         {
                                             // Areas end with the point that they begin with.
                                             const bool isArea = passed.feature->type == GeometryType::Polygon;
                                             for (std::size_t i = 0; i + (isArea ? 1 : 0) < count; ++i)
                                                 parts.AddPoint(points[i]);
                                         });
            if (parts.Result().IsEmpty())
                continue;
            attributes.Select(*passed.feature);
            scene.evaluating.Start();
            const CircleLook look = LookOf();
            scene.evaluating.Stop();
            for (const TXPoint& point : parts.Result().points)
                DrawCircle(point, look);
        }
    }

    CircleLook LookOf() const
    {
        CircleLook look;
        look.radius = std::max(0.0, radius.At(context) * scene.Scale());
        look.color = color.At(context);
        look.color.alpha *= opacity.At(context);
        look.blur = std::clamp(blur.At(context), 0.0, 1.0);
        look.strokeWidth = std::max(0.0, strokeWidth.At(context) * scene.Scale());
        look.strokeColor = strokeColor.At(context);
        look.strokeColor.alpha *= strokeOpacity.At(context);
        return look;
    }

    void Fill(const TXPoint& centre, double outer, double inner, const Color& filled)
    {
        if (filled.alpha <= 0.0 || outer <= 0.0)
            return;
        scene.canvas.UseBrush(filled);
        TXGraphics& surface = scene.canvas.Surface();
        AddCircle(surface, centre, outer);
        if (inner > 0.0)
            AddCircle(surface, centre, inner);
        surface.DrawPath();
    }

    void DrawCircle(const TXPoint& centre, const CircleLook& look)
    {
        const double outer = look.radius + look.strokeWidth;
        if (look.blur * outer >= 1.0)
            return DrawBlurred(centre, look);
        // Below an opaque ring the disc reaches a little further, so that nothing is seen between them.
        const bool hasRing = look.strokeWidth > 0.0 && look.strokeColor.alpha > 0.0;
        const bool covers = hasRing && look.strokeColor.alpha >= 1.0;
        Fill(centre, look.radius + (covers ? std::min(0.5, look.strokeWidth / 2.0) : 0.0), 0.0, look.color);
        if (hasRing)
            Fill(centre, outer, look.radius, look.strokeColor);
    }

    /// Discs one over the other, from the pale outer edge inward.
    void DrawBlurred(const TXPoint& centre, const CircleLook& look)
    {
        const double outer = look.radius + look.strokeWidth;
        const double ramp = look.blur * outer;
        const int steps = std::clamp(static_cast<int>(std::ceil(ramp * 1.5)), 4, kMostBlurSteps);
        double before = 0.0;
        bool inRing = look.strokeWidth > 0.0;
        for (int i = 0; i < steps; ++i)
        {
            const double position = (i + 0.5) / steps;
            const double reach = outer - position * ramp;
            const double density = position * position * (3.0 - 2.0 * position);
            const bool isRing = look.strokeWidth > 0.0 && reach > look.radius;
            // Where the colour changes, the disc begins anew.
            before = inRing && !isRing ? 0.0 : before;
            inRing = isRing;
            Color filled = isRing ? look.strokeColor : look.color;
            const double wanted = filled.alpha * density;
            filled.alpha = before < 1.0 ? std::max(0.0, (wanted - before) / (1.0 - before)) : 1.0;
            Fill(centre, reach, 0.0, filled);
            before = std::max(before, wanted);
        }
    }

    const LayerScene& scene;
    EvaluationContext context;
    LayerProperty<double> radius;
    LayerProperty<Color> color;
    LayerProperty<double> blur;
    LayerProperty<double> opacity;
    LayerProperty<double> strokeWidth;
    LayerProperty<Color> strokeColor;
    LayerProperty<double> strokeOpacity;
};

} // namespace

void DrawCircleLayer(const LayerScene& scene) { CircleLayerPainter(scene).Draw(); }

} // namespace txmap
