#pragma once

#include <optional>

#include <txmap/sources/RasterSource.h>
#include <txmap/sources/TileImages.h>

namespace txmap
{

/// Pictures from tiles.
class RasterTileSource final : public RasterSource
{
public:
    RasterTileSource(const Json& source, const SourceFolder& folder, double ratio)
        : tiles(TileSet(source, folder, true, ratio))
    {
    }

    void Load(const MapView& view, SourceDiagnostics& diagnostics) override;
    std::optional<GeoBox> Extent() const override { return tiles.Tiles().Extent(); }

private:
    TileImages tiles;
};

} // namespace txmap
