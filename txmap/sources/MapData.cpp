#include <txmap/sources/MapData.h>

#include <algorithm>
#include <cmath>

#include <txmap/map/MapView.h>
#include <txmap/sources/SourceDiagnostics.h>
#include <txmap/sources/SourcePath.h>
#include <txmap/style/operators/OverloadedOperator.h>
#include <txmap/support/Failure.h>

namespace txmap
{
namespace
{

// How far symbols of a size that depends on the feature may reach, in logical pixels.
constexpr double kUnknownReach = 64.0;
constexpr double kLongestReach = 1024.0;
// Around the picture texts make room for each other, and their halves reach into it.
constexpr double kSymbolReach = 200.0;

void Add(WantedProperties& wanted, const Expression& expression)
{
    const UsedProperties used = expression.Properties();
    if (used.all)
        wanted.reset();
    if (wanted)
        wanted->insert(used.names.begin(), used.names.end());
}

/// Whether an expression asks where its feature lies.
bool UsesGeometry(const ExpressionNode& node)
{
    const auto* const call = dynamic_cast<const OverloadedNode*>(&node);
    bool uses = !call && (AllUses(node) & UsesFeature) != 0 && (node.OwnUses() & UsesFeature) != 0;
    node.ForEachChild([&](const ExpressionNode& child) { uses = uses || UsesGeometry(child); });
    return uses;
}

/// How far around its geometry a layer draws, in logical pixels.
double ReachOf(const StyleLayer& layer, double zoom)
{
    double reach = layer.type == LayerType::Symbol ? kSymbolReach : 1.0;
    EvaluationContext context;
    context.zoom = zoom;
    for (const char* const name : {"line-width", "line-gap-width", "line-offset", "circle-radius",
                                   "circle-stroke-width", "line-translate", "fill-translate", "circle-translate"})
    {
        const Expression* const property = layer.Find(name);
        if (!property)
            continue;
        if (!property->IsFeatureConstant())
        {
            reach += kUnknownReach;
            continue;
        }
        const Value value = property->EvaluateOrDefault(context);
        if (value.Is(Value::Kind::Number))
            reach += std::abs(value.Number());
        if (value.Is(Value::Kind::Array))
            for (const Value& item : value.Array())
                reach += item.Is(Value::Kind::Number) ? std::abs(item.Number()) : 0.0;
    }
    return std::min(reach, kLongestReach);
}

FeatureRequest RequestFor(const StyleSource& source, const MapStyle& style, const MapView& view)
{
    FeatureRequest request;
    for (const StyleLayer& layer : style.layers)
    {
        if (layer.source != source.name || !layer.IsShownAt(view.Zoom()))
            continue;
        const std::string name = source.type == "vector" ? layer.sourceLayer : std::string();
        WantedProperties& wanted = request.layers.emplace(name, std::set<std::string>()).first->second;
        const auto add = [&](const Expression& expression)
        {
            Add(wanted, expression);
            request.keepsWholeFeatures = request.keepsWholeFeatures || UsesGeometry(*expression.Root());
        };
        if (layer.filter)
            add(*layer.filter);
        for (const auto& property : layer.properties)
            add(property.second);
        request.margin = std::max(request.margin, ReachOf(layer, view.Zoom()) * view.Scale());
    }
    return request;
}

} // namespace

MapData::MapData(const MapStyle& style, const SourceFolder& folder, const MapView& view, SourceDiagnostics& diagnostics,
                 LoadedSources loaded)
    : features(std::move(loaded.features)), images(std::move(loaded.images)),
      sprites(style.sprites, folder, view.Scale(), diagnostics)
{
    for (const StyleSource& source : style.sources)
    {
        const bool isUsed = std::any_of(style.layers.begin(), style.layers.end(),
                                        [&](const StyleLayer& layer)
                                        { return layer.source == source.name && layer.IsShownAt(view.Zoom()); });
        if (!isUsed || features.count(source.name) > 0 || images.count(source.name) > 0)
            continue;
        try
        {
            Read(source, style, folder, view, diagnostics);
        }
        catch (const Failure& failure)
        {
            diagnostics.Report(source.pointer + ": " + failure.what());
        }
    }
}

void MapData::Read(const StyleSource& source, const MapStyle& style, const SourceFolder& folder, const MapView& view,
                   SourceDiagnostics& diagnostics)
{
    if (source.type == "geojson" || source.type == "vector")
    {
        auto made = MakeFeatureSource(source.name, source.json, folder);
        made->Load(view, RequestFor(source, style, view), diagnostics);
        features.emplace(source.name, std::move(made));
    }
    else if (source.type == "raster" || source.type == "image")
    {
        auto made = MakeRasterSource(source.name, source.json, folder, view.Scale());
        made->Load(view, diagnostics);
        images.emplace(source.name, std::move(made));
    }
    else if (source.type == "raster-dem")
        heights.emplace(source.name, ElevationSource(source.json, folder).Load(view, diagnostics));
}

const std::vector<PlacedFeatures>& MapData::Features(const StyleLayer& layer) const
{
    static const std::vector<PlacedFeatures> kNone;
    const auto found = features.find(layer.source);
    return found == features.end() ? kNone : found->second->Features(layer.sourceLayer);
}

const std::vector<PlacedImage>& MapData::Images(const StyleLayer& layer) const
{
    static const std::vector<PlacedImage> kNone;
    const auto found = images.find(layer.source);
    return found == images.end() ? kNone : found->second->Images();
}

const ElevationGrid& MapData::Heights(const StyleLayer& layer) const
{
    static const ElevationGrid kNone;
    const auto found = heights.find(layer.source);
    return found == heights.end() ? kNone : found->second;
}

} // namespace txmap
