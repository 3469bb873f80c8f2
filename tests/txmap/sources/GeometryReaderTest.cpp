#include <algorithm>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <tests/txmap/support/TemporaryFolder.h>
#include <txmap/sources/Gdal.h>
#include <txmap/sources/GeometryReader.h>
#include <txmap/sources/VectorSource.h>
#include <txmap/support/Failure.h>

using namespace txmap;
using ::testing::HasSubstr;

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

/// Reads what a test writes, into a picture of the world in which a pixel is a degree.
class GeometryReaderTest : public ::testing::Test
{
protected:
    GeometryReaderTest() { PrepareGdal(); }

    MapLayer Read(const std::string& name, const std::string& content, LayerRole role = LayerRole::Any,
                  const std::string& colorBy = "")
    {
        const VectorSource source(folder.Write(name, content));
        GeometryReader reader(view, colorBy, 7);
        return reader.Read(source, role);
    }

    std::string Problem(const std::string& name, const std::string& content, LayerRole role = LayerRole::Any,
                        const std::string& colorBy = "")
    {
        try
        {
            Read(name, content, role, colorBy);
        }
        catch (const Failure& failure)
        {
            EXPECT_EQ(failure.Code(), ExitCode::Data);
            EXPECT_THAT(failure.what(), HasSubstr(name));
            return failure.what();
        }
        return "no problem";
    }

    const TemporaryFolder folder;
    const View view{Projection::PlateCarree(), {}, PixelSize{360, 180}};
};

} // namespace

TEST_F(GeometryReaderTest, SortsGeometryByItsKind)
{
    const MapLayer layer = Read(
        "mixed.geojson",
        Collection(Feature("Polygon", kSquare) + "," + Feature("MultiPolygon", "[" + kSquare + "]") + "," +
                   Feature("LineString", "[[0,0],[20,20]]") + "," +
                   Feature("MultiLineString", "[[[0,0],[20,20]],[[30,0],[40,0]]]") + "," + Feature("Point", "[5,5]") +
                   "," + Feature("MultiPoint", "[[1,1],[2,2]]") +
                   R"(,{"type":"Feature","properties":{},"geometry":{"type":"GeometryCollection","geometries":[)"
                   R"({"type":"Point","coordinates":[3,3]},{"type":"LineString","coordinates":[[0,0],[9,9]]}]}})"));
    EXPECT_EQ(layer.areas.size(), 2u);
    EXPECT_EQ(layer.lines.size(), 4u);
    EXPECT_EQ(layer.places.size(), 4u);
}

TEST_F(GeometryReaderTest, DrawsTheOutlinesOfAreasWhereLinesAreWanted)
{
    const MapLayer layer = Read("areas.geojson", Collection(Feature("Polygon", kSquare)), LayerRole::Borders);
    EXPECT_TRUE(layer.areas.empty());
    ASSERT_EQ(layer.lines.size(), 1u);
    EXPECT_EQ(layer.lines[0].count, 5);
    EXPECT_EQ(layer.role, LayerRole::Borders);
}

TEST_F(GeometryReaderTest, ConvertsOtherCoordinateSystemsToDegrees)
{
    // 10 degrees of longitude, and the latitude of 10 degrees, in metres of EPSG:3857.
    const MapLayer layer =
        Read("metres.geojson", Collection(Feature("Point", "[1113194.9079,1118889.9749]"), "EPSG:3857"));
    ASSERT_EQ(layer.places.size(), 1u);
    EXPECT_NEAR(layer.places[0].x, 190.0, 1e-4);
    EXPECT_NEAR(layer.places[0].y, 80.0, 1e-4);
}

TEST_F(GeometryReaderTest, TakesDegreesForGrantedWithoutACoordinateSystem)
{
    const MapLayer layer = Read("plain.csv", "id,WKT\n1,\"POINT (10 10)\"\n");
    ASSERT_EQ(layer.places.size(), 1u);
    EXPECT_NEAR(layer.places[0].x, 190.0, 1e-9);
    EXPECT_THAT(Problem("metres.csv", "id,WKT\n1,\"POINT (500000 4000000)\"\n"), HasSubstr("coordinate system"));
}

TEST_F(GeometryReaderTest, ReadsCurvesAndSurfaces)
{
    EXPECT_EQ(
        Read("curve.csv", "id,WKT\n1,\"CURVEPOLYGON (CIRCULARSTRING (0 0,10 10,20 0,10 -10,0 0))\"\n").areas.size(),
        1u);
    EXPECT_EQ(Read("tin.csv", "id,WKT\n1,\"TIN (((0 0,9 0,9 9,0 0)),((0 0,9 9,0 9,0 0)))\"\n").areas.size(), 1u);
    EXPECT_EQ(Read("z.csv", "id,WKT\n1,\"POLYGON Z ((0 0 5,9 0 5,9 9 5,0 0 5))\"\n").areas.size(), 1u);
}

TEST_F(GeometryReaderTest, SkipsFeaturesWithoutGeometry)
{
    const MapLayer layer =
        Read("gaps.geojson", Collection(R"({"type":"Feature","properties":{},"geometry":null},)" +
                                        Feature("MultiPolygon", "[]") + "," + Feature("Polygon", kSquare)));
    EXPECT_EQ(layer.areas.size(), 1u);
}

TEST_F(GeometryReaderTest, ColoursByTheAttributeThatIsAskedFor)
{
    const std::string features = Feature("Polygon", kSquare, R"("kind":"b","mapcolor":5)") + "," +
                                 Feature("Polygon", kSquare, R"("kind":"a","mapcolor":6)") + "," +
                                 Feature("Polygon", kSquare, R"("kind":"b","mapcolor":7)");
    const auto categories = [&](const std::string& colorBy)
    {
        std::vector<int> result;
        for (const Area& area : Read("kinds.geojson", Collection(features), LayerRole::Countries, colorBy).areas)
            result.push_back(area.category);
        return result;
    };
    EXPECT_EQ(categories("kind"), (std::vector<int>{1, 2, 1}));
    EXPECT_EQ(categories("mapcolor"), (std::vector<int>{5, 6, 7}));
    EXPECT_EQ(categories(""), (std::vector<int>{5, 6, 7}));
}

TEST_F(GeometryReaderTest, ColoursTheSameWhateverIsVisible)
{
    const std::string content =
        Collection(Feature("Polygon", "[[[-90,0],[-80,0],[-80,9],[-90,0]]]", R"("name":"west")") + "," +
                   Feature("Polygon", kSquare, R"("name":"east")"));
    const VectorSource source(folder.Write("two.geojson", content));
    const View part(Projection::PlateCarree(), GeoBox{0, 0, 20, 10}, PixelSize{200, 100});
    GeometryReader reader(part, "", 7);
    const MapLayer layer = reader.Read(source, LayerRole::Countries);
    ASSERT_EQ(layer.areas.size(), 1u);
    EXPECT_EQ(layer.areas[0].category, 2);
}

TEST_F(GeometryReaderTest, NamesAnAttributeThatIsNotThere)
{
    EXPECT_THAT(Problem("a.geojson", Collection(Feature("Polygon", kSquare)), LayerRole::Any, "flavour"),
                HasSubstr("flavour"));
}

TEST_F(GeometryReaderTest, RefusesLayersThatDoNotSuit)
{
    EXPECT_NE(Problem("p.geojson", Collection(Feature("Point", "[5,5]")), LayerRole::Countries), "no problem");
    EXPECT_NE(Problem("p.geojson", Collection(Feature("Point", "[5,5]")), LayerRole::Lines), "no problem");
    EXPECT_NE(Problem("l.geojson", Collection(Feature("LineString", "[[0,0],[5,5]]")), LayerRole::Lakes), "no problem");
    EXPECT_NE(Problem("t.csv", "a,b\n1,2\n"), "no problem");
}

TEST_F(GeometryReaderTest, PicksTheFirstLayerThatSuits)
{
    const std::string topology =
        R"({"type":"Topology","arcs":[[[0,0],[10,0],[10,10],[0,0]],[[20,20],[30,30]]],"objects":{)"
        R"("roads":{"type":"GeometryCollection","geometries":[{"type":"LineString","arcs":[1]}]},)"
        R"("fields":{"type":"GeometryCollection","geometries":[{"type":"Polygon","arcs":[[0]]}]}}})";
    EXPECT_EQ(Read("t.json", topology, LayerRole::Countries).areas.size(), 1u);
    EXPECT_EQ(Read("t.json", topology, LayerRole::Any).lines.size(), 1u);
}

TEST_F(GeometryReaderTest, PicksALayerByName)
{
    const std::string path = folder.Write(
        "t.json", R"({"type":"Topology","arcs":[[[0,0],[10,0],[10,10],[0,0]],[[20,20],[30,30]]],"objects":{)"
                  R"("roads":{"type":"GeometryCollection","geometries":[{"type":"LineString","arcs":[1]}]},)"
                  R"("fields":{"type":"GeometryCollection","geometries":[{"type":"Polygon","arcs":[[0]]}]}}})");
    GeometryReader reader(view, "", 7);
    EXPECT_EQ(reader.Read(VectorSource(path + "#fields"), LayerRole::Any).areas.size(), 1u);
    EXPECT_THROW(VectorSource(path + "#nothing"), Failure);
}

TEST_F(GeometryReaderTest, ReadsAFileWithTheMarkInItsName)
{
    EXPECT_EQ(Read("a#b.geojson", Collection(Feature("Point", "[5,5]"))).places.size(), 1u);
}
