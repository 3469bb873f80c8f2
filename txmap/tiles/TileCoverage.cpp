#include <txmap/tiles/TileCoverage.h>

#include <algorithm>
#include <cmath>

#include <txmap/map/Mercator.h>

namespace txmap
{
namespace
{

// What is so near to the edge of a tile only touches it.
constexpr double kTouching = 1e-9;

/// The numbers of two coordinates, bit by bit: near places have near numbers.
std::uint64_t MortonNumber(std::uint32_t x, std::uint32_t y)
{
    std::uint64_t number = 0;
    for (unsigned bit = 0; bit < 32; ++bit)
        number |= (static_cast<std::uint64_t>((x >> bit) & 1u) << (2 * bit)) |
                  (static_cast<std::uint64_t>((y >> bit) & 1u) << (2 * bit + 1));
    return number;
}

} // namespace

std::uint64_t ZoomTiles::Count() const
{
    std::uint64_t across = 0;
    for (const auto& [first, last] : columns)
        across += static_cast<std::uint64_t>(last - first + 1);
    return across * static_cast<std::uint64_t>(lastRow - firstRow + 1);
}

ZoomTiles TilesOf(const TileWish& wish, int z)
{
    const int count = 1 << z;
    if (!wish.box)
        return {z, {{0, count - 1}}, 0, count - 1};
    const TZObjects::TXPoint northWest = ToMercator(wish.box->west, wish.box->north);
    const TZObjects::TXPoint southEast = ToMercator(wish.box->east, wish.box->south);
    const auto first = [&](double place) { return static_cast<int>(std::floor((place + kTouching) * count)); };
    const auto last = [&](double place) { return static_cast<int>(std::ceil((place - kTouching) * count)) - 1; };
    ZoomTiles tiles{z, {}, std::clamp(first(northWest.y), 0, count - 1), 0};
    tiles.lastRow = std::clamp(last(southEast.y), tiles.firstRow, count - 1);
    const int west = first(northWest.x);
    const int east = std::max(west, last(southEast.x));
    if (east - west + 1 >= count)
        tiles.columns = {{0, count - 1}};
    else
    {
        const int start = ((west % count) + count) % count;
        const int end = start + east - west;
        if (end < count)
            tiles.columns = {{start, end}};
        else
            tiles.columns = {{0, end - count}, {start, count - 1}};
    }
    return tiles;
}

std::uint64_t CountTiles(const TileWish& wish)
{
    std::uint64_t count = 0;
    for (int z = wish.minZoom; z <= wish.maxZoom; ++z)
        count += TilesOf(wish, z).Count();
    return count;
}

int ShardOf(const TileWish& wish, int z, int x, int y)
{
    // The zoom, so that the one block of each small zoom does not always fall to the same shard.
    const std::uint64_t number =
        MortonNumber(static_cast<std::uint32_t>(x / wish.metatile), static_cast<std::uint32_t>(y / wish.metatile)) +
        static_cast<std::uint64_t>(z);
    return static_cast<int>(number % static_cast<std::uint64_t>(wish.shard.count));
}

void ForEachBlock(const TileWish& wish, const std::function<bool(const TileBlock&)>& visit)
{
    const int side = wish.metatile;
    for (int z = wish.minZoom; z <= wish.maxZoom; ++z)
    {
        const ZoomTiles tiles = TilesOf(wish, z);
        for (int top = tiles.firstRow / side * side; top <= tiles.lastRow; top += side)
            for (const auto& [firstColumn, lastColumn] : tiles.columns)
                for (int left = firstColumn / side * side; left <= lastColumn; left += side)
                {
                    if (ShardOf(wish, z, left, top) != wish.shard.number)
                        continue;
                    const int x = std::max(left, firstColumn);
                    const int y = std::max(top, tiles.firstRow);
                    const TileBlock block{z, x, y, std::min(left + side - 1, lastColumn) - x + 1,
                                          std::min(top + side - 1, tiles.lastRow) - y + 1};
                    if (!visit(block))
                        return;
                }
    }
}

} // namespace txmap
