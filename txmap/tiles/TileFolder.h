#pragma once

#include <deque>
#include <string>
#include <unordered_map>

#include <txmap/tiles/FileLock.h>
#include <txmap/tiles/TileOutput.h>

namespace txmap
{

/// Tiles as files: FOLDER/z/x/y.png. What belongs to the runs that write them is in FOLDER/.txmap.
class TileFolder final : public TileOutput
{
public:
    /// @throw Failure with `ExitCode::Drawing`.
    TileFolder(const std::string& path, const TileSetFacts& facts);
    ~TileFolder() override;

    bool Has(const TileId& tile) override;
    void Put(const TileId& tile, const std::string& bytes) override;
    void Commit() override {}
    std::string FailureList() const override;

private:
    [[noreturn]] void Fail(const std::string& file, int error) const;
    std::string PathOf(const TileId& tile) const;
    void CheckLook(const std::string& look) const;
    void MakeFolders(const TileId& tile);
    bool LinkTo(const std::string& same);
    void Write(const std::string& bytes);

    std::string folder;
    std::string suffix;
    Shard shard;
    std::string temporary;
    FileLock all;                                       ///< Held by every run; alone by one that is no shard.
    FileLock mine;                                      ///< Held alone by a shard.
    std::unordered_map<std::string, std::string> files; ///< Where the bytes of a digest are.
    std::deque<std::string> digests;                    ///< Of these, the oldest first.
    TileId lastFolder{-1, -1, -1};
};

} // namespace txmap
