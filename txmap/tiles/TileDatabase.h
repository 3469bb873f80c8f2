#pragma once

#include <map>
#include <memory>
#include <string>

#include <txmap/tiles/Sqlite.h>
#include <txmap/tiles/TileOutput.h>

namespace txmap
{

/// The text that makes the tables of MBTiles, in which tiles of the same bytes share them.
extern const char* const kTileTables;

/// What MBTiles says about itself.
std::map<std::string, std::string> MetadataOf(const TileSetFacts& facts);

/// Tiles in one file of the format MBTiles 1.3.
class TileDatabase final : public TileOutput
{
public:
    /// @throw Failure with `ExitCode::Drawing`.
    TileDatabase(const std::string& file, const TileSetFacts& facts);

    bool Has(const TileId& tile) override;
    void Put(const TileId& tile, const std::string& bytes) override;
    void Commit() override;
    std::string FailureList() const override;

private:
    /// Runs @p work, whose std::runtime_error becomes a Failure.
    template <class Work>
    void Try(Work work);
    void Begin(const TileSetFacts& facts);

    std::string file;
    std::unique_ptr<SqlDatabase> database;
    SqlStatement find, addImage, addTile;
};

} // namespace txmap
