// Geometry of the map as pixels.
#include <algorithm>
#include <cmath>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <txmap/map/MercatorView.h>
#include <txmap/map/PixelParts.h>

using namespace txmap;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using TZObjects::TXPoint;
using TZObjects::TXRect;

namespace
{

const AffineMatrix kThousand{1000.0, 0.0, 0.0, 1000.0, 0.0, 0.0};
const TXRect kPicture{-50.0, 1050.0, -50.0, 1050.0};

using Points = std::vector<TXPoint>;

TEST(PixelParts, DropsPointsThatNobodyCouldSee)
{
    PixelParts parts(kThousand, kPicture);
    Points line;
    for (int i = 0; i <= 10000; ++i)
        line.push_back({0.1 + i * 1e-5, 0.5});
    parts.AddLine(line.data(), line.size());
    ASSERT_THAT(parts.Result().counts.size(), 1u);
    EXPECT_LT(parts.Result().counts[0], 1000);
    EXPECT_NEAR(parts.Result().points.front().x, 100.0, 1e-9);
    EXPECT_NEAR(parts.Result().points.back().x, 200.0, 1e-9);
}

TEST(PixelParts, DropsRingsThatNobodyCouldSee)
{
    PixelParts parts(kThousand, kPicture);
    const Points speck{{0.5, 0.5}, {0.50001, 0.5}, {0.50001, 0.50001}, {0.5, 0.5}};
    parts.AddRing(speck.data(), speck.size());
    EXPECT_TRUE(parts.Result().IsEmpty());
}

TEST(PixelParts, KeepsADotOfAShortLine)
{
    PixelParts parts(kThousand, kPicture);
    const Points line{{0.5, 0.5}, {0.50001, 0.5}};
    parts.AddLine(line.data(), line.size());
    EXPECT_THAT(parts.Result().counts, ElementsAre(2));
}

TEST(PixelParts, CutsToTheTileFirst)
{
    PixelParts parts(kThousand, kPicture, MercatorBox{0.25, 0.25, 0.5, 0.5});
    const Points ring{{0.0, 0.0}, {1.0, 0.0}, {1.0, 1.0}, {0.0, 1.0}, {0.0, 0.0}};
    parts.AddRing(ring.data(), ring.size());
    ASSERT_THAT(parts.Result().counts, ElementsAre(5));
    for (const TXPoint& point : parts.Result().points)
    {
        EXPECT_TRUE(point.x == 250.0 || point.x == 500.0);
        EXPECT_TRUE(point.y == 250.0 || point.y == 500.0);
    }
}

TEST(PixelParts, GivesAPointToOneTile)
{
    PixelParts west(kThousand, kPicture, MercatorBox{0.25, 0.25, 0.5, 0.5});
    PixelParts east(kThousand, kPicture, MercatorBox{0.5, 0.25, 0.75, 0.5});
    west.AddPoint({0.5, 0.3});
    east.AddPoint({0.5, 0.3});
    EXPECT_TRUE(west.Result().IsEmpty());
    EXPECT_THAT(east.Result().counts, ElementsAre(1));
}

TEST(PixelParts, TellsWherePiecesLieOnTheLine)
{
    PixelParts parts(kThousand, TXRect{200.0, 400.0, 0.0, 1000.0});
    std::vector<LineSpan> spans;
    const Points line{{0.0, 0.5}, {1.0, 0.5}};
    parts.AddLine(line.data(), line.size(), &spans);
    ASSERT_EQ(spans.size(), 1u);
    EXPECT_NEAR(spans[0].start, 0.2, 1e-12);
    EXPECT_NEAR(spans[0].end, 0.4, 1e-12);
    PixelParts tiled(kThousand, TXRect{200.0, 400.0, 0.0, 1000.0}, MercatorBox{0.3, 0.0, 1.0, 1.0});
    spans.clear();
    tiled.AddLine(line.data(), line.size(), &spans);
    ASSERT_EQ(spans.size(), 1u);
    EXPECT_NEAR(spans[0].start, 0.3, 1e-12);
    EXPECT_NEAR(spans[0].end, 0.4, 1e-12);
}

TEST(PixelParts, GoesStraightAlongASideWhereNobodySeesALine)
{
    PixelParts parts(kThousand, kPicture);
    parts.SnapToGrid({0.0, 0.0});
    Points line{{0.5, 0.5}, {-1.0, 0.5}};
    for (int i = 0; i < 1000; ++i)
        line.push_back({-1.5 - i % 2 * 0.5, 0.5 + i * 1e-4});
    line.insert(line.end(), {{-1.0, 0.6}, {0.5, 0.6}});
    parts.AddLine(line.data(), line.size());
    ASSERT_THAT(parts.Result().counts.size(), 1u);
    const Points& points = parts.Result().points;
    // Where it crosses lines of the grid, there are points as well.
    EXPECT_LE(points.size(), 10u);
    EXPECT_EQ(points.front().x, 500.0);
    EXPECT_EQ(points.back().x, 500.0);
    EXPECT_EQ(points.back().y, 600.0);
    // The ends of the piece at the side.
    const auto isAtSide = [](const TXPoint& point) { return point.x == kPicture.left - 256.0; };
    const auto first = std::find_if(points.begin(), points.end(), isAtSide);
    ASSERT_NE(first, points.end());
    EXPECT_NEAR(first->y, 500.0, 0.2);
    ASSERT_TRUE(isAtSide(first[1]));
    EXPECT_NEAR(first[1].y, 599.9, 0.01);
    EXPECT_FALSE(isAtSide(first[2]));
}

TEST(PixelParts, LeavesTheEdgesOfTheWorldOutOfOutlines)
{
    Parts lines;
    const Points cutAtTheDateLine{{0.9, 0.2}, {1.0, 0.2}, {1.0, 0.3}, {1.0, 0.4}, {0.9, 0.4}, {0.9, 0.2}};
    AppendOutline(cutAtTheDateLine.data(), cutAtTheDateLine.size(), MercatorBox(), lines);
    EXPECT_THAT(lines.counts, ElementsAre(4));
    EXPECT_EQ(lines.points.front().y, 0.4);
    EXPECT_EQ(lines.points.back().y, 0.2);

    lines.Clear();
    const Points antarctica{{0.0, 1.0}, {0.0, 0.9}, {0.5, 0.8}, {1.0, 0.9}, {1.0, 1.0}, {0.0, 1.0}};
    AppendOutline(antarctica.data(), antarctica.size(), MercatorBox(), lines);
    EXPECT_THAT(lines.counts, ElementsAre(3));

    lines.Clear();
    const Points island{{0.4, 0.2}, {0.5, 0.2}, {0.5, 0.3}, {0.4, 0.2}};
    AppendOutline(island.data(), island.size(), MercatorBox(), lines);
    EXPECT_THAT(lines.counts, ElementsAre(4));
}

TEST(PixelParts, DrawsAtAnyZoomAndBearing)
{
    const MercatorView view({13.4, 52.5, 24.0, 77.0}, {500, 500}, 2.0);
    PixelParts parts(view.ToPixels(), view.PictureBox(50.0));
    const Points ring{ToMercator(-170, -80), ToMercator(170, -80), ToMercator(170, 80), ToMercator(-170, 80),
                      ToMercator(-170, -80)};
    parts.AddRing(ring.data(), ring.size());
    ASSERT_THAT(parts.Result().counts, ElementsAre(5));
    EXPECT_TRUE(parts.Result().points[0].x == -50.0 || parts.Result().points[0].x == 1050.0);
}

} // namespace
