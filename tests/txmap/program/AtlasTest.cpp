// What atlas pages have beside their data, as the program draws them.
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <tests/txmap/support/LabelPicture.h>
#include <tests/txmap/support/ProgramRun.h>
#include <tests/txmap/support/TemporaryFolder.h>

using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::Not;

namespace
{

const std::vector<std::string> kCountries = {"--countries", DataFile("countries-110m.json"), "--size", "800x400"};

std::vector<std::string> With(std::vector<std::string> more)
{
    more.insert(more.begin(), kCountries.begin(), kCountries.end());
    return more;
}

} // namespace

TEST(Atlas, WritesAStyleThatIsDrawn)
{
    const TemporaryFolder folder;
    const std::string style = folder / "style.json";
    Draw(With({"--write-style", style}));
    const ProgramRun check = RunTxmap({"validate", style});
    EXPECT_EQ(check.exitCode, 0) << check.errors;
    const ProgramRun run =
        RunTxmap({"render", style, "--center", "0,0", "--zoom", "0", "--size", "512x512", "-o", folder / "map.png"});
    EXPECT_EQ(run.exitCode, 0) << run.errors;
    const Picture picture(folder / "map.png");
    // Brazil, which is land.
    EXPECT_FALSE(IsWater(picture.At(static_cast<int>((180.0 - 52.0) / 360.0 * 512), 268)));
    EXPECT_TRUE(IsWater(picture.At(200, 256)));
}

TEST(Atlas, WritesNamesThatAreDrawn)
{
    const TemporaryFolder folder;
    const auto drawn = [&](const std::vector<std::string>& options)
    {
        const std::string style = folder / "style.json";
        std::vector<std::string> all = With(options);
        all.insert(all.end(), {"--write-style", style});
        Draw(all);
        const ProgramRun run = RunTxmap(
            {"render", style, "--center", "20,10", "--zoom", "2", "--size", "512x512", "-o", folder / "map.png"});
        EXPECT_EQ(run.exitCode, 0) << run.errors;
        EXPECT_EQ(run.errors, "");
        return Picture(folder / "map.png");
    };
    const Picture bare = drawn({});
    EXPECT_GT(Compare(bare, drawn({"--labels"})).pixels, 3000);
    EXPECT_EQ(Compare(bare, drawn({})).pixels, 0);
}

TEST(Atlas, HasALegendAndAScaleBarInItsLowerCorners)
{
    const Picture bare = Draw(kCountries);
    const Difference bar = Compare(bare, Draw(With({"--scale-bar"})));
    EXPECT_GT(bar.left, 500);
    EXPECT_GT(bar.top, 330);
    EXPECT_GT(bar.width, 60);
    const Difference legend = Compare(bare, Draw(With({"--borders", DataFile("countries-110m.json") + "#borders",
                                                       "--legend", "--bbox", "-180,-90,180,90"})));
    EXPECT_LT(legend.left, 30);
    EXPECT_GT(legend.pixels, 500);
}

TEST(Atlas, HasMoreNamesInALargerPictureAndNotLargerOnes)
{
    const TemporaryFolder folder;
    const std::string place = PlaceNamed("\"Nairobi\"");
    const std::string file = folder.Write("in.geojson", place);
    const auto inkIn = [&](const std::string& size, const std::string& scale)
    {
        const std::vector<std::string> all = {file,     "--bbox", "-180,-90,180,90", "--graticule", "0",
                                              "--size", size,     "--scale",         scale};
        std::vector<std::string> labelled = all;
        labelled.push_back("--labels");
        return Compare(Draw(all), Draw(labelled));
    };
    const Difference usual = inkIn("2048x1024", "1");
    EXPECT_NEAR(inkIn("4096x2048", "1").width, usual.width, 2);
    EXPECT_NEAR(inkIn("2048x1024", "2").width, 2 * usual.width, 6);

    // Names take as much ink for each of them, so that four times the room has clearly more of it.
    const auto inkOfTheWorld = [&](const std::string& size)
    {
        const std::vector<std::string> all = {DataFile("places-110m.geojson"), "--graticule", "0", "--size", size};
        std::vector<std::string> labelled = all;
        labelled.insert(labelled.end(), {"--labels"});
        return Compare(Draw(all), Draw(labelled)).pixels;
    };
    const int few = inkOfTheWorld("1024x512");
    EXPECT_GT(few, 200);
    EXPECT_GT(inkOfTheWorld("2048x1024"), 3 * few / 2);
}

TEST(Atlas, FindsAMistypedSuffixBeforeItReads)
{
    const TemporaryFolder folder;
    const ProgramRun run = RunTxmap({folder / "none.geojson", "-o", folder / "map.pgn"});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_THAT(run.errors, AllOf(HasSubstr(".pgn"), Not(HasSubstr("none.geojson"))));
}

TEST(Atlas, TakesConnectionsForWhatTheyAre)
{
    const TemporaryFolder folder;
    const ProgramRun run = RunTxmap({"PG:dbname=none host=/nowhere", "-o", folder / "map.png"});
    EXPECT_EQ(run.exitCode, 4);
    EXPECT_THAT(run.errors, Not(HasSubstr("no such file\n")));
}

TEST(Atlas, NamesTheLayersThatItLeavesOut)
{
    const TemporaryFolder folder;
    const ProgramRun run = RunTxmap({DataFile("countries-110m.json"), "--size", "64x32", "--output", folder / "a.png"});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_THAT(run.errors, AllOf(HasSubstr("warning"), HasSubstr("borders")));
}
