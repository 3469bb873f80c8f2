#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <tests/support/RandomSource.h>
#include <tests/txmap/support/LoadedLayer.h>
#include <txmap/labels/InnerPoints.h>
#include <txmap/labels/VisibleShape.h>
#include <txmap/map/AtlasView.h>
#include <txmap/sources/Gdal.h>

using namespace txmap;
using TZObjects::TXPoint;
using TZObjects::TXRect;

namespace
{

using Ring = std::vector<TXPoint>;

const TXRect kFrame(0, 1000, 0, 1000);

Ring Rectangle(double left, double right, double top, double bottom)
{
    return {{left, top}, {right, top}, {right, bottom}, {left, bottom}, {left, top}};
}

/// Counts how often the ring winds round a point; another way than the one under test.
bool IsInside(const Ring& ring, const TXPoint& point)
{
    double turned = 0.0;
    for (std::size_t i = 0, last = ring.size() - 1; i < ring.size(); last = i++)
    {
        const double ax = ring[last].x - point.x;
        const double ay = ring[last].y - point.y;
        const double bx = ring[i].x - point.x;
        const double by = ring[i].y - point.y;
        turned += std::atan2(ax * by - ay * bx, ax * bx + ay * by);
    }
    return std::abs(turned) > 3.0;
}

} // namespace

TEST(VisibleShape, IsCutOffAtTheFrame)
{
    const VisibleShape shape({Rectangle(-100, 300, 200, 400)}, kFrame);
    EXPECT_NEAR(shape.Size(), 300 * 200, 1e-6);
    EXPECT_NEAR(shape.Bounds().left, 0, 1e-9);
    EXPECT_NEAR(shape.Bounds().right, 300, 1e-9);
    EXPECT_TRUE(shape.Contains({10, 300}));
    EXPECT_FALSE(shape.Contains({-10, 300}));
    EXPECT_NEAR(shape.DistanceToEdge({10, 300}, 1.0), 10, 1e-9);
}

TEST(VisibleShape, IsEmptyOutsideTheFrame)
{
    EXPECT_TRUE(VisibleShape({Rectangle(1100, 1300, 200, 400)}, kFrame).IsEmpty());
    EXPECT_TRUE(VisibleShape({Rectangle(1000, 1300, 200, 400)}, kFrame).IsEmpty());
    EXPECT_TRUE(VisibleShape({{{5, 5}, {6, 6}}}, kFrame).IsEmpty());
    EXPECT_TRUE(VisibleShape(std::vector<Ring>{}, kFrame).IsEmpty());
}

TEST(VisibleShape, KnowsItsLargestPart)
{
    const VisibleShape shape({Rectangle(10, 20, 10, 20), Rectangle(100, 300, 100, 200), Rectangle(900, 3000, 5, 15)},
                             kFrame);
    EXPECT_NEAR(shape.LargestPart().left, 100, 1e-9);
    EXPECT_NEAR(shape.LargestPart().bottom, 200, 1e-9);
    EXPECT_NEAR(shape.Bounds().right, 1000, 1e-9);
}

TEST(InnerPoints, BeginWithTheMiddleOfASimpleShape)
{
    const std::vector<InnerPoint> points = InnerPoints(VisibleShape({Rectangle(100, 300, 100, 300)}, kFrame), 1.0);
    ASSERT_FALSE(points.empty());
    EXPECT_NEAR(points[0].position.x, 200, 3);
    EXPECT_NEAR(points[0].position.y, 200, 3);
    EXPECT_NEAR(points[0].room, 100, 3);
}

TEST(InnerPoints, BeginNearTheCentreOfALongShape)
{
    const std::vector<InnerPoint> points = InnerPoints(VisibleShape({Rectangle(100, 200, 100, 900)}, kFrame), 3.0);
    ASSERT_FALSE(points.empty());
    EXPECT_NEAR(points[0].position.x, 150, 3);
    EXPECT_NEAR(points[0].position.y, 500, 20);
}

TEST(InnerPoints, AvoidHoles)
{
    const VisibleShape shape({Rectangle(100, 400, 100, 300), Rectangle(120, 300, 120, 280)}, kFrame);
    const std::vector<InnerPoint> points = InnerPoints(shape, 1.0);
    ASSERT_FALSE(points.empty());
    EXPECT_NEAR(points[0].position.x, 350, 4);
    EXPECT_NEAR(points[0].room, 50, 2);
}

TEST(InnerPoints, FindWhereALongLabelHasRoom)
{
    // An L: the bar that stands is thicker, the one that lies is longer.
    const Ring shape = {{100, 100}, {220, 100}, {220, 420}, {600, 420}, {600, 500}, {100, 500}, {100, 100}};
    EXPECT_LT(InnerPoints(VisibleShape({shape}, kFrame), 1.0)[0].position.x, 240);
    EXPECT_GT(InnerPoints(VisibleShape({shape}, kFrame), 8.0)[0].position.x, 260);
    EXPECT_GT(InnerPoints(VisibleShape({shape}, kFrame), 8.0)[0].position.y, 420);
}

TEST(InnerPoints, KeepAwayFromTheEdgeOfThePicture)
{
    const std::vector<InnerPoint> points = InnerPoints(VisibleShape({Rectangle(-2000, 200, 100, 500)}, kFrame), 1.0);
    ASSERT_FALSE(points.empty());
    EXPECT_NEAR(points[0].position.x, 100, 3);
    EXPECT_NEAR(points[0].room, 100, 3);
}

TEST(InnerPoints, LieInsideRandomShapes)
{
    RandomSource random(77);
    for (int shapeNumber = 0; shapeNumber < 300; ++shapeNumber)
    {
        const int count = random.Int(3, 40);
        Ring ring;
        for (int i = 0; i < count; ++i)
        {
            const double angle = 6.283185307179586 * i / count;
            const double r = random.Real(5, 300);
            ring.emplace_back(500 + r * std::cos(angle), 500 + r * std::sin(angle));
        }
        ring.push_back(ring.front());
        const std::vector<InnerPoint> points = InnerPoints(VisibleShape({ring}, kFrame), random.Real(0.5, 12.0));
        ASSERT_FALSE(points.empty());
        for (std::size_t i = 0; i < points.size(); ++i)
        {
            ASSERT_TRUE(IsInside(ring, points[i].position)) << "shape " << shapeNumber;
            EXPECT_GT(points[i].room, 0.0);
            EXPECT_TRUE(i == 0 || points[i].merit <= points[i - 1].merit);
        }
    }
}

TEST(InnerPoints, LieInsideEveryCountryOfTheData)
{
    PrepareGdal();
    const AtlasView view(Projection::PlateCarree(), {}, PixelSize{2048, 1024});
    const MapLayer layer = LoadedLayer(std::string(TX_TEST_DATA) + "/countries-50m.json", view);
    int checked = 0;
    for (const Area& area : layer.areas)
    {
        const VisibleShape shape(layer, area, view.Frame());
        if (shape.IsEmpty() || shape.Size() < 4.0)
            continue;
        const std::vector<InnerPoint> points = InnerPoints(shape, 4.0);
        ASSERT_FALSE(points.empty());
        // The point lies in an odd number of the rings that are drawn.
        int rings = 0;
        const TXPoint* point = layer.areaPoints.data() + area.firstPoint;
        for (int i = 0; i < area.rings; ++i)
        {
            const int size = layer.ringSizes[area.firstRing + static_cast<std::size_t>(i)];
            rings += IsInside(Ring(point, point + size), points[0].position);
            point += size;
        }
        EXPECT_EQ(rings % 2, 1);
        ++checked;
    }
    EXPECT_GT(checked, 170);
}
