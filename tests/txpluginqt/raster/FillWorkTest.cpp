// Filling costs what an outline contains, whatever its shape.
#include <cmath>
#include <vector>

#include <QPainter>
#include <QPainterPath>

#include <gtest/gtest.h>
#include <tests/support/RandomSource.h>
#include <txpluginqt/raster/Drawing.h>
#include <txpluginqt/raster/OutlineFill.h>

using namespace txqt;

namespace
{

/// Bands of half a million pixels.
constexpr double kBandPixels = 512.0 * 1024.0;

/// What an outline contains at most: the pixels that its edges go through.
double CrossedPixels(const std::vector<QPointF>& points)
{
    double crossed = 0.0;
    for (std::size_t i = 0; i < points.size(); ++i)
    {
        const QPointF edge = points[i] - points[i == 0 ? points.size() - 1 : i - 1];
        crossed += std::abs(edge.x()) + std::abs(edge.y()) + 3.0;
    }
    return crossed;
}

/// Fills a polygon, and expects no more work than it contains.
void ExpectLinearWork(const std::vector<QPointF>& points, const QSize& size)
{
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::red);
    QPainterPath path;
    path.addPolygon(QPolygonF(QVector<QPointF>(points.begin(), points.end())));
    DrawPath(painter, path);
    const FillWork work = LastFillWork();
    const double bands = std::ceil(double(size.width() + 1) * size.height() / kBandPixels);
    EXPECT_GT(work.edges, 0U);
    EXPECT_LE(static_cast<double>(work.edges), static_cast<double>(points.size() + 1) * bands);
    EXPECT_LE(static_cast<double>(work.cells), CrossedPixels(points));
}

std::vector<QPointF> RandomPoints(int count, double width, double height)
{
    RandomSource random(5);
    std::vector<QPointF> points;
    for (int i = 0; i < count; ++i)
        points.emplace_back(random.Real(0.0, width), random.Real(0.0, height));
    return points;
}

TEST(FillWorkTest, OfRandomPointsIsThatOfTheirEdges)
{
    ExpectLinearWork(RandomPoints(1500, 2000.0, 1000.0), QSize(2000, 1000));
}

TEST(FillWorkTest, OfALongZigzagIsThatOfItsEdges)
{
    std::vector<QPointF> points;
    for (int i = 0; i < 400; ++i)
        points.emplace_back(i % 2 ? 32700.0 : 0.0, i * 4.0 / 400.0);
    ExpectLinearWork(points, QSize(32700, 4));
}

TEST(FillWorkTest, OfEdgesOutsideTheImageIsLittle)
{
    // Each edge goes through tens of thousands of pixels that are not there.
    std::vector<QPointF> points;
    for (int i = 0; i < 2000; ++i)
        points.emplace_back(i % 2 ? 32000.0 : 500.0, 10.0 + i % 17);
    QImage image(100, 100, QImage::Format_ARGB32_Premultiplied);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::red);
    DrawPolygon(painter, points.data(), static_cast<int>(points.size()), Qt::OddEvenFill);
    EXPECT_EQ(LastFillWork().cells, 0U);
    for (QPointF& point : points)
        point.setX(point.x() - 31000.0);
    DrawPolygon(painter, points.data(), static_cast<int>(points.size()), Qt::OddEvenFill);
    EXPECT_LE(LastFillWork().cells, points.size() * 110U);
}

TEST(FillWorkTest, OfManyRingsIsThatOfTheirEdges)
{
    RandomSource random(9);
    QPainterPath path;
    std::size_t points = 0;
    for (int cluster = 0; cluster < 100; ++cluster)
    {
        const QPointF at(random.Real(0.0, 1000.0), random.Real(0.0, 500.0));
        for (int ring = 0; ring < 1000; ++ring)
        {
            const QPointF corner = at + QPointF(random.Real(0.0, 20.0), random.Real(0.0, 20.0));
            path.addPolygon(QPolygonF({corner, corner + QPointF(2.0, 0.5), corner + QPointF(1.0, 2.0), corner}));
            points += 4;
        }
    }
    QImage image(1000, 500, QImage::Format_ARGB32_Premultiplied);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::red);
    DrawPath(painter, path);
    EXPECT_LE(LastFillWork().edges, points);
    EXPECT_LE(LastFillWork().cells, points * 8U);
}

TEST(FillWorkTest, OfAMillionPointsOnALineIsThatOfTheLine)
{
    std::vector<QPointF> points;
    for (int i = 0; i < 1000000; ++i)
        points.emplace_back(10.0 + i * 0.0009, 20.0 + i * 0.0003);
    ExpectLinearWork(points, QSize(1000, 500));
}

TEST(FillWorkTest, OfCrowdedPixelsNeedsWiderNumbersAndStaysExact)
{
    // 32 bits do not hold the areas of so many crossings of one pixel.
    std::vector<QPointF> points;
    for (int i = 0; i < 40000; ++i)
        points.emplace_back(5.9, i % 2 ? 9.0 : 2.0);
    points.emplace_back(1.0, 5.0);
    QPainterPath path;
    path.setFillRule(Qt::WindingFill);
    for (int i = 0; i < 20000; ++i)
        path.addPolygon(QPolygonF({QPointF(5.9, 2.0), QPointF(5.9, 9.0), QPointF(1.0, 9.0), QPointF(1.0, 2.0)}));
    QImage pictures[2];
    for (QImage& picture : pictures)
    {
        picture = QImage(12, 12, QImage::Format_ARGB32_Premultiplied);
        picture.fill(Qt::white);
        QPainter painter(&picture);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(QColor(200, 0, 0, 90));
        if (&picture == pictures)
            painter.drawPath(path);
        else
            DrawPath(painter, path);
    }
    EXPECT_EQ(pictures[0], pictures[1]);
}

} // namespace
