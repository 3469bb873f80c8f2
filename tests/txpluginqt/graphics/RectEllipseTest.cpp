#include <cmath>

#include "RandomCases.h"
#include "SurfaceTest.h"

using namespace TZObjects;

namespace
{

int Truncated(double value) { return static_cast<int>(value); }

class RectangleTest : public SurfaceTest
{
};

class EllipseTest : public SurfaceTest
{
protected:
    static void DrawExpected(QPainter& painter, double cx, double cy, double width, double height, int angle, bool fill)
    {
        painter.save();
        painter.translate(cx, cy);
        if (std::abs(width - height) > 1e-5 && angle != 0)
            painter.rotate(angle);
        if (!fill)
            painter.setBrush(Qt::NoBrush);
        painter.drawEllipse(
            QRect(Truncated(0 - width * 0.5), Truncated(0 - height * 0.5), Truncated(width), Truncated(height)));
        painter.restore();
    }
};

TEST_F(RectangleTest, TruncatesAllFourNumbers)
{
    ForRandomCases(10, 400,
                   [](Random& random, Twins& twins)
                   {
                       const double x = random.Coordinate();
                       const double y = random.Coordinate();
                       const double width = random.Length();
                       const double height = random.Length();
                       EXPECT_TRUE(twins.Surface().Rectangle(x, y, width, height));
                       const QRect rect(Truncated(x), Truncated(y), Truncated(width), Truncated(height));
                       twins.Direct().drawRects(&rect, 1);
                   });
}

TEST_F(RectangleTest, TruncatesTowardZero)
{
    Twins twins;
    twins.Both([](QPainter& painter) { painter.translate(60, 60); });
    EXPECT_TRUE(twins.Surface().Rectangle(-10.9, -0.9, 30.9, 20.999));
    twins.Direct().drawRect(-10, 0, 30, 20);
    EXPECT_TRUE(twins.SameWithState());
}

TEST_F(RectangleTest, LargeNumbersAreExact)
{
    Twins twins;
    twins.Both(
        [](QPainter& painter)
        {
            QPen pen(Qt::black, 2.0);
            pen.setCosmetic(true);
            painter.setPen(pen);
            painter.scale(1e-7, 1e-7);
        });
    EXPECT_TRUE(twins.Surface().Rectangle(1e8, 2.5e8, 1e9, 7e8));
    twins.Direct().drawRect(100000000, 250000000, 1000000000, 700000000);
    EXPECT_TRUE(twins.Surface().Line(1.5e8, 1e9, 1.05e9, 2e8));
    twins.Direct().drawLine(150000000, 1000000000, 1050000000, 200000000);
    EXPECT_TRUE(twins.Surface().Ellipse(TXPoint(5e8, 5e8), 300000000, 200000000));
    twins.Direct().drawEllipse(QPoint(500000000, 500000000), 300000000, 200000000);
    EXPECT_TRUE(twins.SameWithState());
}

TEST_F(RectangleTest, TakesEdgesAsWell)
{
    Twins twins;
    EXPECT_TRUE(twins.Surface().Rectangle(TXRect(10.5, 60.25, 20.75, 90.5)));
    twins.Direct().drawRect(10, 20, 49, 69);
    EXPECT_TRUE(twins.SameWithState());
}

TEST_F(EllipseTest, OfWholeRadiiTruncatesTheCentre)
{
    ForRandomCases(11, 400,
                   [](Random& random, Twins& twins)
                   {
                       const TXPoint centre = random.Point();
                       const int radiusX = random.Chance(90) ? random.Int(0, 60) : random.Int(-20, 5000);
                       const int radiusY = random.Chance(90) ? random.Int(0, 60) : random.Int(-20, 5000);
                       EXPECT_TRUE(twins.Surface().Ellipse(centre, radiusX, radiusY));
                       twins.Direct().drawEllipse(QPoint(Truncated(centre.x), Truncated(centre.y)), radiusX, radiusY);
                   });
}

TEST_F(EllipseTest, OfDiametersIsRotatedAboutItsCentre)
{
    ForRandomCases(12, 400,
                   [](Random& random, Twins& twins)
                   {
                       const TXPoint centre = random.Point();
                       const double width = random.Length();
                       const double height = random.Chance(25) ? width : random.Length();
                       const int angle = random.Chance(20) ? 0 : random.Int(-400, 400);
                       const bool fill = random.Chance(50);
                       EXPECT_TRUE(twins.Surface().Ellipse(centre.x, centre.y, width, height, angle, fill));
                       DrawExpected(twins.Direct(), centre.x, centre.y, width, height, angle, fill);
                   });
}

TEST_F(EllipseTest, IsNeverRotatedWhenItIsACircle)
{
    // Rotating a circle moves its antialiased edge and the ends of its dashes.
    for (const double difference : {0.0, 0.9e-5, -0.9e-5})
    {
        Twins twins;
        twins.Both([](QPainter& painter) { painter.setPen(QPen(Qt::black, 3.0, Qt::DashLine)); });
        EXPECT_TRUE(twins.Surface().Ellipse(50, 50, 40.5, 40.5 + difference, 30, true));
        twins.Direct().drawEllipse(QRect(30, 30, 40, 40));
        EXPECT_TRUE(twins.SameWithState()) << difference;
    }
    for (const double difference : {1.5e-5, -1.5e-5})
    {
        Twins twins;
        twins.Both([](QPainter& painter) { painter.setPen(QPen(Qt::black, 3.0, Qt::DashLine)); });
        EXPECT_TRUE(twins.Surface().Ellipse(50, 50, 40.5, 40.5 + difference, 30, true));
        DrawExpected(twins.Direct(), 50, 50, 40.5, 40.5 + difference, 30, true);
        EXPECT_TRUE(twins.SameWithState()) << difference;
        Twins level;
        level.Both([](QPainter& painter) { painter.setPen(QPen(Qt::black, 3.0, Qt::DashLine)); });
        level.Direct().drawEllipse(QRect(30, 30, 40, 40));
        EXPECT_NE(twins.Actual(), level.Expected()) << "a rotation by 30 degrees does not show";
    }
}

TEST_F(EllipseTest, WithoutFillLeavesTheBrushForLater)
{
    Twins twins;
    EXPECT_TRUE(twins.Surface().Ellipse(50, 50, 40, 20, 30, false));
    twins.Direct().save();
    twins.Direct().translate(50, 50);
    twins.Direct().rotate(30);
    twins.Direct().setBrush(Qt::NoBrush);
    twins.Direct().drawEllipse(QRect(-20, -10, 40, 20));
    twins.Direct().restore();
    EXPECT_TRUE(twins.SameWithState());
    EXPECT_EQ(twins.SurfacePainter().brush().style(), Qt::SolidPattern);
}

TEST_F(EllipseTest, TurnsClockwise)
{
    Twins twins;
    twins.Both([](QPainter& painter) { painter.setBrush(Qt::black); });
    EXPECT_TRUE(twins.Surface().Ellipse(80, 60, 80, 10, 45, true));
    EXPECT_EQ(twins.Actual().pixel(100, 80), qRgb(0, 0, 0));
    EXPECT_NE(twins.Actual().pixel(100, 40), qRgb(0, 0, 0));
}

TEST_F(EllipseTest, TakesEdgesAsWell)
{
    for (const bool fill : {false, true})
    {
        Twins twins;
        EXPECT_TRUE(twins.Surface().Ellipse(TXRect(20.5, 101.0, 30.25, 71.0), 40, fill));
        DrawExpected(twins.Direct(), 60.75, 50.625, 80.5, 40.75, 40, fill);
        EXPECT_TRUE(twins.SameWithState());
    }
}

} // namespace
