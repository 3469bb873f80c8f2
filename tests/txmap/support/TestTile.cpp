#include "TestTile.h"

#include <protozero/pbf_writer.hpp>
#include <sqlite3.h>
#include <zlib.h>

#include <memory>
#include <stdexcept>

namespace
{

template <class Write>
std::string Message(Write write)
{
    std::string data;
    protozero::pbf_writer writer(data);
    write(writer);
    return data;
}

struct Closer
{
    void operator()(sqlite3* database) const { sqlite3_close(database); }
    void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};
using Database = std::unique_ptr<sqlite3, Closer>;

Database NewDatabase(const std::string& file, const std::string& statements)
{
    sqlite3* opened = nullptr;
    sqlite3_open(file.c_str(), &opened);
    Database database(opened);
    if (sqlite3_exec(opened, statements.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK)
        throw std::runtime_error(sqlite3_errmsg(opened));
    return database;
}

} // namespace

std::string TestTile::Encoded() const
{
    return Message(
        [&](protozero::pbf_writer& tile)
        {
            for (const Layer& layer : layers)
            {
                protozero::pbf_writer writer(tile, 3);
                writer.add_uint32(15, layer.version);
                writer.add_string(1, layer.name);
                for (const Feature& feature : layer.features)
                {
                    protozero::pbf_writer one(writer, 2);
                    if (feature.id != 0)
                        one.add_uint64(1, feature.id);
                    one.add_packed_uint32(2, feature.tags.begin(), feature.tags.end());
                    one.add_enum(3, feature.type);
                    one.add_packed_uint32(4, feature.geometry.begin(), feature.geometry.end());
                }
                for (const std::string& key : layer.keys)
                    writer.add_string(3, key);
                for (const std::string& value : layer.values)
                    writer.add_message(4, value);
                writer.add_uint32(5, layer.extent);
            }
        });
}

std::string TestTile::Text(const std::string& value)
{
    return Message([&](protozero::pbf_writer& w) { w.add_string(1, value); });
}
std::string TestTile::Float(float value)
{
    return Message([&](protozero::pbf_writer& w) { w.add_float(2, value); });
}
std::string TestTile::Number(double value)
{
    return Message([&](protozero::pbf_writer& w) { w.add_double(3, value); });
}
std::string TestTile::Int(std::int64_t value)
{
    return Message([&](protozero::pbf_writer& w) { w.add_int64(4, value); });
}
std::string TestTile::Uint(std::uint64_t value)
{
    return Message([&](protozero::pbf_writer& w) { w.add_uint64(5, value); });
}
std::string TestTile::Sint(std::int64_t value)
{
    return Message([&](protozero::pbf_writer& w) { w.add_sint64(6, value); });
}
std::string TestTile::Bool(bool value)
{
    return Message([&](protozero::pbf_writer& w) { w.add_bool(7, value); });
}

std::vector<std::uint32_t> TestTile::Points(const Part& points)
{
    std::vector<std::uint32_t> commands{static_cast<std::uint32_t>(points.size()) << 3u | 1u};
    std::pair<int, int> at{0, 0};
    for (const auto& point : points)
    {
        commands.push_back(protozero::encode_zigzag32(point.first - at.first));
        commands.push_back(protozero::encode_zigzag32(point.second - at.second));
        at = point;
    }
    return commands;
}

std::vector<std::uint32_t> TestTile::Lines(const std::vector<Part>& parts, bool closed)
{
    std::vector<std::uint32_t> commands;
    std::pair<int, int> at{0, 0};
    for (const Part& part : parts)
    {
        for (std::size_t i = 0; i < part.size(); ++i)
        {
            if (i == 0)
                commands.push_back(1u << 3u | 1u);
            if (i == 1)
                commands.push_back(static_cast<std::uint32_t>(part.size() - 1) << 3u | 2u);
            commands.push_back(protozero::encode_zigzag32(part[i].first - at.first));
            commands.push_back(protozero::encode_zigzag32(part[i].second - at.second));
            at = part[i];
        }
        if (closed)
            commands.push_back(1u << 3u | 7u);
    }
    return commands;
}

std::string Gzipped(const std::string& data)
{
    z_stream stream{};
    deflateInit2(&stream, Z_BEST_COMPRESSION, Z_DEFLATED, MAX_WBITS + 16, 8, Z_DEFAULT_STRATEGY);
    std::string packed(deflateBound(&stream, data.size()) + 64, '\0');
    std::string copy = data;
    stream.next_in = reinterpret_cast<Bytef*>(copy.data());
    stream.avail_in = static_cast<uInt>(copy.size());
    stream.next_out = reinterpret_cast<Bytef*>(packed.data());
    stream.avail_out = static_cast<uInt>(packed.size());
    deflate(&stream, Z_FINISH);
    packed.resize(stream.total_out);
    deflateEnd(&stream);
    return packed;
}

void WriteMbTiles(const std::string& file, const std::vector<StoredTile>& tiles,
                  const std::vector<std::pair<std::string, std::string>>& metadata)
{
    const Database database = NewDatabase(
        file, "CREATE TABLE metadata (name text, value text);"
              "CREATE TABLE tiles (zoom_level integer, tile_column integer, tile_row integer, tile_data blob);");
    const auto insert = [&](const char* query, const auto& bind)
    {
        sqlite3_stmt* prepared = nullptr;
        sqlite3_prepare_v2(database.get(), query, -1, &prepared, nullptr);
        const std::unique_ptr<sqlite3_stmt, Closer> statement(prepared);
        bind(prepared);
        if (sqlite3_step(prepared) != SQLITE_DONE)
            throw std::runtime_error(sqlite3_errmsg(database.get()));
    };
    const auto bindText = [](sqlite3_stmt* statement, int column, const std::string& text)
    { sqlite3_bind_text(statement, column, text.data(), static_cast<int>(text.size()), nullptr); };
    for (const auto& entry : metadata)
        insert("INSERT INTO metadata VALUES (?, ?)",
               [&](sqlite3_stmt* statement)
               {
                   bindText(statement, 1, entry.first);
                   bindText(statement, 2, entry.second);
               });
    for (const StoredTile& tile : tiles)
        insert("INSERT INTO tiles VALUES (?, ?, ?, ?)",
               [&](sqlite3_stmt* statement)
               {
                   sqlite3_bind_int(statement, 1, tile.z);
                   sqlite3_bind_int(statement, 2, tile.x);
                   sqlite3_bind_int(statement, 3, (1 << tile.z) - 1 - tile.y);
                   sqlite3_bind_blob(statement, 4, tile.data.data(), static_cast<int>(tile.data.size()), nullptr);
               });
}

void WriteDatabase(const std::string& file, const std::string& statements) { NewDatabase(file, statements); }
