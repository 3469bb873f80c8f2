#pragma once

#include <cstddef>
#include <vector>

#include <txbase/TXPoint.h>
#include <txmap/map/Mercator.h>

namespace txmap
{

/// A part of a line within a tile, in layout pixels from the tile's north-west corner.
struct TiledLine
{
    std::vector<TZObjects::TXPoint> points;
    MercatorBox tile;
    double worldSize = 1.0;   ///< Layout pixels across the world.
    bool isContinued = false; ///< Whether it begins at an edge of the tile.

    TZObjects::TXPoint ToWorld(const TZObjects::TXPoint& point) const
    {
        return {tile.left + point.x / worldSize, tile.top + point.y / worldSize};
    }
};

/// The box around points.
MercatorBox BoundsOf(const TZObjects::TXPoint* points, std::size_t count);

/// A line as it is, beyond all tiles.
TiledLine WholeLine(const TZObjects::TXPoint* points, std::size_t count, double worldSize);

/// The parts of a line, in world coordinates, that lie in a tile.
std::vector<TiledLine> LinesInTile(const std::vector<TZObjects::TXPoint>& points, const MercatorBox& tile,
                                   double worldSize);

/// The box of whole tiles of a zoom that have a point in common with a box.
MercatorBox WholeTiles(const MercatorBox& box, int zoom);

/// The parts of a line in each tile of a zoom that has a point in common with a box: none of a line without a point in
/// `WholeTiles` of it.
std::vector<TiledLine> LinesInTiles(const std::vector<TZObjects::TXPoint>& points, int zoom, const MercatorBox& shown,
                                    double worldSize);

} // namespace txmap
