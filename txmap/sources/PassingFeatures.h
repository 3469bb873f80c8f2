#pragma once

#include <vector>

#include <txmap/sources/FeatureSource.h>
#include <txmap/style/EvaluationContext.h>
#include <txmap/style/document/MapStyle.h>

namespace txmap
{

/// A feature that passes the filter of a layer.
struct PassedFeature
{
    const SetFeature* feature = nullptr;
    double sortKey = 0.0;
};

/// The features of a set that a layer draws, in its order.
/// @param sortKey the name of the property that orders them.
/// @param context what expressions may ask beside the feature; its zoom is that of the map.
/// @param seen parts of the world outside of which the layer draws nothing: features of a set with an index are not
/// looked at if they touch none of them.
std::vector<PassedFeature> PassingFeatures(const StyleLayer& layer, const PlacedFeatures& placed, const char* sortKey,
                                           EvaluationContext context, const std::vector<MercatorBox>& seen);

} // namespace txmap
