#include <txmap/drawing/layers/FillLayerPainter.h>

#include <txgraphics/TXGraphics.h>
#include <txmap/drawing/DrawingTools.h>
#include <txmap/drawing/layers/LayerScene.h>
#include <txmap/drawing/layers/PatternImages.h>
#include <txmap/map/PixelGeometry.h>
#include <txmap/map/PixelParts.h>
#include <txmap/style/document/LayerProperty.h>

namespace txmap
{

using TZObjects::TXBrush;
using TZObjects::TXPoint;

namespace
{

// Around the picture, so that the edges of what is cut, and the lines along them, are not seen.
constexpr double kMargin = 8.0;

/// How a feature looks.
struct FillLook
{
    Color color;
    double opacity = 1.0;
    std::optional<Color> outline;
    std::string pattern;
};

TXBrush::BrushStyle BrushOf(Hatch hatch)
{
    switch (hatch)
    {
    case Hatch::Horizontal:
        return TXBrush::HorizontalHatch;
    case Hatch::Vertical:
        return TXBrush::VerticalHatch;
    case Hatch::Cross:
        break;
    }
    return TXBrush::CrossHatch;
}

TZObjects::TXGraphics::stGradientParams GradientOf(const AreaGradient& gradient)
{
    TZObjects::TXGraphics::stGradientParams params;
    params.type = static_cast<std::int32_t>(gradient.kind);
    params.startColor = ToTXColor(gradient.from);
    params.endColor = ToTXColor(gradient.to);
    params.angle = gradient.angle;
    return params;
}

class FillLayerPainter
{
public:
    explicit FillLayerPainter(const LayerScene& scene)
        : scene(scene), context(scene.Context()), antialias(scene.layer, "fill-antialias", scene.Zoom(), context, true),
          color(scene.layer, "fill-color", scene.Zoom(), context),
          opacity(scene.layer, "fill-opacity", scene.Zoom(), context, 1.0),
          outline(scene.layer, "fill-outline-color", scene.Zoom(), context),
          pattern(scene.layer, "fill-pattern", std::floor(scene.Zoom()), context)
    {
    }

    void Draw()
    {
        const AntialiasingOff aliased(scene.canvas.Surface(), !antialias.Constant());
        for (const PlacedFeatures& placed : scene.data.Features(scene.layer))
        {
            const std::vector<PassedFeature> passing = PassingFeatures(scene, placed, "fill", kMargin + scene.Scale());
            for (const int world : placed.worlds)
                DrawWorld(placed, passing, world);
        }
    }

private:
    void DrawWorld(const PlacedFeatures& placed, const std::vector<PassedFeature>& passing, int world)
    {
        const MapView& view = scene.canvas.View();
        std::optional<MercatorBox> tile;
        if (placed.tile)
            tile = view.AlignedToPixels(*placed.tile);
        const AffineMatrix matrix = TranslatedPixels(scene, "fill", world);
        PixelParts parts(matrix, view.PictureBox(kMargin), tile);
        if (view.GridOrigin())
            parts.SnapToGrid(*view.GridOrigin());
        FeatureAttributes attributes(*placed.features);
        context.feature = &attributes;
        context.tileZoom = placed.tileZoom;
        for (const PassedFeature& passed : passing)
        {
            if (passed.feature->type != GeometryType::Polygon)
                continue;
            parts.Result().Clear();
            placed.features->ForEachPart(*passed.feature, [&](const TXPoint* points, std::size_t count)
                                         { parts.AddRing(points, count); });
            // What is too small to be filled is still outlined.
            if (parts.Result().IsEmpty() && !outline.IsSet())
                continue;
            attributes.Select(*passed.feature);
            scene.evaluating.Start();
            const FillLook look = LookOf();
            scene.evaluating.Stop();
            if (!parts.Result().IsEmpty())
                Fill(parts.Result(), look, GradientBox(parts.Result(), *placed.features, *passed.feature, matrix));
            if (look.outline)
                Outline(parts, *placed.features, *passed.feature, look);
        }
    }

    FillLook LookOf() const
    {
        FillLook look;
        look.color = color.At(context);
        look.opacity = opacity.At(context);
        look.pattern = pattern.At(context);
        if (outline.IsSet() && antialias.Constant() && look.pattern.empty())
            look.outline = outline.At(context);
        return look;
    }

    /// What a gradient of an area goes over, in pixels: what is seen of the area, or all of it in a picture that joins
    /// others.
    TZObjects::TXRect GradientBox(const Parts& parts, const FeatureSet& set, const SetFeature& feature,
                                  const AffineMatrix& matrix) const
    {
        if (!scene.layer.gradient)
            return {};
        if (!scene.canvas.View().GridOrigin())
            return BoundsOf(parts.points);
        const MercatorBox box = set.BoundsOf(feature);
        return matrix.MapBox({box.left, box.right, box.top, box.bottom});
    }

    /// @param gradientBox see `GradientBox`.
    void Fill(const Parts& parts, const FillLook& look, const TZObjects::TXRect& gradientBox)
    {
        MapCanvas& canvas = scene.canvas;
        // The outline has the colour of the fill unless the style says otherwise, and closes the gaps that would be
        // seen between neighbours. Where it is translucent it would be seen twice.
        const bool isPlain = look.pattern.empty() && !scene.layer.gradient && !scene.layer.hatch;
        Color filled = look.color;
        filled.alpha *= look.opacity;
        if (isPlain && antialias.Constant() && !look.outline && filled.alpha >= 1.0)
            canvas.UsePen({filled, 1.0, TZObjects::TXPen::FlatCap, TZObjects::TXPen::BevelJoin, {}});
        else
            canvas.UseNoPen();
        if (!look.pattern.empty())
        {
            const auto image = scene.patterns.Find(look.pattern);
            if (!image)
                return;
            canvas.UseTexture(image);
            canvas.Surface().SetOpacity(look.opacity);
        }
        else if (scene.layer.gradient)
        {
            canvas.UseGradient(GradientOf(*scene.layer.gradient), gradientBox);
            canvas.Surface().SetOpacity(look.opacity);
        }
        else
        {
            if (filled.alpha <= 0.0)
                return;
            if (scene.layer.hatch)
                canvas.UseHatch(filled, BrushOf(*scene.layer.hatch));
            else
                canvas.UseBrush(filled);
        }
        RequireDrawn(canvas.Surface().PolyPolygon(parts.points.data(), parts.counts.data(),
                                                  static_cast<int>(parts.counts.size())));
        canvas.Surface().SetOpacity(1.0);
    }

    void Outline(PixelParts& parts, const FeatureSet& set, const SetFeature& feature, const FillLook& look)
    {
        Color drawn = *look.outline;
        drawn.alpha *= look.opacity;
        if (drawn.alpha <= 0.0)
            return;
        parts.Result().Clear();
        set.ForEachPart(feature, [&](const TXPoint* points, std::size_t count)
                        { parts.AddOutline(points, count, set.projection.World()); });
        if (parts.Result().IsEmpty())
            return;
        scene.canvas.UsePen({drawn, scene.Scale(), TZObjects::TXPen::FlatCap, TZObjects::TXPen::BevelJoin, {}});
        RequireDrawn(scene.canvas.Surface().PolyPolyline(parts.Result().points.data(), parts.Result().counts.data(),
                                                         static_cast<int>(parts.Result().counts.size())));
    }

    const LayerScene& scene;
    EvaluationContext context;
    LayerProperty<bool> antialias;
    LayerProperty<Color> color;
    LayerProperty<double> opacity;
    LayerProperty<Color> outline;
    LayerProperty<std::string> pattern;
};

} // namespace

void DrawFillLayer(const LayerScene& scene) { FillLayerPainter(scene).Draw(); }

} // namespace txmap
