#include "RandomCases.h"
#include "SurfaceTest.h"

using namespace TZObjects;

namespace
{

long long RoundedAway(double value) { return static_cast<long long>(value < 0.0 ? value - 0.5 : value + 0.5); }

bool InOnePixel(const TXPoint* points, int count)
{
    for (int i = 1; i < count; ++i)
        if (RoundedAway(points[i].x) != RoundedAway(points[0].x) ||
            RoundedAway(points[i].y) != RoundedAway(points[0].y))
            return false;
    return true;
}

void DrawExpected(QPainter& painter, const std::vector<TXPoint>& points)
{
    const QPolygonF polyline = ToQt(points);
    if (InOnePixel(points.data(), static_cast<int>(points.size())))
        painter.drawPoints(polyline.constData(), 1);
    else
        painter.drawPolyline(polyline.constData(), polyline.size());
}

class PolylineTest : public SurfaceTest
{
protected:
    static bool Draw(TXGraphics& surface, const std::vector<TXPoint>& points)
    {
        return surface.Polyline(points.data(), static_cast<int>(points.size()));
    }
};

TEST_F(PolylineTest, DrawsThePointsUnrounded)
{
    ForRandomCases(2, 400,
                   [](Random& random, Twins& twins)
                   {
                       const std::vector<TXPoint> points = random.Points(1, 12);
                       EXPECT_TRUE(Draw(twins.Surface(), points));
                       DrawExpected(twins.Direct(), points);
                   });
}

TEST_F(PolylineTest, BecomesTheFirstPointWithinOnePixel)
{
    ForRandomCases(3, 400,
                   [](Random& random, Twins& twins)
                   {
                       const double x = random.Int(-5, 90);
                       const double y = random.Int(-5, 70);
                       std::vector<TXPoint> points(static_cast<std::size_t>(random.Int(1, 5)));
                       // Some of these leave the pixel, some just touch its border.
                       for (TXPoint& point : points)
                           point = {x + random.Int(-11, 11) * 0.05, y + random.Int(-11, 11) * 0.05};
                       EXPECT_TRUE(Draw(twins.Surface(), points));
                       DrawExpected(twins.Direct(), points);
                   });
}

TEST_F(PolylineTest, LeavesADotWhereAFeatureShrinksToAPixel)
{
    std::vector<TXPoint> points = {{10.2, 10.4}, {10.4, 9.6}, {9.6, 10.49}};
    Twins dot;
    EXPECT_TRUE(Draw(dot.Surface(), points));
    dot.Direct().drawPoint(QPointF(10.2, 10.4));
    EXPECT_TRUE(dot.SameWithState());

    points.back() = {10.6, 10.0};
    Twins line;
    EXPECT_TRUE(Draw(line.Surface(), points));
    line.Direct().drawPolyline(ToQt(points));
    EXPECT_TRUE(line.SameWithState());
}

TEST_F(PolylineTest, RoundsHalvesAwayFromZeroWhenItComparesPixels)
{
    // Both round to the pixel (-3, -1); rounding halves up instead would put them in two pixels.
    const std::vector<TXPoint> together = {{-2.5, -0.5}, {-3.4, -1.4}};
    // These round to the pixels (0, 0) and (-1, 0); truncation would put them in one.
    const std::vector<TXPoint> apart = {{-0.4, 0.0}, {-0.5, 0.0}};
    Twins twins;
    twins.Both([](QPainter& painter) { painter.translate(30, 30); });
    EXPECT_TRUE(Draw(twins.Surface(), together));
    twins.Direct().drawPoint(QPointF(-2.5, -0.5));
    EXPECT_TRUE(twins.Same());
    EXPECT_TRUE(Draw(twins.Surface(), apart));
    twins.Direct().drawPolyline(ToQt(apart));
    EXPECT_TRUE(twins.SameWithState());
}

TEST_F(PolylineTest, IsRefusedWithoutPoints)
{
    const TXPoint point(10.0, 10.0);
    Twins twins;
    EXPECT_FALSE(twins.Surface().Polyline(nullptr, 3));
    EXPECT_FALSE(twins.Surface().Polyline(&point, 0));
    EXPECT_FALSE(twins.Surface().Polyline(&point, -1));
    EXPECT_TRUE(twins.SameWithState());
    EXPECT_TRUE(twins.Surface().Polyline(&point, 1));
    twins.Direct().drawPoint(QPointF(10.0, 10.0));
    EXPECT_TRUE(twins.SameWithState());
}

TEST_F(PolylineTest, SeveralAreDrawnOneByOne)
{
    ForRandomCases(4, 300,
                   [](Random& random, Twins& twins)
                   {
                       std::vector<TXPoint> points;
                       std::vector<int> counts;
                       const int parts = random.Int(1, 5);
                       bool anyPoint = false;
                       for (int i = 0; i < parts; ++i)
                       {
                           const std::vector<TXPoint> part = random.Points(0, 6);
                           counts.push_back(static_cast<int>(part.size()));
                           points.insert(points.end(), part.begin(), part.end());
                           anyPoint = anyPoint || !part.empty();
                           if (!part.empty())
                               DrawExpected(twins.Direct(), part);
                       }
                       points.emplace_back();
                       EXPECT_TRUE(twins.Surface().PolyPolyline(points.data(), counts.data(), parts) || !anyPoint);
                   });
}

TEST_F(PolylineTest, SeveralAreRefusedWithoutPoints)
{
    const TXPoint points[] = {{1.0, 1.0}, {30.0, 30.0}};
    const int count = 2;
    Twins twins;
    EXPECT_FALSE(twins.Surface().PolyPolyline(nullptr, &count, 1));
    EXPECT_FALSE(twins.Surface().PolyPolyline(points, nullptr, 1));
    EXPECT_FALSE(twins.Surface().PolyPolyline(points, &count, 0));
    EXPECT_TRUE(twins.SameWithState());
}

} // namespace
