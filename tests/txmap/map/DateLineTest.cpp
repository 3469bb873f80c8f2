#include <cmath>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <ogr_geometry.h>
#include <txmap/map/DateLine.h>
#include <txmap/sources/Gdal.h>

using namespace txmap;

namespace
{

std::unique_ptr<OGRGeometry> FromText(const std::string& text)
{
    OGRGeometry* geometry = nullptr;
    EXPECT_EQ(OGRGeometryFactory::createFromWkt(text.c_str(), nullptr, &geometry), OGRERR_NONE) << text;
    return std::unique_ptr<OGRGeometry>(geometry);
}

PolygonPtr Polygon(const std::string& rings)
{
    return PolygonPtr(FromText("POLYGON (" + rings + ")").release()->toPolygon());
}

std::vector<double> UnwrappedLine(const std::string& points)
{
    const std::unique_ptr<OGRGeometry> line = FromText("LINESTRING (" + points + ")");
    UnwrapLine(*line->toLineString());
    std::vector<double> longitudes;
    longitudes.reserve(static_cast<std::size_t>(line->toLineString()->getNumPoints()));
    for (int i = 0; i < line->toLineString()->getNumPoints(); ++i)
        longitudes.push_back(line->toLineString()->getX(i));
    return longitudes;
}

void ExpectBox(const GeoBox& box, double west, double south, double east, double north)
{
    EXPECT_DOUBLE_EQ(box.west, west);
    EXPECT_DOUBLE_EQ(box.south, south);
    EXPECT_DOUBLE_EQ(box.east, east);
    EXPECT_DOUBLE_EQ(box.north, north);
}

/// The unwrapped box of a polygon.
GeoBox UnwrappedBox(const std::string& rings)
{
    const PolygonPtr polygon = Polygon(rings);
    UnwrapPolygon(*polygon);
    return BoxOf(*polygon);
}

std::vector<PolygonPtr> Two(const std::string& one, const std::string& other)
{
    std::vector<PolygonPtr> polygons;
    polygons.push_back(Polygon(one));
    polygons.push_back(Polygon(other));
    return polygons;
}

double AreaOf(const std::vector<PolygonPtr>& polygons)
{
    double area = 0.0;
    for (const PolygonPtr& polygon : polygons)
        area += polygon->get_Area();
    return area;
}

} // namespace

TEST(UnwrapLine, GoesOnAcrossTheDateLineInBothDirections)
{
    EXPECT_EQ(UnwrappedLine("170 0, 178 1, -179 2, -170 3"), (std::vector<double>{170, 178, 181, 190}));
    EXPECT_EQ(UnwrappedLine("-170 0, -178 1, 179 2, 170 3"), (std::vector<double>{-170, -178, -181, -190}));
    EXPECT_EQ(UnwrappedLine("179 0, -179 1, 179 2"), (std::vector<double>{179, 181, 179}));
}

TEST(UnwrapLine, TakesBothSidesOfTheDateLineForOne)
{
    EXPECT_EQ(UnwrappedLine("170 0, 180 1, -180 1, -170 3"), (std::vector<double>{170, 180, 180, 190}));
}

TEST(UnwrapLine, LeavesOtherLinesAlone)
{
    EXPECT_EQ(UnwrappedLine("10 0, 20 1, 30 2"), (std::vector<double>{10, 20, 30}));
    EXPECT_EQ(UnwrappedLine("-120 0, 120 1"), (std::vector<double>{-120, 120}));
    EXPECT_EQ(UnwrappedLine("5 5"), (std::vector<double>{5}));
}

TEST(UnwrapLine, LeavesAParallelAlongTheWholeMap)
{
    EXPECT_EQ(UnwrappedLine("-180 10, 180 10"), (std::vector<double>{-180, 180}));
}

TEST(UnwrapPolygon, MakesAnIslandOnTheDateLineWhole)
{
    ExpectBox(UnwrappedBox("(178 -17, -179 -17, -179 -16, 178 -16, 178 -17)"), 178, -17, 181, -16);
    ExpectBox(UnwrappedBox("(178 -17, 180 -17, -180 -17, -179 -16, -180 -16, 180 -16, 178 -17)"), 178, -17, 181, -16);
}

TEST(UnwrapPolygon, LeavesBoxesAroundTheWorld)
{
    ExpectBox(UnwrappedBox("(-180 -23, 180 -23, 180 23, -180 23, -180 -23)"), -180, -23, 180, 23);
    ExpectBox(UnwrappedBox("(-120 -23, 120 -23, 120 23, -120 23, -120 -23)"), -120, -23, 120, 23);
}

TEST(UnwrapPolygon, LeavesAnIceCapThatEndsAtTheMapsEdge)
{
    ExpectBox(UnwrappedBox("(-180 -90, -180 -80, -60 -70, 60 -75, 180 -80, 180 -90, -180 -90)"), -180, -90, 180, -70);
}

TEST(UnwrapPolygon, ClosesARingRoundThePoleBeyondIt)
{
    const GeoBox south = UnwrappedBox("(0 -70, 90 -75, 170 -72, -150 -74, -80 -73, 0 -70)");
    EXPECT_DOUBLE_EQ(south.east - south.west, 360.0);
    EXPECT_LT(south.south, -90.0);
    EXPECT_DOUBLE_EQ(south.north, -70.0);
    const GeoBox north = UnwrappedBox("(0 80, -90 82, -170 81, 150 84, 80 83, 0 80)");
    EXPECT_DOUBLE_EQ(north.east - north.west, 360.0);
    EXPECT_GT(north.north, 90.0);
    EXPECT_DOUBLE_EQ(north.south, 80.0);
}

TEST(UnwrapPolygon, ClosesARingRoundThePoleThatNamesBothSidesOfTheDateLine)
{
    // The step over the date line is no edge of the map: the ring has points to its north and to its south.
    const GeoBox box = UnwrappedBox("(0 -70, 90 -85, 180 -78, -180 -78, -90 -72, 0 -70)");
    EXPECT_DOUBLE_EQ(box.east - box.west, 360.0);
    EXPECT_LT(box.south, -90.0);
}

TEST(UnwrapPolygon, MovesHolesIntoTheirShape)
{
    const PolygonPtr polygon =
        Polygon("(170 0, -170 0, -170 10, 170 10, 170 0), (-178 4, -176 4, -176 6, -178 6, -178 4)");
    UnwrapPolygon(*polygon);
    ExpectBox(BoxOf(*polygon), 170, 0, 190, 10);
    OGREnvelope hole;
    polygon->getInteriorRing(0)->getEnvelope(&hole);
    EXPECT_DOUBLE_EQ(hole.MinX, 182.0);
    EXPECT_DOUBLE_EQ(hole.MaxX, 184.0);
}

TEST(EndsAtDateLine, IsTrueForWhatWasCutThere)
{
    EXPECT_TRUE(EndsAtDateLine(*Polygon("(170 0, 180 0, 180 10, 170 0)")));
    EXPECT_TRUE(EndsAtDateLine(*Polygon("(-180.0000000001 0, -170 0, -170 10, -180.0000000001 0)")));
    EXPECT_TRUE(EndsAtDateLine(*Polygon("(-10 -95, 350 -95, 350 -70, -10 -70, -10 -95)")));
    EXPECT_FALSE(EndsAtDateLine(*Polygon("(170 0, 179.99 0, 179 10, 170 0)")));
    EXPECT_FALSE(EndsAtDateLine(*Polygon("(170 0, 190 0, 190 10, 170 0)")));
}

TEST(JoinAcrossDateLine, JoinsTheHalvesOfAnIslandInEveryWorld)
{
    const std::vector<PolygonPtr> joined =
        JoinAcrossDateLine(Two("(178 0, 180 0, 180 10, 178 10, 178 0)", "(-180 0, -177 0, -177 10, -180 10, -180 0)"));
    // Three worlds have four date lines: two whole islands, and half an island at either end.
    ASSERT_EQ(joined.size(), 4u);
    EXPECT_NEAR(AreaOf(joined), 3 * 50.0, 1e-9);
    int whole = 0;
    for (const PolygonPtr& polygon : joined)
    {
        const GeoBox box = BoxOf(*polygon);
        if (box.west == 178.0 || box.west == -182.0)
        {
            ++whole;
            EXPECT_NEAR(box.east - box.west, 5.0, 1e-9);
        }
    }
    EXPECT_EQ(whole, 2);
}

TEST(JoinAcrossDateLine, LeavesNoEdgeOnTheDateLine)
{
    const std::vector<PolygonPtr> joined =
        JoinAcrossDateLine(Two("(178 0, 180 0, 180 10, 178 10, 178 0)", "(-180 0, -177 0, -177 10, -180 10, -180 0)"));
    for (const PolygonPtr& polygon : joined)
    {
        const OGRLinearRing& ring = *polygon->getExteriorRing();
        for (int i = 1; i < ring.getNumPoints(); ++i)
            EXPECT_FALSE(ring.getX(i) == 180.0 && ring.getX(i - 1) == 180.0);
    }
}

TEST(JoinAcrossDateLine, MakesAnIceCapEndlessAndReachBeyondThePole)
{
    std::vector<PolygonPtr> cap;
    cap.push_back(Polygon("(-180 -90, -180 -80, -60 -70, 60 -75, 180 -80, 180 -90, -180 -90)"));
    const std::vector<PolygonPtr> joined = JoinAcrossDateLine(cap);
    ASSERT_EQ(joined.size(), 1u);
    const GeoBox box = BoxOf(*joined[0]);
    EXPECT_NEAR(box.west, -540.0, 1e-9);
    EXPECT_NEAR(box.east, 540.0, 1e-9);
    EXPECT_LT(box.south, -90.0);
    EXPECT_NEAR(box.north, -70.0, 1e-9);
}

TEST(JoinAcrossDateLine, MendsRingsThatCrossThemselves)
{
    PrepareGdal();
    // A bow tie beside a square: both must be there afterwards.
    const std::vector<PolygonPtr> joined =
        JoinAcrossDateLine(Two("(176 0, 180 0, 180 4, 176 4, 176 0)", "(-180 0, -176 4, -176 0, -180 4, -180 0)"));
    EXPECT_FALSE(joined.empty());
    EXPECT_NEAR(AreaOf(joined), 3 * (16.0 + 8.0), 1e-9);
}
