#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include <txmap/map/TileCover.h>
#include <txmap/tiles/TileCoverage.h>
#include <txmap/tiles/TileImage.h>

namespace txmap
{

/// What is known of a set of tiles as a whole.
struct TileSetFacts
{
    std::string name;
    std::string attribution;
    TileFormat format = TileFormat::Png;
    TileWish wish;
    /// Tells sets apart whose tiles must not be mixed: a number of the style, size, scale and format.
    std::string look;
};

/// Where tiles are written. A tile is there as a whole or not at all, whenever the process ends. One process writes at
/// a time, but for shards into one folder.
class TileOutput
{
public:
    virtual ~TileOutput() = default;

    /// Whether a tile is there.
    virtual bool Has(const TileId& tile) = 0;
    /// Writes a tile, in place of one that is there. Tiles of the same bytes are kept once. @throw Failure with
    /// `ExitCode::Drawing`.
    virtual void Put(const TileId& tile, const std::string& bytes) = 0;
    /// From now on, what was put outlives the process. @throw Failure with `ExitCode::Drawing`.
    virtual void Commit() = 0;
    /// Where to list the tiles that could not be drawn.
    virtual std::string FailureList() const = 0;
};

/// Opens a database if the name ends with ".mbtiles", and else a folder. What is not there is made.
/// @throw Failure with `ExitCode::Drawing` if it cannot be written, is in use, or holds tiles of another look.
std::unique_ptr<TileOutput> OpenTileOutput(const std::string& path, const TileSetFacts& facts);

/// True for the name of a database.
bool IsTileDatabase(const std::string& path);
/// A number of bytes that tells them from all others, as text.
std::string DigestOf(const std::string& bytes);

} // namespace txmap
