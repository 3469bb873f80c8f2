#pragma once

#include <map>
#include <string>
#include <vector>

#include <txmap/sources/FeatureSource.h>
#include <txmap/sources/TileSet.h>

namespace txmap
{

/// Features from vector tiles.
class VectorTileSource final : public FeatureSource
{
public:
    /// @throw Failure with `ExitCode::Data` if the source names no tiles that can be.
    VectorTileSource(const Json& source, const SourceFolder& folder);

    void Load(const MapView& view, const FeatureRequest& request, SourceDiagnostics& diagnostics) override;
    const std::vector<PlacedFeatures>& Features(const std::string& sourceLayer) const override;
    bool HasFeatures() const override { return !layers.empty(); }
    std::optional<MercatorBox> Extent() const override { return tiles.Pyramid().bounds; }

private:
    void LoadTile(const CoveringTile& tile, const FeatureRequest& request, SourceDiagnostics& diagnostics);

    TileSet tiles;
    std::map<std::string, std::vector<PlacedFeatures>> layers;
};

} // namespace txmap
