// Lines of at most one pixel, which go straight into the picture, against QPainter.
#include <limits>
#include <vector>

#include <QLinearGradient>
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

constexpr int kWidth = 50;
constexpr int kHeight = 40;

/// Within the picture, on or beside one of its sides, or beyond.
double Coordinate(RandomSource& random, int side)
{
    switch (random.Int(0, 9))
    {
    case 0:
        return random.Int(-1, 1) + (random.Chance(50) ? side : 0);
    case 1:
        return random.Int(-2, 2) / 64.0 + (random.Chance(50) ? side : 0);
    case 2:
        return random.Int(0, 4) * side / 4;
    case 3:
        return random.Real(-3000.0, 3000.0);
    case 4:
        return random.Chance(80) ? random.Real(-40000.0, 40000.0) : random.OneOf({1e9, -1e12});
    default:
        return random.Real(-5.0, side + 5.0);
    }
}

QPointF Point(RandomSource& random)
{
    const double x = Coordinate(random, kWidth);
    return {x, Coordinate(random, kHeight)};
}

std::vector<QPointF> Points(RandomSource& random)
{
    std::vector<QPointF> points;
    const int count = random.Int(2, 5);
    for (int i = 0; i < count; ++i)
        points.push_back(Point(random));
    switch (random.Int(0, 5))
    {
    case 0:
        points.back() = points.front();
        break;
    case 1:
        points.back().setX(points.front().x());
        break;
    case 2:
        points.back().setY(points.front().y());
        break;
    default:
        break;
    }
    if (random.Chance(3))
        points[1].setX(
            random.OneOf({std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity(), 1e300}));
    return points;
}

QPainterPath Path(RandomSource& random)
{
    QPainterPath path(Point(random));
    for (int i = 0; i < 3; ++i)
    {
        const QPointF control1 = Point(random);
        const QPointF control2 = Point(random);
        if (random.Chance(20))
            path.lineTo(control1);
        else if (random.Chance(20))
            path.moveTo(control1);
        else // Some come back to where they begin.
            path.cubicTo(control1, control2, random.Chance(20) ? path.currentPosition() : Point(random));
    }
    if (random.Chance(20))
        path.closeSubpath();
    return path;
}

void Prepare(QPainter& painter, RandomSource& random)
{
    const auto rect = [&]
    { return QRect(random.Int(-5, 40), random.Int(-5, 30), random.Int(1, 45), random.Int(1, 35)); };
    switch (random.Int(0, 7))
    {
    case 0:
    case 1:
        painter.setClipRect(rect());
        break;
    case 2:
        painter.setClipRect(0, 0, kWidth, kHeight);
        break;
    case 3:
        painter.setClipRect(rect());
        painter.setClipping(false);
        break;
    case 4:
        painter.setClipRect(random.Chance(50) ? QRect(10, 10, 0, 0) : QRect(90, 90, 9, 9));
        break;
    default:
        break;
    }
    const double scale = random.OneOf({0.2, 0.7, 1.0, 1.0, 3.0});
    painter.scale(scale, scale);
    QPen pen(QColor(200, 30, 60, random.OneOf({90, 200, 255})), random.OneOf({0.0, 0.3, 0.5, 1.0}));
    if (random.Chance(10))
    {
        QLinearGradient gradient(3.0, 4.0, 40.0, 20.0);
        gradient.setColorAt(0.0, Qt::red);
        gradient.setColorAt(1.0, Qt::blue);
        pen.setBrush(gradient);
    }
    pen.setCosmetic(random.Chance(40));
    pen.setCapStyle(random.OneOf({Qt::FlatCap, Qt::SquareCap, Qt::RoundCap}));
    if (random.Chance(5))
        pen.setStyle(Qt::DashLine);
    painter.setPen(pen);
    if (random.Chance(20))
        painter.setOpacity(0.6);
}

TEST(HairlineTest, IsThatOfQt)
{
    constexpr int kCases = 6000;
    int inked = 0;
    for (int i = 0; i < kCases; ++i)
    {
        RandomSource random(static_cast<unsigned>(i));
        const QImage::Format format =
            random.OneOf({QImage::Format_ARGB32_Premultiplied, QImage::Format_ARGB32_Premultiplied,
                          QImage::Format_RGB32, QImage::Format_ARGB32});
        const std::vector<QPointF> points = Points(random);
        const auto count = static_cast<int>(points.size());
        const QPainterPath path = Path(random);
        const RandomSource start = random;
        const auto drawn = [&](auto draw)
        {
            return Drawn(QSize(kWidth, kHeight), format,
                         [&](QPainter& painter)
                         {
                             RandomSource same = start;
                             Prepare(painter, same);
                             draw(painter);
                         });
        };
        const QImage directly = drawn(
            [&](QPainter& painter)
            {
                painter.drawPolyline(points.data(), count);
                painter.drawPath(path);
                painter.drawPolygon(points.data(), count);
            });
        const QImage rasterized = drawn(
            [&](QPainter& painter)
            {
                DrawPolyline(painter, points.data(), count);
                DrawPath(painter, path);
                DrawPolygon(painter, points.data(), count, Qt::OddEvenFill);
            });
        inked += directly != drawn([](QPainter&) {});
        EXPECT_TRUE(SamePixels(rasterized, directly)) << i;
    }
    EXPECT_GE(inked, kCases * 6 / 10);
}

TEST(HairlineTest, CrossesLargePicturesAsThatOfQt)
{
    // Beyond 512 pixels a slope needs more than 32 bits on the way, and large curves are split as often as may be.
    const QSize size(1400, 1300);
    RandomSource random(8);
    for (int i = 0; i < 60; ++i)
    {
        const auto point = [&]
        {
            const double x = random.Real(-100.0, 1500.0);
            return QPointF(x, random.Real(-100.0, 1400.0));
        };
        QPainterPath path(point());
        path.lineTo(point());
        for (int k = 0; k < 2; ++k)
        {
            const QPointF control1 = point() * 4.0;
            const QPointF control2 = point() * -3.0;
            path.cubicTo(control1, control2, point());
        }
        const auto drawn = [&](auto draw)
        {
            return Drawn(size, QImage::Format_ARGB32_Premultiplied,
                         [&](QPainter& painter)
                         {
                             painter.setPen(QPen(QColor(200, 30, 60, 200), 1.0));
                             draw(painter);
                         });
        };
        EXPECT_TRUE(SamePixels(drawn([&](QPainter& painter) { DrawPath(painter, path); }),
                               drawn([&](QPainter& painter) { painter.drawPath(path); })))
            << i;
    }
}

} // namespace
