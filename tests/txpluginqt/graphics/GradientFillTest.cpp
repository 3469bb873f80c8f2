#include <tests/support/ImageCompare.h>

#include "ExpectedGradient.h"
#include "RandomCases.h"
#include "SurfaceTest.h"

using namespace TZObjects;

namespace
{

std::vector<TXPoint> Corners(double x, double y, double width, double height)
{
    return {{x, y}, {x + width, y}, {x + width, y + height}, {x, y + height}};
}

class GradientFillTest : public SurfaceTest
{
protected:
    /// The gradient that a rectangle was filled with, taken from the brush that the operation leaves.
    static QLinearGradient LinearFill(const QRectF& bounds, const TXGraphics::stGradientParams& gradient)
    {
        Twins twins;
        const std::vector<TXPoint> points = Corners(bounds.x(), bounds.y(), bounds.width(), bounds.height());
        EXPECT_TRUE(twins.Surface().Polygon(points.data(), 4, gradient));
        const QGradient* const left = twins.SurfacePainter().brush().gradient();
        if (!left || left->type() != QGradient::LinearGradient)
        {
            ADD_FAILURE() << "no linear gradient was left in the painter";
            return {};
        }
        return *static_cast<const QLinearGradient*>(left);
    }

    static void ExpectAxis(const QRectF& bounds, double angle, QPointF start, QPointF end)
    {
        TXGraphics::stGradientParams gradient;
        gradient.angle = angle;
        const QLinearGradient fill = LinearFill(bounds, gradient);
        EXPECT_LT(QLineF(fill.start(), start).length(), 1e-9) << "start at angle " << angle;
        EXPECT_LT(QLineF(fill.finalStop(), end).length(), 1e-9) << "end at angle " << angle;
    }
};

TEST_F(GradientFillTest, FillsThePolygonAndStaysWithoutAPen)
{
    ForRandomCases(20, 500,
                   [](Random& random, Twins& twins)
                   {
                       twins.Both(AvoidUncertainEdges);
                       const std::vector<TXPoint> points = random.Points(3, 9);
                       const TXGraphics::stGradientParams gradient = SomeGradient(random);
                       const QPolygonF polygon = ToQt(points);
                       EXPECT_TRUE(twins.Surface().Polygon(points.data(), polygon.size(), gradient));
                       twins.Direct().setPen(Qt::NoPen);
                       twins.Direct().setBrush(GradientBrush(polygon.boundingRect(), gradient));
                       twins.Direct().drawPolygon(polygon.constData(), polygon.size(), Qt::OddEvenFill);
                   });
}

TEST_F(GradientFillTest, LaterShapesAreFilledWithItToo)
{
    Twins twins;
    TXGraphics::stGradientParams gradient;
    gradient.startColor = TXColor(255, 0, 0, 255);
    gradient.endColor = TXColor(0, 0, 255, 255);
    const std::vector<TXPoint> points = Corners(10, 10, 60, 40);
    EXPECT_TRUE(twins.Surface().Polygon(points.data(), 4, gradient));
    EXPECT_TRUE(twins.Surface().Rectangle(20, 60, 100, 40));
    twins.Direct().setPen(Qt::NoPen);
    twins.Direct().setBrush(GradientBrush(QRectF(10, 10, 60, 40), gradient));
    twins.Direct().drawRect(10, 10, 60, 40);
    twins.Direct().drawRect(20, 60, 100, 40);
    EXPECT_TRUE(twins.SameWithState());
}

TEST_F(GradientFillTest, QuarterTurnsRunBetweenTheMiddlesOfTheSides)
{
    const QRectF bounds(0, 0, 100, 50);
    ExpectAxis(bounds, 0.0, {0, 25}, {100, 25});
    ExpectAxis(bounds, -0.0, {0, 25}, {100, 25});
    ExpectAxis(bounds, 90.0, {50, 0}, {50, 50});
    ExpectAxis(bounds, 180.0, {100, 25}, {0, 25});
    ExpectAxis(bounds, 270.0, {50, 50}, {50, 0});
    ExpectAxis(bounds, 360.0, {0, 25}, {100, 25});
}

TEST_F(GradientFillTest, OtherAnglesRunDownwardBelowAHalfTurnAndUpwardFromThereOn)
{
    const QRectF bounds(0, 0, 100, 50);
    ExpectAxis(bounds, 45.0, {25, 0}, {75, 50});
    ExpectAxis(bounds, 135.0, {75, 0}, {25, 50});
    ExpectAxis(bounds, -45.0, {75, 0}, {25, 50});
    ExpectAxis(bounds, 225.0, {75, 50}, {25, 0});
    ExpectAxis(bounds, 315.0, {25, 50}, {75, 0});
    ExpectAxis(bounds, 405.0, {75, 50}, {25, 0});
    // A flat slope leaves through the sides: tan 14.0362... degrees is a quarter.
    ExpectAxis(bounds, 14.036243467926479, {0, 12.5}, {100, 37.5});
    ExpectAxis(bounds, 194.03624346792648, {100, 37.5}, {0, 12.5});
}

TEST_F(GradientFillTest, QuarterTurnsMustBeExact)
{
    const QRectF bounds(0, 0, 100, 50);
    // A whole turn and a half is not one of the exact angles: it runs along the slope, and upward.
    for (const double angle : {450.0, 540.0, 720.0, -90.0, -180.0, 90.0 + 1e-9, 180.0 - 1e-9, 270.0 + 1e-9})
    {
        const QLineF axis = GradientAxis(bounds, angle);
        ExpectAxis(bounds, angle, axis.p1(), axis.p2());
    }
}

TEST_F(GradientFillTest, CornersCanBeHitTwice)
{
    // Along a diagonal, rounding decides whether a corner lies on both of its edges. Where it does, the first two hits
    // are the same corner, and both ends of the gradient lie there.
    int doubled = 0;
    int whole = 0;
    for (const double angle : {45.0, 135.0, 225.0, 315.0})
        for (int offset = 0; offset < 400; ++offset)
        {
            const QRectF bounds(offset * 0.37, offset * 0.61, 40.0 + offset % 7, 40.0 + offset % 7);
            const std::vector<QPointF> hits = EdgeHits(bounds, angle);
            ASSERT_GE(hits.size(), 2u);
            const bool isDoubled = hits[0] == hits[1];
            if ((isDoubled ? doubled : whole)++ >= 20)
                continue;
            TXGraphics::stGradientParams gradient;
            gradient.angle = angle;
            const QLinearGradient fill = LinearFill(bounds, gradient);
            const QLineF axis = GradientAxis(bounds, angle);
            EXPECT_EQ(fill.start(), axis.p1()) << "angle " << angle << ", offset " << offset;
            EXPECT_EQ(fill.finalStop(), axis.p2()) << "angle " << angle << ", offset " << offset;
        }
    EXPECT_GT(doubled, 0);
    EXPECT_GT(whole, 0);
}

TEST_F(GradientFillTest, MiddleStopIsTheOpaqueMean)
{
    TXGraphics::stGradientParams gradient;
    gradient.startColor = TXColor(255, 0, 0, 128);
    gradient.endColor = TXColor(0, 0, 255, 128);
    const QGradientStops expected = {
        {0.0, QColor(255, 0, 0, 128)}, {0.5, QColor(127, 0, 127, 255)}, {1.0, QColor(0, 0, 255, 128)}};
    EXPECT_EQ(LinearFill(QRectF(10, 10, 60, 40), gradient).stops(), expected);
    gradient.middle = 20.0;
    EXPECT_EQ(LinearFill(QRectF(10, 10, 60, 40), gradient).stops().at(1).first, 0.2);
}

TEST_F(GradientFillTest, MiddleStopAtAnEnd)
{
    TXGraphics::stGradientParams gradient;
    gradient.startColor = TXColor(200, 0, 0, 100);
    gradient.endColor = TXColor(0, 0, 100, 100);
    gradient.middle = 0.0;
    const QGradientStops atStart = {{0.0, QColor(100, 0, 50, 255)}, {1.0, QColor(0, 0, 100, 100)}};
    EXPECT_EQ(LinearFill(QRectF(10, 10, 60, 40), gradient).stops(), atStart);
    gradient.middle = 100.0;
    const QGradientStops atEnd = {{0.0, QColor(200, 0, 0, 100)}, {1.0, QColor(0, 0, 100, 100)}};
    EXPECT_EQ(LinearFill(QRectF(10, 10, 60, 40), gradient).stops(), atEnd);
}

TEST_F(GradientFillTest, MiddleStopOutsideTheGradientIsLeftOut)
{
    TXGraphics::stGradientParams gradient;
    gradient.startColor = TXColor(200, 0, 0, 100);
    gradient.endColor = TXColor(0, 0, 100, 100);
    const QGradientStops ends = {{0.0, QColor(200, 0, 0, 100)}, {1.0, QColor(0, 0, 100, 100)}};
    for (const double middle : {-0.001, 100.001, -1e300, 1e300})
    {
        gradient.middle = middle;
        EXPECT_EQ(LinearFill(QRectF(10, 10, 60, 40), gradient).stops(), ends) << middle;
    }
}

TEST_F(GradientFillTest, RadialReachesTheCornersAndConicalStartsAt45Degrees)
{
    const std::vector<TXPoint> points = Corners(10, 20, 60, 80);
    Twins twins;
    TXGraphics::stGradientParams gradient;
    gradient.type = 1;
    gradient.startColor = TXColor(1, 2, 3, 4);
    gradient.endColor = TXColor(5, 6, 7, 8);
    const QGradientStops stops = {{0.0, QColor(1, 2, 3, 4)}, {1.0, QColor(5, 6, 7, 8)}};
    EXPECT_TRUE(twins.Surface().Polygon(points.data(), 4, gradient));
    QRadialGradient radial(QPointF(40, 60), 50.0);
    radial.setStops(stops);
    EXPECT_EQ(twins.SurfacePainter().brush(), QBrush(radial));

    gradient.type = 2;
    EXPECT_TRUE(twins.Surface().Polygon(points.data(), 4, gradient));
    QConicalGradient conical(QPointF(40, 60), 45.0);
    conical.setStops(stops);
    EXPECT_EQ(twins.SurfacePainter().brush(), QBrush(conical));
    EXPECT_EQ(twins.SurfacePainter().pen(), QPen(Qt::NoPen));
}

TEST_F(GradientFillTest, UnknownTypesFillNothing)
{
    const std::vector<TXPoint> points = Corners(10, 20, 60, 80);
    for (const int type : {3, -1, 77, -2147483647})
    {
        Twins twins;
        TXGraphics::stGradientParams gradient;
        gradient.type = type;
        EXPECT_TRUE(twins.Surface().Polygon(points.data(), 4, gradient));
        EXPECT_TRUE(twins.Same()) << type;
        EXPECT_EQ(twins.SurfacePainter().pen(), QPen(Qt::NoPen));
    }
}

TEST_F(GradientFillTest, DiscFromInnerToOuterColour)
{
    ForRandomCases(21, 400,
                   [](Random& random, Twins& twins)
                   {
                       twins.Both(AvoidUncertainEdges);
                       const TXPoint centre = random.Point();
                       const int radius = random.Chance(90) ? random.Int(1, 60) : random.Int(100, 5000);
                       const TXColor inner = random.Color();
                       const TXColor outer = random.Color();
                       EXPECT_TRUE(twins.Surface().EllipseByRadialGradient(centre, radius, inner, outer));
                       QRadialGradient gradient(centre.x, centre.y, radius);
                       gradient.setColorAt(0.0, ToQt(inner));
                       gradient.setColorAt(1.0, ToQt(outer));
                       twins.Direct().setPen(Qt::NoPen);
                       twins.Direct().setBrush(gradient);
                       twins.Direct().drawEllipse(QPoint(static_cast<int>(centre.x), static_cast<int>(centre.y)),
                                                  radius, radius);
                   });
}

} // namespace
