#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include <txmap/map/GeoBox.h>
#include <txmap/map/TileView.h>

namespace txmap
{

/// One of several runs that share their work.
struct Shard
{
    int number = 0; ///< From 0.
    int count = 1;

    std::string ToText() const { return std::to_string(number) + "/" + std::to_string(count); }
};

/// Which tiles are wanted.
struct TileWish
{
    int minZoom = 0;
    int maxZoom = 0;
    std::optional<GeoBox> box; ///< Nothing for the whole world.
    int metatile = 8;          ///< Tiles across a block that is drawn at once.
    Shard shard;
};

/// The wanted tiles of a zoom.
struct ZoomTiles
{
    int z = 0;
    std::vector<std::pair<int, int>> columns; ///< First and last, from the west; two where a box crosses the date line.
    int firstRow = 0;
    int lastRow = 0;

    std::uint64_t Count() const;
};

/// The tiles of a zoom that a box touches, of all shards.
ZoomTiles TilesOf(const TileWish& wish, int z);
/// How many tiles are wanted, of all shards.
std::uint64_t CountTiles(const TileWish& wish);
/// Calls @p visit with each block of the wish's shard, zoom by zoom. Blocks lie on a grid of whole metatiles, cut to
/// what is wanted; their Morton numbers deal them out to the shards. It ends when @p visit returns false.
void ForEachBlock(const TileWish& wish, const std::function<bool(const TileBlock&)>& visit);
/// The shard that draws a tile.
int ShardOf(const TileWish& wish, int z, int x, int y);

} // namespace txmap
