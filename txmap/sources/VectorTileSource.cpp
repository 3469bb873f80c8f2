#include <txmap/sources/VectorTileSource.h>

#include <algorithm>
#include <stdexcept>
#include <utility>

#include <txmap/map/MapView.h>
#include <txmap/sources/SourceDiagnostics.h>

namespace txmap
{

namespace
{

/// Whether all attributes that are wanted were read.
bool Covers(const WantedProperties& read, const WantedProperties& wanted)
{
    return !read || (wanted && std::includes(read->begin(), read->end(), wanted->begin(), wanted->end()));
}

} // namespace

VectorTileSource::VectorTileSource(const Json& source, const SourceFolder& folder, std::size_t mostBytes)
    : tiles(source, folder, false, 1.0), kept(mostBytes)
{
}

void VectorTileSource::Load(const MapView& view, const FeatureRequest& request, SourceDiagnostics& diagnostics)
{
    layers.clear();
    const auto marginOf = [&](const std::string& layer)
    {
        const auto found = request.layerMargins.find(layer);
        return found != request.layerMargins.end() ? found->second : 0.0;
    };
    double widest = 0.0;
    for (const auto& layer : request.layers)
        widest = std::max(widest, marginOf(layer.first));
    for (const CoveringTile& tile : CoveringTiles(view, tiles.Pyramid(), widest))
    {
        WantedLayers wanted;
        for (const auto& [name, properties] : request.layers)
            if (std::any_of(tile.worlds.begin(), tile.worlds.end(),
                            [&, margin = marginOf(name)](int world)
                            { return view.Shows(tile.id.Box().Shifted(world), margin); }))
                wanted.emplace(name, properties);
        const std::shared_ptr<const DecodedTile> decoded = TileWith(tile.id, wanted, diagnostics);
        if (!decoded)
            continue;
        for (const auto& layer : wanted)
            if (const auto& features = decoded->at(layer.first).features; !features->IsEmpty())
                layers[layer.first].push_back({features, tile.worlds, tile.id.Box(), tile.id.z, nullptr});
    }
}

std::shared_ptr<const VectorTileSource::DecodedTile>
VectorTileSource::TileWith(const TileId& tile, const WantedLayers& wanted, SourceDiagnostics& diagnostics)
{
    std::shared_ptr<const DecodedTile> before = kept.Find(tile);
    WantedLayers missing;
    for (const auto& [name, properties] : wanted)
    {
        const auto found = before ? before->find(name) : DecodedTile::const_iterator();
        if (!before || found == before->end() || !Covers(found->second.properties, properties))
            missing.emplace(name, properties);
    }
    if (before && missing.empty())
        return before;
    DecodedTile decoded = before ? *before : DecodedTile();
    if (!Decode(tile, missing, decoded, diagnostics))
        return nullptr;
    std::size_t bytes = 0;
    for (const auto& layer : decoded)
        bytes += layer.second.features->Bytes();
    auto made = std::make_shared<const DecodedTile>(std::move(decoded));
    kept.Keep(tile, made, bytes);
    return made;
}

bool VectorTileSource::Decode(const TileId& tile, const WantedLayers& wanted, DecodedTile& decoded,
                              SourceDiagnostics& diagnostics)
{
    const std::optional<std::string> data = tiles.Read(tile, diagnostics);
    if (!data)
        return false;
    std::vector<WantedTileLayer> reading;
    for (const auto& [name, properties] : wanted)
    {
        auto set = std::make_shared<FeatureSet>();
        reading.push_back({name, properties, set.get()});
        decoded[name] = {properties, std::move(set)};
    }
    try
    {
        ++decodedTiles;
        ReadVectorTile(*data, tile, reading);
        return true;
    }
    catch (const std::runtime_error& problem)
    {
        // Of a broken tile nothing is drawn: what was read before it broke may be wrong as well.
        diagnostics.Report(tiles.NameOf(tile) + ": " + problem.what());
        return false;
    }
}

const std::vector<PlacedFeatures>& VectorTileSource::Features(const std::string& sourceLayer) const
{
    static const std::vector<PlacedFeatures> kNone;
    const auto found = layers.find(sourceLayer);
    return found != layers.end() ? found->second : kNone;
}

} // namespace txmap
