#pragma once

#include <cstddef>
#include <memory>
#include <utility>

#include <txmap/sources/Raster.h>
#include <txmap/sources/TileSet.h>
#include <txmap/support/RecentCache.h>

namespace txmap
{

class SourceDiagnostics;

/// The pictures of tiles. Those that were asked for last are kept, because neighbouring views show them, too.
class TileImages
{
public:
    /// The most pixels a side of a tile.
    static constexpr int kLongestSide = 4096;
    /// How many bytes of pixels are kept.
    static constexpr std::size_t kMostBytes = std::size_t{64} << 20;

    explicit TileImages(TileSet set, std::size_t mostBytes = kMostBytes) : set(std::move(set)), kept(mostBytes) {}

    const TileSet& Tiles() const { return set; }
    /// The picture of a tile; null where there is none, or a broken one, which is reported each time.
    std::shared_ptr<const Raster> Read(const TileId& tile, SourceDiagnostics& diagnostics);
    /// How many pictures have been decoded.
    std::size_t Decoded() const { return decoded; }

private:
    TileSet set;
    RecentCache<TileId, Raster> kept;
    std::size_t decoded = 0;
};

} // namespace txmap
