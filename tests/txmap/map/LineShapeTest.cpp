#include <cmath>

#include <gtest/gtest.h>
#include <txmap/map/LineShape.h>

using namespace txmap;
using TZObjects::TXPoint;

namespace
{

/// The dashes of a line along the x axis, as where they begin and end.
std::vector<std::vector<double>> Dashes(double length, const std::vector<double>& pattern, double phase = 0.0)
{
    const std::vector<TXPoint> line = {{0.0, 0.0}, {length / 2.0, 0.0}, {length, 0.0}};
    Parts parts;
    AppendDashes(line.data(), line.size(), pattern, phase, parts);
    std::vector<std::vector<double>> dashes;
    std::size_t first = 0;
    for (const int count : parts.counts)
    {
        dashes.push_back({parts.points[first].x, parts.points[first + static_cast<std::size_t>(count) - 1].x});
        first += static_cast<std::size_t>(count);
    }
    return dashes;
}

using Spans = std::vector<std::vector<double>>;

} // namespace

TEST(LineShape, DashesFollowThePattern)
{
    EXPECT_EQ(Dashes(10.0, {2.0, 3.0}), (Spans{{0.0, 2.0}, {5.0, 7.0}}));
    EXPECT_EQ(Dashes(11.0, {4.0, 2.0}), (Spans{{0.0, 4.0}, {6.0, 10.0}}));
}

TEST(LineShape, DashesGoOnFromThePhase)
{
    EXPECT_EQ(Dashes(10.0, {2.0, 3.0}, 1.0), (Spans{{0.0, 1.0}, {4.0, 6.0}, {9.0, 10.0}}));
    EXPECT_EQ(Dashes(10.0, {2.0, 3.0}, 13.0), (Spans{{2.0, 4.0}, {7.0, 9.0}}));
}

TEST(LineShape, DashesWithoutLengthAreDots) { EXPECT_EQ(Dashes(5.0, {0.0, 4.0}), (Spans{{0.0, 0.0}, {4.0, 4.0}})); }

TEST(LineShape, GapsWithoutLengthPartNothing)
{
    EXPECT_EQ(Dashes(10.0, {2.0, 0.0, 1.0, 2.0}), (Spans{{0.0, 3.0}, {5.0, 8.0}}));
    EXPECT_EQ(Dashes(10.0, {1.0, 2.0, 2.0}), (Spans{{0.0, 1.0}, {3.0, 6.0}, {8.0, 10.0}}));
    EXPECT_EQ(Dashes(10.0, {2.0, 0.0, 1.0, 2.0}, 2.0), (Spans{{0.0, 1.0}, {3.0, 6.0}, {8.0, 10.0}}));
    EXPECT_EQ(Dashes(10.0, {1.0, 0.0}), (Spans{{0.0, 10.0}}));
    EXPECT_EQ(Dashes(10.0, {3.0}), (Spans{{0.0, 10.0}}));
}

TEST(LineShape, PatternsTooFineToBeSeenGiveTheLine)
{
    EXPECT_EQ(Dashes(5.0, {0.0, 0.0}), (Spans{{0.0, 5.0}}));
    EXPECT_EQ(Dashes(5.0, {1e-9, 1e-9}), (Spans{{0.0, 5.0}}));
    EXPECT_EQ(Dashes(5.0, {}), (Spans{{0.0, 5.0}}));
}

TEST(LineShape, OffsetLinesKeepTheirDistance)
{
    const std::vector<TXPoint> line = {{0.0, 0.0}, {10.0, 0.0}, {10.0, 10.0}};
    const PixelLine right = OffsetLine(line.data(), line.size(), 2.0);
    ASSERT_EQ(right.size(), 3u);
    EXPECT_NEAR(right[0].y, 2.0, 1e-9);
    EXPECT_NEAR(right[1].x, 8.0, 1e-9);
    EXPECT_NEAR(right[1].y, 2.0, 1e-9);
    EXPECT_NEAR(right[2].x, 8.0, 1e-9);
}

TEST(LineShape, SharpCornersGetAnEdge)
{
    const std::vector<TXPoint> line = {{0.0, 0.0}, {10.0, 0.0}, {0.0, 1.0}};
    EXPECT_EQ(OffsetLine(line.data(), line.size(), 2.0, {4.0, false, false}).size(), 4u);
    EXPECT_EQ(OffsetLine(line.data(), line.size(), -2.0).size(), 4u);
    EXPECT_EQ(OffsetLine(line.data(), line.size(), -2.0, {100.0}).size(), 3u);
    EXPECT_EQ(BevelSharpCorners(line.data(), line.size(), 1.0, 100.0).size(), 3u);
}

TEST(LineShape, RoundCornersOfOffsetLinesAreArcs)
{
    const std::vector<TXPoint> line = {{0.0, 0.0}, {10.0, 0.0}, {10.0, 10.0}};
    const PixelLine arc = OffsetLine(line.data(), line.size(), -2.0, {1.05, true});
    ASSERT_GT(arc.size(), 6u);
    for (std::size_t i = 1; i + 1 < arc.size(); ++i)
        EXPECT_NEAR(std::hypot(arc[i].x - 10.0, arc[i].y), 2.0, 1e-9);
    EXPECT_EQ(OffsetLine(line.data(), line.size(), 2.0, {1.05, true, false}).size(), 4u);
}

TEST(LineShape, OffsetLinesMeetOnTheInnerSide)
{
    const std::vector<TXPoint> line = {{0.0, 0.0}, {100.0, 0.0}, {2.0, 20.0}};
    const PixelLine inner = OffsetLine(line.data(), line.size(), 2.0);
    ASSERT_EQ(inner.size(), 3u);
    EXPECT_NEAR(inner[1].y, 2.0, 1e-9);
    EXPECT_LT(inner[1].x, 90.0);
}

TEST(LineShape, BevelsReachFromEdgeToEdge)
{
    // At a right angle, the bevel of a line of width 2 goes from (10, -1) to (11, 0).
    const std::vector<TXPoint> line = {{0.0, 0.0}, {10.0, 0.0}, {10.0, 10.0}};
    const PixelLine bevelled = BevelSharpCorners(line.data(), line.size(), 2.0, 1.1);
    ASSERT_EQ(bevelled.size(), 4u);
    const double step = 10.0 - bevelled[1].x;
    EXPECT_NEAR(step, std::tan(std::atan(1.0) / 2.0), 1e-9);
    EXPECT_NEAR(bevelled[2].y, step, 1e-9);
    // The piece between lies as far inside of the bevel as the others inside of their edges.
    const double diagonal = std::sqrt(0.5);
    EXPECT_NEAR((bevelled[1].x - bevelled[1].y) * diagonal, (10.0 + 1.0) * diagonal - 1.0, 1e-9);
}

TEST(LineShape, PartsOfLinesHaveTheirCorners)
{
    const std::vector<TXPoint> line = {{0.0, 0.0}, {10.0, 0.0}, {10.0, 10.0}};
    const PixelLine part = SubLine(line.data(), line.size(), 8.0, 13.0);
    ASSERT_EQ(part.size(), 3u);
    EXPECT_EQ(part[0].x, 8.0);
    EXPECT_EQ(part[1].x, 10.0);
    EXPECT_EQ(part[2].y, 3.0);
}
