#pragma once

#include <cstdint>
#include <string>

#include <txmap/support/Failure.h>
#include <txmap/tiles/TileCoverage.h>
#include <txmap/tiles/TileRenderer.h>

namespace txmap
{

/// What `txmap tiles` is to do.
struct TilesOptions
{
    TileLook look;
    TileWish wish;
    TileFormat format = TileFormat::Png;
    std::string output;
    int jobs = 1;
    bool resume = false; ///< Leaves tiles alone that are there.
    bool quiet = false;
};

/// What the process answers when some tiles are missing.
constexpr ExitCode kTilesMissing = ExitCode::Tiles;
/// The most tiles of one run.
constexpr std::uint64_t kMostTiles = 100'000'000;

/// Draws the tiles of a style in worker processes and writes them. A worker that dies costs its block another try.
/// @param warn takes what is wrong with tiles although they can be drawn.
/// @throw Failure, with `kTilesMissing` when some tiles could not be drawn and are listed in a file.
void MakeTiles(const TilesOptions& options, const MessageSink& warn);

} // namespace txmap
