#include <algorithm>
#include <cmath>
#include <vector>

#include <gtest/gtest.h>
#include <tests/support/RandomSource.h>
#include <txmap/map/FrameShape.h>
#include <txmap/map/MapLayer.h>

using namespace txmap;
using TZObjects::TXPoint;
using TZObjects::TXRect;

namespace
{

const TXRect kRect(10, 110, 20, 80);

TXRect Dot(double x, double y) { return {x, x, y, y}; }

/// How deep a point lies in a rectangle with rounded corners: the distance to its edge, negative outside.
double DepthInRounded(double x, double y, double radius)
{
    const double dx = std::abs(x - 60.0) - (50.0 - radius);
    const double dy = std::abs(y - 50.0) - (30.0 - radius);
    const double outside = std::hypot(std::max(dx, 0.0), std::max(dy, 0.0));
    return radius - (outside + std::min(0.0, std::max(dx, dy)));
}

} // namespace

TEST(RoundedFrame, IsARectangleWithRoundCorners)
{
    RandomSource random(11);
    for (const double radius : {0.0, 3.0, 12.0, 30.0})
    {
        const FrameShape frame = FrameShape::RoundedRectangle(kRect, radius);
        EXPECT_NEAR(frame.Bounds().left, 10, 1e-9);
        EXPECT_NEAR(frame.Bounds().bottom, 80, 1e-9);
        for (int i = 0; i < 3000; ++i)
        {
            const double x = random.Real(0, 120);
            const TXPoint point{x, random.Real(10, 90)};
            const double depth = DepthInRounded(point.x, point.y, radius);
            // Arcs are chains of short lines.
            if (depth > 0.3)
            {
                EXPECT_TRUE(frame.Contains(Dot(point.x, point.y))) << radius << ": " << point.x << ", " << point.y;
            }
            else if (depth < -1e-6)
            {
                EXPECT_FALSE(frame.Contains(Dot(point.x, point.y))) << radius << ": " << point.x << ", " << point.y;
            }
        }
    }
}

TEST(RoundedFrame, TakesARadiusThatIsTooLargeForTheLargestPossible)
{
    const FrameShape largest = FrameShape::RoundedRectangle(kRect, 30.0);
    for (const double radius : {31.0, 1e9, 1e300})
    {
        const FrameShape frame = FrameShape::RoundedRectangle(kRect, radius);
        ASSERT_EQ(frame.Points().size(), largest.Points().size());
        for (std::size_t i = 0; i < frame.Points().size(); ++i)
        {
            EXPECT_EQ(frame.Points()[i].x, largest.Points()[i].x);
            EXPECT_EQ(frame.Points()[i].y, largest.Points()[i].y);
        }
    }
}

TEST(RoundedFrame, HasRoundCornersInAnySize)
{
    const FrameShape frame = FrameShape::RoundedRectangle({0, 20000, 0, 16000}, 8000);
    EXPECT_LT(frame.Points().size(), 2000u);
    for (const TXPoint& point : frame.Points())
        EXPECT_LE(std::hypot(std::max(std::abs(point.x - 10000) - 2000, 0.0), point.y - 8000), 8000 + 1e-6);
}

TEST(PolygonFrame, EndsWhereItBegins)
{
    const FrameShape frame = FrameShape::Polygon({{0, 0}, {10, 0}, {10, 10}});
    ASSERT_EQ(frame.Counts(), std::vector<int>{4});
    EXPECT_EQ(frame.Points().back().x, 0.0);
    EXPECT_EQ(FrameShape::Polygon({{0, 0}, {10, 0}, {10, 10}, {0, 0}}).Counts(), std::vector<int>{4});
}

TEST(PolygonFrame, ContainsBoxesThatNoEdgeTouches)
{
    const FrameShape frame = FrameShape::Polygon({{0, 0}, {100, 0}, {100, 100}, {50, 20}, {0, 100}});
    EXPECT_TRUE(frame.Contains({5, 95, 5, 15}));
    EXPECT_FALSE(frame.Contains({5, 95, 5, 30})) << "the notch reaches in";
    EXPECT_FALSE(frame.Contains({-5, 95, 5, 15}));
    EXPECT_FALSE(frame.Contains({0, 95, 5, 15})) << "edges touch";
    EXPECT_FALSE(frame.Contains({40, 60, 60, 70})) << "in the notch";
    EXPECT_FALSE(frame.Contains({-50, 150, -50, 150})) << "all of it in the box";
    EXPECT_FALSE(frame.Contains({200, 210, 5, 15}));
    EXPECT_TRUE(frame.Contains({5, 10, 60, 80}));
    EXPECT_TRUE(frame.Avoids({40, 60, 60, 70}));
    EXPECT_TRUE(frame.Avoids({200, 210, 5, 15}));
    EXPECT_FALSE(frame.Avoids({-5, 95, 5, 15}));
    EXPECT_FALSE(frame.Avoids({5, 10, 60, 80}));
}

TEST(PolygonFrame, ThatCrossesItselfIsInsideByOddEven)
{
    const FrameShape bow = FrameShape::Polygon({{0, 0}, {100, 100}, {100, 0}, {0, 100}});
    EXPECT_FALSE(bow.Misses(kRect));
    EXPECT_TRUE(bow.Contains({5, 15, 45, 55}));
    EXPECT_TRUE(bow.Contains({85, 95, 45, 55}));
    EXPECT_FALSE(bow.Contains({45, 55, 5, 15}));
    EXPECT_FALSE(bow.Contains({45, 55, 45, 55}));
}

TEST(PolygonFrame, MissesWhatItDoesNotReach)
{
    EXPECT_TRUE(FrameShape::Polygon({{0, 0}, {5, 0}, {5, 5}}).Misses(kRect));
    EXPECT_TRUE(FrameShape::Polygon({{20, 30}, {30, 40}, {90, 100}}).Misses(kRect)) << "flat";
    EXPECT_TRUE(FrameShape::Polygon({{20, 30}, {20, 30}, {20, 30}}).Misses(kRect)) << "a point";
    EXPECT_TRUE(FrameShape::Polygon({{20, 30}, {60, 50}}).Misses(kRect)) << "a line";
    EXPECT_FALSE(FrameShape::Polygon({{20, 30}, {60, 50}, {60, 51}}).Misses(kRect));
}

TEST(FrameOfAreas, HasAllRings)
{
    MapLayer layer;
    layer.areaPoints = {{0, 0}, {10, 0}, {10, 10}, {0, 0}, {50, 50}, {60, 50}, {60, 60}, {50, 60}, {50, 50}};
    layer.ringSizes = {4, 5};
    const FrameShape frame = FrameShape::Areas(layer);
    EXPECT_EQ(frame.Counts(), (std::vector<int>{4, 5}));
    EXPECT_EQ(frame.Bounds().right, 60.0);
    EXPECT_TRUE(frame.Contains({7, 8, 2, 3}));
    EXPECT_TRUE(frame.Contains({52, 58, 52, 58}));
    EXPECT_FALSE(frame.Contains({20, 30, 20, 30}));
}
