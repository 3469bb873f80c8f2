#pragma once

#include <vector>

#include <txmap/labels/LabelScene.h>
#include <txmap/labels/PlacedLabel.h>
#include <txmap/map/MapLayer.h>

namespace txmap
{

/// What is written on a map, and what must not be drawn for it.
struct LabelLayout
{
    std::vector<PlacedLabel> labels;
    std::vector<LayerPlace> leftOut; ///< Places that have a name but no room for it.
};

/// Decides which names are written, and where: first those of countries, by rank and by what is visible of them, each
/// in the largest part of its country; then those of places, capitals first, each beside its marker. No label touches
/// another, the marker of a place that is drawn, or the edge of the frame; what finds no room is left out. A name that
/// several areas of a layer share appears once.
LabelLayout LayOutLabels(const std::vector<MapLayer>& layers, const LabelScene& scene, const LabelMeasure& measure);

} // namespace txmap
