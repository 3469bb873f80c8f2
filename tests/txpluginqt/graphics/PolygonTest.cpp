#include "RandomCases.h"
#include "SurfaceTest.h"

using namespace TZObjects;

namespace
{

class PolygonTest : public SurfaceTest
{
};

TEST_F(PolygonTest, IsFilledAndOutlined)
{
    ForRandomCases(5, 400,
                   [](Random& random, Twins& twins)
                   {
                       const std::vector<TXPoint> points = random.Points(3, 12);
                       EXPECT_TRUE(twins.Surface().Polygon(points.data(), static_cast<int>(points.size())));
                       const QPolygonF polygon = ToQt(points);
                       twins.Direct().drawPolygon(polygon.constData(), polygon.size(), Qt::OddEvenFill);
                   });
}

TEST_F(PolygonTest, HasAHoleWhereItCoversItselfTwice)
{
    // A pentagram: its middle is covered twice, which the winding rule would fill.
    const TXPoint points[] = {{80, 5}, {113, 107}, {27, 44}, {133, 44}, {47, 107}};
    Twins twins;
    twins.Both(
        [](QPainter& painter)
        {
            painter.setPen(Qt::NoPen);
            painter.setBrush(QColor(10, 200, 30));
        });
    EXPECT_TRUE(twins.Surface().Polygon(points, 5));
    EXPECT_EQ(twins.Actual().pixel(80, 60), twins.Expected().pixel(80, 60));
    EXPECT_EQ(twins.Actual().pixel(80, 25), qRgb(10, 200, 30));
}

TEST_F(PolygonTest, OutlineIsClosed)
{
    const TXPoint points[] = {{20, 20}, {120, 20}, {120, 100}};
    Twins twins;
    twins.Both(
        [](QPainter& painter)
        {
            painter.setBrush(Qt::NoBrush);
            painter.setPen(QPen(Qt::black, 3.0));
        });
    EXPECT_TRUE(twins.Surface().Polygon(points, 3));
    EXPECT_EQ(twins.Actual().pixel(70, 60), qRgb(0, 0, 0));
    EXPECT_NE(twins.Actual().pixel(90, 50), qRgb(0, 0, 0));
}

TEST_F(PolygonTest, IsRefusedBelowThreePoints)
{
    const TXPoint points[] = {{20, 20}, {120, 20}, {120, 100}};
    const TXGraphics::stGradientParams gradient;
    Twins twins;
    for (const int count : {2, 1, 0, -1, -1000})
    {
        EXPECT_FALSE(twins.Surface().Polygon(points, count)) << count;
        EXPECT_FALSE(twins.Surface().Polygon(points, count, gradient)) << count;
    }
    EXPECT_FALSE(twins.Surface().Polygon(nullptr, 3));
    EXPECT_FALSE(twins.Surface().Polygon(nullptr, 3, gradient));
    EXPECT_TRUE(twins.SameWithState());
}

} // namespace
