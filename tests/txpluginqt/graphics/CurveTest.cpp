#include <txbase/TXMathUtil.h>

#include "RandomCases.h"
#include "SurfaceTest.h"

using namespace TZObjects;

namespace
{

class CurveTest : public SurfaceTest
{
protected:
    static std::vector<TXPoint> Flattened(std::vector<TXPoint> points)
    {
        std::vector<TXPoint> polyline;
        TXMathUtil::CurveToPolyline(points.data(), static_cast<int>(points.size()), polyline, 0.0);
        return polyline;
    }
};

TEST_F(CurveTest, IsThePolylineOfItsFlattening)
{
    ForRandomCases(31, 300,
                   [](Random& random, Twins& twins)
                   {
                       std::vector<TXPoint> points = random.Points(2, 7);
                       // Apart by more than a pixel, so that the line does not collapse into a point.
                       points.push_back({points.front().x + 5.0, points.front().y});
                       EXPECT_TRUE(twins.Surface().Curve(points.data(), static_cast<int>(points.size())));
                       twins.Direct().drawPolyline(ToQt(Flattened(points)));
                   });
}

TEST_F(CurveTest, CollapsesToAPointAsPolylinesDo)
{
    const std::vector<TXPoint> points = {{30.2, 40.1}, {29.8, 39.9}, {30.1, 40.3}};
    Twins twins;
    EXPECT_TRUE(twins.Surface().Curve(points.data(), 3));
    twins.Direct().drawPoint(QPointF(30.2, 40.1));
    EXPECT_TRUE(twins.SameWithState());
}

TEST_F(CurveTest, DoesNotTouchTheCallersPoints)
{
    const std::vector<TXPoint> points = {{3, 4}, {50, 90}, {100, 30}, {150, 100}};
    const std::vector<TXPoint> kept = points;
    Twins twins;
    EXPECT_TRUE(twins.Surface().Curve(points.data(), 4));
    for (std::size_t i = 0; i < kept.size(); ++i)
        EXPECT_TRUE(points[i].x == kept[i].x && points[i].y == kept[i].y);
}

TEST_F(CurveTest, OfNothingDrawsNothing)
{
    const TXPoint point(10, 10);
    Twins twins;
    twins.Surface().Curve(nullptr, 3);
    twins.Surface().Curve(&point, 0);
    twins.Surface().Curve(&point, -5);
    EXPECT_TRUE(twins.SameWithState());
}

} // namespace
