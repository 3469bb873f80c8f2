// Shapes of many rings, drawn from the host's own points, against QPainter's own operation.
#include <cmath>
#include <functional>

#include <QPainter>

#include <gtest/gtest.h>
#include <tests/support/Drawn.h>
#include <tests/support/ImageCompare.h>
#include <tests/support/Twins.h>
#include <txpluginqt/raster/RingShape.h>

#include "RandomPaths.h"

using namespace txqt;
using TZObjects::TXPoint;

namespace
{

using Change = std::function<void(QPainter&)>;

struct Shape
{
    std::vector<TXPoint> points;
    std::vector<int> counts;
    QPainterPath path;

    void Add(const std::vector<QPointF>& ring)
    {
        counts.push_back(static_cast<int>(ring.size()));
        for (const QPointF& point : ring)
            points.emplace_back(point.x(), point.y());
        if (!ring.empty())
            path.addPolygon(QPolygonF(QVector<QPointF>(ring.begin(), ring.end())));
    }
    void AddBox(double left, double top, double right, double bottom)
    {
        Add({{left, top}, {right, top}, {right, bottom}, {left, bottom}, {left, top}});
    }
    void Draw(QPainter& painter) const
    {
        EXPECT_TRUE(RingShape(points.data(), counts.data(), static_cast<int>(counts.size())).DrawInPlace(painter));
    }
};

QImage Drawn(QImage::Format format, const Change& change, const Change& draw)
{
    return ::Drawn(QSize(120, 90), format,
                   [&](QPainter& p)
                   {
                       change(p);
                       draw(p);
                   });
}

class ManyRingsTest : public ::testing::Test
{
protected:
    ::testing::AssertionResult DrawnAsPainted(const Shape& shape, const Change& change,
                                              QImage::Format format = QImage::Format_ARGB32_Premultiplied)
    {
        const QImage directly = Drawn(format, change, [&](QPainter& p) { p.drawPath(shape.path); });
        inked += directly != Drawn(format, change, [](QPainter&) {});
        return SamePixels(Drawn(format, change, [&](QPainter& p) { shape.Draw(p); }), directly);
    }

    int inked = 0;
};

/// Rings beside, over and within one another, in any order; none of one point, which a path drops.
Shape SomeShape(RandomPaths& random)
{
    Shape shape;
    const int count = random.Chance(10) ? random.Int(100, 250) : random.Int(1, 24);
    const double size = random.Chance(20) ? 1.0 : random.Chance(15) ? 50.0 : random.Real(2.0, 14.0);
    const int spread = random.Chance(80) ? 100 : 30;
    const bool onEdges = random.Chance(25);
    // A path of single segments only is drawn by another route.
    shape.Add({{3.3, 2.2}, {9.1, 4.4}, {5.0, 8.8}});
    for (int i = 0; i < count; ++i)
    {
        QPointF at(random.Real(-10, spread), random.Real(-10, spread * 0.8));
        if (onEdges)
            at = QPointF(std::round(at.x() / 4.0) * 4.0, std::round(at.y() / 4.0) * 4.0);
        switch (random.Int(0, 9))
        {
        case 0:
        case 1:
            shape.Add({at, at + QPointF(random.Real(-size, size), random.Real(-size, size))});
            break;
        case 2:
            shape.Add({});
            break;
        case 3:
        case 4:
            shape.AddBox(at.x(), at.y(), at.x() + 4.0, at.y() + 4.0);
            break;
        case 5:
            // A ring around much of the others.
            if (random.Chance(20))
                shape.AddBox(at.x(), at.y(), at.x() + 60.0, at.y() + 40.0);
            break;
        default:
        {
            std::vector<QPointF> ring;
            const int corners = random.Int(3, 9);
            for (int k = 0; k < corners; ++k)
                ring.push_back(at + QPointF(random.Real(0.0, size), random.Real(0.0, size)));
            if (random.Chance(70))
                ring.push_back(ring.front());
            shape.Add(ring);
        }
        }
    }
    if (random.Chance(3))
        shape.AddBox(17000.0, 20.0, 17010.0, 30.0);
    return shape;
}

QPen SomePen(RandomPaths& random)
{
    if (random.Chance(35))
        return Qt::NoPen;
    static constexpr double widths[] = {0.0, 0.6, 1.0, 1.01, 1.5, 3.0, 8.0};
    static constexpr Qt::PenJoinStyle joins[] = {Qt::MiterJoin, Qt::BevelJoin, Qt::RoundJoin, Qt::SvgMiterJoin};
    static constexpr Qt::PenCapStyle caps[] = {Qt::FlatCap, Qt::SquareCap, Qt::RoundCap};
    QPen pen(random.NextBrush(), widths[random.Int(0, 6)], Qt::SolidLine, caps[random.Int(0, 2)],
             joins[random.Int(0, 3)]);
    if (random.Chance(15))
        pen.setStyle(static_cast<Qt::PenStyle>(random.Int(Qt::DashLine, Qt::DashDotDotLine)));
    pen.setMiterLimit(random.Real(0.0, 8.0));
    pen.setCosmetic(random.Chance(10));
    return pen;
}

TEST_F(ManyRingsTest, RandomShapesAreDrawnAsPainted)
{
    constexpr int kCases = 4000;
    for (int i = 0; i < kCases; ++i)
    {
        RandomPaths random(90000u + static_cast<unsigned>(i));
        const Shape shape = SomeShape(random);
        const QBrush brush = random.Chance(15)   ? QBrush(Qt::NoBrush)
                             : random.Chance(10) ? QBrush(QColor(10, 20, 30, 0))
                                                 : random.NextBrush();
        const QPen pen = SomePen(random);
        const QTransform transform = random.NextTransform();
        const Change state = random.NextState();
        const Change change = [&](QPainter& p)
        {
            state(p);
            p.setTransform(transform);
            p.setBrush(brush);
            p.setPen(pen);
        };
        constexpr QImage::Format formats[] = {QImage::Format_ARGB32_Premultiplied, QImage::Format_ARGB32,
                                              QImage::Format_RGB32, QImage::Format_RGB16};
        // Edges of gradients are not always the same on pixels that are not premultiplied, whoever paints them.
        const bool hasGradient = brush.gradient() || pen.brush().gradient();
        ASSERT_TRUE(DrawnAsPainted(shape, change, hasGradient ? formats[0] : formats[i % 4])) << "case " << i;
    }
    EXPECT_GE(inked, kCases * 6 / 10);
}

TEST_F(ManyRingsTest, RingsThatTouchAtEdgesOfPixelsAreDrawnAsPainted)
{
    for (const double gap : {0.0, 1e-9, 1.0 / 256, 1.0 / 64, 1.0 / 33, 1.0 / 32, 0.5, 0.99, 1.0, 1.5, 2.0, 2.5})
        for (int place = 0; place <= 64; ++place)
            for (const double width : {0.0, 2.5})
            {
                const double edge = 40.0 + place / 64.0 - 1.0 / 128.0;
                Shape shape;
                shape.AddBox(5.0, 5.0, edge, 15.0);
                shape.AddBox(edge + gap, 8.0, 60.0, 19.0);
                shape.AddBox(5.0, 15.0 + gap, 20.0, 22.0);
                shape.AddBox(70.0, 50.0, 80.0, 60.0);
                shape.AddBox(20.0 + gap, 30.0, 33.0, 40.0 + gap);
                QLinearGradient gradient(0.0, 0.0, 110.0, 37.0);
                gradient.setColorAt(0.0, QColor(200, 30, 60, 90));
                gradient.setColorAt(1.0, Qt::green);
                const Change change = [&](QPainter& p)
                {
                    p.setBrush(place % 2 ? QBrush(gradient) : QBrush(QColor(200, 30, 60, 90)));
                    p.setPen(width > 0.0 ? QPen(QBrush(gradient), width) : QPen(Qt::NoPen));
                };
                ASSERT_TRUE(DrawnAsPainted(shape, change)) << gap << ' ' << place;
            }
}

TEST_F(ManyRingsTest, SharpCornersReachTheirNeighbours)
{
    for (const Qt::PenJoinStyle join : {Qt::MiterJoin, Qt::SvgMiterJoin})
        for (const double limit : {1.0, 4.0, 20.0})
            for (int between = 0; between < 60; between += 2)
            {
                Shape shape;
                for (int k = 0; k < 2; ++k)
                {
                    shape.Add({{10.0, 10.0 + k * 30}, {30.0, 12.0 + k * 30}, {10.0, 14.0 + k * 30}});
                    shape.AddBox(32.0 + between, 5.0 + k * 30, 36.0 + between, 20.0 + k * 30);
                }
                const Change change = [&](QPainter& p)
                {
                    p.setBrush(Qt::NoBrush);
                    QPen pen(QColor(200, 30, 60, 90), 4.0, Qt::SolidLine, Qt::FlatCap, join);
                    pen.setMiterLimit(limit);
                    p.setPen(pen);
                };
                ASSERT_TRUE(DrawnAsPainted(shape, change)) << limit << ' ' << between;
            }
}

/// Many rings on a wide image, in two ways.
::testing::AssertionResult WideShapeDrawnAsPainted(const QBrush& brush, const QPen& pen, unsigned seed)
{
    RandomPaths random(seed);
    Shape shape;
    for (int i = 0; i < 300; ++i)
    {
        const QPointF at(random.Real(-20.0, 2000.0), random.Real(-20.0, 400.0));
        shape.Add({at, at + QPointF(random.Real(5.0, 60.0), random.Real(-10.0, 10.0)),
                   at + QPointF(random.Real(0.0, 30.0), random.Real(10.0, 40.0)), at});
    }
    QImage actual(2000, 400, QImage::Format_ARGB32_Premultiplied);
    PaintBackground(actual);
    QImage expected = actual.copy();
    for (QImage* const image : {&actual, &expected})
    {
        QPainter painter(image);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setBrush(brush);
        painter.setPen(pen);
        if (image == &actual)
            shape.Draw(painter);
        else
            painter.drawPath(shape.path);
    }
    return SamePixels(actual, expected);
}

TEST(WideRingsTest, OfGradientsAndTurnedTexturesAreDrawnAsPainted)
{
    QLinearGradient linear(30.0, 20.0, 1900.0, 300.0);
    for (int i = 0; i <= 6; ++i)
        linear.setColorAt(i / 6.0, QColor::fromHsv(i * 50, 200, 220, 100 + i * 20));
    QRadialGradient radial(900.0, 200.0, 700.0);
    radial.setStops(linear.stops());
    QConicalGradient conical(800.0, 150.0, 33.0);
    conical.setStops(linear.stops());
    QImage picture(37, 23, QImage::Format_ARGB32_Premultiplied);
    PaintBackground(picture);
    QBrush texture(picture);
    texture.setTransform(QTransform().rotate(31.0).scale(1.3, 0.8));
    unsigned seed = 0;
    for (const QBrush& brush : {QBrush(linear), QBrush(radial), QBrush(conical), texture})
    {
        EXPECT_TRUE(WideShapeDrawnAsPainted(brush, Qt::NoPen, ++seed));
        EXPECT_TRUE(WideShapeDrawnAsPainted(Qt::NoBrush, QPen(brush, 4.0), ++seed));
        EXPECT_TRUE(WideShapeDrawnAsPainted(brush, QPen(QColor(20, 30, 40, 150), 2.5), ++seed));
    }
}

TEST(WideRingsTest, OfNegativeMiterLimitsAreDrawnAsPainted)
{
    for (const double limit : {-1.0, -5.0, -40.0})
        for (unsigned seed = 0; seed < 5; ++seed)
        {
            QPen pen(QColor(20, 30, 40, 150), 4.0, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin);
            pen.setMiterLimit(limit);
            EXPECT_TRUE(WideShapeDrawnAsPainted(QColor(200, 30, 40, 90), pen, seed));
        }
}

} // namespace
