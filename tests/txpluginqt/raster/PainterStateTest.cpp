// What a painter's clip, brush and earlier strokes decide, against QPainter.
#include <functional>
#include <vector>

#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>

#include <gtest/gtest.h>
#include <tests/support/Drawn.h>
#include <tests/support/ImageCompare.h>
#include <tests/support/RandomSource.h>
#include <txpluginqt/raster/Drawing.h>
#include <txpluginqt/raster/OutlineFill.h>

using namespace txqt;

namespace
{

constexpr QImage::Format kFormat = QImage::Format_ARGB32_Premultiplied;

QBrush Gradient()
{
    QLinearGradient gradient(3.0, 4.0, 30.0, 25.0);
    gradient.setColorAt(0.0, QColor(250, 230, 10, 200));
    gradient.setColorAt(1.0, QColor(10, 30, 90));
    return gradient;
}

std::vector<QPointF> Diamond(double left, double top, double size)
{
    return {
        {left + size / 2, top}, {left + size, top + size / 2}, {left + size / 2, top + size}, {left, top + size / 2}};
}

QPainterPath PathOf(const std::vector<QPointF>& points)
{
    QPainterPath path(points.front());
    for (std::size_t i = 1; i < points.size(); ++i)
        path.lineTo(points[i]);
    path.closeSubpath();
    return path;
}

/// Draws paths one after another, each with what is set before it.
struct Step
{
    std::function<void(QPainter&)> set;
    QPainterPath path;
    bool isPolyline = false;
};

::testing::AssertionResult DrawnAlike(const std::vector<Step>& steps)
{
    const auto drawn = [&](bool isRasterized)
    {
        return Drawn(QSize(40, 40), kFormat,
                     [&](QPainter& painter)
                     {
                         for (const Step& step : steps)
                         {
                             step.set(painter);
                             const QPolygonF points = step.path.toFillPolygon();
                             if (step.isPolyline)
                                 isRasterized ? DrawPolyline(painter, points.constData(), points.size())
                                              : painter.drawPolyline(points);
                             else
                                 isRasterized ? DrawPath(painter, step.path) : painter.drawPath(step.path);
                         }
                     });
    };
    return SamePixels(drawn(true), drawn(false));
}

TEST(PainterStateTest, ClipsCutTheOutermostPixels)
{
    // Each side of the shape lies in the last pixels within the clip, or in the first beyond.
    const QRect clip(9, 9, 15, 15);
    const auto house = [](double left, double top, double right, double bottom)
    {
        return PathOf({{left, top + 2.0},
                       {(left + right) / 2, top},
                       {right, top + 2.0},
                       {right, bottom},
                       {(left + right) / 2, bottom - 2.0},
                       {left, bottom}});
    };
    for (const bool isRegion : {false, true})
        for (const double beyond : {-2.0, -1.5, -1.0, -0.7, -0.5, -0.3, 0.0, 0.3, 0.5, 0.7, 1.0, 1.4, 2.0})
        {
            const double low = 9.0 - beyond;
            const double high = 24.0 + beyond;
            for (const QPainterPath& path : {house(low, 12.0, 20.0, 20.0), house(12.0, low, 20.0, 20.0),
                                             house(12.0, 12.0, high, 20.0), house(12.0, 12.0, 20.0, high)})
            {
                const Step step{[&](QPainter& painter)
                                {
                                    if (isRegion)
                                        painter.setClipRegion(QRegion(clip) + QRegion(2, 2, 3, 3));
                                    else
                                        painter.setClipRect(clip);
                                    painter.setPen(Qt::NoPen);
                                    painter.setBrush(Gradient());
                                },
                                path};
                EXPECT_TRUE(DrawnAlike({step})) << beyond << ' ' << isRegion;
            }
        }
}

TEST(PainterStateTest, ClipsCutShapesWithAMoveFarAway)
{
    for (const double far : {3e9, -3e9, 1e15, 40000.0})
    {
        QPainterPath path = PathOf(Diamond(12.0, 13.0, 20.0));
        path.moveTo(far, far);
        const Step step{[](QPainter& painter)
                        {
                            painter.setClipRect(10, 10, 12, 12);
                            painter.setPen(Qt::NoPen);
                            painter.setBrush(Gradient());
                        },
                        path};
        EXPECT_TRUE(DrawnAlike({step})) << far;
    }
}

TEST(PainterStateTest, PensInPixelsHaveTheirGradientInPixels)
{
    // The brush is the same for filling, where it follows the transform.
    const QBrush brush = Gradient();
    for (const Qt::PenStyle style : {Qt::SolidLine, Qt::DashLine})
    {
        const Step step{[&](QPainter& painter)
                        {
                            painter.setTransform(QTransform::fromScale(2.0, 1.5));
                            QPen pen(brush, 5.0, style);
                            pen.setCosmetic(true);
                            painter.setPen(pen);
                            painter.setBrush(brush);
                        },
                        PathOf(Diamond(3.0, 4.0, 14.0))};
        EXPECT_TRUE(DrawnAlike({step, step})) << style;
        // Qt clips and fills the stroke of a shape that reaches too far.
        Step far = step;
        far.path = PathOf(Diamond(3.0, -9000.0, 18000.0));
        EXPECT_TRUE(DrawnAlike({far, step})) << style;
    }
}

TEST(PainterStateTest, DashesCloseAsTheStrokeBeforeThem)
{
    const auto pen = [](const QVector<qreal>& dashes, bool isCosmetic = false)
    {
        return [=](QPainter& painter)
        {
            QPen pen(QColor(200, 30, 60, 130), 4.0, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin);
            if (!dashes.isEmpty())
                pen.setDashPattern(dashes);
            pen.setCosmetic(isCosmetic);
            painter.setPen(pen);
        };
    };
    // One dash goes all the way round, and meets itself.
    const QVector<qreal> roundTheShape = {1000.0, 1.0};
    const QPainterPath small = PathOf(Diamond(6.0, 6.0, 10.0));
    const QPainterPath large = PathOf(Diamond(10.0, 10.0, 22.0));
    for (int order = 0; order < 16; ++order)
    {
        const Step solid1{pen({}), small, (order & 1) != 0};
        const Step dashed1{pen(roundTheShape), large, (order & 2) != 0};
        const Step solid2{pen({}), small, (order & 4) != 0};
        const Step dashed2{pen(roundTheShape), large, (order & 8) != 0};
        const Step inPixels{pen({}, true), small, (order & 4) != 0};
        EXPECT_TRUE(DrawnAlike({solid1, dashed1})) << order;
        EXPECT_TRUE(DrawnAlike({solid1, inPixels, dashed1})) << order;
        EXPECT_TRUE(DrawnAlike({dashed1, solid2, dashed2})) << order;
        EXPECT_TRUE(DrawnAlike({dashed1, dashed2, solid1, dashed2, solid2})) << order;
    }
}

TEST(PainterStateTest, PolygonsThatAreRectanglesAreDrawnAsQtDoes)
{
    RandomSource random(31);
    for (int i = 0; i < 400; ++i)
    {
        const auto coordinate = [&] { return random.Int(-2, 42) + random.OneOf({0.0, 0.5, random.Real(0.0, 1.0)}); };
        const double left = coordinate();
        const double top = coordinate();
        const double right = random.Chance(20) ? left + random.Real(0.0, 0.9) : coordinate();
        const double bottom = random.Chance(20) ? top + random.Real(0.0, 0.9) : coordinate();
        const QPointF points[] = {{left, top}, {right, top}, {right, bottom}, {left, bottom}, {left, top}};
        const int count = random.Int(4, 5);
        const QBrush brush = random.Chance(50) ? Gradient() : QBrush(QColor(20, 90, 200, 120));
        const QPen pen = random.Chance(50) ? QPen(Qt::NoPen) : QPen(Qt::blue, random.OneOf({1.0, 3.0}));
        const double turn = random.OneOf({0.0, 0.0, 7.0, 90.0});
        const auto drawn = [&](auto draw)
        {
            return Drawn(QSize(40, 40), kFormat,
                         [&](QPainter& painter)
                         {
                             painter.rotate(turn);
                             painter.setPen(pen);
                             painter.setBrush(brush);
                             draw(painter);
                         });
        };
        EXPECT_TRUE(SamePixels(drawn([&](QPainter& p) { DrawPolygon(p, points, count, Qt::OddEvenFill); }),
                               drawn([&](QPainter& p) { p.drawPolygon(points, count); })))
            << i;
    }
}

TEST(PainterStateTest, WideStrokesAreRasterized)
{
    QImage image(40, 40, kFormat);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    for (const Qt::PenCapStyle cap : {Qt::FlatCap, Qt::SquareCap, Qt::RoundCap})
        for (const Qt::PenJoinStyle join : {Qt::MiterJoin, Qt::SvgMiterJoin, Qt::BevelJoin, Qt::RoundJoin})
            for (const Qt::PenStyle style : {Qt::SolidLine, Qt::DashLine})
            {
                // A shape that lies elsewhere leaves no work behind.
                painter.setPen(Qt::NoPen);
                painter.setBrush(Qt::red);
                DrawPath(painter, PathOf(Diamond(-90.0, -90.0, 9.0)));
                ASSERT_EQ(LastFillWork().edges, 0U);
                painter.setPen(QPen(Qt::blue, 3.0, style, cap, join));
                painter.setBrush(Qt::NoBrush);
                DrawPath(painter, PathOf(Diamond(5.0, 5.0, 20.0)));
                EXPECT_GT(LastFillWork().edges, 0U) << cap << ' ' << join << ' ' << style;
            }
}

} // namespace
