#include <cmath>
#include <cstddef>
#include <functional>

#include <QPainterPath>

#include "Rings.h"
#include "SurfaceTest.h"
#include <tests/support/AllocationCount.h>

using namespace TZObjects;

namespace
{

constexpr int kPoints = 100000;

/// The points of a star of very many short rays, all on the surface.
std::vector<TXPoint> ManyPoints()
{
    std::vector<TXPoint> points;
    for (int i = 0; i < kPoints; ++i)
    {
        const double angle = i * 6.283185307179586 / kPoints;
        const double radius = i % 2 ? 50.0 : 49.0;
        points.emplace_back(80.0 + radius * std::cos(angle), 60.0 + radius * std::sin(angle));
    }
    return points;
}

/// What a surface allocates beside a direct painter. Both draw with the same painter, so that what the paint engine
/// keeps for its next drawing is the same for both.
class AllocationTest : public SurfaceTest
{
protected:
    AllocationTest() : points(ManyPoints()), polygon(ToQt(points))
    {
        twins.SurfacePainter().setRenderHint(QPainter::Antialiasing, false);
        twins.SurfacePainter().setPen(QPen(Qt::black));
    }

    Twins twins;
    std::vector<TXPoint> points;
    QPolygonF polygon;
};

TEST_F(AllocationTest, CounterCounts)
{
    const Allocations one = AllocationsOf([] { std::vector<char> bytes(1000); });
    EXPECT_EQ(one.count, 1u);
    EXPECT_GE(one.bytes, 1000u);
    EXPECT_EQ(AllocationsOf([] {}).count, 0u);
}

TEST_F(AllocationTest, PolygonMakesNoCopyOfThePoints)
{
    const Allocations surface = AllocationsOf([&] { EXPECT_TRUE(twins.Surface().Polygon(points.data(), kPoints)); });
    const Allocations direct =
        AllocationsOf([&] { twins.SurfacePainter().drawPolygon(polygon.constData(), kPoints, Qt::OddEvenFill); });
    EXPECT_EQ(surface.count, direct.count);
    EXPECT_EQ(surface.bytes, direct.bytes);
}

TEST_F(AllocationTest, PolylineMakesNoCopyOfThePoints)
{
    const Allocations surface = AllocationsOf([&] { EXPECT_TRUE(twins.Surface().Polyline(points.data(), kPoints)); });
    const Allocations direct =
        AllocationsOf([&] { twins.SurfacePainter().drawPolyline(polygon.constData(), kPoints); });
    EXPECT_EQ(surface.count, direct.count);
    EXPECT_EQ(surface.bytes, direct.bytes);
}

TEST_F(AllocationTest, PolyPolygonMakesOneArrayOfElementKinds)
{
    Rings rings;
    for (int ring = 0; ring < 2000; ++ring)
        rings.Add({points.begin() + ring * 50, points.begin() + (ring + 1) * 50});
    const QPainterPath path = rings.Path();
    const Allocations direct = AllocationsOf([&] { twins.SurfacePainter().drawPath(path); });
    TXGraphics::stGradientParams gradient;
    const Allocations plain = AllocationsOf([&] { EXPECT_TRUE(rings.Draw(twins.Surface())); });
    const Allocations ignoringGradient = AllocationsOf([&] { EXPECT_TRUE(rings.Draw(twins.Surface(), gradient)); });
    for (const Allocations& surface : {plain, ignoringGradient})
    {
        EXPECT_LE(surface.count, direct.count + 1);
        EXPECT_LE(surface.bytes, direct.bytes + kPoints * sizeof(QPainterPath::ElementType) + 64);
    }
}

TEST_F(AllocationTest, PolyPolygonOfSeparateRingsMakesNoCopyOfThePoints)
{
    twins.SurfacePainter().setRenderHint(QPainter::Antialiasing);
    twins.SurfacePainter().setPen(Qt::NoPen);
    constexpr int kRings = 20;
    Rings rings;
    for (int ring = 0; ring < kRings; ++ring)
    {
        std::vector<TXPoint> points = ManyPoints();
        points.resize(kPoints / kRings);
        for (TXPoint& point : points)
            point = TXPoint(5.0 + point.x * 0.01 + ring % 5 * 20.0, 5.0 + point.y * 0.01 + ring / 5 * 20.0);
        rings.Add(points);
    }
    const QPainterPath path = rings.Path();
    const Allocations direct = AllocationsOf([&] { twins.SurfacePainter().drawPath(path); });
    const Allocations surface = AllocationsOf([&] { EXPECT_TRUE(rings.Draw(twins.Surface())); });
    EXPECT_LE(surface.count, direct.count + 1);
    EXPECT_LE(surface.bytes, direct.bytes + kPoints * sizeof(QPainterPath::ElementType) + 64);
}

TEST_F(AllocationTest, LineAndRectangleAllocateNothing)
{
    EXPECT_EQ(AllocationsOf([&] { twins.Surface().Line(3.2, 4.7, 90.1, 70.9); }).count, 0u);
    EXPECT_EQ(AllocationsOf([&] { twins.Surface().Rectangle(3.2, 4.7, 90.1, 70.9); }).count, 0u);
}

} // namespace
