#include <gtest/gtest.h>
#include <txmap/cli/ParseRaster.h>
#include <txmap/support/Failure.h>

using namespace txmap;

TEST(RasterOpacityOption, IsFromZeroToOne)
{
    EXPECT_EQ(ParseRasterOpacity("0"), 0.0);
    EXPECT_EQ(ParseRasterOpacity("0.25"), 0.25);
    EXPECT_EQ(ParseRasterOpacity("1"), 1.0);
    for (const char* const text : {"-0.1", "1.1", "nan", "inf", "-inf", "50%", "half", "", "0,5", "1e9"})
        EXPECT_THROW(ParseRasterOpacity(text), Failure) << text;
}
