#include <cmath>
#include <limits>
#include <vector>

#include <gtest/gtest.h>
#include <ogr_geometry.h>
#include <txmap/map/PixelPath.h>

using namespace txmap;
using TZObjects::TXPoint;

namespace
{

/// A pixel is a degree.
const View& World()
{
    static const View view(Projection::PlateCarree(), {}, PixelSize{360, 180});
    return view;
}

OGRLinearRing RingOf(const std::vector<TXPoint>& places)
{
    OGRLinearRing ring;
    for (const TXPoint& place : places)
        ring.addPoint(place.x, place.y);
    return ring;
}

} // namespace

TEST(AppendLine, AppendsInPixelsAndMoved)
{
    std::vector<TXPoint> points = {{7, 7}};
    EXPECT_EQ(AppendLine(World(), RingOf({{0, 0}, {10, 20}}), 5.0, points), 2);
    ASSERT_EQ(points.size(), 3u);
    EXPECT_EQ(points[0].x, 7.0);
    EXPECT_NEAR(points[1].x, 185.0, 1e-9);
    EXPECT_NEAR(points[1].y, 90.0, 1e-9);
    EXPECT_NEAR(points[2].x, 195.0, 1e-9);
    EXPECT_NEAR(points[2].y, 70.0, 1e-9);
}

TEST(AppendLine, OfNothingIsNothing)
{
    std::vector<TXPoint> points;
    EXPECT_EQ(AppendLine(World(), RingOf({}), 0.0, points), 0);
    EXPECT_TRUE(points.empty());
}

TEST(AppendLine, LeavesOutWhatNobodyCanSeeButKeepsTheEnds)
{
    OGRLinearRing line;
    for (int i = 0; i <= 10000; ++i)
        line.addPoint(i * 0.001, 0.0);
    std::vector<TXPoint> points;
    const int count = AppendLine(World(), line, 0.0, points);
    EXPECT_LT(count, 200);
    EXPECT_GT(count, 20);
    EXPECT_NEAR(points.front().x, 180.0, 1e-9);
    EXPECT_NEAR(points.back().x, 190.0, 1e-9);
}

TEST(AppendLine, StaysWithinAQuarterPixelOfTheWholeLine)
{
    OGRLinearRing line;
    for (int i = 0; i <= 2000; ++i)
        line.addPoint(i * 0.01, 5.0 * std::sin(i * 0.05));
    std::vector<TXPoint> points;
    AppendLine(World(), line, 0.0, points);
    for (int i = 0; i <= 2000; ++i)
    {
        const TXPoint place = World().ToPixel(line.getX(i), line.getY(i));
        double nearest = 1e300;
        for (const TXPoint& point : points)
            nearest = std::min(nearest, std::hypot(point.x - place.x, point.y - place.y));
        EXPECT_LT(nearest, 0.25);
    }
}

TEST(AppendLine, LeavesOutWhatIsNotFinite)
{
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double infinity = std::numeric_limits<double>::infinity();
    std::vector<TXPoint> points;
    EXPECT_EQ(AppendLine(World(), RingOf({{nan, 0}, {0, 0}, {infinity, 5}, {10, 10}, {3, nan}}), 0.0, points), 2);
    EXPECT_NEAR(points[1].x, 190.0, 1e-9);
    EXPECT_EQ(AppendLine(World(), RingOf({{nan, 0}}), 0.0, points), 0);
}

TEST(AppendRing, EndsExactlyWhereItBegins)
{
    std::vector<TXPoint> points;
    EXPECT_EQ(AppendRing(World(), RingOf({{0, 0}, {10, 0}, {10, 10}, {0, 0}}), 0.0, points), 4);
    EXPECT_EQ(points.front().x, points.back().x);
    EXPECT_EQ(points.front().y, points.back().y);
}

TEST(AppendRing, ClosesARingThatWasLeftOpen)
{
    std::vector<TXPoint> points;
    ASSERT_EQ(AppendRing(World(), RingOf({{0, 0}, {10, 0}, {10, 10}, {0, 10}}), 0.0, points), 5);
    EXPECT_NEAR(points[3].x, 180.0, 1e-9);
    EXPECT_NEAR(points[3].y, 80.0, 1e-9);
    EXPECT_EQ(points[4].x, points[0].x);
    EXPECT_EQ(points[4].y, points[0].y);
}

TEST(AppendRing, KeepsAnAreaForAnIslandThatIsTooSmall)
{
    std::vector<TXPoint> points;
    const int count = AppendRing(World(), RingOf({{5, 5}, {5.001, 5}, {5.001, 5.001}, {5, 5}}), 0.0, points);
    ASSERT_GE(count, 4);
    double area = 0.0;
    for (std::size_t i = 1; i < points.size(); ++i)
    {
        area += points[i - 1].x * points[i].y - points[i].x * points[i - 1].y;
        EXPECT_LT(std::hypot(points[i].x - 185.0, points[i].y - 85.0), 0.5);
    }
    EXPECT_NE(area, 0.0);
}
