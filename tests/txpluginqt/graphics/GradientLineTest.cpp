#include <limits>

#include <gtest/gtest.h>

#include <txpluginqt/graphics/GradientBrush.h>

using TZObjects::TXColor;
using TZObjects::TXGraphics;

using namespace txqt;

namespace
{

struct Case
{
    QRectF bounds;
    double angle;
    QPointF start;
    QPointF end;
};

TEST(GradientLineTest, RunsAsTheAngleSays)
{
    const QRectF wide(0, 0, 100, 50);
    const QRectF moved(-10, 20, 40, 80);
    const Case cases[] = {
        {wide, 0.0, {0, 25}, {100, 25}},    {wide, 360.0, {0, 25}, {100, 25}},   {wide, 90.0, {50, 0}, {50, 50}},
        {wide, 180.0, {100, 25}, {0, 25}},  {wide, 270.0, {50, 50}, {50, 0}},    {wide, 45.0, {25, 0}, {75, 50}},
        {wide, 135.0, {75, 0}, {25, 50}},   {wide, -45.0, {75, 0}, {25, 50}},    {wide, 225.0, {75, 50}, {25, 0}},
        {wide, 315.0, {25, 50}, {75, 0}},   {moved, 0.0, {-10, 60}, {30, 60}},   {moved, 90.0, {10, 20}, {10, 100}},
        {moved, 45.0, {-10, 40}, {30, 80}}, {moved, 135.0, {30, 40}, {-10, 80}}, {moved, 225.0, {30, 80}, {-10, 40}},
    };
    for (const Case& tested : cases)
    {
        const std::optional<QLineF> line = LinearGradientLine(tested.bounds, tested.angle);
        ASSERT_TRUE(line) << tested.angle;
        EXPECT_NEAR(line->x1(), tested.start.x(), 1e-9) << tested.angle;
        EXPECT_NEAR(line->y1(), tested.start.y(), 1e-9) << tested.angle;
        EXPECT_NEAR(line->x2(), tested.end.x(), 1e-9) << tested.angle;
        EXPECT_NEAR(line->y2(), tested.end.y(), 1e-9) << tested.angle;
    }
}

TEST(GradientLineTest, ACornerIsListedTwiceAndCollapsesTheLine)
{
    // Through the corners of a square the left edge and the bottom edge are both met at the same corner, and those two
    // hits are the first.
    const std::optional<QLineF> line = LinearGradientLine(QRectF(0, 0, 64, 64), 135.0);
    ASSERT_TRUE(line);
    EXPECT_NEAR(line->x1(), 0.0, 1e-9);
    EXPECT_NEAR(line->y1(), 64.0, 1e-9);
    EXPECT_NEAR(line->x2(), 0.0, 1e-9);
    EXPECT_NEAR(line->y2(), 64.0, 1e-9);
}

TEST(GradientLineTest, WithoutTwoHitsThereIsNoLine)
{
    EXPECT_FALSE(LinearGradientLine(QRectF(0, 0, 100, 50), std::numeric_limits<double>::quiet_NaN()));
    TXGraphics::stGradientParams gradient;
    gradient.angle = std::numeric_limits<double>::quiet_NaN();
    EXPECT_FALSE(GradientBrush(QRectF(0, 0, 100, 50), gradient));
}

TEST(GradientBrushTest, TheMiddleStopIsTheOpaqueMean)
{
    TXGraphics::stGradientParams gradient;
    gradient.startColor = TXColor(255, 0, 0, 128);
    gradient.endColor = TXColor(0, 0, 255, 128);
    const std::optional<QBrush> brush = GradientBrush(QRectF(0, 0, 100, 50), gradient);
    ASSERT_TRUE(brush);
    const QGradientStops stops{
        {0.0, QColor(255, 0, 0, 128)}, {0.5, QColor(127, 0, 127, 255)}, {1.0, QColor(0, 0, 255, 128)}};
    EXPECT_EQ(brush->gradient()->stops(), stops);
}

TEST(GradientBrushTest, AGradientOfNoKindFillsNothing)
{
    for (const int type : {3, -1, 77, std::numeric_limits<int>::min()})
    {
        TXGraphics::stGradientParams gradient;
        gradient.type = type;
        const std::optional<QBrush> brush = GradientBrush(QRectF(0, 0, 100, 50), gradient);
        ASSERT_TRUE(brush);
        EXPECT_EQ(brush->style(), Qt::NoBrush) << type;
    }
}

} // namespace
