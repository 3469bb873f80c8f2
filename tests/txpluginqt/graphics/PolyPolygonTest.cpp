#include <cmath>

#include "RandomCases.h"
#include "Rings.h"
#include "SurfaceTest.h"

using namespace TZObjects;

namespace
{

class PolyPolygonTest : public SurfaceTest
{
};

const Rings kFrame = {{{20, 20}, {120, 20}, {120, 100}, {20, 100}}, {{50, 40}, {90, 40}, {90, 80}, {50, 80}}};

TEST_F(PolyPolygonTest, IsOneShapeOfAllRings)
{
    ForRandomCases(6, 400,
                   [](Random& random, Twins& twins)
                   {
                       const Rings rings = SomeRings(random);
                       EXPECT_TRUE(rings.Draw(twins.Surface()));
                       twins.Direct().drawPath(rings.Path());
                   });
}

TEST_F(PolyPolygonTest, IgnoresAGradientOnAnImage)
{
    ForRandomCases(7, 300,
                   [](Random& random, Twins& twins)
                   {
                       const Rings rings = SomeRings(random);
                       EXPECT_TRUE(rings.Draw(twins.Surface(), SomeGradient(random)));
                       twins.Direct().drawPath(rings.Path());
                   });
}

TEST_F(PolyPolygonTest, InnerRingsAreHolesWhateverTheirDirection)
{
    Rings reversed = kFrame;
    reversed.ReverseLast();
    for (const Rings& rings : {kFrame, reversed})
    {
        Twins twins;
        twins.Both([](QPainter& painter) { painter.setPen(Qt::NoPen); });
        EXPECT_TRUE(rings.Draw(twins.Surface()));
        QPainterPath frame;
        frame.addRect(20, 20, 100, 80);
        frame.addRect(50, 40, 40, 40);
        twins.Direct().drawPath(frame);
        EXPECT_TRUE(twins.SameWithState());
        Twins untouched;
        EXPECT_EQ(twins.Actual().pixel(70, 60), untouched.Actual().pixel(70, 60));
        EXPECT_NE(twins.Actual().pixel(30, 60), untouched.Actual().pixel(30, 60));
    }
}

TEST_F(PolyPolygonTest, OutlinesARingOnlyAsFarAsItIsGiven)
{
    Rings closed = kFrame;
    closed.CloseAll();
    for (const Rings& rings : {kFrame, closed})
    {
        Twins twins;
        twins.Both(
            [](QPainter& painter)
            {
                painter.setBrush(Qt::NoBrush);
                painter.setPen(QPen(Qt::black, 4.0));
            });
        EXPECT_TRUE(rings.Draw(twins.Surface()));
        const bool isClosed = rings.counts[0] == 5;
        EXPECT_EQ(twins.Actual().pixel(70, 20), qRgb(0, 0, 0));
        EXPECT_EQ(twins.Actual().pixel(20, 60) == qRgb(0, 0, 0), isClosed);
        EXPECT_EQ(twins.Actual().pixel(50, 60) == qRgb(0, 0, 0), isClosed);
    }
}

TEST_F(PolyPolygonTest, SkipsRingsWithoutPoints)
{
    Rings gaps = kFrame;
    gaps.counts = {0, 4, 0, 0, 4, 0};
    Rings negative = kFrame;
    negative.counts = {-3, 4, -5, 4, -2000000000};
    for (const Rings& rings : {gaps, negative})
    {
        Twins twins;
        EXPECT_TRUE(rings.Draw(twins.Surface()));
        twins.Direct().drawPath(kFrame.Path());
        EXPECT_TRUE(twins.SameWithState());
    }
}

TEST_F(PolyPolygonTest, RingsWithoutPointsDoNotHideOthers)
{
    // Taken by their sum, these counts would come to nothing, or to less than the points that there are.
    Rings rings = kFrame;
    rings.counts = {-8, 4, 4};
    Twins twins;
    EXPECT_TRUE(rings.Draw(twins.Surface()));
    twins.Direct().drawPath(kFrame.Path());
    EXPECT_TRUE(twins.SameWithState());
    rings.counts = {4, -3, 4};
    rings.points.back().x = std::nan("");
    EXPECT_FALSE(rings.Draw(twins.Surface())) << "the last point is not checked";
    EXPECT_TRUE(twins.SameWithState());
}

TEST_F(PolyPolygonTest, DrawsNothingWithoutAnyPoint)
{
    const TXPoint point(50, 50);
    const int none[] = {0, 0, 0};
    const int negative[] = {-1, 0, -5};
    Twins twins;
    EXPECT_TRUE(twins.Surface().PolyPolygon(&point, none, 3));
    EXPECT_TRUE(twins.Surface().PolyPolygon(&point, none, 3, TXGraphics::stGradientParams()));
    EXPECT_TRUE(twins.Surface().PolyPolygon(&point, negative, 3));
    EXPECT_TRUE(twins.SameWithState());
}

TEST_F(PolyPolygonTest, RingsOfOneAndTwoPointsHaveNoArea)
{
    Rings small = kFrame;
    small.Add({{5, 5}});
    Twins onePoint;
    EXPECT_TRUE(small.Draw(onePoint.Surface()));
    onePoint.Direct().drawPath(kFrame.Path());
    EXPECT_TRUE(onePoint.SameWithState());

    Rings line = kFrame;
    line.Add({{5, 5}, {150, 110}});
    Twins twoPoints;
    EXPECT_TRUE(line.Draw(twoPoints.Surface()));
    twoPoints.Direct().drawPath(line.Path());
    EXPECT_TRUE(twoPoints.SameWithState());
}

TEST_F(PolyPolygonTest, IsRefusedWithoutRings)
{
    const TXGraphics::stGradientParams gradient;
    const TXPoint* const points = kFrame.points.data();
    const int* const counts = kFrame.counts.data();
    Twins twins;
    EXPECT_FALSE(twins.Surface().PolyPolygon(nullptr, counts, 2));
    EXPECT_FALSE(twins.Surface().PolyPolygon(points, nullptr, 2));
    EXPECT_FALSE(twins.Surface().PolyPolygon(points, counts, 0));
    EXPECT_FALSE(twins.Surface().PolyPolygon(points, counts, -1));
    EXPECT_FALSE(twins.Surface().PolyPolygon(nullptr, counts, 2, gradient));
    EXPECT_FALSE(twins.Surface().PolyPolygon(points, nullptr, 2, gradient));
    EXPECT_FALSE(twins.Surface().PolyPolygon(points, counts, 0, gradient));
    EXPECT_TRUE(twins.SameWithState());
}

TEST_F(PolyPolygonTest, LeavesTheCallersPointsAlone)
{
    const Rings rings = kFrame;
    Twins twins;
    EXPECT_TRUE(rings.Draw(twins.Surface()));
    for (std::size_t i = 0; i < rings.points.size(); ++i)
    {
        EXPECT_EQ(rings.points[i].x, kFrame.points[i].x);
        EXPECT_EQ(rings.points[i].y, kFrame.points[i].y);
    }
}

TEST_F(PolyPolygonTest, TakesVeryManyPoints)
{
    // Two thousand rings of fifty points, islands in a grid; each closed by its first point.
    Rings rings;
    for (int ring = 0; ring < 2000; ++ring)
    {
        std::vector<TXPoint> island;
        for (int i = 0; i < 49; ++i)
        {
            const double angle = i * 6.283185307179586 / 49.0;
            const double radius = i % 2 ? 2.4 : 1.3;
            island.emplace_back(ring % 50 * 3.2 + radius * std::cos(angle), ring / 50 * 3.0 + radius * std::sin(angle));
        }
        island.push_back(island.front());
        rings.Add(island);
    }
    ASSERT_EQ(rings.points.size(), 100000u);
    for (const TXImage::Format format : {TXImage::Format_ARGB32, TXImage::Format_ARGB32_Premultiplied})
    {
        Twins twins(160, 120, format);
        // Wide pens take Qt seconds here.
        twins.Both([](QPainter& painter) { painter.setPen(QColor(20, 60, 140, 200)); });
        EXPECT_TRUE(rings.Draw(twins.Surface()));
        twins.Direct().drawPath(rings.Path());
        EXPECT_TRUE(twins.SameWithState());
    }
}

} // namespace
