#include <algorithm>

#include <gtest/gtest.h>
#include <txmap/map/AtlasView.h>
#include <txmap/map/Graticule.h>

using namespace txmap;

namespace
{

AtlasView WorldOf(int width, int height) { return AtlasView(Projection::PlateCarree(), {}, PixelSize{width, height}); }

} // namespace

TEST(Graticule, CoversTheWorldWithoutItsEdges)
{
    const std::vector<GraticuleLine> lines = MakeGraticule(WorldOf(720, 360), 30.0);
    // Meridians at -150 to 150, parallels at -60 to 60.
    ASSERT_EQ(lines.size(), 11u + 5u);
    for (int i = 0; i < 11; ++i)
    {
        const GraticuleLine& line = lines[static_cast<std::size_t>(i)];
        EXPECT_NEAR(line.from.x, 60.0 * (i + 1), 1e-6);
        EXPECT_NEAR(line.to.x, 60.0 * (i + 1), 1e-6);
        EXPECT_NEAR(std::min(line.from.y, line.to.y), 0.0, 1e-6);
        EXPECT_NEAR(std::max(line.from.y, line.to.y), 360.0, 1e-6);
    }
    for (std::size_t i = 11; i < lines.size(); ++i)
    {
        EXPECT_NEAR(lines[i].from.y, lines[i].to.y, 1e-9);
        EXPECT_NEAR(std::max(lines[i].from.x, lines[i].to.x), 720.0, 1e-6);
    }
}

TEST(Graticule, LiesAtMultiplesOfTheStep)
{
    const AtlasView view(Projection::PlateCarree(), GeoBox{7, 42, 27, 52}, PixelSize{200, 100});
    const std::vector<GraticuleLine> lines = MakeGraticule(view, 5.0);
    ASSERT_EQ(lines.size(), 4u + 2u);
    EXPECT_NEAR(lines[0].from.x, 30.0, 1e-6); // 10 degrees east.
    EXPECT_NEAR(lines[4].from.y, 70.0, 1e-6); // 45 degrees north.
}

TEST(Graticule, StaysWithinTheFrame)
{
    const std::vector<GraticuleLine> lines = MakeGraticule(WorldOf(400, 400), 45.0);
    ASSERT_FALSE(lines.empty());
    for (const GraticuleLine& line : lines)
    {
        EXPECT_GE(std::min(line.from.y, line.to.y), 100.0 - 1e-6);
        EXPECT_LE(std::max(line.from.y, line.to.y), 300.0 + 1e-6);
    }
}

TEST(Graticule, IsEmptyForNoStepAndForOneThatIsTooFine)
{
    EXPECT_TRUE(MakeGraticule(WorldOf(720, 360), 0.0).empty());
    EXPECT_TRUE(MakeGraticule(WorldOf(720, 360), -5.0).empty());
    EXPECT_TRUE(MakeGraticule(WorldOf(720, 360), 1e-300).empty());
    EXPECT_TRUE(MakeGraticule(WorldOf(720, 360), 0.5).empty());
}

TEST(Graticule, HasASuitableStepForEveryView)
{
    EXPECT_EQ(SuitableStep(WorldOf(720, 360)), 30.0);
    for (const double width : {90.0, 40.0, 10.0, 3.0, 0.7, 0.2})
    {
        const AtlasView view(Projection::WebMercator(), GeoBox{5, 10, 5 + width, 10 + width}, PixelSize{800, 800});
        const double lines = width / SuitableStep(view);
        EXPECT_GE(lines, 6.0) << width;
        EXPECT_LE(lines, 20.0) << width;
    }
}
