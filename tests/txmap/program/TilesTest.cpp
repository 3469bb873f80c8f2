// txmap tiles and txmap merge as programs: folders and databases, runs that end early, and shards.
#include <sys/stat.h>
#include <sys/wait.h>

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
#include <tests/txmap/support/TilesProgram.h>

using ::testing::HasSubstr;
using ::testing::MatchesRegex;

namespace fs = std::filesystem;

namespace
{

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

TEST_F(TilesProgram, ATerminalShowsABarWithRateAndTimeLeft)
{
    const int terminal = posix_openpt(O_RDWR | O_NOCTTY);
    ASSERT_TRUE(terminal >= 0 && grantpt(terminal) == 0 && unlockpt(terminal) == 0);
    const pid_t process =
        Start(Command(folder / "tiles", {"--zoom", "0-5", "--metatile", "1", "--jobs", "1"}), ptsname(terminal));
    std::string shown;
    char bytes[4096];
    // Reading fails when nobody can write any more.
    for (ssize_t count; (count = read(terminal, bytes, sizeof bytes)) > 0;)
        shown.append(bytes, static_cast<std::size_t>(count));
    close(terminal);
    int status = -1;
    ASSERT_EQ(waitpid(process, &status, 0), process);
    EXPECT_EQ(status, 0);
    EXPECT_THAT(shown, MatchesRegex("(.|[\r\n])*\r\x1b\\[K\\[#*[.]*\\] [0-9]+ of 1365 tiles, [0-9.]+/s, [0-9:]+ left\r"
                                    "(.|[\r\n])*\r\x1b\\[K1365 tiles drawn in [0-9:]+, 0 were there, 0 failed\r\n"));
    const ProgramRun quiet = Make(folder / "quiet", {"--quiet"});
    EXPECT_EQ(quiet.errors, "");
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

} // namespace
