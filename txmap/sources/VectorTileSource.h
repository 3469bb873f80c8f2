#pragma once

#include <cstddef>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include <txmap/sources/FeatureSource.h>
#include <txmap/sources/TileSet.h>
#include <txmap/support/RecentCache.h>

namespace txmap
{

/// Features from vector tiles.
class VectorTileSource final : public FeatureSource
{
public:
    /// How many bytes of decoded tiles are kept for other views, which show some of the same tiles.
    static constexpr std::size_t kMostBytes = std::size_t{64} << 20;

    /// @throw Failure with `ExitCode::Data` if the source names no tiles that can be.
    VectorTileSource(const Json& source, const SourceFolder& folder, std::size_t mostBytes = kMostBytes);

    void Load(const MapView& view, const FeatureRequest& request, SourceDiagnostics& diagnostics) override;
    const std::vector<PlacedFeatures>& Features(const std::string& sourceLayer) const override;
    bool HasFeatures() const override { return !layers.empty(); }
    std::optional<MercatorBox> Extent() const override { return tiles.Pyramid().bounds; }
    /// How often a tile has been decoded.
    std::size_t DecodedTiles() const { return decodedTiles; }
    /// About how much memory the tiles take that are kept.
    std::size_t KeptBytes() const { return kept.Bytes(); }

private:
    /// What has been decoded of a tile.
    struct DecodedLayer
    {
        WantedProperties properties;
        std::shared_ptr<const FeatureSet> features;
    };
    using DecodedTile = std::map<std::string, DecodedLayer>;
    using WantedLayers = std::map<std::string, WantedProperties>;

    /// The wanted layers of a tile and maybe others; null for a tile that is not there or broken.
    std::shared_ptr<const DecodedTile> TileWith(const TileId& tile, const WantedLayers& wanted,
                                                SourceDiagnostics& diagnostics);
    /// Decodes layers of a tile. @return false for a tile that is not there or broken.
    bool Decode(const TileId& tile, const WantedLayers& wanted, DecodedTile& decoded, SourceDiagnostics& diagnostics);

    TileSet tiles;
    RecentCache<TileId, DecodedTile> kept;
    std::size_t decodedTiles = 0;
    std::map<std::string, std::vector<PlacedFeatures>> layers;
};

} // namespace txmap
