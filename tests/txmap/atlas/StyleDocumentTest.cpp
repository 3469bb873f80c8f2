#include <algorithm>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <tests/txmap/support/RefusalOf.h>
#include <tests/txmap/support/TemporaryFolder.h>
#include <txmap/atlas/AtlasSources.h>
#include <txmap/atlas/SourceColors.h>
#include <txmap/atlas/StyleDocument.h>
#include <txmap/sources/Gdal.h>
#include <txmap/sources/SourceDiagnostics.h>
#include <txmap/style/Style.h>
#include <txmap/style/document/MapStyle.h>
#include <txmap/support/Failure.h>

using namespace txmap;
using ::testing::ElementsAre;
using ::testing::HasSubstr;

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
