// A raster as the map reads it: the right colours in the right places.
#include <cmath>
#include <cstdint>
#include <limits>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <tests/txmap/support/RefusalOf.h>
#include <tests/txmap/support/TemporaryFolder.h>
#include <tests/txmap/support/TestRaster.h>
#include <txmap/map/AtlasView.h>
#include <txmap/sources/Gdal.h>
#include <txmap/sources/Raster.h>
#include <txmap/support/Failure.h>

using namespace txmap;
using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::StartsWith;
using TZObjects::TXPoint;

namespace
{

constexpr std::uint32_t kRed = 0xFFC80000, kGreen = 0xFF00A000, kBlue = 0xFF0000DC, kWhite = 0xFFFFFFFF;

const AtlasView kWorld{Projection::PlateCarree(), {}, PixelSize{720, 360}};

class ReadBack
{
public:
    explicit ReadBack(const TestRaster& raster, AtlasView view = kWorld) : view(std::move(view))
    {
        PrepareGdal();
        const TemporaryFolder folder;
        pixels = ReadRaster(raster.Write(folder / "raster.tif"), this->view, "--raster");
    }

    /// The pixel at a place.
    std::uint32_t At(double longitude, double latitude) const
    {
        const TXPoint pixel = view.ToPixel(longitude, latitude);
        return pixels.pixels.at(static_cast<std::size_t>(pixel.y) * static_cast<std::size_t>(pixels.size.width) +
                                static_cast<std::size_t>(pixel.x));
    }
    bool IsBlank() const { return pixels.IsBlank(); }

private:
    AtlasView view;
    Raster pixels;
};

std::string Refusal(const std::string& file)
{
    PrepareGdal();
    return RefusalOf(ExitCode::Data, [&] { ReadRaster(file, kWorld, "--raster " + file); });
}

std::uint32_t Grey(int tone) { return 0xFF000000u | static_cast<std::uint32_t>(tone) * 0x010101u; }

int ToneOf(std::uint32_t pixel) { return static_cast<int>(pixel & 0xFFu); }

} // namespace

TEST(Raster, InDegreesLiesWhereItBelongs)
{
    const ReadBack raster(FourColors());
    EXPECT_EQ(raster.At(-100, 40), kRed);
    EXPECT_EQ(raster.At(100, 40), kGreen);
    EXPECT_EQ(raster.At(-100, -40), kBlue);
    EXPECT_EQ(raster.At(100, -40), kWhite);
    EXPECT_EQ(raster.At(-179.9, 89.9), kRed);
    EXPECT_EQ(raster.At(179.9, -89.9), kWhite);
}

TEST(Raster, InDegreesLiesWhereItBelongsOnAMercatorMap)
{
    const ReadBack raster(FourColors(),
                          AtlasView(Projection::WebMercator(), GeoBox{-60, -60, 80, 70}, PixelSize{300, 300}));
    EXPECT_EQ(raster.At(-40, 60), kRed);
    EXPECT_EQ(raster.At(-10, 15), kRed);
    EXPECT_EQ(raster.At(10, 60), kGreen);
    EXPECT_EQ(raster.At(-40, -50), kBlue);
    EXPECT_EQ(raster.At(60, -15), kWhite);
}

TEST(Raster, InMercatorMetresLiesWhereItBelongsOnBothMaps)
{
    constexpr double kHalf = 20037508.342789244;
    TestRaster source = FourColors();
    source.system = "EPSG:3857";
    source.transform = {-kHalf, kHalf / 18.0, 0.0, kHalf, 0.0, -kHalf / 9.0};
    const ReadBack plain(source);
    const ReadBack mercator(source, AtlasView(Projection::WebMercator(), {}, PixelSize{400, 400}));
    for (const ReadBack* const raster : {&plain, &mercator})
    {
        EXPECT_EQ(raster->At(-100, 60), kRed);
        EXPECT_EQ(raster->At(100, 60), kGreen);
        EXPECT_EQ(raster->At(-100, -84), kBlue);
        EXPECT_EQ(raster->At(100, -40), kWhite);
    }
    EXPECT_EQ(plain.At(0, 87) >> 24, 0u) << "beyond a Mercator map";
}

TEST(Raster, InAnotherProjectionLiesWhereItBelongs)
{
    // Central Europe in metres of UTM: the western half is dark.
    TestRaster source;
    source.width = 20;
    source.height = 20;
    source.system = "EPSG:32632";
    source.transform = {300000, 20000, 0, 5700000, 0, -20000};
    source.value = [](int x, int, int) { return x < 10 ? 40.0 : 220.0; };
    const ReadBack raster(source, AtlasView(Projection::PlateCarree(), GeoBox{4, 46, 16, 53}, PixelSize{600, 350}));
    EXPECT_EQ(raster.At(7.5, 50), Grey(40));
    EXPECT_EQ(raster.At(10.5, 50), Grey(220));
    EXPECT_EQ(raster.At(4.5, 50) >> 24, 0u);
    EXPECT_EQ(raster.At(9, 52.5) >> 24, 0u);
}

TEST(Raster, GoesOnAcrossTheDateLine)
{
    for (const Projection& projection : {Projection::PlateCarree(), Projection::WebMercator()})
        for (const GeoBox& box : {GeoBox{150, -60, 210, 60}, GeoBox{-210, -60, -150, 60}})
        {
            const ReadBack raster(FourColors(), AtlasView(projection, box, PixelSize{200, 300}));
            // In the degrees of the view, both are the same.
            const double west = 165.0;
            const double east = 195.0;
            EXPECT_EQ(raster.At(west, 30), kGreen) << box.west;
            EXPECT_EQ(raster.At(east, 30), kRed) << box.west;
            EXPECT_EQ(raster.At(west, -30), kWhite) << box.west;
            EXPECT_EQ(raster.At(east, -30), kBlue) << box.west;
            for (double longitude = 150.5; longitude < 210.0; longitude += 0.3)
                EXPECT_EQ(raster.At(longitude, 30) >> 24, 255u) << box.west << ": " << longitude;
        }
}

TEST(Raster, FromZeroTo360DegreesLiesWhereItBelongs)
{
    TestRaster source = FourColors();
    source.transform[0] = 0.0;
    for (const Projection& projection : {Projection::PlateCarree(), Projection::WebMercator()})
    {
        const ReadBack raster(source, AtlasView(projection, {}, PixelSize{400, 400}));
        EXPECT_EQ(raster.At(100, 40), kRed);
        EXPECT_EQ(raster.At(-100, 40), kGreen);
        EXPECT_EQ(raster.At(100, -40), kBlue);
        EXPECT_EQ(raster.At(-100, -40), kWhite);
    }
}

TEST(Raster, WithoutACoordinateSystemMayBeInDegrees)
{
    TestRaster source = FourColors();
    source.system.clear();
    EXPECT_EQ(ReadBack(source).At(-100, 40), kRed);
    const TemporaryFolder folder;
    source.transform = {300000, 20000, 0, 5700000, 0, -20000};
    EXPECT_THAT(Refusal(source.Write(folder / "metres.tif")),
                AllOf(StartsWith("--raster "), HasSubstr("metres.tif"), HasSubstr("coordinate system")));
}

TEST(Raster, OfOneBandIsGrey)
{
    TestRaster source;
    source.value = [](int x, int, int) { return x < 18 ? 30.0 : 250.0; };
    const ReadBack raster(source);
    EXPECT_EQ(raster.At(-90, 0), Grey(30));
    EXPECT_EQ(raster.At(90, 0), Grey(250));
}

TEST(Raster, IsTransparentWhereThereIsNoData)
{
    TestRaster source;
    source.value = [](int x, int, int) { return x < 18 ? 7.0 : 250.0; };
    source.prepare = [](GDALDataset& dataset) { dataset.GetRasterBand(1)->SetNoDataValue(7.0); };
    const ReadBack raster(source);
    EXPECT_EQ(raster.At(-90, 0) >> 24, 0u);
    EXPECT_EQ(raster.At(90, 0), Grey(250));
}

TEST(Raster, OfThreeBandsIsTransparentOnlyWhereAllOfThemHaveNoData)
{
    TestRaster source = FourColors();
    source.prepare = [](GDALDataset& dataset)
    {
        for (int band = 1; band <= 3; ++band)
            dataset.GetRasterBand(band)->SetNoDataValue(255.0);
    };
    const ReadBack raster(source);
    EXPECT_EQ(raster.At(-100, 40), kRed);
    EXPECT_EQ(raster.At(100, -40) >> 24, 0u);
}

TEST(Raster, HasTheOpacityOfItsFourthBand)
{
    TestRaster source = FourColors();
    source.bands = 4;
    source.value = [colors = source.value](int x, int y, int band) {
        return band < 3 ? colors(x, y, band) : y < 9 ? 128.0 : 0.0;
    };
    const ReadBack raster(source);
    EXPECT_EQ(raster.At(-100, 40), (kRed & 0xFFFFFFu) | 0x80000000u);
    EXPECT_EQ(raster.At(100, -40) >> 24, 0u);
}

TEST(Raster, OfGreyAndOpacityHasBoth)
{
    TestRaster source;
    source.bands = 2;
    source.value = [](int x, int, int band) { return band == 0 ? 90.0 : x < 18 ? 255.0 : 64.0; };
    source.prepare = [](GDALDataset& dataset) { dataset.GetRasterBand(2)->SetColorInterpretation(GCI_AlphaBand); };
    const ReadBack raster(source);
    EXPECT_EQ(raster.At(-90, 0), Grey(90));
    EXPECT_EQ(raster.At(90, 0), (Grey(90) & 0xFFFFFFu) | 0x40000000u);
}

TEST(Raster, TakesItsColoursFromItsTable)
{
    TestRaster source;
    source.value = [](int x, int, int) { return x < 12 ? 1.0 : x < 24 ? 2.0 : 3.0; };
    source.prepare = [](GDALDataset& dataset)
    {
        GDALColorTable table;
        const GDALColorEntry colors[] = {{0, 0, 0, 255}, {10, 20, 30, 255}, {200, 100, 50, 255}};
        for (int i = 0; i < 3; ++i)
            table.SetColorEntry(i, &colors[i]);
        dataset.GetRasterBand(1)->SetColorTable(&table);
    };
    const ReadBack raster(source);
    // Not mixed where they meet.
    for (double longitude = -179.0; longitude < 59.0; longitude += 0.5)
        EXPECT_EQ(raster.At(longitude, 10), longitude < -60.0 ? 0xFF0A141Eu : 0xFFC86432u) << longitude;
}

TEST(Raster, OfWideValuesIsStretched)
{
    for (const GDALDataType type : {GDT_UInt16, GDT_Int16, GDT_Float32, GDT_Float64, GDT_Int32})
    {
        TestRaster source;
        source.type = type;
        // Rows from 1000 in the north to 1170 in the south, and two pixels far off.
        source.value = [](int x, int y, int) {
            return x == 0 && y == 0 ? 30000.0 : x == 35 && y == 17 ? 0.0 : 1000.0 + 10.0 * y;
        };
        const ReadBack raster(source);
        EXPECT_EQ(raster.At(0, 85), Grey(0)) << type;
        EXPECT_EQ(raster.At(0, -85), Grey(255)) << type;
        EXPECT_NEAR(ToneOf(raster.At(0, 5)), 255 * 8 / 17, 12) << type;
        EXPECT_EQ(raster.At(-175.1, 85.1), Grey(255)) << type;
        EXPECT_EQ(raster.At(175.1, -85.1), Grey(0)) << type;
    }
}

TEST(Raster, OfWideValuesKeepsItsHue)
{
    TestRaster source = FourColors();
    source.type = GDT_UInt16;
    source.value = [](int, int y, int band) { return y < 9 ? (band == 0 ? 4000.0 : 2000.0) : (band == 1 ? 6000 : 0); };
    const ReadBack raster(source);
    EXPECT_NEAR(static_cast<int>(raster.At(0, 40) >> 16 & 0xFFu), 255 * 4 / 6, 1);
    EXPECT_NEAR(ToneOf(raster.At(0, 40)), 255 * 2 / 6, 1);
    EXPECT_EQ(raster.At(0, -40), 0xFF00FF00u);
}

TEST(Raster, OfOneWideValueIsGreyAllOver)
{
    TestRaster source;
    source.type = GDT_Float32;
    source.value = [](int, int, int) { return -12.5; };
    EXPECT_NEAR(ToneOf(ReadBack(source).At(10, 10)), 128, 1);
}

TEST(Raster, IsTransparentWhereAValueIsNoNumber)
{
    constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
    TestRaster source;
    source.type = GDT_Float32;
    source.value = [](int x, int y, int) { return x < 12 ? kNan : y < 9 ? 3.0 : 5.0; };
    const ReadBack raster(source);
    EXPECT_EQ(raster.At(-150, 40) >> 24, 0u);
    EXPECT_EQ(raster.At(90, 40), Grey(0));
    EXPECT_EQ(raster.At(90, -40), Grey(255));
    source.prepare = [](GDALDataset& dataset) { dataset.GetRasterBand(1)->SetNoDataValue(kNan); };
    EXPECT_EQ(ReadBack(source).At(-150, 40) >> 24, 0u);
    source.value = [](int, int, int) { return kNan; };
    EXPECT_TRUE(ReadBack(source).IsBlank());
    source.value = [](int x, int, int) { return x % 2 ? std::numeric_limits<double>::infinity() : -1.0; };
    EXPECT_FALSE(ReadBack(source).IsBlank());
}

TEST(Raster, ElsewhereIsBlank)
{
    TestRaster source = FourColors();
    source.transform = {10, 0.5, 0, 60, 0, -0.5};
    EXPECT_TRUE(ReadBack(source, AtlasView(Projection::PlateCarree(), GeoBox{-100, 0, -60, 30}, {})).IsBlank());
    EXPECT_FALSE(ReadBack(source).IsBlank());
}

TEST(Raster, ThatCannotBeReadSaysWhichOneAndWhy)
{
    const TemporaryFolder folder;
    const std::string good = FourColors().Write(folder / "good.tif");
    const std::string bytes = ContentOf(good);
    TestRaster plain = FourColors();
    plain.system.clear();
    plain.transform.clear();
    TestRaster flat = FourColors();
    flat.transform = {0, 0, 0, 0, 0, 0};
    TestRaster nan = FourColors();
    nan.transform = {std::numeric_limits<double>::quiet_NaN(), 10, 0, 90, 0, -10};
    for (const auto& [file, reason] :
         {std::pair{folder / "none.tif", "no such file"},
          {folder.Path().string(), "is a directory"},
          {folder.Write("empty.tif", ""), "is an empty file"},
          {folder.Write("text.tif", "no raster"), "cannot be read as a raster"},
          {folder.Write("header.tif", bytes.substr(0, 6)), "cannot be read as a raster"},
          {folder.Write("cut.tif", bytes.substr(0, bytes.size() / 2)), ""},
          {folder.Write("vector.geojson", R"({"type":"FeatureCollection","features":[{"type":"Feature",)"
                                          R"("properties":{},"geometry":{"type":"Point","coordinates":[1,2]}}]})"),
           "holds vector data"},
          {folder.Write("zero.vrt", R"(<VRTDataset rasterXSize="0" rasterYSize="0"></VRTDataset>)"), ""},
          {folder.Write("bandless.vrt", R"(<VRTDataset rasterXSize="4" rasterYSize="4"></VRTDataset>)"), ""},
          {plain.Write(folder / "plain.tif"), "has no georeference"},
          {flat.Write(folder / "flat.tif"), ""},
          {nan.Write(folder / "nan.tif"), ""}})
        EXPECT_THAT(Refusal(file), AllOf(StartsWith("--raster " + file + ": "), HasSubstr(reason))) << file;
    EXPECT_EQ(Refusal(good), "accepted");
}

TEST(Raster, ThatIsBrokenNeverCrashes)
{
    PrepareGdal();
    const TemporaryFolder folder;
    const std::string bytes = ContentOf(FourColors().Write(folder / "good.tif"));
    unsigned state = 17;
    const auto next = [&state] { return state = state * 1664525u + 1013904223u; };
    for (int i = 0; i < 60; ++i)
    {
        std::string broken = bytes;
        for (int k = 0; k < 4; ++k)
            broken[next() / 7 % std::min<std::size_t>(broken.size(), i % 2 ? 400 : broken.size())] =
                static_cast<char>(next() >> 13);
        const std::string file = folder.Write("broken.tif", broken);
        const std::string refusal = Refusal(file);
        EXPECT_TRUE(refusal == "accepted" || refusal.rfind("--raster ", 0) == 0) << refusal;
    }
}
