#pragma once

#include <txmap/map/MapView.h>

namespace txmap
{

/// A block of neighbouring tiles of the usual pyramid, drawn together.
struct TileBlock
{
    int z = 0;
    int x = 0; ///< The tile at the top left.
    int y = 0;
    int columns = 1;
    int rows = 1;
};

/// The view of a block of tiles in Web Mercator, with a few pixels around it. Beside each other and without these, the
/// pictures of blocks make the picture of all.
class TileView : public MapView
{
public:
    /// So many pixels are around the block. Surfaces draw small shapes another way where they cross the side of a
    /// picture.
    static constexpr int kEdge = 4;

    /// @param tileSize logical pixels across a tile. @param scale pixels for each of these; their product is whole.
    TileView(const TileBlock& block, int tileSize, double scale);

    /// The whole world at a zoom, in few pixels: for sources that are read once.
    static TileView World(double zoom);

private:
    explicit TileView(const Parts& parts) : MapView(Projection::WebMercator(), parts) {}
};

} // namespace txmap
