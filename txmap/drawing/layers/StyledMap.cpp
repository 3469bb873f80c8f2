#include <txmap/drawing/layers/StyledMap.h>

#include <algorithm>
#include <cmath>
#include <string>

#include <txgraphics/TXGraphics.h>
#include <txmap/drawing/DrawingTools.h>
#include <txmap/drawing/layers/BackgroundLayerPainter.h>
#include <txmap/drawing/layers/CircleLayerPainter.h>
#include <txmap/drawing/layers/ColorReliefLayerPainter.h>
#include <txmap/drawing/layers/FillLayerPainter.h>
#include <txmap/drawing/layers/HillshadeLayerPainter.h>
#include <txmap/drawing/layers/LineLayerPainter.h>
#include <txmap/drawing/layers/PatternImages.h>
#include <txmap/drawing/layers/PlacedSymbols.h>
#include <txmap/drawing/layers/RasterLayerPainter.h>
#include <txmap/drawing/layers/SymbolLayerPainter.h>
#include <txmap/map/FrameShape.h>
#include <txmap/map/PixelParts.h>
#include <txmap/style/document/LayerProperty.h>

namespace txmap
{

using TZObjects::TXGraphics;
using TZObjects::TXPoint;

namespace
{

// Cut shapes have edges along the box that they are cut to, which nobody is to see.
constexpr double kClipMargin = 16.0;

void DrawLayer(const LayerScene& scene)
{
    switch (scene.layer.type)
    {
    case LayerType::Background:
        return DrawBackgroundLayer(scene);
    case LayerType::Fill:
        return DrawFillLayer(scene);
    case LayerType::Line:
        return DrawLineLayer(scene);
    case LayerType::Circle:
        return DrawCircleLayer(scene);
    case LayerType::Raster:
        return DrawRasterLayer(scene);
    case LayerType::Hillshade:
        return DrawHillshadeLayer(scene);
    case LayerType::ColorRelief:
        return DrawColorReliefLayer(scene);
    case LayerType::Symbol:
        return DrawSymbolLayer(scene);
    case LayerType::Heatmap:
    case LayerType::FillExtrusion:
        break; // The reader of styles leaves these out.
    }
}

TXGraphics::TXCompositionMode BlendMode(const std::string& name)
{
    if (name == "multiply")
        return TXGraphics::CompositionMode_Multiply;
    if (name == "screen")
        return TXGraphics::CompositionMode_Screen;
    if (name == "overlay")
        return TXGraphics::CompositionMode_Overlay;
    if (name == "plus-lighter")
        return TXGraphics::CompositionMode_Plus;
    return TXGraphics::CompositionMode_SourceOver;
}

void ClipTo(const LayerClip& clip, MapCanvas& canvas)
{
    const MapView& view = canvas.View();
    Parts region;
    if (clip.rings.empty())
    {
        const double margin = clip.margin * view.Scale();
        const PixelSize size = view.Size();
        const FrameShape frame = FrameShape::RoundedRectangle(
            {margin, std::max(margin, size.width - margin), margin, std::max(margin, size.height - margin)},
            clip.radius * view.Scale());
        region.points = frame.Points();
        region.counts = frame.Counts();
    }
    const MercatorBox visible = view.Visible();
    for (int world = static_cast<int>(std::floor(visible.left)) - 1; !clip.rings.empty() && world <= visible.right;
         ++world)
    {
        PixelParts parts(view.ToPixels(world), view.PictureBox(kClipMargin));
        if (view.GridOrigin())
            parts.SnapToGrid(*view.GridOrigin());
        for (const std::vector<TXPoint>& ring : clip.rings)
        {
            std::vector<TXPoint> places;
            for (const TXPoint& corner : ring)
                places.push_back(view.MapProjection().ToWorld(corner.x, corner.y));
            parts.AddRing(places.data(), places.size());
        }
        const Parts& seen = parts.Result();
        region.points.insert(region.points.end(), seen.points.begin(), seen.points.end());
        region.counts.insert(region.counts.end(), seen.counts.begin(), seen.counts.end());
    }
    // A region of no ring would be refused and so cut nothing: this one has no area.
    if (region.IsEmpty())
        region = {{{0.0, 0.0}, {0.0, 0.0}, {0.0, 0.0}}, {3}};
    canvas.Surface().SetClipRegion(region.points.data(), region.counts.data(), static_cast<int>(region.counts.size()),
                                   false, {});
}

} // namespace

void DrawLayers(MapCanvas& canvas, const MapStyle& style, const MapData& data, DrawingReport& report,
                KeptLines* keptLines)
{
    const PlacedSymbols symbols(canvas, style, data, report, keptLines);
    PatternImages patterns(canvas, data.Pictures());
    for (const StyleLayer& layer : style.layers)
    {
        if (!layer.IsShownAt(canvas.View().Zoom()))
            continue;
        const LayerScene scene{canvas, style, layer, data, patterns, symbols, report.evaluating};
        const EvaluationContext context = scene.Context();
        const std::string prefix = RulesOf(layer.type).name;
        const double opacity =
            LayerProperty<double>(layer, (prefix + "-layer-opacity").c_str(), scene.Zoom(), context, 1.0).Constant();
        const TXGraphics::TXCompositionMode mode = BlendMode(
            LayerProperty<std::string>(layer, (prefix + "-layer-blend").c_str(), scene.Zoom(), context).Constant());
        if (opacity >= 1.0 && mode == TXGraphics::CompositionMode_SourceOver && !layer.clip)
        {
            DrawLayer(scene);
            continue;
        }
        // The layer as a whole is translucent, blended or cut, not each of its features.
        MapCanvas sheet(canvas.Engine(), canvas.View());
        const LayerScene apart{sheet, style, layer, data, patterns, symbols, report.evaluating};
        DrawLayer(apart);
        if (layer.clip)
            ClipTo(*layer.clip, canvas);
        canvas.Surface().SetCompositionMode(mode);
        RequireDrawn(canvas.Surface().DrawImage(sheet.Surface().GetImage().get(), opacity));
        canvas.Surface().SetCompositionMode(TXGraphics::CompositionMode_SourceOver);
        if (layer.clip)
            canvas.Surface().RestoreClipRegion();
    }
}

} // namespace txmap
