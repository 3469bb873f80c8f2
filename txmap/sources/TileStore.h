#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include <txmap/map/TileCover.h>

namespace txmap
{

/// Where the bytes of tiles are.
class TileStore
{
public:
    /// The most bytes of a tile, packed or not.
    static constexpr std::size_t kLimit = std::size_t{64} << 20;

    virtual ~TileStore() = default;

    /// The bytes of a tile as they are stored; nothing where there is no tile. @throw Failure with `ExitCode::Data`, or
    /// std::runtime_error without the name of the tile, if they cannot be read.
    virtual std::optional<std::string> Read(const TileId& tile) = 0;
    /// What a tile is called in messages.
    virtual std::string NameOf(const TileId& tile) const = 0;
};

} // namespace txmap
