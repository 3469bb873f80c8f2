#include <cmath>
#include <set>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <tests/txmap/support/LabelPicture.h>
#include <tests/txmap/support/ProgramRun.h>
#include <tests/txmap/support/TemporaryFolder.h>

namespace
{

/// Draws the countries at a medium scale, without lines of longitude and latitude, with further arguments.
Picture DrawCountries(const std::vector<std::string>& options, const std::string& data = "countries-50m.json")
{
    std::vector<std::string> arguments = {"--countries", DataFile(data), "--graticule", "0"};
    arguments.insert(arguments.end(), options.begin(), options.end());
    return Draw(arguments);
}

/// The world in degrees, drawn once for all tests.
const Picture& World()
{
    static const Picture picture = DrawCountries({});
    return picture;
}

void ExpectOpaque(const Picture& picture)
{
    for (const Pixel& pixel : picture.Pixels())
        ASSERT_EQ(pixel[3], 255);
}

struct Place
{
    const char* name;
    double longitude;
    double latitude;
};

// Well inside their countries.
constexpr Place kBrazil{"Brazil", -52, -10}, kArgentina{"Argentina", -65, -35}, kPeru{"Peru", -75, -9},
    kKansas{"Kansas", -98, 39}, kAlaska{"Alaska", -152, 66}, kCanada{"Canada", -110, 58}, kMexico{"Mexico", -103, 25},
    kMoscow{"Moscow", 38, 56}, kChukotka{"Chukotka", -178, 66.8}, kChina{"China", 103, 33},
    kMongolia{"Mongolia", 103, 46.5}, kIndia{"India", 78, 23}, kAlgeria{"Algeria", 3, 28}, kLibya{"Libya", 18, 27},
    kEgypt{"Egypt", 28, 26.5}, kSudan{"Sudan", 30, 16}, kChad{"Chad", 18.5, 15}, kFrance{"France", 2.5, 47},
    kSpain{"Spain", -4, 40}, kAustralia{"Australia", 134, -25}, kGreenland{"Greenland", -40, 72};

} // namespace

TEST(World, IsTwiceAsWideAsHighAndOpaque)
{
    EXPECT_EQ(World().Width(), 2048);
    EXPECT_EQ(World().Height(), 1024);
    ExpectOpaque(World());
}

TEST(World, HasWaterInTheOceans)
{
    for (const Place& place : {Place{"Pacific", -140, 0},
                               {"Atlantic", -40, 30},
                               {"Indian Ocean", 80, -20},
                               {"Arctic Ocean", -170, 85},
                               {"Southern Ocean", -120, -60},
                               {"Mediterranean", 18, 35},
                               {"Caspian Sea", 51, 42},
                               {"Hudson Bay", -85, 60}})
        EXPECT_TRUE(IsWater(World().AtPlace(place.longitude, place.latitude))) << place.name;
}

TEST(World, HasASoftGradientInTheOcean)
{
    const Pixel equator = World().AtPlace(-140, 0);
    const Pixel south = World().AtPlace(-110, -55);
    EXPECT_GT(Distance(equator, south), 4);
    EXPECT_LT(Distance(equator, south), 60);
}

TEST(World, HasNoWaterInTheCountries)
{
    std::set<Pixel> colours;
    for (const Place& place :
         {kBrazil, kArgentina, kPeru,  kKansas, kAlaska, kCanada, kMexico, kMoscow, kChukotka,  kChina,    kMongolia,
          kIndia,  kAlgeria,   kLibya, kEgypt,  kSudan,  kChad,   kFrance, kSpain,  kAustralia, kGreenland})
    {
        EXPECT_FALSE(IsWater(World().AtPlace(place.longitude, place.latitude))) << place.name;
        colours.insert(World().AtPlace(place.longitude, place.latitude));
    }
    EXPECT_GE(colours.size(), 6u);
}

TEST(World, GivesNeighboursDifferentColours)
{
    for (const auto& [one, other] : {std::pair{kBrazil, kArgentina},
                                     {kBrazil, kPeru},
                                     {kKansas, kCanada},
                                     {kKansas, kMexico},
                                     {kMoscow, kChina},
                                     {kMoscow, kMongolia},
                                     {kChina, kMongolia},
                                     {kChina, kIndia},
                                     {kAlgeria, kLibya},
                                     {kLibya, kEgypt},
                                     {kLibya, kChad},
                                     {kEgypt, kSudan},
                                     {kChad, kSudan},
                                     {kFrance, kSpain},
                                     {kGreenland, kCanada}})
        EXPECT_GT(
            Distance(World().AtPlace(one.longitude, one.latitude), World().AtPlace(other.longitude, other.latitude)),
            12)
            << one.name << ", " << other.name;
}

TEST(World, GivesThePartsOfACountryOneColour)
{
    EXPECT_EQ(World().AtPlace(kAlaska.longitude, kAlaska.latitude),
              World().AtPlace(kKansas.longitude, kKansas.latitude));
    EXPECT_EQ(World().AtPlace(kChukotka.longitude, kChukotka.latitude),
              World().AtPlace(kMoscow.longitude, kMoscow.latitude));
}

TEST(World, HasThinDarkerBorders)
{
    // From Libya to Egypt along a parallel: one border, dark, at most a few pixels wide.
    const Pixel libya = World().AtPlace(23, 27);
    const Pixel egypt = World().AtPlace(27, 27);
    int between = 0;
    int darkest = 255;
    const int y = static_cast<int>((90.0 - 27.0) / 180.0 * World().Height());
    for (int x = static_cast<int>(203.0 / 360.0 * 2048); x < static_cast<int>(207.0 / 360.0 * 2048); ++x)
    {
        const Pixel& pixel = World().At(x, y);
        between += pixel != libya && pixel != egypt;
        darkest = std::min<int>(darkest, pixel[1]);
    }
    EXPECT_GE(between, 1);
    EXPECT_LE(between, 4);
    EXPECT_LT(darkest, std::min(libya[1], egypt[1]) - 25);
}

TEST(World, HasEdgesThatFitTogether)
{
    const int last = World().Width() - 1;
    int different = 0;
    for (int y = 0; y < World().Height(); ++y)
        different += Distance(World().At(0, y), World().At(last, y)) > 40;
    EXPECT_LE(different, World().Height() / 100);
}

TEST(World, HasNoLineWhereCountriesAreCutAtTheDateLine)
{
    const Pixel russia = World().AtPlace(kMoscow.longitude, kMoscow.latitude);
    const int y = static_cast<int>((90.0 - 67.3) / 180.0 * World().Height());
    for (const int x : {0, 1, 2, 2045, 2046, 2047})
        EXPECT_EQ(World().At(x, y), russia) << x;
}

TEST(World, HasAntarcticaDownToTheSouthEdge)
{
    const Pixel ice = World().AtPlace(60, -80);
    EXPECT_FALSE(IsWater(ice));
    for (int y = World().Height() - 12; y < World().Height(); ++y)
        for (int x = 0; x < World().Width(); ++x)
            ASSERT_EQ(World().At(x, y), ice) << x << ", " << y;
}

TEST(World, LooksTheSameInEveryResolution)
{
    const Picture coarse = DrawCountries({"--size", "720x360"}, "countries-110m.json");
    const Picture medium = DrawCountries({"--size", "720x360"}, "countries-50m.json");
    const Picture fine = DrawCountries({"--size", "720x360"}, "countries-10m.json");
    for (const Place& place : {kBrazil, kArgentina, kKansas, kCanada, kMoscow, kChina, kAlgeria, kAustralia})
    {
        const Pixel pixel = medium.AtPlace(place.longitude, place.latitude);
        EXPECT_EQ(coarse.AtPlace(place.longitude, place.latitude), pixel) << place.name;
        EXPECT_EQ(fine.AtPlace(place.longitude, place.latitude), pixel) << place.name;
    }
}

TEST(MercatorWorld, IsASquareAndCutAt85Degrees)
{
    const Picture picture = DrawCountries({"--crs", "epsg:3857", "--size", "1024x1024"});
    ExpectOpaque(picture);
    // Latitude 60 lies at ln(tan(75 degrees)) / pi of the half height: 0.41925.
    const auto at = [&](double longitude, double halves) {
        return picture.At(static_cast<int>((longitude + 180.0) / 360.0 * 1024), static_cast<int>(512 * (1.0 - halves)));
    };
    EXPECT_FALSE(IsWater(at(100, 0.41925)));
    EXPECT_EQ(at(100, 0.41925), at(60, 0.41925)); // Russia.
    EXPECT_TRUE(IsWater(at(-30, 0.41925)));
    EXPECT_TRUE(IsWater(at(-30, 0.99)));
    for (int x = 0; x < 1024; ++x)
        EXPECT_TRUE(IsWater(picture.At(x, 0))) << x;
    // From 140 degrees west eastward Antarctica reaches beyond the map; west of it the Ross Sea does.
    for (int x = 114; x < 1024; ++x)
        EXPECT_EQ(picture.At(x, 1023), picture.At(512, 1023)) << x;
    EXPECT_FALSE(IsWater(picture.At(512, 1023)));
}

TEST(DateLine, IsInvisibleInsideACountry)
{
    for (const char* const box : {"170,60,190,70", "170,60,-170,70", "-190,60,-170,70"})
    {
        const Picture picture = DrawCountries({"--bbox", box, "--size", "800x400"});
        // At 67.3 degrees north Russia reaches far to both sides of the middle of the picture.
        const int y = static_cast<int>((70.0 - 67.3) / 10.0 * 400);
        const Pixel russia = picture.At(400, y);
        EXPECT_FALSE(IsWater(russia)) << box;
        for (int x = 380; x < 420; ++x)
            EXPECT_EQ(picture.At(x, y), russia) << box << ", " << x;
    }
}

TEST(DateLine, IsInvisibleInAntarcticaInBothProjections)
{
    for (const char* const crs : {"EPSG:4326", "EPSG:3857"})
    {
        const Picture picture = DrawCountries({"--crs", crs, "--bbox", "176,-85,184,-82", "--size", "400x300"});
        EXPECT_FALSE(IsWater(picture.At(200, 299)));
        for (int x = 0; x < picture.Width(); ++x)
            ASSERT_EQ(picture.At(x, 299), picture.At(200, 299)) << crs << ", " << x;
    }
}

TEST(DateLine, ShowsIslandsOnBothSides)
{
    // Taveuni of Fiji is cut by the date line; Viti Levu lies west of it and Vanua Balavu east of it.
    const Picture picture = DrawCountries({"--bbox", "176,-20,184,-15", "--size", "1600x1000"}, "countries-10m.json");
    const auto at = [&](double longitude, double latitude)
    { return picture.At(static_cast<int>((longitude - 176.0) * 200), static_cast<int>((-15.0 - latitude) * 200)); };
    EXPECT_FALSE(IsWater(at(178.0, -17.8)));
    EXPECT_EQ(at(179.95, -16.9), at(178.0, -17.8));
    EXPECT_TRUE(IsWater(at(182.0, -19.5)));
}

TEST(Margins, LieAroundAWorldThatIsSmallerThanThePicture)
{
    const Picture high = DrawCountries({"--size", "400x400"});
    ExpectOpaque(high);
    const Pixel paper = high.At(0, 0);
    EXPECT_FALSE(IsWater(paper));
    for (int x = 0; x < 400; ++x)
    {
        EXPECT_EQ(high.At(x, 99), paper);
        EXPECT_NE(high.At(x, 100), paper);
        EXPECT_NE(high.At(x, 299), paper);
        EXPECT_EQ(high.At(x, 300), paper);
    }
    const Picture wide = DrawCountries({"--size", "800x200"});
    for (int y = 0; y < 200; ++y)
    {
        EXPECT_EQ(wide.At(199, y), paper);
        EXPECT_NE(wide.At(200, y), paper);
        EXPECT_NE(wide.At(599, y), paper);
        EXPECT_EQ(wide.At(600, y), paper);
    }
}

TEST(Graticule, IsDashedAndWhereItBelongs)
{
    const TemporaryFolder folder;
    const std::string none = folder.Write("none.geojson", R"({"type":"FeatureCollection","features":[]})");
    ASSERT_EQ(RunTxmap({none, "--size", "720x360", "--graticule", "30", "-o", folder / "lines.png"}).exitCode, 0);
    ASSERT_EQ(RunTxmap({none, "--size", "720x360", "--graticule", "0", "-o", folder / "bare.png"}).exitCode, 0);
    const Picture lines(folder / "lines.png");
    const Picture bare(folder / "bare.png");
    const auto changed = [&](int x, int y) { return Distance(lines.At(x, y), bare.At(x, y)) > 5; };
    // Between two parallels, along each column: the meridians are every 60 pixels, anything else is bare.
    for (int x = 0; x < 720; ++x)
    {
        int drawn = 0;
        for (int y = 65; y < 115; ++y)
            drawn += changed(x, y);
        const bool meridian = x >= 30 && x < 690 && ((x + 1) % 60 <= 1);
        EXPECT_EQ(drawn > 0, meridian) << x;
        EXPECT_LT(drawn, 45) << x << " is not dashed";
    }
}

TEST(SmallBox, IsFullOfTheCountryAroundIt)
{
    const Picture picture = DrawCountries({"--bbox", "100,60,100.01,60.01", "--size", "100x100"}, "countries-10m.json");
    for (const Pixel& pixel : picture.Pixels())
        ASSERT_EQ(pixel, picture.At(50, 50));
    EXPECT_FALSE(IsWater(picture.At(50, 50)));
}
