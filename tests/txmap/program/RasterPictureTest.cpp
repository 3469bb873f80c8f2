// What a raster makes of the picture.
#include <algorithm>
#include <cmath>
#include <functional>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <tests/txmap/support/LabelPicture.h>
#include <tests/txmap/support/Picture.h>
#include <tests/txmap/support/ProgramRun.h>
#include <tests/txmap/support/TemporaryFolder.h>
#include <tests/txmap/support/TestRaster.h>

using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::StartsWith;

namespace
{

const std::string kNothing = R"({"type":"FeatureCollection","features":[]})";

const std::string kSquare = R"({"type":"FeatureCollection","features":[{"type":"Feature","properties":{"mapcolor":2},)"
                            R"("geometry":{"type":"Polygon",)"
                            R"("coordinates":[[[-60,-30],[60,-30],[60,30],[-60,30],[-60,-30]]]}}]})";

/// Draws a raster under vector data on a map of the world in degrees, without lines of longitude and latitude.
Picture DrawOver(const TestRaster& raster, const std::string& json, std::vector<std::string> options = {})
{
    const TemporaryFolder folder;
    std::vector<std::string> arguments = {folder.Write("in.geojson", json), "--raster",
                                          raster.Write(folder / "raster.tif"), "--graticule", "0"};
    if (std::find(options.begin(), options.end(), "--bbox") == options.end())
        arguments.insert(arguments.end(), {"--bbox", "-180,-90,180,90"});
    if (options.empty() || options[0] != "--size")
        arguments.insert(arguments.end(), {"--size", "720x360"});
    arguments.insert(arguments.end(), options.begin(), options.end());
    return Draw(arguments);
}

Picture DrawWithout(const std::string& json)
{
    const TemporaryFolder folder;
    return Draw(
        {folder.Write("in.geojson", json), "--bbox", "-180,-90,180,90", "--graticule", "0", "--size", "720x360"});
}

constexpr Pixel kRed{200, 0, 0, 255}, kGreen{0, 160, 0, 255}, kBlue{0, 0, 220, 255}, kWhite{255, 255, 255, 255};

Pixel Blend(const Pixel& over, const Pixel& under, double opacity)
{
    Pixel blend{0, 0, 0, 255};
    for (std::size_t i = 0; i < 3; ++i)
        blend[i] = static_cast<std::uint8_t>(std::lround(over[i] * opacity + under[i] * (1.0 - opacity)));
    return blend;
}

} // namespace

TEST(RasterPicture, HasTheRastersColours)
{
    const Picture picture = DrawOver(FourColors(), kNothing);
    EXPECT_EQ(picture.AtPlace(-100, 40), kRed);
    EXPECT_EQ(picture.AtPlace(100, 40), kGreen);
    EXPECT_EQ(picture.AtPlace(-100, -40), kBlue);
    EXPECT_EQ(picture.AtPlace(100, -40), kWhite);
    EXPECT_EQ(picture.At(0, 0), kRed);
    EXPECT_EQ(picture.At(719, 359), kWhite);
}

TEST(RasterPicture, NeedsNoVectorData)
{
    const TemporaryFolder folder;
    const Picture picture =
        Draw({"--raster", FourColors().Write(folder / "raster.tif"), "--crs", "EPSG:3857", "--size", "200x200"});
    EXPECT_EQ(picture.At(40, 60), kRed);
    EXPECT_EQ(picture.At(160, 130), kWhite);
}

TEST(RasterPicture, IsBlendedByItsOpacity)
{
    const Picture bare = DrawWithout(kSquare);
    for (const double opacity : {0.0, 0.25, 0.5, 0.8, 1.0})
    {
        const Picture picture = DrawOver(FourColors(), kSquare, {"--raster-opacity", std::to_string(opacity)});
        for (const auto& [longitude, latitude, color] :
             {std::tuple{-100, 60, kRed}, {100, 60, kGreen}, {-20, 15, kRed}, {20, -15, kWhite}, {-100, -60, kBlue}})
            EXPECT_LE(Distance(picture.AtPlace(longitude, latitude),
                               Blend(color, bare.AtPlace(longitude, latitude), opacity)),
                      1)
                << opacity << ": " << longitude << ", " << latitude;
    }
}

TEST(RasterPicture, DarkensTheMapWhereItIsMultiplied)
{
    const Picture bare = DrawWithout(kSquare);
    TestRaster relief;
    relief.value = [](int, int, int) { return 128.0; };
    const auto expect = [&](const Picture& picture, const std::function<Pixel(const Pixel&)>& blend)
    {
        for (const int longitude : {0, 40, 120})
            EXPECT_LE(Distance(picture.AtPlace(longitude, 10), blend(bare.AtPlace(longitude, 10))), 1) << longitude;
    };
    const auto product = [](const Pixel& below)
    {
        Pixel blend = below;
        for (std::size_t i = 0; i < 3; ++i)
            blend[i] = static_cast<std::uint8_t>(below[i] * 128 / 255);
        return blend;
    };
    expect(DrawOver(relief, kSquare, {"--raster-blend", "multiply"}), product);
    const Pixel grey{128, 128, 128, 255};
    expect(DrawOver(relief, kSquare, {"--raster-blend", "normal"}), [&](const Pixel&) { return grey; });
    expect(DrawOver(relief, kSquare), [&](const Pixel&) { return grey; });
    // One without colours that is translucent is a shaded relief, unless something else is said.
    const auto half = [&](const Pixel& below) { return Blend(product(below), below, 0.5); };
    expect(DrawOver(relief, kSquare, {"--raster-opacity", "0.5"}), half);
    expect(DrawOver(relief, kSquare, {"--raster-opacity", "0.5", "--raster-blend", "normal"}),
           [&](const Pixel& below) { return Blend(grey, below, 0.5); });
    const Picture colored = DrawOver(FourColors(), kSquare, {"--raster-opacity", "0.5"});
    EXPECT_LE(Distance(colored.AtPlace(40, 10), Blend(kGreen, bare.AtPlace(40, 10), 0.5)), 1);
}

TEST(RasterPicture, ShowsTheMapWhereItHasNoData)
{
    const Picture bare = DrawWithout(kSquare);
    TestRaster source = FourColors();
    source.prepare = [](GDALDataset& dataset)
    {
        for (int band = 1; band <= 3; ++band)
            dataset.GetRasterBand(band)->SetNoDataValue(255.0);
    };
    const Picture picture = DrawOver(source, kSquare);
    EXPECT_EQ(picture.AtPlace(30, -15), bare.AtPlace(30, -15)) << "land";
    EXPECT_EQ(picture.AtPlace(100, -60), bare.AtPlace(100, -60)) << "sea";
    EXPECT_EQ(picture.AtPlace(-30, 15), kRed);
}

TEST(RasterPicture, LiesUnderTheOutlinesOfAreasWhichAreReadableOverAnything)
{
    for (const int tone : {20, 235})
    {
        TestRaster grey;
        grey.value = [tone](int, int, int) { return tone; };
        const Picture picture = DrawOver(grey, kSquare, {"--size", "1440x720"});
        const Pixel inside = picture.AtPlace(0, 0);
        EXPECT_EQ(inside[1], tone);
        // The western edge at the height of the equator.
        int contrast = 0;
        for (int x = 470; x < 490; ++x)
            contrast = std::max(contrast, Distance(picture.At(x, 360), inside));
        EXPECT_GT(contrast, 40) << tone;
        EXPECT_EQ(picture.At(500, 360), inside);
        EXPECT_EQ(picture.At(460, 360), inside);
    }
}

TEST(RasterPicture, LiesUnderPlacesNamesAndLines)
{
    TestRaster black;
    const std::string line = R"({"type":"FeatureCollection","features":[)"
                             R"({"type":"Feature","properties":{},"geometry":{"type":"LineString",)"
                             R"("coordinates":[[-100,40],[100,40]]}},)"
                             R"({"type":"Feature","properties":{"name":"Nairobi"},)"
                             R"("geometry":{"type":"Point","coordinates":[-90,0]}}]})";
    for (const char* const path : {"qt", "cairo"})
    {
        const Picture picture = DrawOver(black, line, {"--label-field", "name", "--text", path});
        const auto isBright = [&](int left, int right, int top, int bottom)
        {
            int bright = 0;
            for (int y = top; y < bottom; ++y)
                for (int x = left; x < right; ++x)
                    bright += picture.At(x, y)[2] > 30;
            return bright;
        };
        EXPECT_GT(isBright(160, 560, 97, 103), 350) << path << ": the line";
        EXPECT_GT(isBright(176, 184, 176, 184), 8) << path << ": the place's ring";
        EXPECT_GT(isBright(186, 300, 170, 190), 150) << path << ": the name's halo";
        EXPECT_EQ(isBright(0, 720, 200, 360), 0) << path;
    }
}

TEST(RasterPicture, LeavesTheMarginsAsTheyAre)
{
    const Picture picture = DrawOver(FourColors(), kNothing, {"--size", "400x400"});
    const TemporaryFolder folder;
    const Picture bare = Draw({folder.Write("in.geojson", kNothing), "--graticule", "0", "--size", "400x400"});
    EXPECT_EQ(picture.At(200, 50), bare.At(200, 50));
    EXPECT_EQ(picture.At(100, 110), kRed);
    EXPECT_EQ(picture.At(100, 100), kRed);
    EXPECT_EQ(picture.At(100, 99), bare.At(100, 99));
}

TEST(RasterPicture, GoesOnAcrossTheDateLine)
{
    const Picture picture = DrawOver(FourColors(), kNothing, {"--size", "400x200", "--bbox", "160,-10,200,10"});
    for (int x = 0; x < 400; ++x)
    {
        const Pixel& pixel = picture.At(x, 45);
        EXPECT_EQ(pixel[2], 0) << x;
        if (x < 195)
        {
            EXPECT_EQ(pixel, kGreen) << x;
        }
        else if (x > 205)
        {
            EXPECT_EQ(pixel, kRed) << x;
        }
    }
}

TEST(RasterPicture, OfAnotherPartOfTheWorldIsAWarning)
{
    const TemporaryFolder folder;
    TestRaster source = FourColors();
    source.transform = {10, 0.5, 0, 60, 0, -0.5};
    const std::string file = source.Write(folder / "raster.tif");
    const ProgramRun run =
        RunTxmap({"--raster", file, "--bbox", "-100,0,-60,30", "--size", "100x80", "-o", folder / "map.png"});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_THAT(run.errors, AllOf(StartsWith("txmap: warning: nothing lies"), HasSubstr("--raster "),
                                  HasSubstr("raster.tif covers 10,")));
    EXPECT_EQ(std::count(run.errors.begin(), run.errors.end(), '\n'), 1);
    EXPECT_EQ(Picture(folder / "map.png").Width(), 100);
}
