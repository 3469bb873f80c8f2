#pragma once

#include <fcntl.h>
#include <spawn.h>
#include <sqlite3.h>
#include <unistd.h>

#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <tests/txmap/support/ProgramRun.h>
#include <tests/txmap/support/TemporaryFolder.h>

inline const char* const kTilesStyle = R"({"version": 8, "name": "Test", "sources": {"s": {"type": "geojson",
    "attribution": "nobody", "data": {"type": "FeatureCollection", "features": [
    {"type": "Feature", "properties": {"name": "Middle"}, "geometry": {"type": "Point", "coordinates": [1, 2]}},
    {"type": "Feature", "properties": {}, "geometry": {"type": "Polygon",
    "coordinates": [[[-60, -40], [75, -30], [50, 60], [-60, 45], [-60, -40]]]}}]}}},
    "layers": [{"id": "b", "type": "background", "paint": {"background-color": "#88bbdd"}},
    {"id": "f", "type": "fill", "source": "s", "paint": {"fill-color": "#ddddaa"}},
    {"id": "t", "type": "symbol", "source": "s", "layout": {"text-field": ["get", "name"],
    "text-font": ["DejaVu Sans"]}}]})";

using Tiles = std::map<std::string, std::string>;

/// The files of a folder of tiles, by "z/x/y.png".
inline Tiles FilesIn(const std::string& folder)
{
    Tiles tiles;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder))
    {
        const std::string name = std::filesystem::relative(entry.path(), folder).string();
        if (entry.is_regular_file() && name[0] != '.')
            tiles[name] = ContentOf(entry.path());
    }
    return tiles;
}

inline std::vector<std::vector<std::string>> Query(const std::string& file, const std::string& text)
{
    sqlite3* database = nullptr;
    sqlite3_stmt* statement = nullptr;
    std::vector<std::vector<std::string>> rows;
    EXPECT_EQ(sqlite3_open_v2(file.c_str(), &database, SQLITE_OPEN_READONLY, nullptr), SQLITE_OK);
    EXPECT_EQ(sqlite3_prepare_v2(database, text.c_str(), -1, &statement, nullptr), SQLITE_OK)
        << sqlite3_errmsg(database);
    while (statement && sqlite3_step(statement) == SQLITE_ROW)
    {
        std::vector<std::string>& row = rows.emplace_back();
        for (int i = 0; i < sqlite3_column_count(statement); ++i)
            row.emplace_back(static_cast<const char*>(sqlite3_column_blob(statement, i)),
                             static_cast<std::size_t>(sqlite3_column_bytes(statement, i)));
    }
    sqlite3_finalize(statement);
    sqlite3_close(database);
    return rows;
}

/// The tiles of a database, named as files are.
inline Tiles TilesIn(const std::string& file)
{
    Tiles tiles;
    for (const auto& row : Query(file, "SELECT zoom_level, tile_column, (1 << zoom_level) - 1 - tile_row, tile_data "
                                       "FROM tiles"))
        tiles[row[0] + "/" + row[1] + "/" + row[2] + ".png"] = row[3];
    return tiles;
}

inline bool IsWholePng(const std::string& bytes)
{
    const std::string end("IEND\xae\x42\x60\x82", 8);
    return bytes.size() > 16 && bytes.compare(0, 4, "\x89PNG") == 0 && bytes.substr(bytes.size() - 8) == end;
}

/// Starts a run whose process the caller ends. @param errors the file that takes its standard error.
inline pid_t Start(std::vector<std::string> arguments, const char* errors = "/dev/null")
{
    arguments.insert(arguments.begin(), TX_TEST_TXMAP);
    std::vector<char*> argv;
    for (std::string& argument : arguments)
        argv.push_back(argument.data());
    argv.push_back(nullptr);
    posix_spawn_file_actions_t files;
    posix_spawn_file_actions_init(&files);
    posix_spawn_file_actions_addopen(&files, STDERR_FILENO, errors, O_WRONLY | O_NOCTTY, 0);
    pid_t process = -1;
    EXPECT_EQ(posix_spawn(&process, TX_TEST_TXMAP, &files, nullptr, argv.data(), environ), 0);
    posix_spawn_file_actions_destroy(&files);
    return process;
}

class TilesProgram : public ::testing::Test
{
protected:
    /// The command of a run with small blocks. @param more options instead of these, and flags.
    std::vector<std::string> Command(const std::string& output, const std::vector<std::string>& more = {}) const
    {
        std::map<std::string, std::string> options{{"--zoom", "0-3"},   {"--tile-size", "256"},
                                                   {"--metatile", "2"}, {"--plugin", TX_TEST_PLUGIN},
                                                   {"--jobs", "2"},     {"-o", output}};
        std::vector<std::string> command{"tiles", style};
        for (std::size_t i = 0; i < more.size(); ++i)
            if (more[i] == "--resume" || more[i] == "--quiet")
                command.push_back(more[i]);
            else
            {
                options[more[i]] = more[i + 1];
                ++i;
            }
        for (const auto& [name, value] : options)
            command.insert(command.end(), {name, value});
        return command;
    }

    ProgramRun Make(const std::string& output, const std::vector<std::string>& more = {},
                    const std::vector<std::string>& environment = {}) const
    {
        return RunTxmap(Command(output, more), environment);
    }

    TemporaryFolder folder;
    std::string style = folder.Write("style.json", kTilesStyle);
    static constexpr std::size_t kCount = 85;
};
