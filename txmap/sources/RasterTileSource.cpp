#include <txmap/sources/RasterTileSource.h>

#include <stdexcept>

#include <txmap/map/MapView.h>
#include <txmap/sources/ImageDecoder.h>
#include <txmap/sources/SourceDiagnostics.h>

namespace txmap
{

void RasterTileSource::Load(const MapView& view, SourceDiagnostics& diagnostics)
{
    images.clear();
    for (const CoveringTile& tile : CoveringTiles(view, tiles.Pyramid()))
        if (std::shared_ptr<const Raster> image = ReadTileImage(tiles, tile.id, diagnostics))
            images.push_back({std::move(image), CornersOf(tile.id.Box()), tile.worlds, tile.id.Box()});
}

std::shared_ptr<const Raster> ReadTileImage(TileSet& tiles, const TileId& tile, SourceDiagnostics& diagnostics)
{
    const std::optional<std::string> data = tiles.Read(tile, diagnostics);
    if (!data)
        return nullptr;
    try
    {
        return std::make_shared<const Raster>(DecodeImage(*data, RasterTileSource::kLongestSide));
    }
    catch (const std::runtime_error& problem)
    {
        diagnostics.Report(tiles.NameOf(tile) + ": " + problem.what());
        return nullptr;
    }
}

} // namespace txmap
