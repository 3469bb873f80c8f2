#pragma once

#include <tuple>
#include <vector>

#include <txmap/map/Mercator.h>

namespace txmap
{

class MapView;

/// A tile of the usual pyramid: at zoom z the world has 2^z columns, counted from the date line eastward, and as many
/// rows, counted from the north.
struct TileId
{
    int z = 0;
    int x = 0;
    int y = 0;

    /// The part of the world that it covers.
    MercatorBox Box() const;
    /// The row as it is counted from the south.
    int FlippedY() const { return (1 << z) - 1 - y; }

    friend bool operator==(const TileId& a, const TileId& b) { return a.z == b.z && a.x == b.x && a.y == b.y; }
    friend bool operator<(const TileId& a, const TileId& b)
    {
        return std::tie(a.z, a.y, a.x) < std::tie(b.z, b.y, b.x);
    }
};

/// A tile and in which worlds of a view it is seen.
struct CoveringTile
{
    TileId id;
    std::vector<int> worlds; ///< How many worlds it is moved to the east, once for each copy that is seen.
};

/// Which tiles there are, and which of them a map wants at a zoom.
struct TilePyramid
{
    double tileSize = 512.0; ///< Logical pixels across a tile at its own zoom.
    bool roundsZoom = false; ///< True for pictures, of which the nearest zoom is wanted; else the one below.
    int minZoom = 0;         ///< Below this zoom there is nothing to see.
    int maxZoom = 22;        ///< Above this zoom, its tiles are enlarged.
    MercatorBox bounds;      ///< There are no tiles outside.
};

/// The greatest zoom of a pyramid: columns and rows stay below 2^30, and places in a tile stay exact.
constexpr int kMaxTileZoom = 24;

/// The zoom of the tiles that a view wants, before the limits of the pyramid.
int TileZoom(const MapView& view, const TilePyramid& pyramid);

/// The tiles that are seen in a view, row by row.
/// @param margin so many pixels around the picture count as seen.
std::vector<CoveringTile> CoveringTiles(const MapView& view, const TilePyramid& pyramid, double margin = 0.0);

} // namespace txmap
