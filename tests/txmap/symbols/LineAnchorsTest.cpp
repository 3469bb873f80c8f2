#include <cmath>

#include <gtest/gtest.h>
#include <txmap/symbols/LineAnchors.h>
#include <txmap/symbols/LineTiles.h>

using namespace TZObjects;
using namespace txmap;

namespace
{

using Line = std::vector<TXPoint>;

const Line kStraight = {{0.0, 0.0}, {1000.0, 0.0}};

LineAnchorNeeds Needs(double spacing, double length, double size = 10.0)
{
    LineAnchorNeeds needs;
    needs.spacing = spacing;
    needs.labelLength = length;
    needs.textSize = size;
    return needs;
}

std::vector<double> Distances(const Line& line, const LineAnchorNeeds& needs)
{
    std::vector<double> distances;
    for (const LineAnchor& anchor : AnchorsAlong(line, needs))
        distances.push_back(std::round(anchor.distance * 1000.0) / 1000.0);
    return distances;
}

using List = std::vector<double>;

} // namespace

TEST(LineAnchors, StandAtEqualDistances)
{
    // Half the label and two sizes of the text away from the start.
    EXPECT_EQ(Distances(kStraight, Needs(300.0, 60.0)), (List{50.0, 350.0, 650.0, 950.0}));
    EXPECT_EQ(Distances(kStraight, Needs(300.0, 110.0)), (List{75.0, 375.0, 675.0}));
}

TEST(LineAnchors, LongLabelsKeepAQuarterOfTheSpacing)
{
    EXPECT_EQ(Distances(kStraight, Needs(100.0, 90.0)), (List{65.0, 180.0, 295.0, 410.0, 525.0, 640.0, 755.0, 870.0}));
}

TEST(LineAnchors, LinesThatGoOnBeginHalfASpacingIn)
{
    LineAnchorNeeds needs = Needs(300.0, 60.0);
    needs.isContinued = true;
    EXPECT_EQ(Distances(kStraight, needs), (List{150.0, 450.0, 750.0}));
    needs.overscaling = 4.0;
    EXPECT_EQ(Distances(kStraight, needs), (List{300.0, 600.0, 900.0}));
}

TEST(LineAnchors, ShortLinesHaveOneInTheMiddle)
{
    EXPECT_EQ(Distances({{0.0, 0.0}, {70.0, 0.0}}, Needs(300.0, 60.0)), List{35.0});
    EXPECT_EQ(Distances({{0.0, 0.0}, {59.0, 0.0}}, Needs(300.0, 60.0)), List{});
    LineAnchorNeeds needs = Needs(300.0, 60.0);
    needs.isContinued = true;
    EXPECT_EQ(Distances({{0.0, 0.0}, {70.0, 0.0}}, needs), List{});
}

TEST(LineAnchors, HaveTheAngleOfTheLine)
{
    const std::vector<LineAnchor> anchors =
        AnchorsAlong({{10.0, 10.0}, {10.0, 110.0}, {110.0, 110.0}}, Needs(100, 0, 0));
    ASSERT_EQ(anchors.size(), 2u);
    EXPECT_DOUBLE_EQ(anchors[0].angle, std::acos(0.0));
    EXPECT_DOUBLE_EQ(anchors[1].angle, 0.0);
    EXPECT_DOUBLE_EQ(anchors[1].point.x, 10.0);
    EXPECT_DOUBLE_EQ(anchors[1].point.y, 110.0);
}

TEST(LineAnchors, TextsKeepAwayFromSharpCorners)
{
    const Line corner = {{0.0, 0.0}, {200.0, 0.0}, {200.0, 200.0}};
    LineAnchorNeeds needs = Needs(1000.0, 60.0);
    EXPECT_TRUE(MiddleAnchor({{0.0, 0.0}, {400.0, 0.0}}, needs).has_value());
    EXPECT_FALSE(MiddleAnchor(corner, needs).has_value());
    needs.maxAngle = 90.0;
    EXPECT_TRUE(MiddleAnchor(corner, needs).has_value());
    needs.maxAngle = 45.0;
    needs.hasText = false;
    EXPECT_TRUE(MiddleAnchor(corner, needs).has_value());
}

TEST(LineAnchors, SmallTurnsAddUpWithinAFewLettersOnly)
{
    // Five turns of 20 degrees.
    const auto bend = [](double step)
    {
        Line line = {{0.0, 0.0}, {200.0, 0.0}};
        for (int i = 1; i <= 5; ++i)
            line.emplace_back(line.back().x + step * std::cos(i * 0.349), line.back().y + step * std::sin(i * 0.349));
        line.emplace_back(line.back().x, line.back().y + 200.0);
        return line;
    };
    EXPECT_FALSE(MiddleAnchor(bend(1.0), Needs(1000.0, 100.0)).has_value());
    EXPECT_TRUE(MiddleAnchor(bend(10.0), Needs(1000.0, 100.0)).has_value());
}

TEST(LineAnchors, NothingOnWhatIsNoLine)
{
    const double nan = std::nan("");
    EXPECT_EQ(Distances({}, Needs(100.0, 10.0)), List{});
    EXPECT_EQ(Distances({{1.0, 1.0}}, Needs(100.0, 10.0)), List{});
    EXPECT_EQ(Distances({{1.0, 1.0}, {1.0, 1.0}}, Needs(100.0, 10.0)), List{});
    EXPECT_EQ(Distances(kStraight, Needs(nan, 10.0)), List{});
    EXPECT_EQ(Distances(kStraight, Needs(100.0, nan)), List{});
    EXPECT_EQ(Distances({{nan, 1.0}, {5.0, 1.0}}, Needs(100.0, 10.0)), List{});
    EXPECT_LE(Distances({{0.0, 0.0}, {1e9, 0.0}}, Needs(1e-3, 0.0)).size(), 10000u);
}

TEST(LineTiles, EachTileHasItsPartOfALine)
{
    // Zoom 2 has four tiles a side; in layout pixels each is 512 wide.
    const Line line = {{0.1, 0.3}, {0.6, 0.3}, {0.6, 0.6}};
    const std::vector<TiledLine> lines = LinesInTiles(line, 2, {0.0, 0.0, 1.0, 1.0}, 2048.0);
    ASSERT_EQ(lines.size(), 4u);
    double length = 0.0;
    for (const TiledLine& part : lines)
    {
        EXPECT_DOUBLE_EQ(part.tile.right - part.tile.left, 0.25);
        for (std::size_t i = 1; i < part.points.size(); ++i)
            length += std::hypot(part.points[i].x - part.points[i - 1].x, part.points[i].y - part.points[i - 1].y);
        for (const TXPoint& point : part.points)
        {
            EXPECT_GE(point.x, -1e-9);
            EXPECT_LE(point.x, 512.0 + 1e-9);
            EXPECT_TRUE(part.tile.Grown(1e-12).Contains(part.ToWorld(point)));
        }
    }
    EXPECT_NEAR(length, 0.8 * 2048.0, 1e-9);
    EXPECT_FALSE(lines[0].isContinued);
    EXPECT_TRUE(lines[1].isContinued);
}

TEST(LineTiles, OnlyTilesThatAreShown)
{
    const Line line = {{0.01, 0.3}, {0.99, 0.3}};
    EXPECT_EQ(LinesInTiles(line, 4, {0.4, 0.2, 0.5, 0.4}, 8192.0).size(), 3u);
    EXPECT_EQ(LinesInTiles(line, 4, {0.4, 0.5, 0.5, 0.6}, 8192.0).size(), 0u);
    EXPECT_EQ(LinesInTile(line, {0.25, 0.25, 0.5, 0.5}, 2048.0).size(), 1u);
}
