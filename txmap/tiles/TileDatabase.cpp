#include <txmap/tiles/TileDatabase.h>

#include <cstdio>
#include <cstring>
#include <stdexcept>

#include <txmap/support/Failure.h>

namespace txmap
{
namespace
{

std::string Number(double value)
{
    char text[32];
    std::snprintf(text, sizeof text, "%.9g", value);
    return text;
}

} // namespace

const char* const kTileTables =
    "CREATE TABLE IF NOT EXISTS metadata (name TEXT NOT NULL PRIMARY KEY, value TEXT);"
    "CREATE TABLE IF NOT EXISTS map (zoom_level INTEGER NOT NULL, tile_column INTEGER NOT NULL,"
    " tile_row INTEGER NOT NULL, tile_id TEXT NOT NULL, PRIMARY KEY (zoom_level, tile_column, tile_row)) WITHOUT ROWID;"
    "CREATE TABLE IF NOT EXISTS images (tile_id TEXT NOT NULL PRIMARY KEY, tile_data BLOB NOT NULL);"
    "CREATE VIEW IF NOT EXISTS tiles AS SELECT map.zoom_level AS zoom_level, map.tile_column AS tile_column,"
    " map.tile_row AS tile_row, images.tile_data AS tile_data FROM map JOIN images ON images.tile_id = map.tile_id;";

std::map<std::string, std::string> MetadataOf(const TileSetFacts& facts)
{
    const GeoBox box = facts.wish.box.value_or(GeoBox{-180.0, -85.051129, 180.0, 85.051129});
    const std::string bounds =
        Number(box.west) + "," + Number(box.south) + "," + Number(box.east) + "," + Number(box.north);
    std::map<std::string, std::string> metadata{
        {"name", facts.name},
        {"format", facts.format == TileFormat::Png8 ? "png" : NameOf(facts.format)},
        {"bounds", bounds},
        {"center", Number((box.west + box.east) / 2.0) + "," + Number((box.south + box.north) / 2.0) + "," +
                       std::to_string(facts.wish.minZoom)},
        {"minzoom", std::to_string(facts.wish.minZoom)},
        {"maxzoom", std::to_string(facts.wish.maxZoom)},
        {"type", "baselayer"},
        {"version", "1"},
        {"txmap:look", facts.look},
        {"txmap:metatile", std::to_string(facts.wish.metatile)},
        {"txmap:shard", facts.wish.shard.ToText()}};
    if (facts.wish.box)
        metadata["txmap:box"] = bounds;
    if (!facts.attribution.empty())
        metadata["attribution"] = facts.attribution;
    return metadata;
}

template <class Work>
void TileDatabase::Try(Work work)
{
    try
    {
        work();
    }
    catch (const std::runtime_error& problem)
    {
        const char* const isBusy = std::strstr(problem.what(), "locked");
        throw Failure(ExitCode::Drawing, "--output " + file + ": " +
                                             (isBusy ? "another run is writing there"
                                                     : std::string("cannot be written: ") + problem.what()));
    }
}

TileDatabase::TileDatabase(const std::string& file, const TileSetFacts& facts) : file(file)
{
    std::string presentLook;
    bool isNew = true;
    Try(
        [&]
        {
            database = std::make_unique<SqlDatabase>(file, true);
            // The lock is kept until the process ends, and what a killed one left is undone when it is taken.
            database->Run("PRAGMA locking_mode = EXCLUSIVE; PRAGMA synchronous = OFF; PRAGMA temp_store = MEMORY;"
                          "BEGIN EXCLUSIVE");
            SqlStatement tables = database->Prepare("SELECT count(*) FROM sqlite_master");
            isNew = tables.Step() && tables.Integer(0) == 0;
            tables.Reset();
            database->Run(kTileTables);
            SqlStatement look = database->Prepare("SELECT value FROM metadata WHERE name = 'txmap:look'");
            if (look.Step())
                presentLook = look.Text(0);
        });
    if (!isNew && presentLook != facts.look)
        throw Failure(ExitCode::Drawing, "--output " + file + ": " +
                                             (presentLook.empty() ? "is there and was not made by txmap tiles"
                                                                  : "has tiles of another style, size, scale or format;"
                                                                    " remove it first"));
    Try([&] { Begin(facts); });
}

void TileDatabase::Begin(const TileSetFacts& facts)
{
    SqlStatement entry = database->Prepare("INSERT OR REPLACE INTO metadata (name, value) VALUES (?, ?)");
    for (const auto& [name, value] : MetadataOf(facts))
        entry.Bind(1, name).Bind(2, value).Run();
    database->Run("COMMIT; BEGIN");
    find = database->Prepare("SELECT 1 FROM map WHERE zoom_level = ? AND tile_column = ? AND tile_row = ?");
    addImage = database->Prepare("INSERT OR IGNORE INTO images (tile_id, tile_data) VALUES (?, ?)");
    addTile = database->Prepare(
        "INSERT OR REPLACE INTO map (zoom_level, tile_column, tile_row, tile_id) VALUES (?, ?, ?, ?)");
}

bool TileDatabase::Has(const TileId& tile)
{
    bool has = false;
    Try(
        [&]
        {
            // Rows are counted from the south.
            has = find.Bind(1, tile.z).Bind(2, tile.x).Bind(3, tile.FlippedY()).Step();
            find.Reset();
        });
    return has;
}

void TileDatabase::Put(const TileId& tile, const std::string& bytes)
{
    Try(
        [&]
        {
            const std::string digest = DigestOf(bytes);
            addImage.Bind(1, digest).BindBytes(2, bytes).Run();
            addTile.Bind(1, tile.z).Bind(2, tile.x).Bind(3, tile.FlippedY()).Bind(4, digest).Run();
        });
}

void TileDatabase::Commit()
{
    Try([&] { database->Run("COMMIT; BEGIN"); });
}

std::string TileDatabase::FailureList() const { return file + ".failed.txt"; }

} // namespace txmap
