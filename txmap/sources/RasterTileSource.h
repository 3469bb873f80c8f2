#pragma once

#include <txmap/sources/RasterSource.h>
#include <txmap/sources/TileSet.h>

namespace txmap
{

/// Pictures from tiles.
class RasterTileSource final : public RasterSource
{
public:
    /// The most pixels a side of a tile.
    static constexpr int kLongestSide = 4096;

    RasterTileSource(const Json& source, const SourceFolder& folder, double ratio) : tiles(source, folder, true, ratio)
    {
    }

    void Load(const MapView& view, SourceDiagnostics& diagnostics) override;
    std::optional<GeoBox> Extent() const override { return tiles.Extent(); }

private:
    TileSet tiles;
};

/// The picture of a tile; null where there is none, or a broken one, which is reported.
std::shared_ptr<const Raster> ReadTileImage(TileSet& tiles, const TileId& tile, SourceDiagnostics& diagnostics);

} // namespace txmap
