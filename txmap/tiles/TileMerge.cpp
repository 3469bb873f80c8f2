#include <txmap/tiles/TileMerge.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <map>
#include <optional>
#include <set>
#include <stdexcept>

#include <txmap/output/OutputFile.h>
#include <txmap/support/Failure.h>
#include <txmap/tiles/Sqlite.h>
#include <txmap/tiles/TileDatabase.h>
#include <txmap/tiles/TileRun.h>

namespace txmap
{
namespace
{

constexpr std::size_t kMostNamed = 5;

using Metadata = std::map<std::string, std::string>;

Metadata ReadMetadata(const std::string& file)
{
    std::error_code status;
    if (!std::filesystem::exists(file, status))
        throw Failure(ExitCode::Data, file + ": no such file");
    try
    {
        Metadata metadata;
        const SqlDatabase database(file, false);
        SqlStatement rows = database.Prepare("SELECT name, value FROM metadata");
        while (rows.Step())
            metadata[rows.Text(0)] = rows.Text(1);
        database.Prepare("SELECT zoom_level, tile_column, tile_row, tile_id FROM map LIMIT 1").Run();
        if (metadata.count("txmap:look") == 0)
            throw std::runtime_error("it says nothing of how its tiles were made");
        return metadata;
    }
    catch (const Failure&)
    {
        throw;
    }
    catch (const std::runtime_error& problem)
    {
        throw Failure(ExitCode::Data, file + ": was not made by txmap tiles (" + problem.what() + ")");
    }
}

/// The wish that a part says it is of.
TileWish WishOf(const std::string& file, const Metadata& metadata)
{
    const auto text = [&](const char* name)
    {
        const auto found = metadata.find(name);
        return found == metadata.end() ? std::string() : found->second;
    };
    TileWish wish;
    bool isRight = std::sscanf(text("minzoom").c_str(), "%d", &wish.minZoom) == 1 &&
                   std::sscanf(text("maxzoom").c_str(), "%d", &wish.maxZoom) == 1 &&
                   std::sscanf(text("txmap:metatile").c_str(), "%d", &wish.metatile) == 1 &&
                   std::sscanf(text("txmap:shard").c_str(), "%d/%d", &wish.shard.number, &wish.shard.count) == 2;
    if (const std::string box = text("txmap:box"); !box.empty())
    {
        GeoBox read;
        isRight = isRight &&
                  std::sscanf(box.c_str(), "%lf,%lf,%lf,%lf", &read.west, &read.south, &read.east, &read.north) == 4;
        wish.box = read;
    }
    isRight = isRight && wish.minZoom >= 0 && wish.maxZoom <= kMaxTileZoom && wish.minZoom <= wish.maxZoom &&
              wish.metatile >= 1 && wish.shard.count >= 1 && wish.shard.number >= 0 &&
              wish.shard.number < wish.shard.count;
    if (!isRight)
        throw Failure(ExitCode::Data, file + ": does not say which tiles it is to have");
    return wish;
}

/// Tiles that are wanted and not there.
struct MissingTiles
{
    std::uint64_t count = 0;
    std::vector<std::string> first;
    std::set<int> shards; ///< That were to draw them.
};

MissingTiles FindMissing(const SqlDatabase& database, const TileWish& wish)
{
    MissingTiles missing;
    SqlStatement rows =
        database.Prepare("SELECT tile_row FROM map WHERE zoom_level = ? AND tile_column = ? ORDER BY tile_row DESC");
    for (int z = wish.minZoom; z <= wish.maxZoom; ++z)
    {
        const ZoomTiles tiles = TilesOf(wish, z);
        for (const auto& [first, last] : tiles.columns)
            for (int x = first; x <= last; ++x)
            {
                rows.Bind(1, z).Bind(2, x);
                bool has = rows.Step();
                // From the north, in which order the rows come that are counted from the south.
                for (int y = tiles.firstRow; y <= tiles.lastRow; ++y)
                {
                    const std::int64_t flipped = TileId{z, x, y}.FlippedY();
                    while (has && rows.Integer(0) > flipped)
                        has = rows.Step();
                    if (has && rows.Integer(0) == flipped)
                        continue;
                    ++missing.count;
                    missing.shards.insert(ShardOf(wish, z, x, y));
                    if (missing.first.size() < kMostNamed)
                        missing.first.push_back(std::to_string(z) + "/" + std::to_string(x) + "/" + std::to_string(y));
                }
                rows.Reset();
            }
    }
    return missing;
}

std::string MissingText(const MissingTiles& missing, const TileWish& wish)
{
    std::string text = std::to_string(missing.count) + (missing.count == 1 ? " tile is" : " tiles are") + " missing:";
    for (const std::string& name : missing.first)
        text += " " + name;
    if (missing.count > missing.first.size())
        text += " …";
    if (wish.shard.count == 1)
        return text;
    text += missing.shards.size() == 1 ? "; of the shard" : "; of the shards";
    for (const int shard : missing.shards)
        text += " " + Shard{shard, wish.shard.count}.ToText();
    return text;
}

class Merger
{
public:
    Merger(const std::string& file, const MessageSink& warn) : database(file, true), warn(warn)
    {
        database.Run("PRAGMA journal_mode = OFF; PRAGMA synchronous = OFF");
        database.Run(kTileTables);
    }

    void Add(const std::string& part)
    {
        SqlStatement attach = database.Prepare("ATTACH DATABASE ? AS part");
        attach.Bind(1, part).Run();
        database.Run("BEGIN");
        const auto count = [&](const std::string& condition)
        {
            SqlStatement counted =
                database.Prepare("SELECT count(*) FROM part.map AS p JOIN main.map AS m ON p.zoom_level = m.zoom_level "
                                 "AND p.tile_column = m.tile_column AND p.tile_row = m.tile_row" +
                                 condition);
            counted.Step();
            return counted.Integer(0);
        };
        const std::int64_t doubled = count("");
        const std::int64_t different = count(" WHERE p.tile_id <> m.tile_id");
        database.Run("INSERT OR IGNORE INTO main.images SELECT tile_id, tile_data FROM part.images WHERE tile_id IN "
                     "(SELECT tile_id FROM part.map);"
                     "INSERT OR IGNORE INTO main.map SELECT zoom_level, tile_column, tile_row, tile_id FROM part.map;"
                     "COMMIT; DETACH DATABASE part");
        if (doubled > 0)
            warn(part + ": " + std::to_string(doubled) + (doubled == 1 ? " tile is" : " tiles are") +
                 " in a part before as well" +
                 (different > 0 ? ", " + std::to_string(different) + " of them different" : std::string()));
    }

    void Describe(const Metadata& metadata) const
    {
        SqlStatement entry = database.Prepare("INSERT OR REPLACE INTO metadata (name, value) VALUES (?, ?)");
        for (const auto& [name, value] : metadata)
            entry.Bind(1, name).Bind(2, name == "txmap:shard" ? Shard().ToText() : value).Run();
        database.Run("DELETE FROM images WHERE tile_id NOT IN (SELECT tile_id FROM map)");
    }

    std::int64_t Count() const
    {
        SqlStatement counted = database.Prepare("SELECT count(*) FROM map");
        counted.Step();
        return counted.Integer(0);
    }

    const SqlDatabase& Database() const { return database; }

private:
    SqlDatabase database;
    const MessageSink& warn;
};

} // namespace

void MergeTiles(const std::vector<std::string>& parts, const std::string& output, const MessageSink& warn,
                const MessageSink& tell)
{
    const Metadata metadata = ReadMetadata(parts.front());
    TileWish wish = WishOf(parts.front(), metadata);
    for (const std::string& part : parts)
    {
        Metadata other = ReadMetadata(part);
        WishOf(part, other);
        for (const auto& [name, value] : metadata)
            if (name != "txmap:shard" && other[name] != value)
                throw Failure(ExitCode::Data, part + ": does not belong to " + parts.front() + ": their " + name +
                                                  " differ (" + other[name] + " and " + value + ")");
    }
    OutputFile file(output);
    MissingTiles missing;
    try
    {
        Merger merger(file.Begin(), warn);
        for (const std::string& part : parts)
            merger.Add(part);
        merger.Describe(metadata);
        missing = FindMissing(merger.Database(), wish);
        tell(output + ": " + std::to_string(merger.Count()) + " tiles");
    }
    catch (const Failure&)
    {
        throw;
    }
    catch (const std::runtime_error& problem)
    {
        throw Failure(ExitCode::Drawing, file.Name() + ": cannot be written: " + problem.what());
    }
    file.Commit();
    if (missing.count > 0)
        throw Failure(kTilesMissing, output + ": " + MissingText(missing, wish));
}

} // namespace txmap
