#include <cmath>
#include <limits>

#include <QPainterPath>

#include "RandomCases.h"
#include "SurfaceTest.h"

using namespace TZObjects;

namespace
{

/// Builds the same random path on a surface and directly.
void BuildSomePath(Random& random, TXGraphics& surface, QPainterPath& expected)
{
    const int steps = random.Int(1, 10);
    for (int i = 0; i < steps; ++i)
    {
        const TXPoint end = random.Point();
        const TXPoint control = random.Point();
        const TXPoint other = random.Point();
        switch (random.Int(0, 5))
        {
        case 0:
            EXPECT_TRUE(surface.MoveTo(end.x, end.y));
            expected.moveTo(end.x, end.y);
            break;
        case 1:
            EXPECT_TRUE(surface.CurveTo(control.x, control.y, other.x, other.y, end.x, end.y));
            expected.cubicTo(ToQt(control), ToQt(other), ToQt(end));
            break;
        case 2:
            EXPECT_TRUE(surface.QuadTo(control.x, control.y, end.x, end.y));
            expected.quadTo(ToQt(control), ToQt(end));
            break;
        case 3:
            surface.ClosePath();
            expected.closeSubpath();
            break;
        default:
            EXPECT_TRUE(surface.LineTo(end.x, end.y));
            expected.lineTo(end.x, end.y);
        }
    }
}

class PathTest : public SurfaceTest
{
};

TEST_F(PathTest, IsFilledAndOutlined)
{
    ForRandomCases(30, 400,
                   [](Random& random, Twins& twins)
                   {
                       QPainterPath expected;
                       BuildSomePath(random, twins.Surface(), expected);
                       twins.Surface().DrawPath();
                       twins.Direct().drawPath(expected);
                   });
}

TEST_F(PathTest, IsDrawnOnce)
{
    Twins twins;
    twins.Surface().MoveTo(10, 10);
    twins.Surface().LineTo(100, 20);
    twins.Surface().LineTo(60, 90);
    twins.Surface().DrawPath();
    twins.Surface().DrawPath();
    QPainterPath path;
    path.moveTo(10, 10);
    path.lineTo(100, 20);
    path.lineTo(60, 90);
    twins.Direct().drawPath(path);
    EXPECT_TRUE(twins.SameWithState());
}

TEST_F(PathTest, StartsAtTheOriginUnlessMoved)
{
    Twins twins;
    twins.Both([](QPainter& painter) { painter.translate(20, 20); });
    twins.Surface().LineTo(100, 20);
    twins.Surface().LineTo(60, 70);
    twins.Surface().DrawPath();
    QPainterPath path;
    path.lineTo(100, 20);
    path.lineTo(60, 70);
    twins.Direct().drawPath(path);
    EXPECT_TRUE(twins.SameWithState());

    // And again after the first path is gone.
    twins.Surface().QuadTo(40, 0, 0, 80);
    twins.Surface().DrawPath();
    QPainterPath next;
    next.quadTo(40, 0, 0, 80);
    twins.Direct().drawPath(next);
    EXPECT_TRUE(twins.SameWithState());
}

TEST_F(PathTest, ClosingBeforeAnythingElseDoesNothing)
{
    Twins twins;
    twins.Surface().ClosePath();
    twins.Surface().DrawPath();
    EXPECT_TRUE(twins.SameWithState());
    twins.Surface().ClosePath();
    twins.Surface().MoveTo(10, 10);
    twins.Surface().LineTo(100, 90);
    twins.Surface().LineTo(20, 80);
    twins.Surface().ClosePath();
    twins.Surface().DrawPath();
    QPainterPath path;
    path.moveTo(10, 10);
    path.lineTo(100, 90);
    path.lineTo(20, 80);
    path.closeSubpath();
    twins.Direct().drawPath(path);
    EXPECT_TRUE(twins.SameWithState());
}

TEST_F(PathTest, IsPlacedByTheOriginAtTheTimeOfDrawing)
{
    Twins twins;
    twins.Surface().SetWindowOrg(7, 9);
    twins.Surface().MoveTo(10, 10);
    twins.Surface().LineTo(100, 20);
    twins.Surface().SetWindowOrg(11, 3);
    twins.Surface().DrawPath();
    twins.Direct().translate(18, 12);
    twins.Direct().drawLine(10, 10, 100, 20);
    EXPECT_TRUE(twins.SameWithState());
}

TEST_F(PathTest, IsKeptWithoutAPainter)
{
    const TXRefPtr<TXGraphics> surface = TestEngine().NewGraphics(nullptr);
    EXPECT_TRUE(surface->MoveTo(5, 5));
    EXPECT_TRUE(surface->LineTo(50, 5));
    EXPECT_TRUE(surface->QuadTo(60, 30, 30, 30));
    EXPECT_TRUE(surface->CurveTo(20, 30, 10, 20, 5, 12));
    surface->ClosePath();
    surface->DrawPath();
    QPainterPath path;
    path.moveTo(5, 5);
    path.lineTo(50, 5);
    path.quadTo(60, 30, 30, 30);
    path.cubicTo(20, 30, 10, 20, 5, 12);
    path.closeSubpath();
    QImage actual(70, 50, QImage::Format_ARGB32_Premultiplied);
    actual.fill(Qt::white);
    QImage expected = actual.copy();
    QPainter outside(&actual);
    surface->Attach(&outside);
    surface->DrawPath();
    surface->Detach();
    outside.end();
    QPainter direct(&expected);
    direct.drawPath(path);
    direct.end();
    EXPECT_EQ(actual, expected);
}

TEST_F(PathTest, OutlivesTheTarget)
{
    const TXRefPtr<TXGraphics> surface = NewPaintingSurface();
    surface->MoveTo(5, 5);
    surface->LineTo(30, 30);
    surface->Delete();
    surface->DrawPath();
    ASSERT_TRUE(surface->CreateCompatibleGraphics(60, 40));
    surface->SelectPen(NewPen(TXColor(255, 0, 0, 255), 3.0));
    surface->DrawPath();
    EXPECT_EQ(PixelsOf(*surface->GetImage()).pixel(15, 15), qRgb(255, 0, 0));
}

TEST_F(PathTest, CoordinatesThatAreRefusedAddNothing)
{
    const double nan = std::nan("");
    const double infinity = std::numeric_limits<double>::infinity();
    for (const double bad : {nan, infinity, -infinity, 1e300, -1e13})
    {
        Twins twins;
        TXGraphics& surface = twins.Surface();
        surface.MoveTo(10, 10);
        surface.LineTo(100, 20);
        EXPECT_TRUE(surface.MoveTo(bad, 3));
        EXPECT_TRUE(surface.MoveTo(3, bad));
        EXPECT_TRUE(surface.LineTo(bad, 3));
        EXPECT_TRUE(surface.LineTo(3, bad));
        for (int i = 0; i < 6; ++i)
        {
            double c[6] = {1, 2, 3, 4, 5, 6};
            c[i] = bad;
            EXPECT_TRUE(surface.CurveTo(c[0], c[1], c[2], c[3], c[4], c[5]));
            if (i < 4)
            {
                EXPECT_TRUE(surface.QuadTo(c[0], c[1], c[2], c[3]));
            }
        }
        surface.LineTo(40, 90);
        surface.DrawPath();
        QPainterPath path;
        path.addPolygon(QPolygonF({{10, 10}, {100, 20}, {40, 90}}));
        twins.Direct().drawPath(path);
        EXPECT_TRUE(twins.SameWithState()) << bad;
    }
}

} // namespace
