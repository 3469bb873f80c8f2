#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <txmap/style/document/MapStyle.h>

using namespace txmap;
using ::testing::ElementsAre;
using ::testing::HasSubstr;

namespace
{

std::vector<std::string> Problems(const std::string& text)
{
    std::vector<std::string> lines;
    for (const StyleProblem& problem : ReadStyle(text).problems)
        lines.push_back(problem.ToString());
    return lines;
}

/// A style with sources of most types and these layers.
std::string WithLayers(const std::string& layers)
{
    return R"({"version": 8, "sources": {"g": {"type": "geojson", "data": "x.json"},
               "m": {"type": "geojson", "data": "x.json", "lineMetrics": true},
               "v": {"type": "vector", "url": "x.json"}, "r": {"type": "raster", "url": "x.tif"}}, "layers": [)" +
           layers + "]}";
}

/// The problems of a layer of lines or areas with this property.
std::vector<std::string> PaintProblems(const std::string& type, const std::string& property)
{
    return Problems(
        WithLayers(R"({"id": "a", "source": "g", "type": ")" + type + R"(", "paint": {)" + property + "}}"));
}

double NumberOf(const StyleLayer& layer, const char* name, double zoom)
{
    EvaluationContext context;
    context.zoom = zoom;
    return layer.Find(name)->EvaluateOrDefault(context).Number();
}

} // namespace

TEST(StyleReader, CompilesLayersWithDefaults)
{
    const StyleReading reading = ReadStyle(WithLayers(
        R"({"id": "a", "type": "line", "source": "g", "minzoom": 2, "maxzoom": 5, "metadata": {"txmap:a": 1},
            "paint": {"line-width": {"stops": [[0, 1], [10, 11]]}, "line-width-transition": {"duration": 5}},
            "layout": {"visibility": "none"}})"));
    ASSERT_TRUE(reading.problems.empty()) << reading.problems[0].ToString();
    ASSERT_EQ(reading.style.layers.size(), 1u);
    const StyleLayer& layer = reading.style.layers[0];
    EXPECT_EQ(NumberOf(layer, "line-width", 4.0), 5.0);
    EXPECT_EQ(NumberOf(layer, "line-miter-limit", 4.0), 2.0);
    EXPECT_EQ(layer.Find("line-gradient"), nullptr);
    EXPECT_FALSE(layer.visible);
    EXPECT_EQ(layer.minZoom, 2.0);
    EXPECT_EQ(layer.maxZoom, 5.0);
    EXPECT_EQ(layer.metadata["txmap:a"], 1);
}

TEST(StyleReader, TakesLayersFromTheOnesTheyReferTo)
{
    const StyleReading reading = ReadStyle(WithLayers(
        R"({"id": "a", "type": "fill", "source": "g", "filter": ["==", "x", 1], "layout": {"fill-sort-key": 3}},
           {"id": "b", "ref": "a", "paint": {"fill-opacity": 0.5}})"));
    ASSERT_TRUE(reading.problems.empty());
    ASSERT_EQ(reading.style.layers.size(), 2u);
    const StyleLayer& layer = reading.style.layers[1];
    EXPECT_EQ(layer.type, LayerType::Fill);
    EXPECT_EQ(layer.source, "g");
    EXPECT_TRUE(layer.filter);
    EXPECT_EQ(NumberOf(layer, "fill-sort-key", 0.0), 3.0);
}

TEST(StyleReader, ReadsTheCameraAndTheState)
{
    const StyleReading reading = ReadStyle(
        R"({"version": 8, "center": [8.5, 47], "zoom": 3, "bearing": 20, "state": {"dark": {"default": true}},
            "sources": {}, "layers": [{"id": "a", "type": "background",
            "layout": {"visibility": ["case", ["global-state", "dark"], "none", "visible"]}}]})");
    ASSERT_TRUE(reading.problems.empty());
    EXPECT_EQ(reading.style.longitude, 8.5);
    EXPECT_EQ(reading.style.latitude, 47.0);
    EXPECT_EQ(reading.style.zoom, 3.0);
    EXPECT_EQ(reading.style.bearing, 20.0);
    EXPECT_FALSE(reading.style.layers[0].visible);
}

TEST(StyleReader, RefusesWhatIsNoStyle)
{
    EXPECT_THAT(Problems("{"), ElementsAre(HasSubstr("/: no JSON: ")));
    EXPECT_THAT(Problems("[]"), ElementsAre("/: object expected, but array found"));
    EXPECT_THAT(Problems(R"({"version": 7, "layers": []})"),
                ElementsAre(R"(/: "sources" is missing)", "/version: 8 expected, but 7 found"));
    EXPECT_THAT(Problems(std::string(100000, '[') + std::string(100000, ']')),
                ElementsAre("/: nested deeper than 256 levels"));
}

TEST(StyleReader, ReportsSources)
{
    EXPECT_THAT(Problems(R"({"version": 8, "layers": [], "sources": {"a": {"type": "geojson"}, "b/c": {"type": "x"},
            "d": {}, "e": {"type": "geojson", "data": {}, "zork": 1}, "f": {"type": "vector", "zork": 1, "tiles": 3}}})"),
                ElementsAre(R"(/sources/a: "data" is missing)",
                            HasSubstr("/sources/b~1c/type: expected one of vector, raster"),
                            R"(/sources/d: "type" is missing)", "/sources/e/zork: unknown member",
                            "/sources/f/tiles: array expected, but number found"));
}

TEST(StyleReader, ReportsLayers)
{
    EXPECT_THAT(Problems(WithLayers(R"({"id": "a", "type": "fill", "source": "zz"}, {"id": "a", "type": "background"},
            {"id": "b", "ref": "c"}, {"id": "c", "ref": "b"}, {"id": "d", "type": "fill", "source": "v"},
            {"id": "e", "type": "raster", "source": "g"}, {"id": "f", "ref": "none"}, 7)")),
                ElementsAre(R"(/layers/0/source: there is no source "zz")", "/layers/1/id: the same id as /layers/0",
                            "/layers/2/ref: refers to a layer that itself refers to another",
                            "/layers/3/ref: refers to a layer that itself refers to another",
                            R"(/layers/4: "source-layer" is missing)",
                            "/layers/5/source: a layer of type raster cannot draw a source of type geojson",
                            "/layers/6/ref: there is no layer of this id",
                            "/layers/7: object expected, but number found"));
}

TEST(StyleReader, ReportsConstants)
{
    EXPECT_THAT(PaintProblems("fill", R"("fill-colr": 1)"), ElementsAre("/layers/0/paint/fill-colr: unknown property"));
    EXPECT_THAT(PaintProblems("fill", R"("fill-color": "redd")"),
                ElementsAre(R"(/layers/0/paint/fill-color: "redd" is no color)"));
    EXPECT_THAT(PaintProblems("fill", R"("fill-opacity": 2)"),
                ElementsAre("/layers/0/paint/fill-opacity: 2 is greater than the maximum 1"));
    EXPECT_THAT(PaintProblems("line", R"("line-dasharray": [1, -1, "a"])"),
                ElementsAre("/layers/0/paint/line-dasharray/1: -1 is less than the minimum 0",
                            "/layers/0/paint/line-dasharray/2: number expected, but string found"));
    EXPECT_THAT(
        PaintProblems("line", R"("line-translate": [1])"),
        ElementsAre("/layers/0/paint/line-translate: an array of length 2 expected, but one of length 1 found"));
}

TEST(StyleReader, ReportsExpressionsWithThePlaceInThem)
{
    EXPECT_THAT(PaintProblems("line", R"("line-width": ["+", 1, ["get", 2]])"),
                ElementsAre("/layers/0/paint/line-width/2/1: Expected string but found number instead."));
    EXPECT_THAT(PaintProblems("line", R"("line-translate": ["get", "a"])"),
                ElementsAre("/layers/0/paint/line-translate: data expressions not supported"));
}

TEST(StyleReader, ReportsFunctionsOfTheOldKind)
{
    EXPECT_THAT(PaintProblems("line", R"("line-width": {"stops": [[2, 1], [1, 2], [3]]})"),
                ElementsAre("/layers/0/paint/line-width/stops/1/0: inputs of stops must ascend",
                            "/layers/0/paint/line-width/stops/2: a stop has two elements, but this one has 1"));
    EXPECT_THAT(PaintProblems("line", R"("line-width": {"type": "identity"})"),
                ElementsAre(R"(/layers/0/paint/line-width: a function of this type has a "property")"));
}

TEST(StyleReader, ReportsFilters)
{
    EXPECT_THAT(Problems(WithLayers(R"({"id": "a", "type": "fill", "source": "g", "filter": [">", "$type", "x"]},
            {"id": "b", "type": "fill", "source": "g", "filter": ["==", ["get"], 1]})")),
                ElementsAre(R"(/layers/0/filter: "$type" cannot be used with ">")",
                            "/layers/0/filter/2: expected one of Point, LineString, Polygon, but \"x\" found",
                            HasSubstr("/layers/1/filter/1: Expected arguments of type (string)")));
}

TEST(StyleReader, TellsWhatIsRightButNotDrawn)
{
    const StyleReading reading = ReadStyle(
        R"({"version": 8, "pitch": 30, "sources": {"g": {"type": "geojson", "data": {}}},
            "layers": [{"id": "a", "type": "heatmap", "source": "g"}]})");
    ASSERT_EQ(reading.problems.size(), 2u);
    EXPECT_TRUE(reading.problems[0].isUnsupported);
    EXPECT_EQ(reading.problems[0].pointer, "/pitch");
    EXPECT_TRUE(reading.problems[1].isUnsupported);
    EXPECT_TRUE(reading.style.layers.empty());
}

TEST(StyleReader, LeavesOutWhatIsWrongAndKeepsTheRest)
{
    const StyleReading reading = ReadStyle(
        WithLayers(R"({"id": "a", "type": "line", "source": "g", "paint": {"line-width": "x", "line-opacity": 0.5}})"));
    EXPECT_EQ(reading.problems.size(), 1u);
    ASSERT_EQ(reading.style.layers.size(), 1u);
    EXPECT_EQ(NumberOf(reading.style.layers[0], "line-width", 0.0), 1.0);
    EXPECT_EQ(NumberOf(reading.style.layers[0], "line-opacity", 0.0), 0.5);
}

TEST(StyleReader, MetadataOfTexts)
{
    const auto layer = [](const std::string& type, const std::string& metadata)
    { return WithLayers(R"({"id": "a", "type": ")" + type + R"(", "source": "g", "metadata": {)" + metadata + "}}"); };
    const StyleReading reading =
        ReadStyle(layer("symbol", R"("txmap:text-engine": "cairo", "txmap:vertical": true, "other": 1,
                                     "txmap:font-marker": {"font": "A", "character": "★"})"));
    EXPECT_TRUE(reading.problems.empty());
    ASSERT_EQ(reading.style.layers.size(), 1u);
    EXPECT_TRUE(reading.style.layers[0].textThroughCairo);
    EXPECT_TRUE(reading.style.layers[0].textIsVertical);
    EXPECT_EQ(reading.style.layers[0].markFont, "A");
    EXPECT_EQ(reading.style.layers[0].markCharacter, "★");
    for (const auto& [metadata, place] :
         {std::pair{R"("txmap:text-engine": "gl")", "txmap:text-engine"},
          {R"("txmap:vertical": 1)", "txmap:vertical"},
          {R"("txmap:font-marker": "x")", "txmap:font-marker"},
          {R"("txmap:font-marker": {"font": "A"})", "txmap:font-marker"},
          {R"("txmap:font-marker": {"font": "A", "character": "ab"})", "txmap:font-marker/character"},
          {R"("txmap:font-marker": {"font": "A", "character": "😀"})", "txmap:font-marker/character"}})
        EXPECT_THAT(Problems(layer("symbol", metadata)),
                    ElementsAre(HasSubstr(std::string("/layers/0/metadata/") + place)))
            << metadata;
    EXPECT_THAT(Problems(layer("line", R"("txmap:vertical": true)")),
                ElementsAre(HasSubstr("only layers of type symbol")));
}
