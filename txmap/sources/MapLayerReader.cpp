#include <txmap/sources/MapLayerReader.h>

#include <txmap/map/MapView.h>
#include <txmap/map/PixelParts.h>

namespace txmap
{

using TZObjects::TXPoint;

namespace
{

/// Where a feature's parts begin in its layer, so that all worlds in which it is seen make one feature.
void AddArea(const FeatureSet& set, const SetFeature& feature, std::vector<PixelParts>& worlds,
             const FeatureNames& names, MapLayer& layer)
{
    Area area{layer.areaPoints.size(), layer.ringSizes.size(), 0};
    for (PixelParts& world : worlds)
    {
        Parts& rings = world.Result();
        rings.Clear();
        set.ForEachPart(feature, [&](const TXPoint* points, std::size_t count) { world.AddRing(points, count); });
        layer.areaPoints.insert(layer.areaPoints.end(), rings.points.begin(), rings.points.end());
        layer.ringSizes.insert(layer.ringSizes.end(), rings.counts.begin(), rings.counts.end());
        area.rings += static_cast<int>(rings.counts.size());
    }
    if (area.rings == 0)
        return;
    if (FeatureName name = names.Of(feature); !name.text.empty())
        layer.areaNames.push_back({layer.areas.size(), std::move(name)});
    layer.areas.push_back(area);
}

void AddPlaces(const FeatureSet& set, const SetFeature& feature, std::vector<PixelParts>& worlds,
               const FeatureNames& names, MapLayer& layer)
{
    const std::size_t before = layer.places.size();
    for (PixelParts& world : worlds)
    {
        world.Result().Clear();
        set.ForEachPart(feature, [&](const TXPoint* point, std::size_t) { world.AddPoint(*point); });
        const std::vector<TXPoint>& points = world.Result().points;
        layer.places.insert(layer.places.end(), points.begin(), points.end());
    }
    if (layer.places.size() == before)
        return;
    // A feature of several points is labelled at one of them.
    if (FeatureName name = names.Of(feature); !name.text.empty())
        layer.placeNames.push_back({before, std::move(name)});
}

} // namespace

MapLayer ReadMapLayer(const std::vector<PlacedFeatures>& features, const MapView& view, const NameRequest& names,
                      bool places, double margin)
{
    MapLayer layer;
    for (const PlacedFeatures& placed : features)
    {
        const FeatureSet& set = *placed.features;
        const FeatureNames namesOfSet(names, set);
        std::vector<PixelParts> worlds;
        for (const int world : placed.worlds)
            worlds.emplace_back(view.ToPixels(world), view.PictureBox(margin), placed.tile);
        for (const SetFeature& feature : set.features)
            if (feature.type == GeometryType::Polygon)
                AddArea(set, feature, worlds, namesOfSet, layer);
            else if (feature.type == GeometryType::Point && places)
                AddPlaces(set, feature, worlds, namesOfSet, layer);
    }
    return layer;
}

} // namespace txmap
