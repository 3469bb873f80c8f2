// A set of vector tiles of the world, made by GDAL, against the same data without tiles.
#include <array>
#include <set>
#include <string>
#include <vector>

#include <gdal_priv.h>
#include <gdal_utils.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <tests/txmap/support/Picture.h>
#include <tests/txmap/support/ProgramRun.h>
#include <tests/txmap/support/TemporaryFolder.h>

using ::testing::IsEmpty;

namespace
{

constexpr int kLargestZoom = 6;

/// The layers of the set: their names, and where their data comes from.
struct SetLayer
{
    const char* name;
    const char* file;
    const char* layer;
};

const std::array<SetLayer, 5> kLayers = {{{"countries", "countries-110m.json", "countries"},
                                          {"borders", "countries-110m.json", "borders"},
                                          {"lakes", "lakes-50m.json", "lakes"},
                                          {"rivers", "rivers-50m.json", "rivers"},
                                          {"places", "places-110m.geojson", "places"}}};

/// All layers as one data set for GDAL, in degrees.
std::string Combined()
{
    std::string list = "<OGRVRTDataSource>";
    for (const SetLayer& layer : kLayers)
        list += std::string("<OGRVRTLayer name=\"") + layer.name + "\"><SrcDataSource>" + DataFile(layer.file) +
                "</SrcDataSource><SrcLayer>" + layer.layer + "</SrcLayer><LayerSRS>EPSG:4326</LayerSRS></OGRVRTLayer>";
    return list + "</OGRVRTDataSource>";
}

/// What ogr2ogr does with these options.
GDALDatasetUniquePtr Translated(GDALDataset& source, const std::string& path, std::vector<std::string> options)
{
    std::vector<char*> arguments;
    for (std::string& option : options)
        arguments.push_back(option.data());
    arguments.push_back(nullptr);
    GDALVectorTranslateOptions* const translate = GDALVectorTranslateOptionsNew(arguments.data(), nullptr);
    GDALDatasetH handle = GDALDataset::ToHandle(&source);
    GDALDatasetH const result = GDALVectorTranslate(path.c_str(), nullptr, 1, &handle, translate, nullptr);
    GDALVectorTranslateOptionsFree(translate);
    return GDALDatasetUniquePtr(GDALDataset::FromHandle(result));
}

/// Writes tiles z/x/y.pbf, packed with gzip as most sets are.
void WriteTiles(const std::string& folder)
{
    GDALAllRegister();
    const GDALDatasetUniquePtr source(GDALDataset::Open(Combined().c_str(), GDAL_OF_VECTOR));
    ASSERT_TRUE(source);
    // GDAL leaves out areas whose borders touch themselves when it cuts them.
    const GDALDatasetUniquePtr valid = Translated(*source, "", {"-f", "Memory", "-makevalid"});
    ASSERT_TRUE(valid);
    // No tile lies nearer to the poles than that.
    ASSERT_TRUE(Translated(*valid, folder,
                           {"-f", "MVT", "-clipsrc", "-180", "-85.05", "180", "85.05", "-dsco", "MINZOOM=0", "-dsco",
                            "MAXZOOM=" + std::to_string(kLargestZoom), "-dsco", "COMPRESS=YES"}));
}

/// @param isTiled whether the data comes from the tiles.
std::string Style(bool isTiled)
{
    std::string sources;
    if (isTiled)
        sources = R"("world": {"type": "vector", "tiles": ["tiles/{z}/{x}/{y}.pbf"], "maxzoom": 6})";
    else
        for (const SetLayer& layer : kLayers)
            sources += std::string(sources.empty() ? "" : ", ") + "\"" + layer.name +
                       R"(": {"type": "geojson", "data": ")" + DataFile(layer.file) + "#" + layer.layer + "\"}";
    const auto from = [isTiled](const std::string& name)
    { return isTiled ? R"("source": "world", "source-layer": ")" + name + "\", " : R"("source": ")" + name + "\", "; };
    return R"({"version": 8, "sources": {)" + sources + R"(}, "layers": [
        {"id": "sea", "type": "background", "paint": {"background-color": "#b8d4e6"}},
        {"id": "land", "type": "fill", )" +
           from("countries") + R"("paint": {"fill-color":
            ["match", ["get", "mapcolor"], 1, "#e8c170", 2, "#c1d58c", 3, "#e6a58c", 4, "#b3b8d8", "#f0ead6"]}},
        {"id": "lakes", "type": "fill", )" +
           from("lakes") + R"("paint": {"fill-color": "#7fb0d0"}},
        {"id": "rivers", "type": "line", )" +
           from("rivers") + R"("paint": {"line-color": "#3f7fb0", "line-width": 2}},
        {"id": "borders", "type": "line", )" +
           from("borders") + R"("paint": {"line-color": "#7a3b6a", "line-width": 3}},
        {"id": "places", "type": "circle", )" +
           from("places") + R"("paint": {"circle-radius": 5, "circle-color": "#c00000"}}]})";
}

/// The pixels that clearly differ, as a part of all.
double PartThatDiffers(const Picture& a, const Picture& b)
{
    int count = 0;
    for (std::size_t i = 0; i < a.Pixels().size(); ++i)
        count += Distance(a.Pixels()[i], b.Pixels()[i]) > 40 ? 1 : 0;
    return static_cast<double>(count) / static_cast<double>(a.Pixels().size());
}

} // namespace

TEST(TileSet, LooksLikeItsDataAtEachZoom)
{
    const TemporaryFolder folder;
    WriteTiles(folder / "tiles");
    const std::string tiled = folder.Write("tiled.json", Style(true));
    const std::string whole = folder.Write("whole.json", Style(false));
    for (int zoom = 0; zoom <= kLargestZoom; ++zoom)
    {
        SCOPED_TRACE(zoom);
        const auto draw = [&](const std::string& style, const char* name)
        {
            const ProgramRun run = RunTxmap({"render", style, "-o", folder / name, "--size", "512x512", "--center",
                                             "9,46", "--zoom", std::to_string(zoom), "--plugin", TX_TEST_PLUGIN});
            EXPECT_EQ(run.exitCode, 0);
            EXPECT_THAT(run.errors, IsEmpty());
            return Picture(folder / name);
        };
        const Picture expected = draw(whole, "whole.png");
        EXPECT_LT(PartThatDiffers(draw(tiled, "tiled.png"), expected), 0.01);
        const std::set<Pixel> colors(expected.Pixels().begin(), expected.Pixels().end());
        EXPECT_GT(colors.size(), 20U);
    }
}
