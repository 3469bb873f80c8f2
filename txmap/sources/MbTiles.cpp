#include <txmap/sources/MbTiles.h>

#include <sqlite3.h>

#include <filesystem>
#include <stdexcept>

#include <txmap/support/Failure.h>

namespace txmap
{
namespace
{

// Tables may be views that compute for ever. A tile is found in some hundred steps of the database's machine, or, in a
// table without an index, in some for each tile that there is.
constexpr int kStepsBetween = 100000;
constexpr int kMostSteps = 300;
constexpr int kMostMetadata = 1000;

std::string Text(sqlite3_stmt* statement, int column)
{
    const unsigned char* const text = sqlite3_column_text(statement, column);
    return text ? reinterpret_cast<const char*>(text) : "";
}

} // namespace

void MbTiles::Closer::operator()(sqlite3* opened) const { sqlite3_close(opened); }
void MbTiles::Closer::operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }

int MbTiles::CountSteps(void* self) { return ++static_cast<MbTiles*>(self)->steps > kMostSteps ? 1 : 0; }

MbTiles::MbTiles(const std::string& file) : file(file)
{
    std::error_code status;
    if (!std::filesystem::exists(file, status))
        throw Failure(ExitCode::Data, file + ": no such file");
    sqlite3* opened = nullptr;
    const int result = sqlite3_open_v2(file.c_str(), &opened, SQLITE_OPEN_READONLY, nullptr);
    database.reset(opened);
    if (result != SQLITE_OK)
        throw Failure(ExitCode::Data, file + ": cannot be read as MBTiles" + Complaint());
    sqlite3_limit(opened, SQLITE_LIMIT_LENGTH, static_cast<int>(kLimit));
    sqlite3_db_config(opened, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
    sqlite3_db_config(opened, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
    sqlite3_progress_handler(opened, kStepsBetween, CountSteps, this);
    query = Prepare("SELECT tile_data FROM tiles WHERE zoom_level = ? AND tile_column = ? AND tile_row = ?");
    if (!query)
        throw Failure(ExitCode::Data, file + ": cannot be read as MBTiles" + Complaint());
    ReadMetadata();
}

MbTiles::~MbTiles() = default;

MbTiles::Statement MbTiles::Prepare(const char* text) const
{
    sqlite3_stmt* statement = nullptr;
    sqlite3_prepare_v2(database.get(), text, -1, &statement, nullptr);
    return Statement(statement);
}

void MbTiles::ReadMetadata()
{
    const Statement rows = Prepare("SELECT name, value FROM metadata");
    // Some databases have tiles alone.
    if (!rows)
        return;
    steps = 0;
    for (int row = 0; row < kMostMetadata && sqlite3_step(rows.get()) == SQLITE_ROW; ++row)
        metadata[Text(rows.get(), 0)] = Text(rows.get(), 1);
}

std::optional<std::string> MbTiles::Read(const TileId& tile)
{
    // One that computes for ever for a tile does so for every other.
    if (givenUp)
        return std::nullopt;
    steps = 0;
    sqlite3_reset(query.get());
    sqlite3_bind_int(query.get(), 1, tile.z);
    sqlite3_bind_int(query.get(), 2, tile.x);
    // Rows are counted from the south.
    sqlite3_bind_int(query.get(), 3, tile.FlippedY());
    const int result = sqlite3_step(query.get());
    std::optional<std::string> data;
    if (result == SQLITE_ROW)
    {
        const void* const bytes = sqlite3_column_blob(query.get(), 0);
        const int size = sqlite3_column_bytes(query.get(), 0);
        data.emplace(static_cast<const char*>(bytes), bytes ? static_cast<std::size_t>(size) : 0);
    }
    else if (result == SQLITE_INTERRUPT)
    {
        givenUp = true;
        throw std::runtime_error("is not found in reasonable time, nor will the others be");
    }
    else if (result != SQLITE_DONE)
        throw std::runtime_error("cannot be read from the database" + Complaint());
    sqlite3_reset(query.get());
    return data;
}

std::string MbTiles::NameOf(const TileId& tile) const
{
    return file + ": tile " + std::to_string(tile.z) + "/" + std::to_string(tile.x) + "/" + std::to_string(tile.y);
}

std::string MbTiles::Complaint() const
{
    return database ? std::string(" (") + sqlite3_errmsg(database.get()) + ")" : std::string();
}

} // namespace txmap
