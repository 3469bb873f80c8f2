#include "RandomCases.h"
#include "SurfaceTest.h"

using namespace TZObjects;

namespace
{

int Truncated(double value) { return static_cast<int>(value); }

/// A stretch of an ellipse, as arcs and pies take it.
struct Stretch
{
    double x, y, width, height, start, span;

    QRectF Rect() const { return QRectF(Truncated(x), Truncated(y), Truncated(width), Truncated(height)); }
    int Start() const { return Truncated(start * 16.0); }
    int Span() const { return Truncated(span * 16.0); }
};

Stretch SomeStretch(Random& random)
{
    Stretch stretch = {};
    stretch.x = random.Coordinate();
    stretch.y = random.Coordinate();
    stretch.width = random.Length();
    stretch.height = random.Length();
    stretch.start = random.Real(-720.0, 720.0);
    stretch.span = random.Chance(80) ? random.Real(-360.0, 360.0) : random.Real(-1000.0, 1000.0);
    return stretch;
}

class ArcPieTest : public SurfaceTest
{
};

TEST_F(ArcPieTest, ArcTruncatesRectangleAndSixteenths)
{
    ForRandomCases(13, 400,
                   [](Random& random, Twins& twins)
                   {
                       const Stretch arc = SomeStretch(random);
                       EXPECT_TRUE(twins.Surface().Arc(arc.x, arc.y, arc.width, arc.height, arc.start, arc.span));
                       twins.Direct().drawArc(arc.Rect(), arc.Start(), arc.Span());
                   });
}

TEST_F(ArcPieTest, PieTruncatesRectangleAndSixteenths)
{
    ForRandomCases(14, 400,
                   [](Random& random, Twins& twins)
                   {
                       const Stretch pie = SomeStretch(random);
                       EXPECT_TRUE(twins.Surface().Pie(pie.x, pie.y, pie.width, pie.height, pie.start, pie.span));
                       twins.Direct().drawPie(pie.Rect(), pie.Start(), pie.Span());
                   });
}

TEST_F(ArcPieTest, TruncateTowardZero)
{
    Twins twins;
    twins.Both([](QPainter& painter) { painter.scale(6.0, 6.0); });
    EXPECT_TRUE(twins.Surface().Arc(0, 0, 10.9, 10.9, 45.5, 90.25));
    twins.Direct().drawArc(QRectF(0, 0, 10, 10), 728, 1444);
    EXPECT_TRUE(twins.SameWithState());
    twins.Wipe();
    twins.Both([](QPainter& painter) { painter.translate(5.0, 5.0); });
    EXPECT_TRUE(twins.Surface().Pie(-0.9, -1.9, 12.9, 8.9, -45.59, -90.99));
    twins.Direct().drawPie(QRectF(0, -1, 12, 8), -729, -1455);
    EXPECT_TRUE(twins.SameWithState());
}

TEST_F(ArcPieTest, RunCounterClockwiseFromThreeOClock)
{
    Twins twins;
    twins.Both([](QPainter& painter) { painter.setBrush(Qt::black); });
    EXPECT_TRUE(twins.Surface().Pie(30, 10, 100, 100, 0, 90));
    EXPECT_EQ(twins.Actual().pixel(95, 45), qRgb(0, 0, 0));
    EXPECT_NE(twins.Actual().pixel(95, 75), qRgb(0, 0, 0));
    EXPECT_NE(twins.Actual().pixel(65, 45), qRgb(0, 0, 0));
}

TEST_F(ArcPieTest, TakeEdgesAsWell)
{
    Twins twins;
    EXPECT_TRUE(twins.Surface().Arc(TXRect(10.5, 80.75, 20.5, 70.25), 30.0, 200.0));
    twins.Direct().drawArc(QRectF(10, 20, 70, 49), 480, 3200);
    EXPECT_TRUE(twins.Surface().Pie(TXRect(80.5, 150.25, 30.5, 110.75), 100.0, -140.0));
    twins.Direct().drawPie(QRectF(80, 30, 69, 80), 1600, -2240);
    EXPECT_TRUE(twins.SameWithState());
}

} // namespace
