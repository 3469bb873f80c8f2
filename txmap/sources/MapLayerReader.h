#pragma once

#include <vector>

#include <txmap/map/MapLayer.h>
#include <txmap/sources/FeatureNames.h>
#include <txmap/sources/FeatureSource.h>

namespace txmap
{

class MapView;

/// Brings the areas and places that a view shows to pixels, where names may be written.
/// @param places whether points count. @param margin so many pixels around the picture count as seen.
MapLayer ReadMapLayer(const std::vector<PlacedFeatures>& features, const MapView& view, const NameRequest& names,
                      bool places, double margin);

} // namespace txmap
