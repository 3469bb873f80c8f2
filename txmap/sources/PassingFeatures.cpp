#include <txmap/sources/PassingFeatures.h>

#include <algorithm>
#include <cmath>
#include <optional>

#include <txmap/sources/BoxIndex.h>
#include <txmap/style/document/LayerProperty.h>

namespace txmap
{

std::vector<PassedFeature> PassingFeatures(const StyleLayer& layer, const PlacedFeatures& placed, const char* sortKey,
                                           EvaluationContext context, const std::vector<MercatorBox>& seen)
{
    FeatureAttributes attributes(*placed.features);
    context.feature = &attributes;
    context.tileZoom = placed.tileZoom;
    // Filters see the zoom of tiles, which is whole.
    const double wholeZoom = std::floor(context.zoom.value_or(0.0));
    context.zoom = wholeZoom;
    std::optional<Expression> filter;
    if (layer.filter)
        filter = layer.filter->AtZoom(wholeZoom);
    const LayerProperty<SortKey> key(layer, sortKey, wholeZoom, context);
    std::vector<PassedFeature> passing;
    const auto add = [&](const SetFeature& feature)
    {
        attributes.Select(feature);
        if (!filter || filter->EvaluateOrDefault(context) == Value(true))
            passing.push_back({&feature, key.At(context).value});
    };
    const std::vector<SetFeature>& features = placed.features->features;
    const bool isAllSeen = std::any_of(seen.begin(), seen.end(),
                                       [&](const MercatorBox& box) { return box.Contains(placed.features->bounds); });
    if (placed.index && !isAllSeen)
        for (const std::size_t number : placed.index->Touching(seen))
            add(features[number]);
    else
        for (const SetFeature& feature : features)
            add(feature);
    if (key.IsSet())
        std::stable_sort(passing.begin(), passing.end(),
                         [](const PassedFeature& a, const PassedFeature& b) { return a.sortKey < b.sortKey; });
    return passing;
}

} // namespace txmap
