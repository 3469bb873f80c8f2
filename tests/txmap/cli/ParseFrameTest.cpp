#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <tests/txmap/support/RefusalOf.h>
#include <txmap/cli/ParseFrame.h>
#include <txmap/support/Failure.h>

using namespace txmap;
using ::testing::StartsWith;

namespace
{

std::string ParseRefusal(const std::string& text)
{
    return RefusalOf(ExitCode::Usage, [&] { ParseFrame(text); });
}

} // namespace

TEST(FrameOption, MayBeRounded)
{
    EXPECT_EQ(ParseFrame("rounded").kind, FrameRequest::Kind::Rounded);
    EXPECT_LT(ParseFrame("rounded").radius, 0.0);
    EXPECT_EQ(ParseFrame("rounded:12.5").radius, 12.5);
    EXPECT_EQ(ParseFrame("rounded:0").radius, 0.0);
    EXPECT_EQ(ParseFrame("rounded:1e300").radius, 1e300);
}

TEST(FrameOption, RefusesRadiusesThatAreNone)
{
    for (const char* const text : {"rounded:", "rounded:-1", "rounded:nan", "rounded:inf", "rounded:x", "rounded:1px",
                                   "rounded:1,2", "rounded:1:2", "rounded: 1", "rounded:1e999"})
        EXPECT_THAT(ParseRefusal(text), StartsWith(std::string("--frame ") + text + ": ")) << text;
}

TEST(FrameOption, MayBeCornersInPixels)
{
    const FrameRequest request = ParseFrame("10,10 90.5,-10\t  50,8e1");
    EXPECT_EQ(request.kind, FrameRequest::Kind::Polygon);
    ASSERT_EQ(request.corners.size(), 3u);
    EXPECT_EQ(request.corners[1].x, 90.5);
    EXPECT_EQ(request.corners[1].y, -10.0);
    EXPECT_EQ(request.corners[2].y, 80.0);
}

TEST(FrameOption, RefusesCornersThatAreNone)
{
    for (const char* const text :
         {"1,2", "1,2 3,4", "1,2,3 4,5 6,7", "1,2 3,4 5", "1,2 3,4 5,", "1,2 3,4 ,5", "1,2 3,4 +5,6", "nan,1 2,3 4,5",
          "1,nan 2,3 4,5", "inf,1 2,3 4,5", "1e999,1 2,3 4,5", "2000000,1 2,3 4,5", "1,-1e7 2,3 4,5", ",", ",,, ,,,"})
        EXPECT_THAT(ParseRefusal(text), StartsWith(std::string("--frame ") + text + ": ")) << text;
}

TEST(FrameOption, IsAFileOtherwise)
{
    for (const char* const text : {"area.geojson", "area.gpkg#name", "rounded.geojson", "roundedx", "1.geojson", "1",
                                   "./1,2", "a,b c,d", "/data/my map, new.gpkg"})
    {
        EXPECT_EQ(ParseFrame(text).kind, FrameRequest::Kind::File) << text;
        EXPECT_EQ(ParseFrame(text).source, text);
    }
}
