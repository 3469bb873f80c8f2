// Outlines of strokes under a magnifier, where a small difference of a point is one of pixels, against QPainter.
#include <cmath>
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

} // namespace
