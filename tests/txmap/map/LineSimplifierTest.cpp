// Lines without the points on which they hardly bend.
#include <algorithm>
#include <cmath>
#include <random>
#include <vector>

#include <gtest/gtest.h>
#include <txmap/map/LineSimplifier.h>

using namespace txmap;
using TZObjects::TXPoint;

namespace
{

using Points = std::vector<TXPoint>;

Points Simplified(Points line, double distance)
{
    DropStraightPoints(line, distance);
    return line;
}

double DistanceTo(const Points& line, const TXPoint& point)
{
    double least = 1e300;
    for (std::size_t i = 1; i < line.size(); ++i)
    {
        const double dx = line[i].x - line[i - 1].x;
        const double dy = line[i].y - line[i - 1].y;
        const double square = dx * dx + dy * dy;
        const double along = ((point.x - line[i - 1].x) * dx + (point.y - line[i - 1].y) * dy) / square;
        const double part = square > 0.0 ? std::clamp(along, 0.0, 1.0) : 0.0;
        least = std::min(least, std::hypot(point.x - line[i - 1].x - dx * part, point.y - line[i - 1].y - dy * part));
    }
    return least;
}

bool Same(const TXPoint& a, const TXPoint& b) { return a.x == b.x && a.y == b.y; }

} // namespace

TEST(LineSimplifier, LeavesTheEndsOfAStraightLine)
{
    Points line;
    for (int i = 0; i <= 1000; ++i)
        line.push_back({i * 0.3, 7.0 - i * 0.2 + (i % 2) * 0.01});
    const Points result = Simplified(line, 0.1);
    ASSERT_EQ(result.size(), 2u);
    EXPECT_TRUE(Same(result.front(), line.front()));
    EXPECT_TRUE(Same(result.back(), line.back()));
}

TEST(LineSimplifier, KeepsCorners)
{
    const Points line{{0, 0}, {5, 0}, {10, 0}, {10, 5}, {10, 10}, {20, 20}};
    const Points result = Simplified(line, 0.1);
    ASSERT_EQ(result.size(), 4u);
    EXPECT_TRUE(Same(result[1], line[2]));
    EXPECT_TRUE(Same(result[2], line[4]));
}

TEST(LineSimplifier, KeepsWhereALineTurnsBack)
{
    const Points line{{0, 0}, {10, 0}, {4, 0}, {6, 0}};
    const Points result = Simplified(line, 0.1);
    ASSERT_EQ(result.size(), 4u);
    EXPECT_TRUE(Same(result[1], line[1]));
    EXPECT_TRUE(Same(result[2], line[2]));
}

TEST(LineSimplifier, LeavesShortLinesAlone)
{
    EXPECT_TRUE(Simplified({}, 1.0).empty());
    EXPECT_EQ(Simplified({{1, 1}}, 1.0).size(), 1u);
    EXPECT_EQ(Simplified({{1, 1}, {1, 1}}, 1.0).size(), 2u);
    EXPECT_EQ(Simplified({{1, 1}, {1, 1}, {1, 1}}, 1.0).size(), 2u);
}

TEST(LineSimplifier, PassesAllPointsClosely)
{
    std::mt19937 random(4711);
    std::uniform_real_distribution<double> part(-1.0, 1.0);
    for (int run = 0; run < 400; ++run)
    {
        const double step = std::exp(part(random) * 3.0);
        const double distance = std::exp(part(random) * 3.0);
        Points line{{part(random) * 50.0, part(random) * 50.0}};
        double direction = part(random) * 3.0;
        for (int i = 0; i < 300; ++i)
        {
            direction += part(random) * (run % 4);
            const double length = step * std::abs(part(random));
            line.push_back(
                {line.back().x + length * std::cos(direction), line.back().y + length * std::sin(direction)});
        }
        if (run % 3 == 0)
            line.push_back(line.front());
        const Points result = Simplified(line, distance);
        EXPECT_TRUE(Same(result.front(), line.front()));
        EXPECT_TRUE(Same(result.back(), line.back()));
        for (const TXPoint& point : line)
            ASSERT_LE(DistanceTo(result, point), distance * (1.0 + 1e-9)) << "run " << run;
    }
}
