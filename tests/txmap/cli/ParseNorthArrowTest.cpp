#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <txmap/cli/ParseNorthArrow.h>
#include <txmap/support/Failure.h>

using namespace txmap;
using ::testing::StartsWith;

TEST(NorthArrowOption, IsACornerAndAnAngle)
{
    EXPECT_FALSE(ParseNorthArrow("top-right").left);
    EXPECT_FALSE(ParseNorthArrow("top-right").bottom);
    EXPECT_EQ(ParseNorthArrow("top-right").angle, 0.0);
    EXPECT_TRUE(ParseNorthArrow("bottom-left").left);
    EXPECT_TRUE(ParseNorthArrow("bottom-left").bottom);
    EXPECT_TRUE(ParseNorthArrow("top-left").left);
    EXPECT_TRUE(ParseNorthArrow("bottom-right").bottom);
    EXPECT_EQ(ParseNorthArrow("top-right:-12.5").angle, -12.5);
    EXPECT_EQ(ParseNorthArrow("bottom-left:360").angle, 360.0);
}

TEST(NorthArrowOption, RefusesEverythingElse)
{
    for (const char* const text :
         {"", ":", "15", ":15", "top", "right", "Top-Right", "top-right:", "top-right:x", "top-right:nan",
          "top-right:inf", "top-right:361", "top-right:-361", "top-right:1:2", "top-right 15", "in.geojson"})
    {
        std::string refusal = "accepted";
        try
        {
            ParseNorthArrow(text);
        }
        catch (const Failure& failure)
        {
            EXPECT_EQ(failure.Code(), ExitCode::Usage);
            refusal = failure.what();
        }
        EXPECT_THAT(refusal, StartsWith(std::string("--north-arrow ") + text + ": "));
    }
}
