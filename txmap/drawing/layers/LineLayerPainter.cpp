#include <txmap/drawing/layers/LineLayerPainter.h>

#include <algorithm>
#include <cmath>
#include <optional>

#include <txgraphics/TXGraphics.h>
#include <txmap/drawing/DrawingTools.h>
#include <txmap/drawing/layers/LineDecoration.h>
#include <txmap/drawing/layers/LineLook.h>
#include <txmap/drawing/layers/LineStroker.h>
#include <txmap/drawing/layers/PatternStroke.h>
#include <txmap/map/PixelParts.h>

namespace txmap
{

using TZObjects::TXPoint;

namespace
{

// Points of lines that are closer than this part of their width count as one.
constexpr double kCornerOfWidth = 1.0 / 128.0;
// How far lines reach that are kept whole and whose width or offset depends on the feature, in logical pixels.
constexpr double kFarthestMove = 1024.0;

/// Draws only within a tile as long as it lives. Features reach beyond their tile and are in its neighbour, too.
class TileClip
{
public:
    TileClip(MapCanvas& canvas, const std::optional<MercatorBox>& tile, int world) : canvas(canvas), clips(tile)
    {
        if (!clips)
            return;
        const AffineMatrix matrix = canvas.View().ToPixels(world);
        const TXPoint corners[] = {matrix.Map({tile->left, tile->top}), matrix.Map({tile->right, tile->top}),
                                   matrix.Map({tile->right, tile->bottom}), matrix.Map({tile->left, tile->bottom})};
        const int count = 4;
        canvas.Surface().SetClipRegion(corners, &count, 1, false, {});
    }
    ~TileClip()
    {
        if (clips)
            canvas.Surface().RestoreClipRegion();
    }
    TileClip(const TileClip&) = delete;
    TileClip& operator=(const TileClip&) = delete;

private:
    MapCanvas& canvas;
    bool clips;
};

class LineLayerPainter
{
public:
    explicit LineLayerPainter(const LayerScene& scene)
        : scene(scene), context(scene.Context()), properties(scene), gradient(scene.layer.Find("line-gradient")),
          stroker(scene.canvas), wantedSpans(gradient || scene.layer.Find("line-dasharray") ? &spans : nullptr)
    {
    }

    void Draw()
    {
        for (const PlacedFeatures& placed : scene.data.Features(scene.layer))
        {
            const std::vector<PassedFeature> passing = PassingFeatures(scene, placed, "line", FarthestSeen());
            for (const int world : placed.worlds)
            {
                const TileClip clip(scene.canvas, placed.tile, world);
                DrawWorld(placed, passing, world);
                stroker.Flush();
            }
        }
    }

private:
    /// How far from the picture a line may lie that is seen, in pixels.
    double FarthestSeen() const
    {
        const double reach = properties.Reach() + scene.layer.tolerance * scene.Scale();
        // Lines that are kept whole may then be moved.
        return KeepsLines() && !properties.AreConstant() ? std::max(reach, kFarthestMove * scene.Scale()) : reach;
    }

    /// Dashes and patterns go on from where a line begins, wherever a picture that joins others does.
    bool KeepsLines() const
    {
        return scene.canvas.View().GridOrigin() &&
               (scene.layer.Find("line-dasharray") || scene.layer.Find("line-pattern"));
    }

    void DrawWorld(const PlacedFeatures& placed, const std::vector<PassedFeature>& passing, int world)
    {
        const double reach = properties.Reach();
        const std::optional<LineLook> common =
            properties.AreConstant() ? std::optional(properties.At(context)) : std::nullopt;
        PixelParts parts(TranslatedPixels(scene, "line", world), scene.canvas.View().PictureBox(reach));
        if (const std::optional<TXPoint>& origin = scene.canvas.View().GridOrigin())
            parts.SnapToGrid(*origin, KeepsLines());
        // Of a stroke, corners show that are a good part of its width.
        if (common && common->width * kCornerOfWidth > PixelParts::kFinest)
            parts.SetFinest(common->width * kCornerOfWidth);
        if (scene.layer.tolerance > 0.0)
            parts.SetTolerance(scene.layer.tolerance * scene.Scale());
        FeatureAttributes attributes(*placed.features);
        context.feature = &attributes;
        context.tileZoom = placed.tileZoom;
        for (const PassedFeature& passed : passing)
        {
            if (passed.feature->type == GeometryType::Point)
                continue;
            const bool isArea = passed.feature->type == GeometryType::Polygon;
            spans.clear();
            parts.Result().Clear();
            CollectParts(*placed.features, *passed.feature, parts);
            if (parts.Result().IsEmpty())
                continue;
            if (common)
            {
                DrawParts(parts.Result(), *common, isArea);
                continue;
            }
            attributes.Select(*passed.feature);
            scene.evaluating.Start();
            const LineLook look = properties.At(context);
            scene.evaluating.Stop();
            DrawParts(parts.Result(), look, isArea);
        }
    }

    void CollectParts(const FeatureSet& set, const SetFeature& feature, PixelParts& parts)
    {
        set.ForEachPart(feature,
                        [&](const TXPoint* points, std::size_t count)
                        {
                            if (feature.type == GeometryType::Polygon)
                                parts.AddOutline(points, count, set.projection.World(), wantedSpans);
                            else
                                parts.AddLine(points, count, wantedSpans);
                        });
    }

    void DrawParts(const Parts& parts, const LineLook& look, bool isArea)
    {
        const TXPoint* points = parts.points.data();
        for (std::size_t i = 0; i < parts.counts.size(); ++i)
        {
            const auto count = static_cast<std::size_t>(parts.counts[i]);
            const LineSpan span = wantedSpans ? spans[i] : LineSpan();
            if (!look.pattern.empty())
                DrawPattern(points, count, look);
            else if (gradient)
            {
                stroker.Flush();
                DrawGradientLine(scene, points, count, look, span, *gradient);
            }
            else
            {
                const double part = span.end - span.start;
                const double phase = look.dashes.empty() || part <= 0.0 || span.start <= 0.0
                                         ? 0.0
                                         : LengthOf(points, count) / part * span.start;
                stroker.Add(points, count, look, phase, isArea && !scene.canvas.View().GridOrigin());
            }
            points += count;
        }
    }

    void DrawPattern(const TXPoint* points, std::size_t count, const LineLook& look)
    {
        const SpritePicture* const picture = scene.data.Pictures().Find(look.pattern);
        if (!picture)
            return;
        stroker.Flush();
        DrawPatternLine(scene, MovedLine(points, count, look, look.offset), look, *picture);
    }

    const LayerScene& scene;
    EvaluationContext context;
    LineProperties properties;
    const Expression* gradient;
    LineStroker stroker;
    std::vector<LineSpan> spans;        ///< Of the pieces of a feature.
    std::vector<LineSpan>* wantedSpans; ///< Null for a layer to which it is all the same where a piece lies.
};

} // namespace

void DrawLineLayer(const LayerScene& scene) { LineLayerPainter(scene).Draw(); }

} // namespace txmap
