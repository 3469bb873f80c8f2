// Pictures that say where they lie: GeoTIFF and world files, read by GDAL.
#include <array>
#include <cmath>
#include <filesystem>
#include <memory>
#include <set>
#include <string>

#include <gdal_priv.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <ogr_spatialref.h>
#include <tests/txmap/support/Picture.h>
#include <tests/txmap/support/ProgramRun.h>
#include <tests/txmap/support/TemporaryFolder.h>

using ::testing::HasSubstr;
using ::testing::IsEmpty;

namespace
{

const std::string kPlugin = TX_TEST_PLUGIN;
constexpr double kHalfWorld = 20037508.342789244;

/// Land from 0 to 90 degrees east, and from the equator to 66.51326 degrees north, a quarter of the way in Mercator.
const char* const kStyle = R"({"version": 8, "sources": {"s": {"type": "geojson", "data": {"type": "Polygon",
    "coordinates": [[[0, 0], [90, 0], [90, 66.51326044311186], [0, 66.51326044311186], [0, 0]]]}}}, "layers": [
    {"id": "b", "type": "background", "paint": {"background-color": "#0000ff"}},
    {"id": "f", "type": "fill", "source": "s", "paint": {"fill-color": "#ff0000", "fill-antialias": false}}]})";

std::array<double, 6> TransformOf(const std::string& path, std::string* system = nullptr)
{
    GDALAllRegister();
    std::array<double, 6> transform{};
    const std::unique_ptr<GDALDataset> dataset(GDALDataset::Open(path.c_str(), GDAL_OF_RASTER));
    if (!dataset || dataset->GetGeoTransform(transform.data()) != CE_None)
        ADD_FAILURE() << path << " does not say where it lies";
    if (system && dataset && dataset->GetSpatialRef())
        *system = dataset->GetSpatialRef()->GetAuthorityCode(nullptr);
    return transform;
}

/// The column and row of a place in metres.
std::array<double, 2> PixelOf(std::array<double, 6> transform, double x, double y)
{
    std::array<double, 6> inverse{};
    EXPECT_TRUE(GDALInvGeoTransform(transform.data(), inverse.data()));
    return {inverse[0] + x * inverse[1] + y * inverse[2], inverse[3] + x * inverse[4] + y * inverse[5]};
}

class GeoPicture : public ::testing::Test
{
protected:
    ProgramRun Draw(const std::string& file, const std::vector<std::string>& more) const
    {
        std::vector<std::string> arguments = {"render", style, "-o", folder / file, "--plugin", kPlugin};
        arguments.insert(arguments.end(), more.begin(), more.end());
        return RunTxmap(arguments);
    }

    const TemporaryFolder folder;
    const std::string style = folder.Write("style.json", kStyle);
};

} // namespace

TEST_F(GeoPicture, GeoTiffHasThePixelsOfThePng)
{
    const std::vector<std::string> view = {"--size", "200x100", "--zoom", "1", "--center", "20,30"};
    EXPECT_EQ(Draw("map.png", view).exitCode, 0);
    for (const char* const name : {"map.tif", "map.TIFF"})
    {
        const ProgramRun run = Draw(name, view);
        EXPECT_EQ(run.exitCode, 0) << run.errors;
        EXPECT_THAT(run.errors, IsEmpty());
        EXPECT_EQ(Picture(folder / name).Pixels(), Picture(folder / "map.png").Pixels());
    }
    EXPECT_EQ(folder.Names(), (std::set<std::string>{"map.TIFF", "map.png", "map.tif", "style.json"}));
}

TEST_F(GeoPicture, GeoTiffLiesWhereTheMapDoes)
{
    for (const char* const bearing : {"0", "35", "-120"})
        for (const char* const scale : {"1", "2.5"})
        {
            const ProgramRun run = Draw("map.tif", {"--size", "300x200", "--zoom", "2", "--center", "45,40",
                                                    "--bearing", bearing, "--scale", scale});
            ASSERT_EQ(run.exitCode, 0) << run.errors;
            std::string system;
            const std::array<double, 6> transform = TransformOf(folder / "map.tif", &system);
            EXPECT_EQ(system, "3857");
            EXPECT_NEAR(std::hypot(transform[1], transform[4]) * std::stod(scale), 2 * kHalfWorld / 2048, 1e-6);
            // Beside the west coast and the south coast, on land and at sea.
            const Picture picture(folder / "map.tif");
            for (const double at : {0.1, 0.4})
                for (const bool isLand : {false, true})
                {
                    const double beside = (isLand ? 1.5 : -1.5) * 2 * kHalfWorld / 2048;
                    for (const auto& pixel :
                         {PixelOf(transform, beside, at * kHalfWorld), PixelOf(transform, at * kHalfWorld, beside)})
                    {
                        const int column = static_cast<int>(std::floor(pixel[0]));
                        const int row = static_cast<int>(std::floor(pixel[1]));
                        if (column < 0 || row < 0 || column >= picture.Width() || row >= picture.Height())
                            continue;
                        EXPECT_EQ(picture.At(column, row), (isLand ? Pixel{255, 0, 0, 255} : Pixel{0, 0, 255, 255}))
                            << bearing << ", " << scale << ", " << at;
                    }
                }
        }
}

TEST_F(GeoPicture, WorldFileSaysWhatTheGeoTiffSays)
{
    const std::vector<std::string> view = {"--size",    "80x60", "--zoom",       "3",
                                           "--bearing", "20",    "--world-file", "--center=-100,10"};
    ASSERT_EQ(Draw("map.tif", view).exitCode, 0);
    const std::array<double, 6> expected = TransformOf(folder / "map.tif");
    for (const auto& [picture, worldFile] : {std::pair("map.png", "map.pgw"), std::pair("map.jpg", "map.jgw"),
                                             std::pair("map.jpeg", "map.jgw"), std::pair("map.webp", "map.wpw")})
    {
        ASSERT_EQ(Draw(picture, view).exitCode, 0);
        EXPECT_THAT(folder.Names(), ::testing::Contains(worldFile));
        std::array<double, 6> found{};
        ASSERT_TRUE(GDALReadWorldFile((folder / picture).c_str(), nullptr, found.data())) << picture;
        for (std::size_t i = 0; i < found.size(); ++i)
            EXPECT_NEAR(found[i], expected[i], 1e-6) << picture << ", " << i;
    }
    EXPECT_THAT(folder.Names(), ::testing::Contains("map.tfw"));
}

TEST_F(GeoPicture, GeoTiffNeedsNoOtherName)
{
    std::filesystem::create_directory(folder.Path() / "map.tif.png");
    const ProgramRun run = Draw("map.tif", {"--size", "20x20"});
    EXPECT_EQ(run.exitCode, 0) << run.errors;
    EXPECT_EQ(folder.Names(), (std::set<std::string>{"map.tif", "map.tif.png", "style.json"}));
}

TEST_F(GeoPicture, NeitherFileIsThereWhenOneCannotBeWritten)
{
    std::filesystem::create_directory(folder.Path() / "map.pgw");
    const ProgramRun run = Draw("map.png", {"--size", "20x20", "--world-file"});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_EQ(run.errors, "txmap: --world-file " + folder / "map.pgw" + ": is a directory\n");
    EXPECT_EQ(folder.Names(), (std::set<std::string>{"map.pgw", "style.json"}));
}
