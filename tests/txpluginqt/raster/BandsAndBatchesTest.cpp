// Where the rasteriser divides its work: bands of rows, and batches of spans on their way to Qt, against QPainter.
#include <vector>

#include <QLinearGradient>
#include <QPainter>
#include <QRadialGradient>

#include <gtest/gtest.h>
#include <tests/support/Drawn.h>
#include <tests/support/ImageCompare.h>
#include <tests/support/RandomSource.h>
#include <txpluginqt/raster/Drawing.h>

using namespace txqt;

namespace
{

::testing::AssertionResult DrawnAlike(const QSize& size, const std::vector<QPointF>& points, const QBrush& brush)
{
    const auto count = static_cast<int>(points.size());
    const auto drawn = [&](auto draw)
    {
        return Drawn(size, QImage::Format_ARGB32_Premultiplied,
                     [&](QPainter& painter)
                     {
                         painter.setPen(Qt::NoPen);
                         painter.setBrush(brush);
                         draw(painter);
                     });
    };
    // Qt draws a gradient in another way for the first time.
    drawn([&](QPainter& painter) { painter.drawPolygon(points.data(), count); });
    return SamePixels(drawn([&](QPainter& painter) { DrawPolygon(painter, points.data(), count, Qt::OddEvenFill); }),
                      drawn([&](QPainter& painter) { painter.drawPolygon(points.data(), count); }));
}

template <class Gradient>
QBrush WithColors(Gradient gradient)
{
    gradient.setColorAt(0.0, QColor(250, 230, 10, 200));
    gradient.setColorAt(0.4, QColor(200, 10, 90, 90));
    gradient.setColorAt(1.0, QColor(10, 30, 90));
    return gradient;
}

TEST(BandsTest, TouchAndDoNotOverlap)
{
    // Some of half a million pixels each. What is drawn twice shows where it lets the background through.
    const QSize size(3000, 700);
    const std::vector<QPointF> points = {{10.0, 3.0},     {2990.0, 20.5}, {2700.0, 350.0},
                                         {2995.5, 695.0}, {20.0, 690.0},  {400.0, 333.0}};
    EXPECT_TRUE(DrawnAlike(size, points, QColor(200, 30, 60, 130)));
    EXPECT_TRUE(DrawnAlike(size, points, WithColors(QLinearGradient(3.0, 4.0, 1700.0, 500.0))));
}

TEST(BatchesTest, EndWhereThoseOfQtEnd)
{
    // Flat edges cover each pixel of a row in another way, so that rows have many spans, which touch; a gradient is
    // computed anew where a batch cuts them.
    const QSize size(700, 24);
    RandomSource random(12);
    for (int i = 0; i < 300; ++i)
    {
        const auto point = [&]
        {
            const double x = random.Real(0.0, 700.0);
            return QPointF(x, random.Real(0.0, 24.0));
        };
        const std::vector<QPointF> points = {{random.Real(0.0, 40.0), random.Real(0.0, 5.0)},
                                             {random.Real(600.0, 700.0), random.Real(5.0, 12.0)},
                                             {random.Real(600.0, 700.0), random.Real(12.0, 18.0)},
                                             {random.Real(0.0, 40.0), random.Real(18.0, 24.0)}};
        const QPointF from = point();
        const QBrush brush = random.Chance(50) ? WithColors(QLinearGradient(from, point()))
                                               : WithColors(QRadialGradient(from, random.Real(50.0, 700.0)));
        EXPECT_TRUE(DrawnAlike(size, points, brush)) << i;
    }
}

} // namespace
