#include <sys/stat.h>

#include <filesystem>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <tests/txmap/support/Picture.h>
#include <tests/txmap/support/ProgramRun.h>
#include <tests/txmap/support/TemporaryFolder.h>

using ::testing::HasSubstr;
using ::testing::StartsWith;
namespace fs = std::filesystem;

TEST(Help, NamesEveryOptionAndTheExitCodes)
{
    const ProgramRun run = RunTxmap({"--help"});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.errors, "");
    for (const char* const option :
         {"--countries",  "--lines",       "--output",    "--size",           "--crs",          "--bbox",
          "--color-by",   "--plugin",      "--graticule", "--labels",         "--label-field",  "--label-size",
          "--label-halo", "--label-font",  "--raster",    "--raster-opacity", "--symbol",       "--symbol-size",
          "--frame",      "--north-arrow", "--help",      "--version",        "--list-plugins", "Exit codes"})
        EXPECT_THAT(run.output, HasSubstr(option));
}

TEST(Version, IsTheProjects)
{
    const ProgramRun run = RunTxmap({"--version"});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.errors, "");
    EXPECT_THAT(run.output, StartsWith(std::string("txmap ") + TX_TEST_VERSION));
}

TEST(Output, IsTheOnlyThingThatAGoodRunLeaves)
{
    const TemporaryFolder folder;
    const ProgramRun run =
        RunTxmap({"--countries", DataFile("countries-110m.json"), "--size", "64x32", "--output", folder / "a.png"});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.errors, "");
    EXPECT_EQ(run.output, "");
    EXPECT_EQ(folder.Names(), std::set<std::string>{"a.png"});
}

TEST(Output, ReplacesAnOlderPictureAndKeepsItsPermissions)
{
    const TemporaryFolder folder;
    const std::string output = folder.Write("map.png", "an older picture");
    ASSERT_EQ(chmod(output.c_str(), 0640), 0);
    EXPECT_EQ(RunTxmap({DataFile("countries-110m.json"), "--size", "64x32", "-o", output}).exitCode, 0);
    EXPECT_EQ(Picture(output).Width(), 64);
    EXPECT_EQ(folder.Names(), std::set<std::string>{"map.png"});
    struct stat status = {};
    ASSERT_EQ(stat(output.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777u, 0640u);
}

TEST(Output, FollowsALink)
{
    const TemporaryFolder folder;
    folder.Write("real.png", "an older picture");
    fs::create_symlink(folder / "real.png", folder / "link.png");
    EXPECT_EQ(RunTxmap({DataFile("countries-110m.json"), "--size", "64x32", "-o", folder / "link.png"}).exitCode, 0);
    EXPECT_TRUE(fs::is_symlink(folder / "link.png"));
    EXPECT_EQ(Picture(folder / "real.png").Height(), 32);
}

TEST(Output, TakesTheFormatFromTheSuffix)
{
    const TemporaryFolder folder;
    EXPECT_EQ(RunTxmap({DataFile("countries-110m.json"), "--size", "64x32", "-o", folder / "map.bmp"}).exitCode, 0);
    EXPECT_EQ(ContentOf(folder / "map.bmp").substr(0, 2), "BM");
}

TEST(Output, IsTheSameEveryTime)
{
    const TemporaryFolder folder;
    for (const char* const name : {"a.png", "b.png"})
        ASSERT_EQ(RunTxmap({DataFile("countries-110m.json"), "--size", "400x200", "-o", folder / name}).exitCode, 0);
    EXPECT_EQ(ContentOf(folder / "a.png"), ContentOf(folder / "b.png"));
}

TEST(Input, WithoutFeaturesIsJustSea)
{
    const TemporaryFolder folder;
    const std::string none = folder.Write("none.geojson", R"({"type":"FeatureCollection","features":[]})");
    ASSERT_EQ(RunTxmap({none, "--size", "64x32", "--graticule", "0", "-o", folder / "map.png"}).exitCode, 0);
    const Picture picture(folder / "map.png");
    for (const Pixel& pixel : picture.Pixels())
        ASSERT_TRUE(IsWater(pixel));
}

TEST(Input, OfEveryGeometryIsDrawn)
{
    const TemporaryFolder folder;
    const std::string input = folder.Write("mixed.geojson", R"({"type":"FeatureCollection","features":[
        {"type":"Feature","properties":{},"geometry":{"type":"Polygon",
         "coordinates":[[[-50,-20],[-30,-20],[-30,20],[-50,20],[-50,-20]]]}},
        {"type":"Feature","properties":{},"geometry":{"type":"LineString","coordinates":[[0,-20],[0,20]]}},
        {"type":"Feature","properties":{},"geometry":{"type":"Point","coordinates":[40,0]}}]})");
    ASSERT_EQ(RunTxmap({input, "--bbox", "-180,-90,180,90", "--size", "720x360", "--graticule", "0", "-o",
                        folder / "map.png"})
                  .exitCode,
              0);
    const Picture picture(folder / "map.png");
    const Pixel sea = picture.AtPlace(-90, 0);
    EXPECT_GT(Distance(picture.AtPlace(-40, 0), sea), 20);
    // The line is half a pixel wide in a picture as small as this.
    EXPECT_GT(Distance(picture.AtPlace(0, 0.2), sea), 12);
    EXPECT_GT(Distance(picture.AtPlace(40, 0), sea), 20);
    EXPECT_LE(Distance(picture.AtPlace(90, 0), sea), 1);
}

TEST(ColorBy, GivesEachValueAColour)
{
    const TemporaryFolder folder;
    const auto square = [](int west, const std::string& kind)
    {
        const std::string low = std::to_string(west);
        const std::string high = std::to_string(west + 20);
        return R"({"type":"Feature","properties":{"kind":")" + kind +
               R"("},"geometry":{"type":"Polygon","coordinates":[[[)" + low + ",-20],[" + high + ",-20],[" + high +
               ",20],[" + low + ",20],[" + low + ",-20]]]}}";
    };
    const std::string input =
        folder.Write("kinds.geojson", R"({"type":"FeatureCollection","features":[)" + square(-100, "oak") + "," +
                                          square(-50, "ash") + "," + square(0, "oak") + "," + square(50, "elm") + "]}");
    ASSERT_EQ(RunTxmap({input, "--color-by", "kind", "--bbox", "-180,-90,180,90", "--size", "360x180", "-o",
                        folder / "map.png"})
                  .exitCode,
              0);
    const Picture picture(folder / "map.png");
    const Pixel oak = picture.AtPlace(-88, 5);
    EXPECT_EQ(picture.AtPlace(12, 5), oak);
    EXPECT_GT(Distance(picture.AtPlace(-38, 5), oak), 10);
    EXPECT_GT(Distance(picture.AtPlace(62, 5), oak), 10);
    EXPECT_GT(Distance(picture.AtPlace(62, 5), picture.AtPlace(-38, 5)), 10);
}

TEST(Input, MayHoldCoordinatesThatAreNoPlace)
{
    const TemporaryFolder folder;
    const std::string input = folder.Write("wild.geojson", R"({"type":"FeatureCollection","features":[
        {"type":"Feature","properties":{},"geometry":{"type":"Polygon",
         "coordinates":[[[0,0],[1e300,0],[1e300,1e300],[0,0]]]}},
        {"type":"Feature","properties":{},"geometry":{"type":"LineString","coordinates":[[0,0],[-1e18,40]]}},
        {"type":"Feature","properties":{},"geometry":{"type":"Point","coordinates":[1e308,-1e308]}}]})");
    const ProgramRun run = RunTxmap({input, "--size", "100x50", "-o", folder / "map.png"});
    EXPECT_EQ(run.exitCode, 0) << run.errors;
    EXPECT_EQ(Picture(folder / "map.png").Width(), 100);
}
