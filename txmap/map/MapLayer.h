#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include <txbase/TXPoint.h>

namespace txmap
{

/// What a layer stands for on the map, which decides how it looks.
enum class LayerRole
{
    Any,       ///< As the geometry suggests: areas as countries, lines as rivers, points as places.
    Countries, ///< Areas in the colours of a category.
    Lakes,     ///< Areas of water.
    Borders,   ///< Lines, or the outlines of areas, between countries.
    Lines      ///< Lines, or the outlines of areas, of water.
};

/// A shape of one or several rings in the arrays of its layer.
struct Area
{
    std::size_t firstPoint = 0;
    std::size_t firstRing = 0;
    int rings = 0;
};

/// What a feature is called, and how much that matters.
struct FeatureName
{
    std::string text; ///< In UTF-8, as the data has it; empty for none.
    bool capital = false;
    double rank = 0.0; ///< 0 for the most important.
    double population = 0.0;
};

/// The name of an area or of a place in the array of its layer.
struct NamedFeature
{
    std::size_t index = 0;
    FeatureName name;
};

/// A place in the array of its layer.
struct LayerPlace
{
    std::size_t layer = 0;
    std::size_t place = 0;
};

/// What is visible of a layer's areas and places, in pixels: where names may be written. The points of all shapes lie
/// one behind the other.
struct MapLayer
{
    std::vector<TZObjects::TXPoint> areaPoints;
    std::vector<int> ringSizes;
    std::vector<Area> areas;
    std::vector<TZObjects::TXPoint> places;
    std::vector<NamedFeature> areaNames;  ///< Of those areas that have one.
    std::vector<NamedFeature> placeNames; ///< Of those places that have one.
};

} // namespace txmap
