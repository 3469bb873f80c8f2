// Pictures and heights for a view: tiles, georeferenced files, and pictures with four corners.
#include <cmath>
#include <filesystem>
#include <random>

#include <gdal_priv.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <tests/txmap/support/RefusalOf.h>
#include <tests/txmap/support/TemporaryFolder.h>
#include <tests/txmap/support/TestRaster.h>
#include <tests/txmap/support/TestTile.h>
#include <txmap/map/MercatorView.h>
#include <txmap/sources/ElevationSource.h>
#include <txmap/sources/Gdal.h>
#include <txmap/sources/ImageDecoder.h>
#include <txmap/sources/RasterSource.h>
#include <txmap/sources/SourceDiagnostics.h>
#include <txmap/sources/SourcePath.h>
#include <txmap/sources/TileImages.h>

using namespace txmap;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::SizeIs;
namespace fs = std::filesystem;

namespace
{

using Rgba = std::array<int, 4>;

/// A picture of one colour as a file would have it.
std::string Encoded(const Rgba& color, int side = 256, const char* format = "PNG", int bands = 4,
                    GDALDataType type = GDT_Byte)
{
    PrepareGdal();
    GDALDriverManager& drivers = *GetGDALDriverManager();
    const GDALDatasetUniquePtr memory(drivers.GetDriverByName("MEM")->Create("", side, side, bands, type, nullptr));
    for (int band = 1; band <= bands; ++band)
        memory->GetRasterBand(band)->Fill(color[static_cast<std::size_t>(bands == 2 && band == 2 ? 3 : band - 1)]);
    const TemporaryFolder folder;
    const std::string file = folder / "picture";
    char lossless[] = "LOSSLESS=YES";
    char* webp[] = {lossless, nullptr};
    GDALDatasetUniquePtr(drivers.GetDriverByName(format)->CreateCopy(
        file.c_str(), memory.get(), FALSE, std::string(format) == "WEBP" ? webp : nullptr, nullptr, nullptr));
    return ContentOf(file);
}

std::string Complaint(const std::string& data, int longestSide = 4096)
{
    try
    {
        DecodeImage(data, longestSide);
    }
    catch (const std::runtime_error& error)
    {
        return error.what();
    }
    return "accepted";
}

class RasterSourceTest : public ::testing::Test
{
protected:
    RasterSourceTest() { PrepareGdal(); }

    void WriteTile(const std::string& name, const std::string& data)
    {
        fs::create_directories((folder.Path() / name).parent_path());
        folder.Write(name, data);
    }
    std::vector<PlacedImage> Images(const std::string& json, const MercatorView& view)
    {
        const std::unique_ptr<RasterSource> source =
            MakeRasterSource("test", Json::parse(json), SourceFolder(folder.Path().string()), 1.0);
        source->Load(view, diagnostics);
        return source->Images();
    }
    ElevationGrid Heights(const std::string& json, const MercatorView& view)
    {
        return ElevationSource(Json::parse(json), SourceFolder(folder.Path().string())).Load(view, diagnostics);
    }

    TemporaryFolder folder;
    SourceDiagnostics diagnostics{false};
};

TEST(ImageDecoder, ReadsEveryFormat)
{
    EXPECT_EQ(DecodeImage(Encoded({10, 20, 30, 40}), 256).pixels.at(5), 0x280A141Eu);
    EXPECT_EQ(DecodeImage(Encoded({10, 20, 30, 40}, 64, "PNG", 3), 256).pixels.at(5), 0xFF0A141Eu);
    EXPECT_EQ(DecodeImage(Encoded({10, 20, 30, 40}, 64, "PNG", 2), 256).pixels.at(5), 0x280A0A0Au);
    EXPECT_EQ(DecodeImage(Encoded({10, 20, 30, 40}, 64, "PNG", 1), 256).pixels.at(5), 0xFF0A0A0Au);
    EXPECT_EQ(DecodeImage(Encoded({257 * 10, 257 * 20, 257 * 30, 65535}, 64, "PNG", 4, GDT_UInt16), 256).pixels.at(5),
              0xFF0A141Eu);
    EXPECT_EQ(DecodeImage(Encoded({0, 0, 0, 0}, 64, "JPEG", 3), 256).pixels.at(5), 0xFF000000u);
    EXPECT_EQ(DecodeImage(Encoded({10, 20, 30, 255}, 64, "WEBP", 4), 256).pixels.at(5), 0xFF0A141Eu);
}

TEST(ImageDecoder, RefusesWhatIsBroken)
{
    EXPECT_THAT(Complaint("nothing"), HasSubstr("is no picture"));
    EXPECT_THAT(Complaint(""), HasSubstr("is no picture"));
    EXPECT_THAT(Complaint(Encoded({1, 2, 3, 4}, 64), 32), HasSubstr("64 x 64 pixels, more than 32 a side"));
    for (const char* const format : {"PNG", "JPEG", "WEBP"})
    {
        const std::string whole = Encoded({100, 20, 30, 255}, 256, format, 3);
        EXPECT_THAT(Complaint(whole.substr(0, whole.size() / 2)), HasSubstr("is")) << format;
        EXPECT_NE(Complaint(whole.substr(0, whole.size() / 2)), "accepted") << format;
    }
}

TEST(ImageDecoder, RefusesAPngThatLiesAboutItsSize)
{
    std::string data = Encoded({1, 2, 3, 255}, 64);
    // The width stands behind the signature and the head of the first chunk.
    data[16] = 0x7F;
    EXPECT_THAT(Complaint(data), HasSubstr("is"));
    EXPECT_NE(Complaint(data), "accepted");
    data[16] = 0;
    data[18] = 0x0F;
    EXPECT_NE(Complaint(data), "accepted");
}

TEST(ImageDecoder, SurvivesMutations)
{
    for (const char* const format : {"PNG", "JPEG", "WEBP"})
    {
        const std::string whole = Encoded({100, 20, 30, 255}, 64, format, 3);
        for (unsigned seed = 0; seed < 200; ++seed)
        {
            std::mt19937 random(seed);
            std::string data = whole;
            for (int change = 0; change < 3; ++change)
                data[random() % data.size()] = static_cast<char>(random());
            Complaint(data, 512);
        }
    }
}

TEST_F(RasterSourceTest, PlacesTiles)
{
    WriteTile("1/0/0.png", Encoded({200, 0, 0, 255}));
    WriteTile("1/1/1.jpg", Encoded({200, 0, 0, 255}));
    WriteTile("1/1/1.png", Encoded({0, 0, 200, 255}));
    const std::string json = R"({"type": "raster", "tiles": ["{z}/{x}/{y}.png"], "tileSize": 256})";
    const std::vector<PlacedImage> images = Images(json, MercatorView({0.0, 0.0, 0.0, 0.0}, {512, 512}));
    ASSERT_THAT(images, SizeIs(2));
    EXPECT_EQ(images[0].image->pixels[0], 0xFFC80000u);
    EXPECT_EQ(images[1].corners[0].x, 0.5);
    EXPECT_EQ(images[1].corners[2].y, 1.0);
    EXPECT_THAT(images[1].worlds, ElementsAre(0));
    EXPECT_THAT(diagnostics.Warnings(), IsEmpty());
}

TEST_F(RasterSourceTest, SaysWhichTileIsBroken)
{
    WriteTile("0/0/0.png", "broken");
    const std::string json = R"({"type": "raster", "tiles": ["{z}/{x}/{y}.png"], "maxzoom": 0})";
    EXPECT_THAT(Images(json, MercatorView({0.0, 0.0, 0.0, 0.0}, {512, 512})), IsEmpty());
    EXPECT_THAT(diagnostics.Warnings(), ElementsAre(HasSubstr("0/0/0.png: is no picture")));
}

TEST_F(RasterSourceTest, ReadsPicturesFromMbTiles)
{
    WriteMbTiles(folder / "a.mbtiles", {{0, 0, 0, Encoded({1, 2, 3, 255})}}, {{"maxzoom", "0"}});
    EXPECT_THAT(Images(R"({"type": "raster", "url": "mbtiles://a.mbtiles"})", MercatorView({0, 0, 0, 0}, {512, 512})),
                SizeIs(1));
}

TEST_F(RasterSourceTest, WarpsAGeoreferencedFile)
{
    FourColors().Write(folder / "world.tif");
    const MercatorView view({0.0, 0.0, 0.0, 0.0}, {1024, 512});
    const std::vector<PlacedImage> images = Images(R"({"type": "raster", "url": "world.tif"})", view);
    ASSERT_THAT(images, SizeIs(1));
    EXPECT_NEAR(images[0].corners[0].x, 0.0, 1e-9);
    EXPECT_NEAR(images[0].corners[2].x, 1.0, 1e-9);
    EXPECT_NEAR(images[0].corners[0].y, 0.0, 1e-9);
    EXPECT_THAT(images[0].worlds, ElementsAre(-1, 0, 1));
    EXPECT_EQ(images[0].image->pixels.at(512 * 100 + 100), 0xFFC80000u);
    EXPECT_EQ(images[0].image->pixels.at(512 * 400 + 100), 0xFF0000DCu);
}

TEST_F(RasterSourceTest, WarpsAcrossTheDateLine)
{
    FourColors().Write(folder / "world.tif");
    const MercatorView view({179.0, 10.0, 4.0, 0.0}, {400, 300});
    const std::vector<PlacedImage> images = Images(R"({"type": "raster", "url": "world.tif"})", view);
    ASSERT_THAT(images, SizeIs(1));
    ASSERT_THAT(images[0].worlds, SizeIs(1));
    const AffineMatrix toPixels = view.ToPixels(images[0].worlds[0]);
    EXPECT_NEAR(toPixels.Map(images[0].corners[0]).x, 0.0, 0.01);
    EXPECT_NEAR(toPixels.Map(images[0].corners[0]).y, 0.0, 0.01);
    EXPECT_NEAR(toPixels.Map(images[0].corners[2]).x, 400.0, 0.01);
    EXPECT_EQ(images[0].image->pixels.front(), 0xFF00A000u);
    EXPECT_EQ(images[0].image->pixels[399], 0xFFC80000u);
}

TEST_F(RasterSourceTest, PlacesAPictureByItsCorners)
{
    folder.Write("a.webp", Encoded({1, 2, 3, 255}, 16, "WEBP"));
    const std::string json =
        R"({"type": "image", "url": "a.webp", "coordinates": [[-10, 10], [10, 10], [10, -10], [-10, -10]]})";
    const std::vector<PlacedImage> images = Images(json, MercatorView({0.0, 0.0, 3.0, 0.0}, {512, 512}));
    ASSERT_THAT(images, SizeIs(1));
    EXPECT_NEAR(images[0].corners[1].x, ToMercator(10, 10).x, 1e-12);
    EXPECT_NEAR(images[0].corners[3].y, ToMercator(10, -10).y, 1e-12);
    EXPECT_THAT(Images(json, MercatorView({90.0, 0.0, 5.0, 0.0}, {512, 512})), IsEmpty());
}

TEST_F(RasterSourceTest, DecodesPicturesOnceForViewsThatShareThem)
{
    folder.Write("a.png", Encoded({1, 2, 3, 255}, 16));
    WriteTile("0/0/0.png", Encoded({200, 0, 0, 255}));
    for (const char* const json :
         {R"({"type": "image", "url": "a.png", "coordinates": [[-10, 10], [10, 10], [10, -10], [-10, -10]]})",
          R"({"type": "raster", "tiles": ["{z}/{x}/{y}.png"], "maxzoom": 0})"})
    {
        const std::unique_ptr<RasterSource> source =
            MakeRasterSource("test", Json::parse(json), SourceFolder(folder.Path().string()), 1.0);
        source->Load(MercatorView({0.0, 0.0, 3.0, 0.0}, {512, 512}), diagnostics);
        const std::shared_ptr<const Raster> first = source->Images().at(0).image;
        source->Load(MercatorView({5.0, 5.0, 4.0, 0.0}, {512, 512}), diagnostics);
        EXPECT_EQ(source->Images().at(0).image, first) << json;
    }
}

TEST_F(RasterSourceTest, KeepsPicturesOfTilesUpToItsMemory)
{
    std::vector<TileId> tiles;
    for (int x = 0; x < 4; ++x)
    {
        WriteTile("2/" + std::to_string(x) + "/0.png", Encoded({x, 0, 0, 255}, 64));
        tiles.push_back({2, x, 0});
    }
    const Json json = Json::parse(R"({"type": "raster", "tiles": ["{z}/{x}/{y}.png"]})");
    const SourceFolder from(folder.Path().string());
    TileImages all(TileSet(json, from, true, 1.0)), two(TileSet(json, from, true, 1.0), 64 * 64 * 4 * 2);
    for (int i = 0; i < 3; ++i)
        for (const TileId& tile : tiles)
        {
            EXPECT_EQ(all.Read(tile, diagnostics)->pixels, two.Read(tile, diagnostics)->pixels);
            EXPECT_EQ(two.Read(tile, diagnostics)->pixels.size(), 64u * 64u);
        }
    EXPECT_EQ(all.Decoded(), 4u);
    EXPECT_EQ(two.Decoded(), 12u);
}

TEST_F(RasterSourceTest, RefusesWhatCannotBe)
{
    const auto refusal = [&](const std::string& json) {
        return RefusalOf(ExitCode::Data, [&] { Images(json, MercatorView({0, 0, 0, 0}, {64, 64})); });
    };
    EXPECT_THAT(refusal(R"({"type": "image", "url": "a.png"})"), HasSubstr("has no four corners"));
    EXPECT_THAT(refusal(R"({"type": "image", "url": "a.png", "coordinates": [[0, 0], [1, 1], [2, 2], [3, "x"]]})"),
                HasSubstr("has no four corners"));
    EXPECT_THAT(refusal(R"({"type": "image", "url": "a.png", "coordinates": [[0, 0], [1, 1], [2, 2], [3, 3]]})"),
                HasSubstr("a.png: no such file"));
    EXPECT_THAT(refusal(R"({"type": "image", "coordinates": [[0, 0], [1, 1], [2, 2], [3, 3]]})"),
                HasSubstr("has no picture"));
    EXPECT_THAT(refusal(R"({"type": "raster", "url": "http://a.org/x.tif"})"), HasSubstr("over a network"));
    EXPECT_THAT(refusal(R"({"type": "raster", "url": "none.tif"})"), HasSubstr("none.tif: no such file"));
    folder.Write("no.tif", "none");
    EXPECT_THAT(refusal(R"({"type": "raster", "url": "no.tif"})"), HasSubstr("no.tif: cannot be read as a raster"));
}

TEST_F(RasterSourceTest, DecodesHeights)
{
    WriteTile("mapbox/0/0/0.png", Encoded({1, 134, 160 + 10, 255}));
    WriteTile("terrarium/0/0/0.png", Encoded({128, 100, 128, 255}));
    const MercatorView view({0.0, 0.0, 0.0, 0.0}, {512, 512});
    const ElevationGrid mapbox =
        Heights(R"({"type": "raster-dem", "tiles": ["mapbox/{z}/{x}/{y}.png"], "maxzoom": 0})", view);
    ASSERT_EQ(mapbox.width, 256);
    EXPECT_NEAR(mapbox.At(3, 3), 1.0f, 1e-3);
    EXPECT_EQ(mapbox.zoom, 0.0);
    const std::string terrarium = R"("tiles": ["terrarium/{z}/{x}/{y}.png"], "maxzoom": 0})";
    EXPECT_NEAR(Heights(R"({"type": "raster-dem", "encoding": "terrarium", )" + terrarium, view).At(3, 3), 100.5f,
                1e-3);
    EXPECT_NEAR(Heights(R"({"type": "raster-dem", "encoding": "custom", "redFactor": 2, "greenFactor": 0,
                            "blueFactor": 0.5, "baseShift": 7, )" +
                            terrarium,
                        view)
                    .At(3, 3),
                256.0f + 64.0f - 7.0f, 1e-3);
    EXPECT_THAT(
        RefusalOf(ExitCode::Data, [&] { Heights(R"({"type": "raster-dem", "encoding": "x", )" + terrarium, view); }),
        HasSubstr("encoding x"));
}

TEST_F(RasterSourceTest, JoinsTilesOfHeights)
{
    WriteTile("1/0/0.png", Encoded({1, 134, 170, 255}));
    WriteTile("1/1/0.png", Encoded({1, 134, 180, 255}));
    const std::string json = R"({"type": "raster-dem", "tiles": ["{z}/{x}/{y}.png"], "tileSize": 256, "maxzoom": 1})";
    const ElevationGrid grid = Heights(json, MercatorView({0.0, 40.0, 3.0, 0.0}, {256, 256}));
    ASSERT_EQ(grid.width, 512);
    ASSERT_EQ(grid.height, 256);
    EXPECT_NEAR(grid.At(255, 0), 1.0f, 1e-3);
    EXPECT_NEAR(grid.At(256, 0), 2.0f, 1e-3);
    EXPECT_EQ(grid.box.bottom, 0.5);
    const ElevationGrid pacific = Heights(json, MercatorView({180.0, 40.0, 3.0, 0.0}, {256, 256}));
    ASSERT_EQ(pacific.width, 512);
    EXPECT_EQ(pacific.box.left, 0.5);
    EXPECT_EQ(pacific.box.right, 1.5);
    EXPECT_NEAR(pacific.At(255, 0), 2.0f, 1e-3);
    EXPECT_NEAR(pacific.At(256, 0), 1.0f, 1e-3);
    const ElevationGrid missing = Heights(json, MercatorView({0.0, -40.0, 3.0, 0.0}, {256, 256}));
    EXPECT_TRUE(missing.IsEmpty());
}

TEST_F(RasterSourceTest, WarpsHeightsFromAFile)
{
    TestRaster raster;
    raster.type = GDT_Float32;
    raster.value = [](int x, int, int) { return x < 18 ? 100.0 : 200.0; };
    raster.Write(folder / "dem.tif");
    const MercatorView view({0.0, 0.0, 2.0, 0.0}, {256, 256});
    const ElevationGrid grid = Heights(R"({"type": "raster-dem", "url": "dem.tif"})", view);
    EXPECT_EQ(grid.width, 264);
    EXPECT_NEAR(grid.zoom, 2.0, 0.01);
    EXPECT_NEAR(grid.At(2, 100), 100.0f, 1e-3);
    EXPECT_NEAR(grid.At(260, 100), 200.0f, 1e-3);
    const ElevationGrid pacific =
        Heights(R"({"type": "raster-dem", "url": "dem.tif"})", MercatorView({180.0, 0.0, 2.0, 0.0}, {256, 256}));
    EXPECT_NEAR(pacific.At(2, 100), 200.0f, 1e-3);
    EXPECT_NEAR(pacific.At(260, 100), 100.0f, 1e-3);
}

} // namespace
