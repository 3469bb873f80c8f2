#include <cstdint>
#include <string>
#include <tuple>
#include <vector>

#include <gtest/gtest.h>
#include <tests/txmap/support/LabelPicture.h>
#include <tests/txmap/support/ProgramRun.h>

namespace
{

/// Draws countries and places.
Picture DrawWorld(const std::vector<std::string>& options)
{
    std::vector<std::string> arguments = {"--countries", DataFile("countries-50m.json"),
                                          DataFile("places-110m.geojson"), "--graticule", "0"};
    arguments.insert(arguments.end(), options.begin(), options.end());
    return Draw(arguments);
}

/// Whether anything dark was written between two places of a map in degrees.
bool IsWritten(const Picture& labelled, const Picture& bare, double west, double north, double east, double south)
{
    for (int y = static_cast<int>((90 - north) / 180 * bare.Height()); y < (90 - south) / 180 * bare.Height(); ++y)
        for (int x = static_cast<int>((west + 180) / 360 * bare.Width()); x < (east + 180) / 360 * bare.Width(); ++x)
            if (Distance(labelled.At(x, y), bare.At(x, y)) > 90)
                return true;
    return false;
}

class LabelledWorld : public ::testing::TestWithParam<std::tuple<const char*, const char*>>
{
};

} // namespace

TEST_P(LabelledWorld, HasNamesAndNoneAtTheEdge)
{
    const auto& [crs, path] = GetParam();
    const Picture labelled = DrawWorld({"--crs", crs, "--size", "2048x1024", "--label-field", "name", "--text", path});
    const Picture bare = DrawWorld({"--crs", crs, "--size", "2048x1024"});
    int written = 0;
    for (int y = 0; y < 1024; ++y)
        for (int x = 0; x < 2048; ++x)
        {
            const bool differs = Distance(labelled.At(x, y), bare.At(x, y)) > 90;
            written += differs;
            if (x < 1 || y < 1 || x >= 2047 || y >= 1023)
            {
                EXPECT_FALSE(differs) << x << ", " << y;
            }
        }
    EXPECT_GT(written, 5000);
    EXPECT_LT(written, 2048 * 1024 / 10);
}

INSTANTIATE_TEST_SUITE_P(Projections, LabelledWorld,
                         ::testing::Combine(::testing::Values("EPSG:4326", "EPSG:3857"),
                                            ::testing::Values("qt", "cairo")),
                         [](const auto& test)
                         { return "In" + std::string(std::get<0>(test.param)).substr(5) + std::get<1>(test.param); });

class LabelledCountriesBy : public ::testing::TestWithParam<const char*>
{
};

TEST_P(LabelledCountriesBy, HaveTheirNamesInside)
{
    const Picture labelled = DrawWorld({"--labels", "--text", GetParam()});
    const Picture bare = DrawWorld({});
    EXPECT_TRUE(IsWritten(labelled, bare, -60, 0, -45, -20)) << "Brazil";
    EXPECT_TRUE(IsWritten(labelled, bare, 120, -20, 145, -32)) << "Australia";
    EXPECT_TRUE(IsWritten(labelled, bare, -2, 32, 8, 22)) << "Algeria";
    EXPECT_TRUE(IsWritten(labelled, bare, 90, 42, 110, 28)) << "China";
    // Nothing is written where there is nothing.
    EXPECT_FALSE(IsWritten(labelled, bare, -130, -30, -100, -60)) << "the Pacific";
}

TEST_P(LabelledCountriesBy, KeepInsideTheMargins)
{
    const Picture labelled = DrawWorld({"--text", GetParam(), "--size", "1200x1200"});
    const Picture bare = DrawWorld({"--size", "1200x1200"});
    for (int y : {0, 150, 298, 299, 900, 901, 1199})
        for (int x = 0; x < 1200; ++x)
            ASSERT_EQ(labelled.At(x, y), bare.At(x, y)) << x << ", " << y;
}

TEST_P(LabelledCountriesBy, MayBeCutOffByTheView)
{
    const Picture labelled = DrawWorld({"--text", GetParam(), "--bbox", "20,50,60,70", "--size", "800x400"});
    const Picture bare = DrawWorld({"--bbox", "20,50,60,70", "--size", "800x400"});
    EXPECT_NE(labelled.Pixels(), bare.Pixels());
    for (int x = 0; x < 800; ++x)
    {
        ASSERT_LT(Distance(labelled.At(x, 0), bare.At(x, 0)), 90);
        ASSERT_LT(Distance(labelled.At(x, 399), bare.At(x, 399)), 90);
    }
}

TEST_P(LabelledCountriesBy, AreTheSameEveryTime)
{
    EXPECT_EQ(DrawWorld({"--text", GetParam(), "--size", "1000x500"}).Pixels(),
              DrawWorld({"--text", GetParam(), "--size", "1000x500"}).Pixels());
}

TEST_P(LabelledCountriesBy, FitIntoEverySize)
{
    for (const char* const size : {"1x1", "3x200", "64x32", "300x700"})
        EXPECT_GE(DrawWorld({"--text", GetParam(), "--size", size}).Width(), 1) << size;
    EXPECT_EQ(DrawWorld({"--text", GetParam(), "--label-size", "256", "--size", "400x200"}).Width(), 400);
}

TEST_P(LabelledCountriesBy, MayHaveTheWidestHalo)
{
    EXPECT_EQ(DrawWorld({"--text", GetParam(), "--label-halo", "32:white", "--size", "1000x500"}).Width(), 1000);
}

INSTANTIATE_TEST_SUITE_P(Through, LabelledCountriesBy, ::testing::Values("qt", "cairo"),
                         [](const auto& test) { return std::string(test.param); });
