#include <txmap/sources/SourceRequest.h>

#include <algorithm>
#include <cmath>

#include <txmap/style/operators/OverloadedOperator.h>

namespace txmap
{
namespace
{

// How far lines and circles of a size that depends on the feature may reach, in logical pixels.
constexpr double kUnknownReach = 128.0;
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

bool IsWanted(const StyleLayer& layer, const StyleSource& source, std::optional<double> zoom)
{
    return layer.source == source.name && (zoom ? layer.IsShownAt(*zoom) : layer.visible);
}

} // namespace

FeatureRequest RequestFor(const StyleSource& source, const MapStyle& style, std::optional<double> zoom, double scale)
{
    FeatureRequest request;
    for (const StyleLayer& layer : style.layers)
    {
        if (!IsWanted(layer, source, zoom))
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
        if (!zoom)
            continue;
        const double reach = ReachOf(layer, *zoom) * scale;
        request.margin = std::max(request.margin, reach);
        if (layer.type == LayerType::Circle)
        {
            double& margin = request.layerMargins[name];
            margin = std::max(margin, reach);
        }
    }
    return request;
}

bool IsUsed(const StyleSource& source, const MapStyle& style, std::optional<double> zoom)
{
    return std::any_of(style.layers.begin(), style.layers.end(),
                       [&](const StyleLayer& layer) { return IsWanted(layer, source, zoom); });
}

} // namespace txmap
