// The arithmetic of strokes and curves against that of Qt.
#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

#include <QLineF>
#include <QPainterPath>
#include <QPolygonF>

#include <gtest/gtest.h>
#include <tests/support/RandomSource.h>
#include <txpluginqt/raster/ArcCurves.h>
#include <txpluginqt/raster/FlatOutline.h>
#include <txpluginqt/raster/LineAngle.h>

using namespace txqt;

namespace
{

constexpr double kRadians = 3.14159265358979323846 / 180.0;

double RandomMagnitude(RandomSource& random) { return std::pow(10.0, random.Real(-3.0, 4.0)); }

} // namespace

TEST(LineAngleTest, IsThatOfQt)
{
    RandomSource random(71);
    for (int i = 0; i < 200000; ++i)
    {
        const double size = RandomMagnitude(random);
        const double direction =
            random.Chance(70) ? random.Real(0.0, 360.0) : 15.0 * random.Int(0, 24) + random.OneOf({0.0, 1e-13, -1e-9});
        const QPointF start(random.Real(-1000.0, 1000.0), random.Real(-1000.0, 1000.0));
        const QLineF line(start,
                          start + QPointF(std::cos(direction * kRadians), std::sin(direction * kRadians)) * size);
        const double angle = LineAngle(line);
        EXPECT_GE(angle, 0.0);
        EXPECT_LT(angle, 360.0);
        const double difference = std::abs(angle - line.angle());
        EXPECT_LE(std::min(difference, 360.0 - difference), 1.2e-13) << i << ", direction " << direction;
    }
}

TEST(LineAngleTest, IsExactWhereCurvesAreCut)
{
    for (const double size : {0.25, 1.0, 3.0, 1e5})
        for (const double x : {-size, 0.0, size})
            for (const double y : {-size, 0.0, size})
            {
                const QLineF line(7.0, 5.0, 7.0 + x, 5.0 + y);
                EXPECT_EQ(LineAngle(line), line.angle()) << x << ", " << y;
            }
}

TEST(LineAngleTest, TakesAnyNumbers)
{
    constexpr double kLeast = std::numeric_limits<double>::denorm_min();
    constexpr double kEndless = std::numeric_limits<double>::infinity();
    for (const double x : {3 * kLeast, 1e-300, -1e-300, 1e-99, 1e200, -1e300, kEndless, -kEndless})
        for (const double y : {0.0, kLeast, 1e-300, 1e-101, 1.0, 1e300, kEndless, -kEndless})
        {
            const QLineF line(0.0, 0.0, x, y);
            EXPECT_DOUBLE_EQ(LineAngle(line), line.angle()) << x << ", " << y;
        }
}

TEST(ArcCurvesTest, AreThoseOfQt)
{
    RandomSource random(72);
    for (int i = 0; i < 100000; ++i)
    {
        const QPointF focus(random.Real(-500.0, 500.0), random.Real(-500.0, 500.0));
        const double radius = RandomMagnitude(random) / 10.0;
        const double start = random.Chance(70) ? random.Real(0.0, 450.0)
                                               : 30.0 * random.Int(0, 15) + random.OneOf({0.0, 1e-12, -1e-7, 0.01});
        const double sweep = -(random.Chance(50)   ? random.Real(0.0, 360.0)
                               : random.Chance(50) ? random.Real(0.0, 5.0)
                                                   : 45.0 * random.Int(0, 8));
        const ArcCurves arc = CurvesOfArc(focus, radius, start, sweep);

        QPainterPath path;
        const QRectF box(focus.x() - radius, focus.y() - radius, radius * 2, radius * 2);
        path.arcMoveTo(box, start);
        path.arcTo(box, start, sweep);
        // Qt's paths leave out curves that are a point.
        QPainterPath found(path.elementAt(0));
        for (int k = 0; k < arc.count; k += 3)
            found.cubicTo(arc.points[k], arc.points[k + 1], arc.points[k + 2]);
        ASSERT_EQ(found.elementCount(), path.elementCount()) << i << ", start " << start << ", sweep " << sweep;
        // Near the ends of a quarter Qt's own numbers are no more exact.
        const double tolerance = 1e-13 * (500.0 + radius) + 1e-12 * radius;
        for (int k = 0; k < path.elementCount(); ++k)
        {
            const QPointF difference = QPointF(found.elementAt(k)) - QPointF(path.elementAt(k));
            EXPECT_LE(difference.manhattanLength(), tolerance) << i << ", point " << k << ", start " << start;
        }
    }
}

TEST(FlatOutlineTest, HasThePointsOfQt)
{
    RandomSource random(73);
    FlatOutline flat;
    for (int i = 0; i < 50000; ++i)
    {
        const double size = RandomMagnitude(random);
        const bool isRounded = random.Chance(30);
        const auto coordinate = [&]
        {
            const double value = random.Real(-size, size);
            return isRounded ? std::floor(value * 4.0) / 4.0 : value;
        };
        QPainterPath path(QPointF(coordinate(), coordinate()));
        const int curves = random.Int(1, 3);
        for (int k = 0; k < curves; ++k)
        {
            const QPointF control1(coordinate(), coordinate());
            const QPointF control2(coordinate(), coordinate());
            path.cubicTo(control1, control2, QPointF(coordinate(), coordinate()));
        }
        if (path.elementCount() == 1) // Curves that are a point were left out.
            continue;
        std::vector<QPointF> points;
        std::vector<QPainterPath::ElementType> kinds;
        for (int k = 0; k < path.elementCount(); ++k)
        {
            points.emplace_back(path.elementAt(k));
            kinds.push_back(path.elementAt(k).type);
        }
        constexpr double qtsFlatness = 0.5;
        flat.Flatten(points.data(), kinds.data(), static_cast<int>(points.size()), qtsFlatness);

        const QList<QPolygonF> expected = path.toSubpathPolygons();
        ASSERT_EQ(expected.size(), 1);
        const QVector<QPointF> found(flat.Points().begin(), flat.Points().end());
        ASSERT_EQ(found.size(), expected[0].size()) << i;
        // Not by Qt's comparison, which is fuzzy.
        for (int k = 0; k < found.size(); ++k)
            EXPECT_TRUE(found[k].x() == expected[0][k].x() && found[k].y() == expected[0][k].y())
                << i << ", point " << k;
    }
}
