#include <gtest/gtest.h>
#include <txmap/drawing/ScaleBar.h>
#include <txmap/map/AtlasView.h>

using namespace txmap;

namespace
{

GroundLength LengthIn(const GeoBox& box, double mostPixels)
{
    return RoundLength(AtlasView(Projection::PlateCarree(), box, PixelSize{1000, 1000}), mostPixels);
}

} // namespace

TEST(RoundLength, IsTheLongestThatFits)
{
    // 100 pixels for a degree: 1,113 metres for a pixel at the equator.
    const GroundLength length = LengthIn({0, -5, 10, 5}, 200.0);
    EXPECT_EQ(length.text, "200 km");
    EXPECT_NEAR(length.pixels, 200000.0 / 1113.195, 0.01);
    EXPECT_EQ(LengthIn({0, -5, 10, 5}, 100.0).text, "100 km");
    EXPECT_EQ(LengthIn({0, -0.005, 0.01, 0.005}, 200.0).text, "200 m");
}

TEST(RoundLength, GrowsTowardsThePoles)
{
    const GroundLength equator = LengthIn({0, -5, 10, 5}, 80.0);
    const GroundLength north = LengthIn({0, 55, 10, 65}, 100.0);
    EXPECT_EQ(equator.text, "50 km");
    EXPECT_EQ(north.text, "50 km");
    EXPECT_NEAR(equator.pixels, 50000.0 / 1113.195, 0.01);
    EXPECT_NEAR(north.pixels, 50000.0 / 1113.195 * 2.0, 0.05);
}
