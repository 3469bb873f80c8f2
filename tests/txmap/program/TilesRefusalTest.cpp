// What txmap tiles and txmap merge refuse, in one line, and what they leave alone then.
#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <tests/txmap/support/TilesProgram.h>

using ::testing::HasSubstr;

namespace fs = std::filesystem;

namespace
{

class TilesRefusal : public TilesProgram
{
};

TEST_F(TilesRefusal, PartsThatDoNotBelongTogetherAreNotMerged)
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

TEST_F(TilesRefusal, TilesOfAnotherLookAreNotMixed)
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

TEST_F(TilesRefusal, WhatCannotBeIsSaidInOneLine)
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

TEST_F(TilesRefusal, AFullDiskIsSaidAndNothingIsLost)
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
