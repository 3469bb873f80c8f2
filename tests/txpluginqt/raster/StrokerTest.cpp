// Outlines of strokes under a magnifier, where a small difference of a point is one of pixels, against QPainter.
#include <cmath>
#include <limits>
#include <vector>

#include <QPainter>
#include <QPainterPath>

#include <gtest/gtest.h>
#include <tests/support/Drawn.h>
#include <tests/support/ImageCompare.h>
#include <tests/support/RandomSource.h>
#include <txpluginqt/raster/Drawing.h>

using namespace txqt;

namespace
{

constexpr double kRadians = 3.14159265358979323846 / 180.0;

/// A path, and a point of it to look at.
struct Looked
{
    QPainterPath path;
    QPointF at;
};

/// A turn in degrees such as strokers decide by: any, right, back, or close to these.
double Turn(RandomSource& random)
{
    const double close = random.OneOf({0.0, 1e-13, 1e-7, 0.001, 0.015, 0.05, 0.3}) * (random.Chance(50) ? 1.0 : -1.0);
    return random.Chance(40) ? random.Real(-180.0, 180.0) : random.OneOf({0.0, 90.0, -90.0, 180.0}) + close;
}

QPointF Ahead(const QPointF& from, double direction, double length)
{
    return from + QPointF(std::cos(direction * kRadians), std::sin(direction * kRadians)) * length;
}

Looked RandomPath(RandomSource& random)
{
    Looked looked;
    const QPointF start(random.Real(5.0, 30.0), random.Real(5.0, 30.0));
    looked.path.moveTo(start);
    looked.at = start;
    double direction = random.Chance(30) ? 0.0 : random.Real(0.0, 360.0);
    const int parts = random.Int(1, 5);
    for (int i = 0; i < parts; ++i)
    {
        const QPointF from = looked.path.currentPosition();
        const double length = random.Chance(25) ? random.Real(0.0, 0.2) : random.Real(1.0, 15.0);
        const QPointF to = Ahead(from, direction, length);
        if (random.Chance(65))
            looked.path.lineTo(to);
        else if (random.Chance(30)) // Handles that have no length.
            looked.path.cubicTo(random.Chance(50) ? from : to, to, to);
        else
        {
            const double turn = random.Real(-170.0, 170.0);
            looked.path.cubicTo(Ahead(from, direction, length * random.Real(0.0, 2.0)),
                                Ahead(to, direction + turn, length * random.Real(-1.0, 2.0)), to);
        }
        if (random.Chance(50))
            looked.at = looked.path.currentPosition();
        direction += Turn(random);
    }
    switch (random.Int(0, 4))
    {
    case 0:
        looked.path.closeSubpath();
        break;
    case 1: // Closed, if not to the last bit.
        looked.path.lineTo(start * (1.0 + random.OneOf({1e-15, 2e-13, 3e-12, 1e-11})));
        looked.at = start;
        break;
    case 2:
        looked.path.lineTo(start);
        break;
    default:
        break;
    }
    return looked;
}

QPen RandomPen(RandomSource& random)
{
    const double width = random.OneOf({0.02, 0.3, 1.0, 2.5, 6.0, 40.0, 900.0});
    QPen pen(QColor(200, 30, 60, 130), width);
    pen.setCapStyle(random.OneOf({Qt::FlatCap, Qt::SquareCap, Qt::RoundCap}));
    pen.setJoinStyle(random.OneOf({Qt::MiterJoin, Qt::SvgMiterJoin, Qt::BevelJoin, Qt::RoundJoin}));
    pen.setMiterLimit(random.OneOf({0.5, 1.0, 2.0, 10.0}));
    return pen;
}

TEST(StrokerTest, HasQtsOutlinesUnderAMagnifier)
{
    constexpr int kCases = 3000;
    int inked = 0;
    for (int i = 0; i < kCases; ++i)
    {
        RandomSource random(static_cast<unsigned>(i));
        const Looked looked = RandomPath(random);
        const QPen pen = RandomPen(random);
        const double scale = pen.widthF() > 6.0 ? 1.0 : random.OneOf({1.0, 8.0, 60.0, 400.0});
        // The side of the stroke, not its middle.
        const QPointF side = Ahead(QPointF(), random.Real(0.0, 360.0), pen.widthF() / 2);
        const auto drawn = [&](auto draw)
        {
            return Drawn(QSize(40, 40), QImage::Format_ARGB32_Premultiplied,
                         [&](QPainter& painter)
                         {
                             painter.translate(20.0, 20.0);
                             painter.scale(scale, scale);
                             painter.translate(-looked.at - side);
                             painter.setPen(pen);
                             draw(painter);
                         });
        };
        const QImage directly = drawn([&](QPainter& painter) { painter.drawPath(looked.path); });
        inked += directly != drawn([](QPainter&) {});
        ASSERT_TRUE(SamePixels(drawn([&](QPainter& painter) { DrawPath(painter, looked.path); }), directly)) << i;
    }
    EXPECT_GE(inked, kCases * 6 / 10);
}

/// Few numbers, so that points meet: the same one again, straight on, straight back, onto the start, or through zero,
/// next to which no number is close to another.
double Coordinate(RandomSource& random)
{
    const double beside = random.Chance(85) ? 0.0 : random.OneOf({1e-17, -1e-15, 1e-13, -1e-11, 1e-8});
    return random.Int(-2, 2) * 2.0 + beside;
}

QPointF Corner(RandomSource& random)
{
    const double x = Coordinate(random);
    return {x, Coordinate(random)};
}

std::vector<QPointF> Corners(RandomSource& random, double width)
{
    std::vector<QPointF> corners(static_cast<std::size_t>(random.Int(2, 6)));
    const bool isOnePoint = random.Chance(5);
    for (QPointF& corner : corners)
        corner = isOnePoint ? QPointF(2.0, 0.0) : Corner(random);
    if (random.Chance(40))
        corners.back() = corners.front();
    else if (random.Chance(30)) // As long as half the width, to the last digits.
        corners[1] = Ahead(corners[0], random.Real(0.0, 360.0), width / 2);
    return corners;
}

QPainterPath CornerPath(RandomSource& random)
{
    QPainterPath path(Corner(random));
    const int parts = random.Int(1, 6);
    for (int i = 0; i < parts; ++i)
    {
        const QPointF from = path.currentPosition();
        const QPointF to = Corner(random);
        const auto handle = [&]() -> QPointF
        {
            switch (random.Int(0, 7))
            {
            case 0:
                return from;
            case 1:
                return to;
            case 2: // Hardly a handle.
                return to + QPointF(1e-13, -1e-13);
            default:
                return Corner(random);
            }
        };
        if (random.Chance(55))
            path.lineTo(to);
        else if (random.Chance(15))
            path.moveTo(to);
        else
        {
            const QPointF control = handle();
            path.cubicTo(control, handle(), to);
        }
        if (random.Chance(15))
            path.closeSubpath();
    }
    return path;
}

TEST(StrokerTest, HasQtsOutlinesWherePointsMeet)
{
    constexpr int kCases = 6000;
    int inked = 0;
    for (int i = 0; i < kCases; ++i)
    {
        RandomSource random(static_cast<unsigned>(i));
        QPen pen = RandomPen(random);
        pen.setWidthF(random.OneOf({0.5, 1.0, 2.0, 4.0, 5.0}));
        if (random.Chance(20)) // That of a right angle.
            pen.setMiterLimit(std::sqrt(2.0));
        // Several with one painter, as strokers remember angles.
        const std::vector<QPointF> corners[] = {Corners(random, pen.widthF()), Corners(random, pen.widthF())};
        const QPainterPath path = CornerPath(random);
        const double scale = random.OneOf({4.0, 20.0, 300.0});
        const QPointF at = scale < 10.0 ? QPointF() : Corner(random) + Corner(random) / 4.0;
        const auto drawn = [&](auto draw)
        {
            return Drawn(QSize(60, 60), QImage::Format_ARGB32_Premultiplied,
                         [&](QPainter& painter)
                         {
                             painter.translate(30.0, 30.0);
                             painter.scale(scale, scale);
                             painter.translate(-at);
                             painter.setPen(pen);
                             draw(painter);
                         });
        };
        const auto count = [](const std::vector<QPointF>& points) { return static_cast<int>(points.size()); };
        const QImage directly = drawn(
            [&](QPainter& painter)
            {
                painter.drawPolyline(corners[0].data(), count(corners[0]));
                painter.drawPath(path);
                painter.drawPolygon(corners[1].data(), count(corners[1]));
            });
        const QImage rasterized = drawn(
            [&](QPainter& painter)
            {
                DrawPolyline(painter, corners[0].data(), count(corners[0]));
                DrawPath(painter, path);
                DrawPolygon(painter, corners[1].data(), count(corners[1]), Qt::OddEvenFill);
            });
        inked += directly != drawn([](QPainter&) {});
        EXPECT_TRUE(SamePixels(rasterized, directly)) << i;
    }
    EXPECT_GE(inked, kCases * 8 / 10);
}

TEST(StrokerTest, TakesNoAngleForThatOfAnotherStroke)
{
    // The last line of one stroke's outline and the first of another's begin or end at the same point.
    const QPen pen(QColor(200, 30, 60, 130), 2.0, Qt::SolidLine, Qt::FlatCap, Qt::RoundJoin);
    constexpr double kLength = 5.0;
    const QPointF directions[] = {{1.0, 0.0}, {0.0, 1.0}, {-1.0, 0.0}, {0.0, -1.0}};
    const auto normal = [](const QPointF& direction) { return QPointF(direction.y(), -direction.x()); };
    for (const QPointF& direction1 : directions)
        for (const QPointF& direction2 : directions)
            for (const bool endTogether : {false, true})
                for (const double turn : {-4.0, 4.0})
                {
                    const QPointF side1 = normal(direction1);
                    const QPointF side2 = normal(direction2);
                    const QPointF last = -side1;
                    const QPointF first = (endTogether ? (direction1 - direction2) * kLength : QPointF()) - side2;
                    const QPointF corner = first + direction2 * kLength;
                    const QPointF stroke1[] = {last + direction1 * kLength, last, last + side1 * turn};
                    const QPointF stroke2[] = {first, corner, corner + side2 * turn};
                    const auto drawn = [&](auto draw)
                    {
                        return Drawn(QSize(60, 60), QImage::Format_ARGB32_Premultiplied,
                                     [&](QPainter& painter)
                                     {
                                         painter.translate(30.0, 30.0);
                                         painter.scale(2.0, 2.0);
                                         painter.setPen(pen);
                                         draw(painter, stroke1);
                                         draw(painter, stroke2);
                                     });
                    };
                    EXPECT_TRUE(
                        SamePixels(drawn([](QPainter& p, const QPointF* points) { DrawPolyline(p, points, 3); }),
                                   drawn([](QPainter& p, const QPointF* points) { p.drawPolyline(points, 3); })))
                        << direction1.x() << ' ' << direction1.y() << ", " << direction2.x() << ' ' << direction2.y();
                }
}

TEST(StrokerTest, TakesPointsThatAreNoNumbers)
{
    constexpr double kNone = std::numeric_limits<double>::quiet_NaN();
    constexpr double kEndless = std::numeric_limits<double>::infinity();
    for (const Qt::PenJoinStyle join : {Qt::MiterJoin, Qt::SvgMiterJoin, Qt::BevelJoin, Qt::RoundJoin})
        for (const Qt::PenCapStyle cap : {Qt::FlatCap, Qt::SquareCap, Qt::RoundCap})
            for (const double odd : {kNone, kEndless, -kEndless, 1e300})
                for (int i = 0; i < 10; ++i)
                {
                    std::vector<QPointF> points = {{3.0, 4.0}, {20.0, 9.0}, {9.0, 27.0}, {25.0, 30.0}, {11.0, 2.0}};
                    QPointF& point = points[static_cast<std::size_t>(i / 2)];
                    i % 2 == 0 ? point.setX(odd) : point.setY(odd);
                    const QPen pen(QColor(200, 30, 60, 130), 3.5, Qt::SolidLine, cap, join);
                    const auto drawn = [&](auto draw)
                    {
                        return Drawn(QSize(40, 40), QImage::Format_ARGB32_Premultiplied,
                                     [&](QPainter& painter)
                                     {
                                         painter.setPen(pen);
                                         draw(painter);
                                     });
                    };
                    EXPECT_TRUE(SamePixels(drawn([&](QPainter& p) { DrawPolyline(p, points.data(), 5); }),
                                           drawn([&](QPainter& p) { p.drawPolyline(points.data(), 5); })))
                        << "join " << join << ", cap " << cap << ", " << odd << " at " << i;
                }
}

} // namespace
