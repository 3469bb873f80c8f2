#include <txmap/sources/RasterTileSource.h>

#include <txmap/map/MapView.h>

namespace txmap
{

void RasterTileSource::Load(const MapView& view, SourceDiagnostics& diagnostics)
{
    images.clear();
    for (const CoveringTile& tile : CoveringTiles(view, tiles.Tiles().Pyramid()))
        if (std::shared_ptr<const Raster> image = tiles.Read(tile.id, diagnostics))
            images.push_back({std::move(image), CornersOf(tile.id.Box()), tile.worlds, tile.id.Box()});
}

} // namespace txmap
