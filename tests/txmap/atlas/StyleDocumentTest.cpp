#include <algorithm>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <tests/txmap/support/RefusalOf.h>
#include <tests/txmap/support/TemporaryFolder.h>
#include <txmap/atlas/AtlasSources.h>
#include <txmap/atlas/NameLayers.h>
#include <txmap/atlas/SourceColors.h>
#include <txmap/atlas/StyleDocument.h>
#include <txmap/sources/Gdal.h>
#include <txmap/sources/MapLayerReader.h>
#include <txmap/sources/SourceDiagnostics.h>
#include <txmap/style/Style.h>
#include <txmap/style/document/MapStyle.h>
#include <txmap/support/Failure.h>

using namespace txmap;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::StartsWith;

namespace
{

const std::string kArea = R"({"type":"Feature","properties":{"name":"a"},"geometry":)"
                          R"({"type":"Polygon","coordinates":[[[0,0],[9,0],[9,9],[0,9],[0,0]]]}})";

class StyleDocumentTest : public ::testing::Test
{
protected:
    StyleDocumentTest() { PrepareGdal(); }

    Json Make(bool standalone = false)
    {
        SourceDiagnostics diagnostics(true);
        const AtlasSources sources(options, diagnostics);
        const Json document =
            MakeStyleDocument(options, AtlasStyle(), sources, ColorSources(options, AtlasStyle(), sources));
        return standalone ? StandaloneDocument(document, AtlasStyle(), sources) : document;
    }

    /// The style with the names of all layers.
    Json MakeNamed()
    {
        options.labels.wanted = true;
        SourceDiagnostics diagnostics(true);
        const AtlasSources sources(options, diagnostics);
        std::vector<MapLayer> layers;
        for (const AtlasSource& source : sources.Features())
            if (source.IsLand())
                layers.push_back(ReadMapLayer(source.Features(), sources.View(), options.labels, true, 32.0));
        Json document = MakeStyleDocument(options, AtlasStyle(), sources, ColorSources(options, AtlasStyle(), sources));
        AddNameLayers(document, options, AtlasStyle(), sources, layers);
        return document;
    }

    static const Json& Layer(const Json& document, const std::string& id)
    {
        return *std::find_if(document["layers"].begin(), document["layers"].end(),
                             [&](const Json& layer) { return layer["id"] == id; });
    }

    std::string Add(const std::string& name, const std::string& content, LayerRole role = LayerRole::Any)
    {
        options.layers.push_back({folder.Write(name, content), role});
        return options.layers.back().source;
    }

    const TemporaryFolder folder;
    AtlasOptions options;
};

std::vector<std::string> LayerIds(const Json& document)
{
    std::vector<std::string> ids;
    for (const Json& layer : document["layers"])
        ids.push_back(layer["id"].get<std::string>());
    return ids;
}

} // namespace

TEST_F(StyleDocumentTest, LaysWaterUnderLandAndLinesOverIt)
{
    Add("c.geojson", kArea, LayerRole::Countries);
    Add("l.geojson", kArea, LayerRole::Lakes);
    Add("b.geojson", kArea, LayerRole::Borders);
    Add("r.geojson", R"({"type":"LineString","coordinates":[[0,0],[5,5]]})");
    EXPECT_THAT(LayerIds(Make()), ElementsAre("sea", "shore-1-c", "shore-2-c", "shore-3-c", "areas-c", "areas-l",
                                              "borders-b", "lines-r"));
}

TEST_F(StyleDocumentTest, IsAStyleWithoutProblems)
{
    Add("c.geojson", kArea, LayerRole::Countries);
    Add("mixed.geojson", R"({"type":"GeometryCollection","geometries":[{"type":"Point","coordinates":[3,3]},)"
                         R"({"type":"LineString","coordinates":[[0,0],[9,9]]}]})");
    for (const bool standalone : {false, true})
    {
        const StyleReading reading = ReadStyle(Make(standalone).dump());
        for (const StyleProblem& problem : reading.problems)
            ADD_FAILURE() << problem.ToString();
        EXPECT_FALSE(reading.style.layers.empty());
    }
}

TEST_F(StyleDocumentTest, StandsAloneWithPlacesAndACamera)
{
    const std::string path = Add("p.geojson", R"({"type":"MultiPoint","coordinates":[[8,46],[10,48]]})") + "#";
    const Json document = Make(true);
    EXPECT_THAT(LayerIds(document), ElementsAre("sea", "places-p"));
    EXPECT_EQ(document["sources"]["p"]["data"].get<std::string>() + "#", path);
    EXPECT_NEAR(document["center"][0].get<double>(), 9.0, 1e-6);
    EXPECT_NEAR(document["center"][1].get<double>(), 47.0, 1e-6);
    EXPECT_GT(document["zoom"].get<double>(), 5.0);
}

TEST_F(StyleDocumentTest, ColoursByTheAttributeThatIsAskedFor)
{
    Add("c.geojson", kArea, LayerRole::Countries);
    options.colorBy = "NAME";
    const Json fill = Make()["layers"][4]["paint"]["fill-color"];
    EXPECT_EQ(fill[1].dump(), R"(["to-string",["get","name"]])");
    EXPECT_EQ(fill[2].dump(), R"(["a"])");
    options.colorBy = "flavour";
    EXPECT_THAT(RefusalOf(ExitCode::Data, [&] { Make(); }), HasSubstr("flavour"));
}

TEST_F(StyleDocumentTest, NamesTheLayerThatWasChosen)
{
    Add("t.json",
        R"({"type":"Topology","arcs":[[[0,0],[10,0],[10,10],[0,0]],[[20,20],[30,30]]],"objects":{)"
        R"("roads":{"type":"GeometryCollection","geometries":[{"type":"LineString","arcs":[1]}]},)"
        R"("fields":{"type":"GeometryCollection","geometries":[{"type":"Polygon","arcs":[[0]]}]}}})",
        LayerRole::Countries);
    EXPECT_THAT(Make()["sources"]["t"]["data"].get<std::string>(), HasSubstr("t.json#fields"));
}

TEST_F(StyleDocumentTest, ColoursByARampOfNumbers)
{
    Add("c.geojson",
        R"({"type":"Feature","properties":{"v":7},"geometry":)" + kArea.substr(kArea.find("{\"type\":\"Po")),
        LayerRole::Countries);
    options.ramp = ColorRamp{"v", {1.0, 1.0, 1.0, 1.0}, {0.0, 0.0, 0.0, 1.0}, 0.0, 10.0};
    EXPECT_EQ(
        Make()["layers"][4]["paint"]["fill-color"][2].dump(),
        R"json(["interpolate",["linear"],["number",["get","v"]],0.0,"rgba(255,255,255,1)",10.0,"rgba(0,0,0,1)"])json");
    EXPECT_TRUE(ReadStyle(Make().dump()).problems.empty());
    options.ramp->field = "w";
    EXPECT_THAT(RefusalOf(ExitCode::Data, [&] { Make(); }), HasSubstr("--color-ramp"));
}

TEST_F(StyleDocumentTest, NamesEachAreaOnceInItsLargestPart)
{
    options.size = PixelSize{1200, 1200};
    Add("c.geojson",
        R"({"type":"FeatureCollection","features":[)"
        R"({"type":"Feature","properties":{"name":"Small <BOL>isle"},"geometry":)"
        R"({"type":"Polygon","coordinates":[[[0,0],[1,0],[1,1],[0,1],[0,0]]]}},)"
        R"({"type":"Feature","properties":{"name":"Twice"},"geometry":)"
        R"({"type":"Polygon","coordinates":[[[0,2],[1,2],[1,3],[0,3],[0,2]]]}},)"
        R"({"type":"Feature","properties":{"name":"Twice"},"geometry":)"
        R"({"type":"Polygon","coordinates":[[[2,0],[6,0],[6,4],[2,4],[2,0]]]}}]})",
        LayerRole::Countries);
    const Json document = MakeNamed();
    const Json& names = document["sources"]["names-c"]["data"]["features"];
    ASSERT_EQ(names.size(), 2u);
    const Json& first = names[0]["properties"];
    const Json& second = names[1]["properties"];
    EXPECT_EQ(first["name"], "Twice");
    EXPECT_EQ(second["name"], "Small isle");
    EXPECT_EQ(first["order"], 0);
    EXPECT_EQ(second["order"], 1);
    EXPECT_GT(first["size"], second["size"]);
    EXPECT_LT(first["from"], second["from"]);
    EXPECT_NEAR(names[0]["geometry"]["coordinates"][0].get<double>(), 4.0, 0.1);
    EXPECT_NEAR(names[0]["geometry"]["coordinates"][1].get<double>(), 2.0, 0.1);
    EXPECT_EQ(LayerIds(document).back(), "names-c");
    EXPECT_EQ(Layer(document, "names-c")["layout"]["symbol-sort-key"], Json({"get", "order"}));
    EXPECT_TRUE(ReadStyle(document.dump()).problems.empty());
}

TEST_F(StyleDocumentTest, NamesPlacesByRankAndThenByPeople)
{
    const auto keyWith = [&](const std::string& members)
    {
        options.layers.clear();
        Add("p.geojson", R"({"type":"Feature","properties":{"name":"a")" + members +
                             R"(},"geometry":{"type":"MultiPoint","coordinates":[[8,46],[10,48]]}})");
        const Json document = MakeNamed();
        EXPECT_TRUE(ReadStyle(document.dump()).problems.empty());
        const Json& layer = Layer(document, "place-names-p");
        EXPECT_EQ(layer["layout"]["text-field"], Json({"to-string", {"get", "name"}}));
        return layer["layout"].value("symbol-sort-key", Json()).dump();
    };
    EXPECT_EQ(keyWith(""), "null");
    EXPECT_THAT(keyWith(R"(,"scalerank":3)"), HasSubstr(R"(["to-number",["get","scalerank"],100.0])"));
    EXPECT_THAT(keyWith(R"(,"pop_max":3)"), StartsWith(R"(["-",0,["/",["case",["has","pop_max"])"));
    EXPECT_THAT(keyWith(R"(,"scalerank":3,"pop_max":3)"), StartsWith(R"(["+",["case",["has","scalerank"])"));
}
