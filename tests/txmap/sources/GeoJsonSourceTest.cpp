// Features from GeoJSON, in styles and in files, and from what else GDAL reads.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <tests/txmap/support/RefusalOf.h>
#include <tests/txmap/support/TemporaryFolder.h>
#include <txmap/map/MercatorView.h>
#include <txmap/sources/FeatureSource.h>
#include <txmap/sources/Gdal.h>
#include <txmap/sources/SourceDiagnostics.h>
#include <txmap/sources/SourcePath.h>

using namespace txmap;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::SizeIs;

namespace
{

const MercatorView kWorld{{0.0, 0.0, 0.0, 0.0}, {512, 512}};

/// What a source of a style gives for a view.
class Loaded
{
public:
    explicit Loaded(const std::string& json, const MercatorView& view = kWorld, const FeatureRequest& request = All(),
                    const std::string& folder = "")
    {
        PrepareGdal();
        const std::unique_ptr<FeatureSource> source =
            MakeFeatureSource("test", Json::parse(json), SourceFolder(folder));
        source->Load(view, request, diagnostics);
        extent = source->Extent();
        for (const PlacedFeatures& placed : source->Features(""))
        {
            set = *placed.features;
            worlds = placed.worlds;
        }
    }

    static FeatureRequest All() { return {{{"", std::nullopt}}, 0.0, false}; }
    std::string Text(std::size_t feature, const std::string& name) const
    {
        const Value* const value = set.Property(set.features.at(feature), name);
        return value ? value->Is(Value::Kind::String) ? value->String() : "no text" : "none";
    }

    SourceDiagnostics diagnostics{false};
    FeatureSet set;
    std::vector<int> worlds;
    std::optional<MercatorBox> extent;
};

std::string Inline(const std::string& data, const std::string& more = "")
{
    return R"({"type": "geojson", "data": )" + data + more + "}";
}

std::string Feature(const std::string& geometry, const std::string& properties = "{}", const std::string& more = "")
{
    return R"({"type": "Feature", "properties": )" + properties + R"(, "geometry": )" + geometry + more + "}";
}

std::string Point(double longitude, double latitude)
{
    return R"({"type": "Point", "coordinates": [)" + std::to_string(longitude) + "," + std::to_string(latitude) + "]}";
}

std::string Collection(const std::vector<std::string>& features)
{
    std::string text;
    for (const std::string& feature : features)
        text += (text.empty() ? "" : ",") + feature;
    return R"({"type": "FeatureCollection", "features": [)" + text + "]}";
}

std::string Refusal(const std::string& json, const std::string& folder = "")
{
    return RefusalOf(ExitCode::Data, [&] { Loaded(json, kWorld, Loaded::All(), folder); });
}

TEST(GeoJsonSource, ReadsEveryGeometry)
{
    const auto counts = [](const std::string& type, const std::string& coordinates)
    { return Loaded(Inline(R"({"type": ")" + type + R"(", "coordinates": )" + coordinates + "}")).set.counts; };
    EXPECT_THAT(counts("Point", "[1, 2, 3]"), ElementsAre(1));
    EXPECT_THAT(counts("MultiPoint", "[[1, 2], [3, 4]]"), ElementsAre(1, 1));
    EXPECT_THAT(counts("LineString", "[[1, 2], [3, 4], [5, 6]]"), ElementsAre(3));
    EXPECT_THAT(counts("MultiLineString", "[[[1, 2], [3, 4]], [[5, 6], [7, 8], [9, 9]]]"), ElementsAre(2, 3));
    EXPECT_THAT(counts("Polygon", "[[[0, 0], [9, 0], [9, 9], [0, 0]], [[1, 1], [2, 1], [2, 2], [1, 1]]]"),
                ElementsAre(4, 4));
    EXPECT_THAT(counts("MultiPolygon", "[[[[0, 0], [9, 0], [9, 9]]], [[[20, 0], [29, 0], [29, 9], [20, 0]]]]"),
                ElementsAre(4, 4));
    EXPECT_THAT(counts("MultiPolygon", "[]"), IsEmpty());
    EXPECT_THAT(counts("LineString", "[]"), IsEmpty());
}

TEST(GeoJsonSource, TurnsOuterRingsOneWayAndHolesTheOther)
{
    for (const char* const outer : {"[[0, 0], [9, 0], [9, 9], [0, 0]]", "[[0, 0], [9, 9], [9, 0], [0, 0]]"})
    {
        const Loaded loaded(Inline(R"({"type": "Polygon", "coordinates": [)" + std::string(outer) +
                                   ", [[5, 1], [6, 1], [6, 2], [5, 1]]]}"));
        ASSERT_THAT(loaded.set.counts, ElementsAre(4, 4));
        EXPECT_GT(TwiceSignedArea(loaded.set.points.data(), 4), 0.0);
        EXPECT_LT(TwiceSignedArea(&loaded.set.points[4], 4), 0.0);
    }
}

TEST(GeoJsonSource, ReadsMembersInAnyOrder)
{
    const Loaded loaded(Inline(
        R"({"features": [{"geometry": {"coordinates": [[1, 2], [3, 4]], "type": "LineString"}, "id": 5,
            "properties": {"coordinates": "x", "type": "y", "features": [1]}, "type": "Feature"}],
            "type": "FeatureCollection"})"));
    ASSERT_THAT(loaded.set.features, SizeIs(1));
    EXPECT_EQ(loaded.set.features[0].type, GeometryType::LineString);
    EXPECT_EQ(loaded.set.features[0].id.Number(), 5.0);
    EXPECT_EQ(loaded.Text(0, "coordinates"), "x");
    EXPECT_EQ(loaded.Text(0, "type"), "y");
    EXPECT_EQ(loaded.set.Property(loaded.set.features[0], "features")->Array()[0].Number(), 1.0);
}

TEST(GeoJsonSource, GivesAFeatureForEachGeometryOfACollection)
{
    const std::string collection =
        R"({"geometries": [{"type": "GeometryCollection", "geometries": [)" + Point(1, 1) + "]}, " + Point(2, 2) +
        R"(, {"type": "LineString", "coordinates": [[1, 2], [3, 4]]}], "type": "GeometryCollection"})";
    EXPECT_THAT(Loaded(Inline(collection)).set.features, SizeIs(3));
    const Loaded loaded(Inline(Feature(collection, R"({"name": "all"})")));
    ASSERT_THAT(loaded.set.features, SizeIs(3));
    EXPECT_EQ(loaded.Text(2, "name"), "all");
}

TEST(GeoJsonSource, ReadsEveryKindOfAttribute)
{
    const Loaded loaded(Inline(Feature(
        Point(1, 2), R"({"a": null, "b": true, "c": 1.5, "d": -3, "e": "x", "f": [1, [2]], "g": {"h": {"i": 1}}})")));
    const auto value = [&](const char* name) { return *loaded.set.Property(loaded.set.features.at(0), name); };
    EXPECT_TRUE(value("a").IsNull());
    EXPECT_TRUE(value("b").Boolean());
    EXPECT_EQ(value("c").Number(), 1.5);
    EXPECT_EQ(value("d").Number(), -3.0);
    EXPECT_EQ(value("e").String(), "x");
    EXPECT_EQ(value("f").Array()[1].Array()[0].Number(), 2.0);
    EXPECT_EQ(value("g").Member("h")->Member("i")->Number(), 1.0);
}

TEST(GeoJsonSource, ReadsWantedAttributesAlone)
{
    const Loaded loaded(Inline(Feature(Point(1, 2), R"({"a": {"b": [1]}, "c": 1, "d": 2})")), kWorld,
                        {{{"", std::set<std::string>{"c"}}}, 0.0, false});
    EXPECT_THAT(loaded.set.keys, ElementsAre("c"));
}

TEST(GeoJsonSource, KnowsIdentifiersThatAreNumbers)
{
    const auto id = [](const std::string& given)
    { return Loaded(Inline(Feature(Point(1, 2), "{}", R"(, "id": )" + given))).set.features.at(0).id; };
    EXPECT_EQ(id("12").Number(), 12.0);
    EXPECT_EQ(id(R"("13")").Number(), 13.0);
    EXPECT_EQ(id("3.9").Number(), 3.0);
    EXPECT_TRUE(id(R"("abc")").IsNull());
    EXPECT_TRUE(id("null").IsNull());
}

TEST(GeoJsonSource, MakesAndPromotesIdentifiers)
{
    const std::string two =
        Collection({Feature(Point(1, 2), R"({"code": 7})"), Feature(Point(3, 4), R"({"code": "8"})")});
    EXPECT_EQ(Loaded(Inline(two, R"(, "generateId": true)")).set.features.at(1).id.Number(), 1.0);
    EXPECT_EQ(Loaded(Inline(two, R"(, "promoteId": "code")")).set.features.at(1).id.Number(), 8.0);
    EXPECT_TRUE(Loaded(Inline(two)).set.features.at(1).id.IsNull());
}

TEST(GeoJsonSource, LeavesOutWhatTheFilterRefuses)
{
    const std::string data = Collection(
        {Feature(Point(1, 2), R"({"name": "a", "keep": 1})"), Feature(Point(1, 2), R"({"name": "b", "keep": 2})")});
    const Loaded loaded(Inline(data, R"(, "filter": ["==", ["get", "keep"], 2])"), kWorld,
                        {{{"", std::set<std::string>{"name"}}}, 0.0, false});
    ASSERT_THAT(loaded.set.features, SizeIs(1));
    EXPECT_EQ(loaded.Text(0, "name"), "b");
    EXPECT_THAT(loaded.set.points, SizeIs(1));
    EXPECT_THAT(Refusal(Inline(data, R"(, "filter": ["nothing"])")), HasSubstr("has a filter that is none"));
}

/// Points a degree apart along the equator, each with its number as `n`.
std::string Row(int count)
{
    std::vector<std::string> points;
    for (int i = 0; i < count; ++i)
        points.push_back(Feature(Point(i, 0), R"({"n": )" + std::to_string(i + 1) + "}"));
    return Collection(points);
}

TEST(GeoJsonSource, ClustersPoints)
{
    // At zoom 2, 50 pixels are 8.8 degrees.
    const Loaded loaded(Inline(Row(20), R"(, "cluster": true, "clusterMaxZoom": 2, "clusterProperties": {
                               "sum": ["+", ["get", "n"]],
                               "most": [["max", ["accumulated"], ["get", "most"]], ["get", "n"]]})"),
                        MercatorView({0, 0, 2.5, 0}, {1024, 512}));
    // The first point gathers those up to 8 degrees, the tenth the others up to 17, and two are left.
    ASSERT_THAT(loaded.set.features, SizeIs(3));
    const auto number = [&](std::size_t feature, const char* name)
    { return loaded.set.Property(loaded.set.features[feature], name)->Number(); };
    EXPECT_EQ(number(0, "point_count"), 9.0);
    EXPECT_EQ(number(1, "point_count"), 9.0);
    EXPECT_EQ(number(2, "point_count_abbreviated"), 2.0);
    EXPECT_EQ(number(0, "sum"), 45.0);
    EXPECT_EQ(number(1, "most"), 18.0);
    EXPECT_TRUE(loaded.set.Property(loaded.set.features[0], "cluster")->Boolean());
    EXPECT_EQ(loaded.set.features[0].id.Number(), number(0, "cluster_id"));
    EXPECT_NEAR(loaded.set.points[0].x, ToMercator(4, 0).x, 1e-9);
}

TEST(GeoJsonSource, ClustersNoFewPointsAndNoneBeyondTheZoom)
{
    const MercatorView view({0, 0, 2, 0}, {1024, 512});
    EXPECT_THAT(Loaded(Inline(Row(20), R"(, "cluster": true, "clusterMaxZoom": 1)"), view).set.features, SizeIs(20));
    const Loaded loaded(Inline(Row(20), R"(, "cluster": true, "clusterMaxZoom": 2, "clusterMinPoints": 5)"), view);
    ASSERT_THAT(loaded.set.features, SizeIs(4));
    EXPECT_EQ(loaded.set.Property(loaded.set.features[3], "n")->Number(), 20.0);
    EXPECT_THAT(Refusal(Inline(Row(2), R"(, "cluster": true, "clusterProperties": {"a": 1})")),
                HasSubstr("has a cluster property a that is none"));
}

TEST(GeoJsonSource, LeavesOutWhatIsNotSeen)
{
    const std::string data = Collection(
        {Feature(Point(10, 10)), Feature(Point(100, 10)),
         Feature(R"({"type": "MultiLineString", "coordinates": [[[9, 9], [11, 11]], [[90, 9], [91, 9]]]})")});
    const MercatorView view({10.0, 10.0, 6.0, 0.0}, {300, 300});
    const Loaded loaded(Inline(data), view);
    ASSERT_THAT(loaded.set.features, SizeIs(2));
    EXPECT_THAT(loaded.set.counts, ElementsAre(1, 2));
    FeatureRequest whole = Loaded::All();
    whole.keepsWholeFeatures = true;
    EXPECT_THAT(Loaded(Inline(data), view, whole).set.counts, ElementsAre(1, 2, 2));
    // What there is altogether is known all the same.
    EXPECT_NEAR(loaded.extent->right, ToMercator(100, 0).x, 1e-9);
}

TEST(GeoJsonSource, DrawsInTheWorldsWhereSomethingIs)
{
    const MercatorView pacific({180.0, 0.0, 4.0, 0.0}, {512, 512});
    EXPECT_THAT(Loaded(Inline(Point(175, 0)), pacific).worlds, ElementsAre(0));
    EXPECT_THAT(Loaded(Inline(Point(-175, 0)), pacific).worlds, ElementsAre(1));
    EXPECT_THAT(Loaded(Inline(Point(185, 0)), pacific).worlds, ElementsAre(0));
    EXPECT_THAT(Loaded(Inline(Point(0, 0)), pacific).worlds, IsEmpty());
    EXPECT_THAT(Loaded(Inline(Point(0, 0)), MercatorView({0, 0, 0, 0}, {1100, 512})).worlds, ElementsAre(-1, 0, 1));
}

TEST(GeoJsonSource, SaysWhichGeometryIsNone)
{
    const Loaded loaded(Inline(Collection({Feature(R"({"type": "Point", "coordinates": [[1, 2]]})"),
                                           Feature(R"({"type": "Point", "coordinates": [1]})"),
                                           Feature(R"({"type": "Point", "coordinates": ["1", "2"]})"),
                                           Feature(R"({"type": "Blob", "coordinates": [1, 2]})"),
                                           Feature(R"({"type": "LineString", "coordinates": [[1, 2], [[3, 4]]]})"),
                                           Feature("null"), Feature(Point(1, 2))})));
    EXPECT_THAT(loaded.set.features, SizeIs(1));
    EXPECT_THAT(loaded.diagnostics.Warnings(), ElementsAre("the source test: 5 features have a geometry that is none"));
}

TEST(GeoJsonSource, SaysWhenCoordinatesAreNoDegrees)
{
    const Loaded loaded(Inline(Point(500000, 6000000)));
    EXPECT_THAT(loaded.diagnostics.Warnings(), ElementsAre(HasSubstr("coordinates that are no degrees")));
    EXPECT_THAT(Loaded(Inline(Point(359, 90.5))).diagnostics.Warnings(), IsEmpty());
}

TEST(GeoJsonSource, ReadsFilesFromTheFolderOfTheStyle)
{
    const TemporaryFolder folder;
    folder.Write("a.geojson", Feature(Point(1, 2), R"({"name": "a"})"));
    const std::string here = folder.Path().string();
    EXPECT_EQ(Loaded(Inline(R"("a.geojson")"), kWorld, Loaded::All(), here).Text(0, "name"), "a");
    EXPECT_EQ(Loaded(Inline(R"("file://)" + here + R"(/a.geojson")")).Text(0, "name"), "a");
}

TEST(GeoJsonSource, ReadsWhatGdalReads)
{
    const TemporaryFolder folder;
    const std::string here = folder.Path().string();
    folder.Write("a.csv", "WKT,name,n\n\"POINT (10 20)\",x,5\n\"POLYGON ((0 0,9 0,9 9,0 0))\",y,6\n");
    const Loaded loaded(Inline(R"("a.csv")"), kWorld, Loaded::All(), here);
    ASSERT_THAT(loaded.set.features, SizeIs(2));
    EXPECT_EQ(loaded.Text(0, "name"), "x");
    EXPECT_EQ(loaded.set.features[1].type, GeometryType::Polygon);
    EXPECT_NEAR(loaded.set.points[0].x, ToMercator(10, 20).x, 1e-12);
    const Loaded some(Inline(R"("a.csv#a")"), kWorld, {{{"", std::set<std::string>{"n"}}}, 0.0, false}, here);
    EXPECT_THAT(some.set.keys, ElementsAre("n"));
}

TEST(GeoJsonSource, BringsOtherSystemsIntoDegrees)
{
    const TemporaryFolder folder;
    folder.Write("old.json",
                 R"({"type": "FeatureCollection", "crs": {"type": "name", "properties": {"name": "EPSG:3857"}},
                     "features": [{"type": "Feature", "properties": {},
                     "geometry": {"type": "Point", "coordinates": [1113194.9079327357, 0]}}]})");
    const Loaded loaded(Inline(R"("old.json")"), kWorld, Loaded::All(), folder.Path().string());
    ASSERT_THAT(loaded.set.points, SizeIs(1));
    EXPECT_NEAR(loaded.set.points[0].x, ToMercator(10, 0).x, 1e-9);
    EXPECT_NEAR(loaded.set.points[0].y, 0.5, 1e-9);
}

TEST(GeoJsonSource, ReadsASequenceOfFeatures)
{
    const TemporaryFolder folder;
    folder.Write("lines.json", Feature(Point(1, 2)) + "\n" + Feature(Point(3, 4)) + "\n");
    EXPECT_THAT(Loaded(Inline(R"("lines.json")"), kWorld, Loaded::All(), folder.Path().string()).set.features,
                SizeIs(2));
}

TEST(GeoJsonSource, RefusesWhatIsNoData)
{
    const TemporaryFolder folder;
    const std::string here = folder.Path().string();
    EXPECT_THAT(Refusal(R"({"type": "geojson"})"), HasSubstr("the source test has no data"));
    EXPECT_THAT(Refusal(Inline(R"({"a": 1})")), HasSubstr("the source test: is no GeoJSON"));
    EXPECT_THAT(Refusal(Inline(R"("none.geojson")"), here), HasSubstr("none.geojson: no such file"));
    EXPECT_THAT(Refusal(Inline(R"("https://a.org/a.geojson")"), here), HasSubstr("would be fetched over a network"));
    EXPECT_THAT(Refusal(Inline(R"("WFS:https://a.org/a")"), here), HasSubstr("would be fetched over a network"));
    folder.Write("cut.geojson", Feature(Point(1, 2)).substr(0, 50));
    EXPECT_THAT(Refusal(Inline(R"("cut.geojson")"), here), HasSubstr("cut.geojson: is no valid JSON at byte"));
    folder.Write("huge.geojson", R"({"type": "Point", "coordinates": [1e999, 0]})");
    EXPECT_THAT(Refusal(Inline(R"("huge.geojson")"), here), HasSubstr("number out of range"));
    folder.Write("deep.geojson", R"({"type": "Feature", "properties": {"a": )" + std::string(1000000, '[') +
                                     std::string(1000000, ']') + R"(}, "geometry": null})");
    EXPECT_THAT(Refusal(Inline(R"("deep.geojson")"), here), HasSubstr("nested too deep"));
    folder.Write("deepest.geojson", std::string(1000000, '['));
    EXPECT_THAT(Refusal(Inline(R"("deepest.geojson")"), here), HasSubstr("nested too deep"));
}

} // namespace
