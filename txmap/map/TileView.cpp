#include <txmap/map/TileView.h>

#include <cmath>

namespace txmap
{

TileView::TileView(const TileBlock& block, int tileSize, double scale)
    : MapView(Projection::WebMercator(), {{static_cast<int>(std::lround(block.columns * tileSize * scale)) + 2 * kEdge,
                                           static_cast<int>(std::lround(block.rows * tileSize * scale)) + 2 * kEdge},
                                          scale,
                                          block.z + std::log2(tileSize / kTileSize),
                                          0.0,
                                          {(block.x + block.columns / 2.0) * std::exp2(-block.z),
                                           (block.y + block.rows / 2.0) * std::exp2(-block.z)}})
{
    const double side = std::round(tileSize * scale);
    SetGridOrigin({block.x * side - kEdge, block.y * side - kEdge});
}

TileView TileView::World(double zoom)
{
    return TileView(
        {{static_cast<int>(kTileSize), static_cast<int>(kTileSize)}, std::exp2(-zoom), zoom, 0.0, {0.5, 0.5}});
}

} // namespace txmap
