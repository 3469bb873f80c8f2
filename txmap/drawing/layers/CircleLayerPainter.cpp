#include <txmap/drawing/layers/CircleLayerPainter.h>

#include <algorithm>
#include <cmath>

#include <txgraphics/TXGraphics.h>
#include <txmap/drawing/DrawingTools.h>
#include <txmap/drawing/PlaceSymbol.h>
#include <txmap/drawing/layers/LayerScene.h>
#include <txmap/drawing/layers/PixelSampler.h>
#include <txmap/drawing/layers/PixelWindow.h>
#include <txmap/map/LineShape.h>
#include <txmap/map/PixelParts.h>
#include <txmap/style/document/LayerProperty.h>

namespace txmap
{

using TZObjects::TXGraphics;
using TZObjects::TXPoint;

namespace
{

// How far circles reach whose size depends on the feature, in logical pixels.
constexpr double kUnknownReach = 128.0;
// No circle is larger, and no ring wider; backends have their limits.
constexpr double kLargest = 16000.0;

/// How a feature looks. Lengths are in pixels.
struct CircleLook
{
    double radius = 0.0;
    Color color;
    double blur = 0.0; ///< As a part of the radius.
    double strokeWidth = 0.0;
    Color strokeColor;
};

/// From 0 to 1, without a bend at either end.
double SmoothStep(double position)
{
    const double part = std::clamp(position, 0.0, 1.0);
    return part * part * (3.0 - 2.0 * part);
}

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

std::vector<TXPoint> MarkerCorners(const LayerMarker& marker)
{
    if (const std::optional<PlaceSymbol::Shape> shape = ShapeOf(marker.shape))
        return CornersOf(*shape);
    std::vector<TXPoint> corners = marker.corners;
    for (TXPoint& corner : corners)
        corner = {corner.x / 2.0, corner.y / 2.0};
    return corners;
}

/// How far a marker reaches, in radii.
double ReachOf(const std::vector<TXPoint>& corners)
{
    double farthest = 1.0;
    for (const TXPoint& corner : corners)
        farthest = std::max(farthest, 2.0 * std::hypot(corner.x, corner.y));
    return farthest;
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
          strokeOpacity(scene.layer, "circle-stroke-opacity", scene.Zoom(), context, 1.0),
          marker(scene.layer.marker ? MarkerCorners(*scene.layer.marker) : std::vector<TXPoint>())
    {
    }

    void Draw()
    {
        for (const PlacedFeatures& placed : scene.data.Features(scene.layer))
        {
            const std::vector<PassedFeature> passing = PassingFeatures(scene, placed, "circle", Reach());
            for (const int world : placed.worlds)
                DrawWorld(placed, passing, world);
        }
    }

private:
    /// How far from the picture a circle may lie that is seen, in pixels.
    double Reach() const
    {
        const bool isKnown = radius.IsConstant() && strokeWidth.IsConstant();
        return scene.Scale() *
               (isKnown ? radius.Constant() * ReachOf(marker) + strokeWidth.Constant() + 2.0 : kUnknownReach);
    }

    void DrawWorld(const PlacedFeatures& placed, const std::vector<PassedFeature>& passing, int world)
    {
        PixelParts parts(TranslatedPixels(scene, "circle", world), scene.canvas.View().PictureBox(Reach()),
                         placed.tile);
        if (const std::optional<TXPoint>& origin = scene.canvas.View().GridOrigin())
            parts.SnapToGrid(*origin);
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
        look.radius = std::clamp(radius.At(context) * scene.Scale(), 0.0, kLargest);
        look.color = color.At(context);
        look.color.alpha *= opacity.At(context);
        look.blur = std::max(0.0, blur.At(context)); // Above 1, not even the centre is dense.
        look.strokeWidth = std::clamp(strokeWidth.At(context) * scene.Scale(), 0.0, kLargest);
        look.strokeColor = strokeColor.At(context);
        look.strokeColor.alpha *= strokeOpacity.At(context);
        return look;
    }

    /// The edge of a circle lies half a pixel inside of its radius, as if the pixel inside the radius were a blur.
    static double EdgeOf(double circle) { return std::max(circle - 0.5, circle / 2.0); }

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

    /// A shape as wide as a circle would be, with a ring around.
    void DrawMarker(const TXPoint& centre, const CircleLook& look)
    {
        TXGraphics& surface = scene.canvas.Surface();
        const double size = 2.0 * look.radius;
        const auto count = static_cast<int>(marker.size());
        if (look.strokeWidth > 0.0 && look.strokeColor.alpha > 0.0)
        {
            PixelLine ring;
            for (std::size_t i = 0; i <= marker.size(); ++i)
            {
                const TXPoint& corner = marker[i % marker.size()];
                ring.emplace_back(centre.x + size * corner.x, centre.y + size * corner.y);
            }
            scene.canvas.UsePen({look.strokeColor,
                                 2.0 * look.strokeWidth,
                                 TZObjects::TXPen::RoundCap,
                                 TZObjects::TXPen::RoundJoin,
                                 {}});
            RequireDrawn(surface.Polyline(ring.data(), static_cast<int>(ring.size())));
            scene.canvas.UseNoPen();
        }
        if (look.color.alpha <= 0.0)
            return;
        scene.canvas.UseBrush(look.color);
        RequireDrawn(surface.VectorMarker(centre.x, centre.y, size, size, 0.0, marker.data(), count, true));
    }

    void DrawCircle(const TXPoint& centre, const CircleLook& look)
    {
        if (!marker.empty())
            return DrawMarker(centre, look);
        const double outer = look.radius + look.strokeWidth;
        if (look.blur * outer >= 1.0)
            return DrawBlurred(centre, look);
        // Below an opaque ring the disc reaches a little further, so that nothing is seen between them.
        const bool hasRing = look.strokeWidth > 0.0 && look.strokeColor.alpha > 0.0;
        const bool covers = hasRing && look.strokeColor.alpha >= 1.0;
        Fill(centre, EdgeOf(look.radius) + (covers ? std::min(0.5, look.strokeWidth / 2.0) : 0.0), 0.0, look.color);
        if (hasRing)
            Fill(centre, EdgeOf(outer), EdgeOf(look.radius), look.strokeColor);
    }

    /// Pixel by pixel: from the outer edge inward the circle gets denser, and its stroke passes into its fill.
    void DrawBlurred(const TXPoint& centre, const CircleLook& look)
    {
        const double outer = look.radius + look.strokeWidth;
        const double ramp = look.blur * outer;
        PixelWindow window(scene.canvas, {centre.x - outer, centre.x + outer, centre.y - outer, centre.y + outer});
        if (window.IsEmpty())
            return;
        const auto channel = [](const Color& color, double Color::*part) { return color.*part * color.alpha * 255.0; };
        const auto sampled = [&](const Color& color) -> SampledColor
        {
            return {channel(color, &Color::red), channel(color, &Color::green), channel(color, &Color::blue),
                    color.alpha * 255.0};
        };
        const SampledColor inside = sampled(look.color);
        const SampledColor ring = sampled(look.strokeColor);
        window.Fill(
            [&](double x, double y) -> std::uint32_t
            {
                const double distance = std::hypot(x - centre.x, y - centre.y);
                const double density = SmoothStep((outer - distance) / ramp);
                const double fill = look.strokeWidth > 0.0 ? SmoothStep((look.radius - distance) / ramp) : 1.0;
                const auto mixed = [&](double a, double b) { return density * (b + (a - b) * fill); };
                return SampledColor{mixed(inside.red, ring.red), mixed(inside.green, ring.green),
                                    mixed(inside.blue, ring.blue), mixed(inside.alpha, ring.alpha)}
                    .Packed();
            });
        window.Draw(scene.canvas, 1.0);
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
    std::vector<TXPoint> marker; ///< The corners of what is drawn in place of circles, in diameters; empty for those.
};

} // namespace

void DrawCircleLayer(const LayerScene& scene) { CircleLayerPainter(scene).Draw(); }

} // namespace txmap
