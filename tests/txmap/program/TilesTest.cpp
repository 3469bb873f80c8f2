// txmap tiles and txmap merge as programs: folders and databases, runs that end early, and shards.
#include <fcntl.h>
#include <spawn.h>
#include <sqlite3.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <string>
#include <thread>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <tests/support/RandomSource.h>
#include <tests/txmap/support/Picture.h>
#include <tests/txmap/support/ProgramRun.h>
#include <tests/txmap/support/TemporaryFolder.h>

using ::testing::HasSubstr;

namespace
{

namespace fs = std::filesystem;

const char* const kStyle = R"({"version": 8, "name": "Test", "sources": {"s": {"type": "geojson",
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
Tiles FilesIn(const std::string& folder)
{
    Tiles tiles;
    for (const auto& entry : fs::recursive_directory_iterator(folder))
    {
        const std::string name = fs::relative(entry.path(), folder).string();
        if (entry.is_regular_file() && name[0] != '.')
            tiles[name] = ContentOf(entry.path());
    }
    return tiles;
}

std::vector<std::vector<std::string>> Query(const std::string& file, const std::string& text)
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
Tiles TilesIn(const std::string& file)
{
    Tiles tiles;
    for (const auto& row : Query(file, "SELECT zoom_level, tile_column, (1 << zoom_level) - 1 - tile_row, tile_data "
                                       "FROM tiles"))
        tiles[row[0] + "/" + row[1] + "/" + row[2] + ".png"] = row[3];
    return tiles;
}

bool IsWholePng(const std::string& bytes)
{
    const std::string end("IEND\xae\x42\x60\x82", 8);
    return bytes.size() > 16 && bytes.compare(0, 4, "\x89PNG") == 0 && bytes.substr(bytes.size() - 8) == end;
}

/// Starts a run whose process the caller ends.
pid_t Start(std::vector<std::string> arguments)
{
    arguments.insert(arguments.begin(), TX_TEST_TXMAP);
    std::vector<char*> argv;
    for (std::string& argument : arguments)
        argv.push_back(argument.data());
    argv.push_back(nullptr);
    posix_spawn_file_actions_t files;
    posix_spawn_file_actions_init(&files);
    posix_spawn_file_actions_addopen(&files, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
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
    std::string style = folder.Write("style.json", kStyle);
    static constexpr std::size_t kCount = 85;
};

TEST_F(TilesProgram, AFolderHasEachTileOfTheZooms)
{
    const ProgramRun run = Make(folder / "tiles");
    ASSERT_EQ(run.exitCode, 0) << run.errors;
    EXPECT_THAT(run.errors, HasSubstr("85 tiles drawn"));
    const Tiles tiles = FilesIn(folder / "tiles");
    EXPECT_EQ(tiles.size(), kCount);
    for (const auto& [name, bytes] : tiles)
        EXPECT_TRUE(IsWholePng(bytes)) << name;
    const Picture world(folder / "tiles/0/0/0.png");
    EXPECT_EQ(world.Width(), 256);
    EXPECT_EQ(world.At(128, 100), (Pixel{0xdd, 0xdd, 0xaa, 0xff}));
    EXPECT_EQ(world.At(10, 10), (Pixel{0x88, 0xbb, 0xdd, 0xff}));
    // Files of sea are the same file.
    struct stat sea = {};
    ASSERT_EQ(stat((folder / "tiles/3/0/0.png").c_str(), &sea), 0);
    EXPECT_GT(sea.st_nlink, 10u);
}

TEST_F(TilesProgram, TilesAreThePicturesThatRenderDraws)
{
    ASSERT_EQ(Make(folder / "tiles", {"--tile-size", "512", "--zoom", "1", "--quiet"}).exitCode, 0);
    ASSERT_EQ(RunTxmap({"render", style, "--zoom", "1", "--center", "-90,66.51326044311186", "--size", "512x512",
                        "--plugin", TX_TEST_PLUGIN, "-o", folder / "whole.png"})
                  .exitCode,
              0);
    const Picture tile(folder / "tiles/1/0/0.png");
    const Picture whole(folder / "whole.png");
    int far = 0;
    for (std::size_t i = 0; i < whole.Pixels().size(); ++i)
        far += Distance(tile.Pixels()[i], whole.Pixels()[i]) > 8 ? 1 : 0;
    EXPECT_LT(far, 30);
}

TEST_F(TilesProgram, ADatabaseHasTheSameTilesAndItsMetadata)
{
    const std::string file = folder / "tiles.mbtiles";
    ASSERT_EQ(Make(folder / "tiles").exitCode, 0);
    ASSERT_EQ(Make(file).exitCode, 0);
    EXPECT_EQ(TilesIn(file), FilesIn(folder / "tiles"));
    std::map<std::string, std::string> metadata;
    for (const auto& row : Query(file, "SELECT name, value FROM metadata"))
        metadata[row[0]] = row[1];
    EXPECT_EQ(metadata["name"], "Test");
    EXPECT_EQ(metadata["format"], "png");
    EXPECT_EQ(metadata["minzoom"], "0");
    EXPECT_EQ(metadata["maxzoom"], "3");
    EXPECT_EQ(metadata["bounds"], "-180,-85.051129,180,85.051129");
    EXPECT_EQ(metadata["center"], "0,0,0");
    EXPECT_EQ(metadata["type"], "baselayer");
    EXPECT_EQ(metadata["attribution"], "nobody");
    EXPECT_EQ(Query(file, "SELECT count(*) FROM map")[0][0], "85");
    EXPECT_LT(std::stoi(Query(file, "SELECT count(*) FROM images")[0][0]), 60);
}

TEST_F(TilesProgram, TheNumberOfWorkersAndTheSizeOfBlocksChangeNothing)
{
    ASSERT_EQ(Make(folder / "one", {"--jobs", "1", "--metatile", "8"}).exitCode, 0);
    ASSERT_EQ(Make(folder / "two", {"--jobs", "3", "--metatile", "1"}).exitCode, 0);
    EXPECT_EQ(FilesIn(folder / "one"), FilesIn(folder / "two"));
}

TEST_F(TilesProgram, ResumingLeavesAloneWhatIsThere)
{
    for (const char* const name : {"tiles", "tiles.mbtiles"})
        ASSERT_EQ(Make(folder / name, {"--zoom", "0-2"}).exitCode, 0);
    folder.Write("tiles/2/1/1.png", "mine");
    const ProgramRun run = Make(folder / "tiles", {"--resume"});
    ASSERT_EQ(run.exitCode, 0) << run.errors;
    EXPECT_THAT(run.errors, HasSubstr("64 tiles drawn"));
    EXPECT_THAT(run.errors, HasSubstr("21 were there"));
    EXPECT_EQ(ContentOf(folder / "tiles/2/1/1.png"), "mine");
    EXPECT_THAT(Make(folder / "tiles.mbtiles", {"--resume"}).errors, HasSubstr("64 tiles drawn"));
    EXPECT_EQ(Query(folder / "tiles.mbtiles", "SELECT count(*) FROM map")[0][0], "85");
    ASSERT_EQ(Make(folder / "tiles").exitCode, 0);
    EXPECT_TRUE(IsWholePng(ContentOf(folder / "tiles/2/1/1.png")));
}

TEST_F(TilesProgram, AWorkerThatDiesCostsItsBlockOneMoreTry)
{
    ASSERT_EQ(Make(folder / "good").exitCode, 0);
    const ProgramRun once =
        Make(folder / "once", {}, {"TXMAP_CRASH_TILE=3/5/2", "TXMAP_CRASH_ONCE=" + (folder / "crashed")});
    EXPECT_EQ(once.exitCode, 0) << once.errors;
    EXPECT_TRUE(fs::exists(folder / "crashed"));
    EXPECT_EQ(FilesIn(folder / "once"), FilesIn(folder / "good"));

    const ProgramRun always = Make(folder / "always", {}, {"TXMAP_CRASH_TILE=3/5/2"});
    EXPECT_EQ(always.exitCode, 5);
    EXPECT_THAT(always.errors, HasSubstr("4 tiles could not be drawn, see"));
    const std::string list = ContentOf(folder / "always/failed.txt");
    for (const char* const tile : {"3/4/2\t", "3/5/2\t", "3/4/3\t", "3/5/3\t"})
        EXPECT_THAT(list, HasSubstr(std::string(tile) + "the worker was ended by signal 9"));
    EXPECT_EQ(FilesIn(folder / "always").size(), kCount - 4 + 1);
    // What failed can be made later, and the list goes.
    EXPECT_EQ(Make(folder / "always", {"--resume"}).exitCode, 0);
    EXPECT_EQ(FilesIn(folder / "always"), FilesIn(folder / "good"));
}

TEST_F(TilesProgram, KilledRunsLeaveWholeTilesAndCanBeResumed)
{
    ASSERT_EQ(Make(folder / "good").exitCode, 0);
    const Tiles good = FilesIn(folder / "good");
    const char* const seeds = std::getenv("TXMAP_KILL_SEEDS");
    const int runs = seeds ? std::atoi(seeds) : 2;
    for (int seed = 0; seed < runs; ++seed)
        for (const std::string ending : {"", ".mbtiles"})
        {
            RandomSource random(static_cast<unsigned>(seed));
            const std::string output = folder / ("run" + std::to_string(seed) + ending);
            for (int kill = 0; kill < 3; ++kill)
            {
                const pid_t process = Start(Command(output, {"--resume"}));
                std::this_thread::sleep_for(std::chrono::milliseconds(random.Int(20, 400)));
                ::kill(process, kill == 1 ? SIGTERM : SIGKILL);
                int status = 0;
                waitpid(process, &status, 0);
                if (ending.empty() && fs::exists(output))
                {
                    for (const auto& [name, bytes] : FilesIn(output))
                        ASSERT_EQ(bytes, good.at(name)) << name << ", seed " << seed;
                }
            }
            const ProgramRun last = Make(output, {"--resume"});
            ASSERT_EQ(last.exitCode, 0) << last.errors;
            EXPECT_EQ(ending.empty() ? FilesIn(output) : TilesIn(output), good) << "seed " << seed;
        }
}

TEST_F(TilesProgram, TwoRunsDoNotWriteToTheSamePlace)
{
    for (const char* const name : {"tiles", "tiles.mbtiles"})
    {
        // One that is busy for as long as it is left alone.
        const pid_t process = Start(Command(folder / name, {"--zoom", "0-9"}));
        for (int i = 0; i < 500 && !fs::exists(folder / name); ++i)
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        std::this_thread::sleep_for(std::chrono::milliseconds(300));
        const ProgramRun second = Make(folder / name);
        EXPECT_EQ(second.exitCode, 1);
        EXPECT_THAT(second.errors, HasSubstr("another run is writing there"));
        kill(process, SIGKILL);
        waitpid(process, nullptr, 0);
    }
}

TEST_F(TilesProgram, ShardsMakeTheSameTogether)
{
    ASSERT_EQ(Make(folder / "good").exitCode, 0);
    const Tiles good = FilesIn(folder / "good");
    std::size_t sum = 0;
    for (const int shard : {2, 0, 1})
    {
        const std::string number = std::to_string(shard);
        ASSERT_EQ(Make(folder / "together", {"--shard", number + "/3"}).exitCode, 0);
        // As Slurm numbers the tasks of an array.
        ASSERT_EQ(Make(folder / ("part" + number + ".mbtiles"), {},
                       {"SLURM_ARRAY_TASK_ID=" + std::to_string(shard + 5), "SLURM_ARRAY_TASK_MIN=5",
                        "SLURM_ARRAY_TASK_COUNT=3"})
                      .exitCode,
                  0);
        const std::size_t size = TilesIn(folder / ("part" + number + ".mbtiles")).size();
        EXPECT_GT(size, 4u);
        sum += size;
    }
    EXPECT_EQ(sum, kCount);
    EXPECT_EQ(FilesIn(folder / "together"), good);

    const std::string merged = folder / "merged.mbtiles";
    const std::vector<std::string> parts{folder / "part0.mbtiles", folder / "part1.mbtiles", folder / "part2.mbtiles"};
    const ProgramRun all = RunTxmap({"merge", parts[0], parts[1], parts[2], "-o", merged});
    EXPECT_EQ(all.exitCode, 0) << all.errors;
    EXPECT_EQ(all.output, merged + ": 85 tiles\n");
    EXPECT_EQ(all.errors, "");
    EXPECT_EQ(TilesIn(merged), good);

    const ProgramRun lacking = RunTxmap({"merge", parts[0], parts[2], "-o", folder / "lacking.mbtiles"});
    EXPECT_EQ(lacking.exitCode, 5);
    EXPECT_THAT(lacking.errors, HasSubstr("are missing:"));
    EXPECT_THAT(lacking.errors, HasSubstr("of the shard 1/3"));
    EXPECT_TRUE(fs::exists(folder / "lacking.mbtiles"));

    const ProgramRun doubled =
        RunTxmap({"merge", parts[0], parts[1], parts[0], parts[2], "-o", folder / "doubled.mbtiles"});
    EXPECT_EQ(doubled.exitCode, 0) << doubled.errors;
    EXPECT_THAT(doubled.errors, HasSubstr("part0.mbtiles: "));
    EXPECT_THAT(doubled.errors, HasSubstr("in a part before as well\n"));
    EXPECT_EQ(TilesIn(folder / "doubled.mbtiles"), good);
}

TEST_F(TilesProgram, PartsThatDoNotBelongTogetherAreNotMerged)
{
    ASSERT_EQ(Make(folder / "a.mbtiles", {"--zoom", "0"}).exitCode, 0);
    ASSERT_EQ(Make(folder / "b.mbtiles", {"--zoom", "0", "--format", "jpg"}).exitCode, 0);
    const ProgramRun run = RunTxmap({"merge", folder / "a.mbtiles", folder / "b.mbtiles", "-o", folder / "c.mbtiles"});
    EXPECT_EQ(run.exitCode, 4);
    EXPECT_THAT(run.errors, HasSubstr("does not belong to"));
    EXPECT_FALSE(fs::exists(folder / "c.mbtiles"));
    EXPECT_EQ(RunTxmap({"merge", style, "-o", folder / "c.mbtiles"}).exitCode, 4);
    EXPECT_EQ(RunTxmap({"merge", folder / "none.mbtiles", "-o", folder / "c.mbtiles"}).exitCode, 4);
    EXPECT_EQ(RunTxmap({"merge", folder / "a.mbtiles", "-o", folder / "c.png"}).exitCode, 2);
}

TEST_F(TilesProgram, TilesOfAnotherLookAreNotMixed)
{
    for (const char* const name : {"tiles", "tiles.mbtiles"})
    {
        ASSERT_EQ(Make(folder / name, {"--zoom", "0"}).exitCode, 0);
        const ProgramRun run = Make(folder / name, {"--zoom", "0", "--scale", "2", "--resume"});
        EXPECT_EQ(run.exitCode, 1);
        EXPECT_THAT(run.errors, HasSubstr("has tiles of another style, size, scale or format"));
    }
    const std::string strange = folder.Write("strange.mbtiles", "This is no database, but a text of some length.");
    EXPECT_EQ(Make(strange).exitCode, 1);
    EXPECT_EQ(ContentOf(strange), "This is no database, but a text of some length.");
}

TEST_F(TilesProgram, WhatCannotBeIsSaidInOneLine)
{
    struct Refusal
    {
        std::vector<std::string> options;
        int exitCode;
        const char* text;
    };
    for (const Refusal& refusal :
         std::vector<Refusal>{{{"--zoom", "5-3"}, 2, "has no zoom in it"},
                              {{"--zoom", "0-40"}, 2, "--zoom 0-40"},
                              {{"--zoom", "x"}, 2, "--zoom x"},
                              {{"--zoom", "0-15"}, 2, "would be 1431655765 tiles"},
                              {{"--tile-size", "300"}, 2, "--tile-size 300"},
                              {{"--scale", "1.001"}, 2, "--scale 1.001"},
                              {{"--metatile", "0"}, 2, "--metatile 0"},
                              {{"--metatile", "64", "--scale", "8"}, 2, "--metatile 64"},
                              {{"--format", "gif"}, 2, "--format gif"},
                              {{"--shard", "4/4"}, 2, "--shard 4/4"},
                              {{"--jobs", "0"}, 2, "--jobs 0"},
                              {{"--bbox", "1,2,3"}, 2, "--bbox 1,2,3"},
                              {{"--plugin", "/no/such/plugin"}, 3, "/no/such/plugin"},
                              {{"-o", "/proc/tiles"}, 1, "/proc/tiles: cannot be written"},
                              {{"-o", "/proc/tiles.mbtiles"}, 1, "/proc/tiles.mbtiles: cannot be written"}})
    {
        std::vector<std::string> command{"tiles", style, "--quiet"};
        std::map<std::string, std::string> options{
            {"--zoom", "0-3"}, {"-o", folder / "out"}, {"--plugin", TX_TEST_PLUGIN}};
        for (std::size_t i = 0; i < refusal.options.size(); i += 2)
            options[refusal.options[i]] = refusal.options[i + 1];
        for (const auto& [name, value] : options)
            command.insert(command.end(), {name, value});
        const ProgramRun run = RunTxmap(command);
        EXPECT_EQ(run.exitCode, refusal.exitCode) << run.errors;
        EXPECT_THAT(run.errors, HasSubstr(refusal.text));
        EXPECT_EQ(std::count(run.errors.begin(), run.errors.end(), '\n'), 1) << run.errors;
        EXPECT_TRUE(!fs::exists(folder / "out") || FilesIn(folder / "out").empty());
    }
}

TEST_F(TilesProgram, AFullDiskIsSaidAndNothingIsLost)
{
    ASSERT_EQ(Make(folder / "tiles").exitCode, 0);
    const Tiles before = FilesIn(folder / "tiles");
    // A limit of files' sizes is as if there were no more room.
    const std::string command = "trap '' XFSZ; ulimit -f 0; exec " + std::string(TX_TEST_TXMAP) + " tiles " + style +
                                " --zoom 0-3 --tile-size 256 --quiet --plugin " + TX_TEST_PLUGIN + " -o " +
                                (folder / "tiles") + " 2>&1 | grep -q 'cannot be written: File too large'";
    EXPECT_EQ(std::system(command.c_str()), 0);
    EXPECT_EQ(FilesIn(folder / "tiles"), before);
}

} // namespace
