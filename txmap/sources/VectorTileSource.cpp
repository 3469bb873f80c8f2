#include <txmap/sources/VectorTileSource.h>

#include <stdexcept>

#include <txmap/map/MapView.h>
#include <txmap/sources/SourceDiagnostics.h>

namespace txmap
{

VectorTileSource::VectorTileSource(const Json& source, const SourceFolder& folder) : tiles(source, folder, false, 1.0)
{
}

void VectorTileSource::Load(const MapView& view, const FeatureRequest& request, SourceDiagnostics& diagnostics)
{
    layers.clear();
    for (const CoveringTile& tile : CoveringTiles(view, tiles.Pyramid(), view.GridOrigin() ? request.margin : 0.0))
        LoadTile(tile, request, diagnostics);
}

void VectorTileSource::LoadTile(const CoveringTile& tile, const FeatureRequest& request, SourceDiagnostics& diagnostics)
{
    const std::optional<std::string> data = tiles.Read(tile.id, diagnostics);
    if (!data)
        return;
    std::vector<std::shared_ptr<FeatureSet>> sets;
    std::vector<WantedTileLayer> wanted;
    for (const auto& [name, properties] : request.layers)
    {
        sets.push_back(std::make_shared<FeatureSet>());
        wanted.push_back({name, properties, sets.back().get()});
    }
    try
    {
        ReadVectorTile(*data, tile.id, wanted);
    }
    catch (const std::runtime_error& problem)
    {
        // Of a broken tile nothing is drawn: what was read before it broke may be wrong as well.
        diagnostics.Report(tiles.NameOf(tile.id) + ": " + problem.what());
        return;
    }
    for (std::size_t i = 0; i < sets.size(); ++i)
        if (!sets[i]->IsEmpty())
            layers[wanted[i].name].push_back({sets[i], tile.worlds, tile.id.Box(), tile.id.z, nullptr});
}

const std::vector<PlacedFeatures>& VectorTileSource::Features(const std::string& sourceLayer) const
{
    static const std::vector<PlacedFeatures> kNone;
    const auto found = layers.find(sourceLayer);
    return found != layers.end() ? found->second : kNone;
}

} // namespace txmap
