// Drawing outlines that are not Qt's, against QPainter's paths.
#include <vector>

#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <QPicture>

#include <gtest/gtest.h>
#include <tests/support/Drawn.h>
#include <tests/support/ImageCompare.h>
#include <txgraphics/TXGraphicsEngineManager.h>
#include <txpluginqt/raster/Drawing.h>

using namespace txqt;

namespace
{

Outline OutlineOf(const QPainterPath& path)
{
    Outline outline;
    outline.fillRule = path.fillRule();
    for (int i = 0; i < path.elementCount(); ++i)
    {
        outline.points.emplace_back(path.elementAt(i));
        outline.kinds.push_back(path.elementAt(i).type);
        outline.isCurved = outline.isCurved || path.elementAt(i).isCurveTo();
    }
    return outline;
}

/// Rings about one another in the same direction, so that the fill rule shows.
QPainterPath Rings(bool isCurved, Qt::FillRule rule)
{
    QPainterPath path;
    path.setFillRule(rule);
    for (const double inset : {0.0, 6.5})
    {
        const QRectF box(3.3 + inset, 4.1 + inset, 31.0 - 2.0 * inset, 29.0 - 2.0 * inset);
        if (isCurved)
            path.addEllipse(box);
        else
            path.addPolygon(QPolygonF({QPointF(box.center().x(), box.top()), QPointF(box.right(), box.center().y()),
                                       QPointF(box.center().x(), box.bottom()), QPointF(box.left(), box.center().y()),
                                       QPointF(box.center().x(), box.top())}));
    }
    return path;
}

template <class Draw>
QImage Picture(Draw draw)
{
    return Drawn(QSize(40, 40), QImage::Format_ARGB32_Premultiplied, draw);
}

std::vector<QBrush> Brushes()
{
    QLinearGradient fixed(3.0, 4.0, 30.0, 25.0);
    fixed.setColorAt(0.0, Qt::yellow);
    fixed.setColorAt(1.0, QColor(10, 30, 90, 100));
    QLinearGradient relative(0.0, 0.0, 1.0, 1.0);
    relative.setCoordinateMode(QGradient::ObjectBoundingMode);
    relative.setColorAt(0.0, Qt::red);
    relative.setColorAt(1.0, QColor(10, 90, 30, 100));
    return {QColor(200, 30, 60, 130), fixed, relative};
}

TEST(OutlineViewTest, IsDrawnAsThePath)
{
    const std::vector<QBrush> brushes = Brushes();
    for (const bool isCurved : {false, true})
        for (const Qt::FillRule rule : {Qt::OddEvenFill, Qt::WindingFill})
            for (std::size_t i = 0; i < brushes.size(); ++i)
            {
                const QPainterPath path = Rings(isCurved, rule);
                const Outline outline = OutlineOf(path);
                const QBrush& brush = brushes[i];
                const QPen pen(brush, 3.0, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
                const auto setUp = [&](QPainter& painter)
                {
                    painter.setPen(QPen(Qt::blue, 2.5));
                    painter.setBrush(i == 2 ? QBrush(Qt::green) : brush);
                };
                // Qt itself leaves out what is relative to a shape where it is given an array.
                if (i < 2)
                {
                    EXPECT_TRUE(SamePixels(Picture([&](QPainter& p) { FillOutline(p, outline.View(), brush); }),
                                           Picture([&](QPainter& p) { p.fillPath(path, brush); })));
                    EXPECT_TRUE(SamePixels(Picture([&](QPainter& p) { StrokeOutline(p, outline.View(), pen); }),
                                           Picture([&](QPainter& p) { p.strokePath(path, pen); })));
                }
                EXPECT_TRUE(SamePixels(Picture(
                                           [&](QPainter& p)
                                           {
                                               setUp(p);
                                               DrawOutline(p, outline.View());
                                           }),
                                       Picture(
                                           [&](QPainter& p)
                                           {
                                               setUp(p);
                                               p.drawPath(path);
                                           })));
            }
}

TEST(OutlineViewTest, MayBeEmpty)
{
    const OutlineView none{nullptr, nullptr, 0, Qt::WindingFill, false};
    QImage image(9, 9, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    const QImage before = image.copy();
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(Qt::red);
    EXPECT_TRUE(DrawOutline(painter, none));
    EXPECT_TRUE(FillOutline(painter, none, Qt::red));
    EXPECT_TRUE(StrokeOutline(painter, none, QPen(Qt::red, 4.0)));
    EXPECT_EQ(image, before);
}

TEST(OutlineViewTest, IsFlattenedAndStrokedAsQtFills)
{
    for (const Qt::FillRule rule : {Qt::OddEvenFill, Qt::WindingFill})
    {
        const QPainterPath path = Rings(true, rule);
        const Outline flat = Flattened(OutlineOf(path).View());
        EXPECT_TRUE(SamePixels(Picture([&](QPainter& p) { FillOutline(p, flat.View(), Qt::red); }),
                               Picture([&](QPainter& p) { p.fillPath(path, Qt::red); })));
    }
    for (const bool isCurved : {false, true})
        for (const Qt::PenJoinStyle join : {Qt::RoundJoin, Qt::MiterJoin})
        {
            const QPainterPath path = Rings(isCurved, Qt::OddEvenFill);
            const QPen pen(Qt::red, 4.0, Qt::SolidLine, Qt::RoundCap, join);
            const std::optional<Outline> stroke = StrokeOutlineOf(OutlineOf(path).View(), pen);
            ASSERT_TRUE(stroke);
            EXPECT_TRUE(SamePixels(Picture([&](QPainter& p) { FillOutline(p, stroke->View(), Qt::red); }),
                                   Picture([&](QPainter& p) { p.strokePath(path, pen); })));
        }
}

TEST(OutlineViewTest, IsNotStrokedOnceTheRasterizerIsOff)
{
    const Outline outline = OutlineOf(Rings(false, Qt::WindingFill));
    TZObjects::TXGraphicsEngineManager& manager = *TZObjects::TXGraphicsEngineManager::instance("");
    manager.EnableRasterizer(false);
    EXPECT_FALSE(StrokeOutlineOf(outline.View(), QPen(Qt::red, 4.0)));
    manager.EnableRasterizer(true);
    EXPECT_TRUE(StrokeOutlineOf(outline.View(), QPen(Qt::red, 4.0)));
}

TEST(OutlineViewTest, AStrokeIsFilledWhereItIsWiderThanAPixelInEveryDirection)
{
    QImage image(9, 9, QImage::Format_ARGB32_Premultiplied);
    QPainter painter(&image);
    QPen pen(Qt::red, 2.0);
    EXPECT_TRUE(IsFilledStroke(painter, pen));
    EXPECT_FALSE(IsFilledStroke(painter, QPen(Qt::red, 1.0)));
    EXPECT_TRUE(IsFilledStroke(painter, QPen(Qt::red, 1.01)));
    painter.scale(3.0, 0.45);
    EXPECT_FALSE(IsFilledStroke(painter, pen));
    painter.setTransform(QTransform::fromScale(0.55, 0.55));
    EXPECT_TRUE(IsFilledStroke(painter, pen));
    pen.setCosmetic(true);
    EXPECT_FALSE(IsFilledStroke(painter, pen));
    pen.setCosmetic(false);
    painter.setTransform(QTransform(1.0, 0.1, 0.001, 0.1, 1.0, 0.002, 0.0, 0.0, 1.0));
    EXPECT_FALSE(IsFilledStroke(painter, pen));
    QPicture picture;
    QPainter recorder(&picture);
    EXPECT_FALSE(IsFilledStroke(recorder, pen));
}

} // namespace
