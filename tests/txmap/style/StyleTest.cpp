#include <algorithm>
#include <cstdlib>

#include <gtest/gtest.h>
#include <txmap/style/Style.h>

using namespace txmap;
using TZObjects::TXColor;

namespace
{

int Distance(const TXColor& a, const TXColor& b)
{
    return std::abs(a.getR() - b.getR()) + std::abs(a.getG() - b.getG()) + std::abs(a.getB() - b.getB());
}

int Darkness(const TXColor& color) { return 765 - color.getR() - color.getG() - color.getB(); }

} // namespace

TEST(AtlasStyle, HasAColourForEachOfSevenCategories)
{
    const Style style = AtlasStyle();
    EXPECT_GE(style.Categories(), 7);
    for (int one = 0; one <= style.Categories(); ++one)
    {
        EXPECT_EQ(style.Fill(one).getA(), 255);
        EXPECT_GT(Distance(style.Fill(one), style.oceanAtEquator), 30);
        for (int other = 0; other < one; ++other)
            EXPECT_GT(Distance(style.Fill(one), style.Fill(other)), 30) << one << ", " << other;
    }
}

TEST(AtlasStyle, FillsUnknownCategoriesAsNone)
{
    const Style style = AtlasStyle();
    EXPECT_EQ(style.Fill(-1).GetColor(), style.noCategory.GetColor());
    EXPECT_EQ(style.Fill(style.Categories() + 1).GetColor(), style.noCategory.GetColor());
}

TEST(AtlasStyle, HasOutlinesDarkerThanAllAreas)
{
    const Style style = AtlasStyle();
    for (int category = 0; category <= style.Categories(); ++category)
        EXPECT_GT(Darkness(style.outline.color), Darkness(style.Fill(category)) + 100);
    EXPECT_LE(style.outline.width, 1.5);
}

TEST(AtlasStyle, HasBandsAlongTheShoreThatGetNarrowerAndLighter)
{
    const Style style = AtlasStyle();
    ASSERT_GE(style.shore.size(), 2u);
    for (std::size_t i = 1; i < style.shore.size(); ++i)
    {
        EXPECT_LT(style.shore[i].width, style.shore[i - 1].width);
        EXPECT_LT(Darkness(style.shore[i].color), Darkness(style.shore[i - 1].color));
    }
}
