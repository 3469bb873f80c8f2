#pragma once

#include <cstddef>
#include <string>

#include <txmap/tiles/TileRenderer.h>

/// By how much a block differs from the same tiles drawn in smaller ones.
struct Difference
{
    std::size_t pixels = 0;
    int most = 0;          ///< Of a channel.
    std::size_t clear = 0; ///< Pixels that differ by more than 4.
    std::string where;     ///< Pixels of the whole that differ by more than a little.
};

/// Compares a block with the same tiles drawn in smaller ones. @param side of these, in tiles.
Difference Compare(txmap::TileRenderer& renderer, const txmap::TileBlock& all, int side);
