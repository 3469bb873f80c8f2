#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <tests/txmap/support/LoadedLayer.h>
#include <tests/txmap/support/TemporaryFolder.h>
#include <txmap/map/AtlasView.h>
#include <txmap/map/PixelGeometry.h>
#include <txmap/sources/Gdal.h>
#include <txmap/support/Failure.h>

using namespace txmap;
using ::testing::HasSubstr;
using TZObjects::TXRect;

namespace
{

std::string Feature(const std::string& type, const std::string& coordinates, const std::string& properties = "")
{
    return R"({"type":"Feature","properties":{)" + properties + R"(},"geometry":{"type":")" + type +
           R"(","coordinates":)" + coordinates + "}}";
}

std::string Collection(const std::string& features, const std::string& crs = "EPSG:4326")
{
    return R"({"type":"FeatureCollection","crs":{"type":"name","properties":{"name":")" + crs + R"("}},"features":[)" +
           features + "]}";
}

const std::string kSquare = "[[[0,0],[10,0],[10,10],[0,10],[0,0]]]";
const std::string kTopology =
    R"({"type":"Topology","arcs":[[[0,0],[10,0],[10,10],[0,0]],[[20,20],[30,30]]],"objects":{)"
    R"("roads":{"type":"GeometryCollection","geometries":[{"type":"LineString","arcs":[1]}]},)"
    R"("fields":{"type":"GeometryCollection","geometries":[{"type":"Polygon","arcs":[[0]]}]}}})";

/// Reads what a test writes, into a picture of the world in which a pixel is a degree.
class MapLayerReaderTest : public ::testing::Test
{
protected:
    MapLayerReaderTest() { PrepareGdal(); }

    MapLayer Read(const std::string& name, const std::string& content)
    {
        return LoadedLayer(folder.Write(name, content), view);
    }

    const TemporaryFolder folder;
    const AtlasView view{Projection::PlateCarree(), {}, PixelSize{360, 180}};
};

} // namespace

TEST_F(MapLayerReaderTest, TakesAreasAndPlaces)
{
    const MapLayer layer = Read(
        "mixed.geojson",
        Collection(Feature("Polygon", kSquare) + "," + Feature("MultiPolygon", "[" + kSquare + "]") + "," +
                   Feature("LineString", "[[0,0],[20,20]]") + "," + Feature("Point", "[5,5]") + "," +
                   Feature("MultiPoint", "[[1,1],[2,2]]") +
                   R"(,{"type":"Feature","properties":{},"geometry":{"type":"GeometryCollection","geometries":[)"
                   R"({"type":"Point","coordinates":[3,3]},{"type":"LineString","coordinates":[[0,0],[9,9]]}]}})"));
    EXPECT_EQ(layer.areas.size(), 2u);
    EXPECT_EQ(layer.places.size(), 4u);
    EXPECT_EQ(BoundsOf(layer.areaPoints), TXRect(180, 190, 80, 90));
}

TEST_F(MapLayerReaderTest, LeavesPlacesOutThatAreNotWanted)
{
    const auto source = LoadedSource(folder.Write("p.geojson", Collection(Feature("Point", "[5,5]"))), view);
    EXPECT_TRUE(ReadMapLayer(source->Features(""), view, {}, false, 0.0).places.empty());
}

TEST_F(MapLayerReaderTest, MakesOneAreaOfWhatIsSeenInSeveralWorlds)
{
    // Across the date line, at which the picture begins and ends.
    const MapLayer layer =
        Read("fiji.geojson", Collection(Feature("Polygon", "[[[170,0],[-170,0],[-170,10],[170,10],[170,0]]]")));
    ASSERT_EQ(layer.areas.size(), 1u);
    EXPECT_EQ(layer.areas[0].rings, 2);
    EXPECT_NEAR(BoundsOf(layer.areaPoints).left, -10.0, 1e-9);
    EXPECT_NEAR(BoundsOf(layer.areaPoints).right, 370.0, 1e-9);
}

TEST_F(MapLayerReaderTest, ConvertsOtherCoordinateSystemsToDegrees)
{
    // 10 degrees of longitude, and the latitude of 10 degrees, in metres of EPSG:3857.
    const MapLayer layer =
        Read("metres.geojson", Collection(Feature("Point", "[1113194.9079,1118889.9749]"), "EPSG:3857"));
    ASSERT_EQ(layer.places.size(), 1u);
    EXPECT_NEAR(layer.places[0].x, 190.0, 1e-4);
    EXPECT_NEAR(layer.places[0].y, 80.0, 1e-4);
}

TEST_F(MapLayerReaderTest, TakesDegreesForGrantedWithoutACoordinateSystem)
{
    const MapLayer layer = Read("plain.csv", "id,WKT\n1,\"POINT (10 10)\"\n");
    ASSERT_EQ(layer.places.size(), 1u);
    EXPECT_NEAR(layer.places[0].x, 190.0, 1e-9);
    EXPECT_THROW(Read("metres.csv", "id,WKT\n1,\"POINT (500000 4000000)\"\n"), Failure);
}

TEST_F(MapLayerReaderTest, ReadsCurvesAndSurfaces)
{
    EXPECT_EQ(
        Read("curve.csv", "id,WKT\n1,\"CURVEPOLYGON (CIRCULARSTRING (0 0,10 10,20 0,10 -10,0 0))\"\n").areas.size(),
        1u);
    EXPECT_EQ(Read("tin.csv", "id,WKT\n1,\"TIN (((0 0,9 0,9 9,0 0)),((0 0,9 9,0 9,0 0)))\"\n").areas.size(), 1u);
    EXPECT_EQ(Read("z.csv", "id,WKT\n1,\"POLYGON Z ((0 0 5,9 0 5,9 9 5,0 0 5))\"\n").areas.size(), 1u);
}

TEST_F(MapLayerReaderTest, SkipsFeaturesWithoutGeometry)
{
    const MapLayer layer =
        Read("gaps.geojson", Collection(R"({"type":"Feature","properties":{},"geometry":null},)" +
                                        Feature("MultiPolygon", "[]") + "," + Feature("Polygon", kSquare)));
    EXPECT_EQ(layer.areas.size(), 1u);
}

TEST_F(MapLayerReaderTest, PicksTheFirstLayerThatSuits)
{
    const std::string path = folder.Write("t.json", kTopology);
    const auto areas = LoadedSource(path, view, GeometryType::Polygon);
    EXPECT_EQ(areas->ChosenLayer(), "fields");
    EXPECT_EQ(areas->Features("").at(0).features->features.at(0).type, GeometryType::Polygon);
    const auto first = LoadedSource(path, view);
    EXPECT_EQ(first->ChosenLayer(), "roads");
    EXPECT_EQ(first->Features("").at(0).features->features.at(0).type, GeometryType::LineString);
}

TEST_F(MapLayerReaderTest, PicksALayerByName)
{
    const std::string path = folder.Write("t.json", kTopology);
    EXPECT_EQ(LoadedLayer(path + "#fields", view).areas.size(), 1u);
    EXPECT_THROW(LoadedLayer(path + "#nothing", view), Failure);
}

TEST_F(MapLayerReaderTest, ReadsAFileWithTheMarkInItsName)
{
    EXPECT_EQ(Read("a#b.geojson", Collection(Feature("Point", "[5,5]"))).places.size(), 1u);
}
