#pragma once

#include <txmap/labels/PlacedLabel.h>

namespace txmap
{

class MapView;

/// How the texts of legend and scale bar are written: a little smaller than the names of the map.
LabelLook DecorationLook(const Style& style, const MapView& view);

/// How far legend and scale bar stay from the edge of the map, in pixels.
double DecorationMargin(const MapView& view);

} // namespace txmap
