// What stands in the metadata of layers because the style format has no word for it.
#include <cmath>

#include <gmock/gmock.h>
#include <tests/txmap/drawing/layers/StyledTwins.h>
#include <txmap/style/document/MapStyle.h>

using namespace TZObjects;
using ::testing::ElementsAre;

namespace
{

const std::vector<TXPoint> kRing = {{40.3, 50.2}, {200.6, 60.4}, {180.1, 210.7}, {60.2, 190.3}, {40.3, 50.2}};
const std::vector<TXPoint> kHole = {{90, 90}, {90, 120}, {130, 120}, {130, 90}, {90, 90}};

class OwnMetadata : public StyledTwins
{
protected:
    void ExpectSame(const std::vector<unsigned>& styled, const Draw& draw)
    {
        EXPECT_GT(Drawn(styled), 50u);
        EXPECT_EQ(Differing(styled, Direct(draw)), 0u);
    }
    std::vector<unsigned> Marker(const std::string& marker, const std::string& paint = "")
    {
        return Styled(R"({"type": "MultiPoint", "coordinates": [)" + Place(80.25, 90.5) + "," + Place(150.75, 130.25) +
                          "]}",
                      R"({"id": "c", "type": "circle", "source": "s", "metadata": {"txmap:marker": )" + marker +
                          R"(}, "paint": {"circle-radius": 20, "circle-color": "#c03020")" + paint + "}}");
    }
};

std::vector<std::string> ProblemsOf(const std::string& type, const std::string& metadata)
{
    const auto reading = txmap::ReadStyle(R"({"version": 8, "sources": {"s": {"type": "geojson", "data": "x.json"}},
        "layers": [{"id": "a", "type": ")" +
                                          type + R"(", "source": "s", "metadata": )" + metadata + "}]}");
    std::vector<std::string> problems;
    for (const auto& problem : reading.problems)
        problems.push_back(problem.ToString());
    return problems;
}

} // namespace

TEST_F(OwnMetadata, GradientsFillOverTheBoundsOfAnArea)
{
    const std::pair<const char*, int> kinds[] = {{"linear", 0}, {"radial", 1}, {"conical", 2}};
    for (const auto& [name, type] : kinds)
        ExpectSame(Styled(Geometry("Polygon", {kRing, kHole}),
                          R"({"id": "f", "type": "fill", "source": "s", "paint": {"fill-opacity": 0.6},
                "metadata": {"txmap:gradient": {"type": ")" +
                              std::string(name) + R"(", "colors": ["#ff0000", "blue"], "angle": 30
}
}
})"),
                   [&, type = type](TXGraphics& surface)
                   {
                       std::vector<TXPoint> points = kRing;
                       points.insert(points.end(), kHole.begin(), kHole.end());
                       const int counts[] = {5, 5};
                       TXGraphics::stGradientParams params;
                       params.type = type;
                       params.startColor = {255, 0, 0, 255};
                       params.endColor = {0, 0, 255, 255};
                       params.angle = 30.0;
                       // The gradient and no pen are left by a shape without a trace.
                       const std::vector<TXPoint> bounds = {{40.3, 50.2}, {200.6, 50.2}, {200.6, 210.7}, {40.3, 210.7}};
                       surface.SetOpacity(0.0);
                       surface.Polygon(bounds.data(), 4, params);
                       surface.SetOpacity(0.6);
                       surface.PolyPolygon(points.data(), counts, 2);
                   });
}

TEST_F(OwnMetadata, GradientsLeaveTheNextLayerAlone)
{
    const std::string source = Geometry("Polygon", {kRing});
    ExpectSame(Styled(source, R"({"id": "f", "type": "fill", "source": "s", "metadata": {"txmap:gradient":
                   {"type": "conical", "colors": ["red", "blue"]}}},
                   {"id": "g", "type": "fill", "source": "s", "paint": {"fill-color": "#0080ff"}})"),
               [&](TXGraphics& surface)
               {
                   TXGraphics::stGradientParams params;
                   params.type = 2;
                   params.startColor = {255, 0, 0, 255};
                   params.endColor = {0, 0, 255, 255};
                   surface.Polygon(kRing.data(), 5, params);
                   surface.SelectBrush(Brush({0, 128, 255, 255}));
                   surface.SelectPen(Pen({0, 128, 255, 255}, 1.0, TXPen::FlatCap, TXPen::BevelJoin));
                   const int count = 5;
                   surface.PolyPolygon(kRing.data(), &count, 1);
               });
}

TEST_F(OwnMetadata, MarkersStandInPlaceOfCircles)
{
    const std::vector<TXPoint> arrow = {{0, -0.5}, {0.4, 0.5}, {0, 0.25}, {-0.4, 0.5}};
    const auto draw = [&](TXGraphics& surface)
    {
        const auto none = Pen({0, 0, 0, 0}, 1.0);
        none->SetPenStyle(TXPen::NullPen);
        surface.SelectPen(none);
        surface.SelectBrush(Brush({192, 48, 32, 255}));
        for (const TXPoint& place : {TXPoint(80.25, 90.5), TXPoint(150.75, 130.25)})
            surface.VectorMarker(place.x, place.y, 40.0, 40.0, 0.0, arrow.data(), 4, true);
    };
    ExpectSame(Marker("[[0, -1], [0.8, 1], [0, 0.5], [-0.8, 1]]"), draw);
}

TEST_F(OwnMetadata, MarkersHaveARingBehind)
{
    ExpectSame(Marker(R"("square")", R"(, "circle-stroke-width": 3, "circle-stroke-color": "#ffffff")"),
               [&](TXGraphics& surface)
               {
                   const std::vector<TXPoint> square = {{-0.5, -0.5}, {0.5, -0.5}, {0.5, 0.5}, {-0.5, 0.5}};
                   const auto none = Pen({0, 0, 0, 0}, 1.0);
                   none->SetPenStyle(TXPen::NullPen);
                   for (const TXPoint& place : {TXPoint(80.25, 90.5), TXPoint(150.75, 130.25)})
                   {
                       std::vector<TXPoint> ring;
                       for (int i = 0; i <= 4; ++i)
                           ring.emplace_back(place.x + 40.0 * square[i % 4].x, place.y + 40.0 * square[i % 4].y);
                       surface.SelectPen(Pen({255, 255, 255, 255}, 6.0, TXPen::RoundCap, TXPen::RoundJoin));
                       surface.Polyline(ring.data(), 5);
                       surface.SelectPen(none);
                       surface.SelectBrush(Brush({192, 48, 32, 255}));
                       surface.VectorMarker(place.x, place.y, 40.0, 40.0, 0.0, square.data(), 4, true);
                   }
               });
}

TEST_F(OwnMetadata, EveryNameOfAMarkerIsAShape)
{
    std::vector<std::vector<unsigned>> pictures;
    for (const char* const name : {"circle", "square", "triangle", "star", "cross", "diamond"})
    {
        pictures.push_back(Marker("\"" + std::string(name) + "\""));
        EXPECT_GT(Drawn(pictures.back()), 300u) << name;
        for (std::size_t i = 0; i + 1 < pictures.size(); ++i)
            EXPECT_GT(Differing(pictures[i], pictures.back()), 50u) << name;
    }
}

TEST_F(OwnMetadata, LayersAreCutToAFrame)
{
    const std::string source = Geometry("Polygon", {kRing});
    const std::string line = R"("type": "line", "source": "s", "paint": {"line-width": 30, "line-color": "#204080"})";
    const std::vector<unsigned> cut =
        Styled(source, R"({"id": "l", "metadata": {"txmap:clip": {"margin": 60}}, )" + line + "}");
    const std::vector<unsigned> whole = Styled(source, R"({"id": "l", )" + line + "}");
    std::size_t inside = 0;
    for (std::size_t y = 0; y < 256; ++y)
        for (std::size_t x = 0; x < 256; ++x)
        {
            const bool isInside = x >= 60 && x < 196 && y >= 60 && y < 196;
            EXPECT_EQ(cut[y * 256 + x], isInside ? whole[y * 256 + x] : 0u) << x << " " << y;
            inside += isInside && cut[y * 256 + x] != 0 ? 1 : 0;
        }
    EXPECT_GT(inside, 500u);
    // The corners are round.
    EXPECT_LT(
        Drawn(Styled(source, R"({"id": "l", "metadata": {"txmap:clip": {"margin": 60, "radius": 50}}, )" + line + "}")),
        Drawn(cut) - 200u);
}

TEST_F(OwnMetadata, LayersAreCutToAreas)
{
    const auto box = [](double left, double top, double right, double bottom)
    {
        return "[[" + Place(left, top) + "," + Place(right, top) + "," + Place(right, bottom) + "," +
               Place(left, bottom) + "," + Place(left, top) + "]]";
    };
    const std::string areas =
        R"({"type": "MultiPolygon", "coordinates": [)" + box(100, 20, 150, 120) + "," + box(20, 160, 90, 240) + "]}";
    const std::vector<unsigned> cut =
        Styled("null", R"({"id": "b", "type": "background", "paint": {"background-color": "#204080"},
                  "metadata": {"txmap:clip": )" +
                           areas + "}}");
    EXPECT_EQ(Drawn(cut), 50u * 100u + 70u * 80u);
    EXPECT_NE(cut[30 * 256 + 110], 0u);
    EXPECT_NE(cut[200 * 256 + 30], 0u);
    EXPECT_EQ(cut[200 * 256 + 110], 0u);
}

TEST_F(OwnMetadata, NothingIsLeftOfALayerCutToAnAreaElsewhere)
{
    const std::string far = R"({"type": "Polygon", "coordinates": [[[170, 80], [175, 80], [175, 82], [170, 80]]]})";
    EXPECT_EQ(Drawn(Styled("null", R"({"id": "b", "type": "background", "metadata": {"txmap:clip": )" + far + "}}")),
              0u);
}

TEST(OwnMetadataProblems, NameWhatIsWrong)
{
    EXPECT_THAT(ProblemsOf("fill", R"({"txmap:hatch": "diagonal"})"),
                ElementsAre(::testing::HasSubstr("/layers/0/metadata/txmap:hatch: ")));
    EXPECT_THAT(ProblemsOf("fill", R"({"txmap:gradient": 3})"),
                ElementsAre("/layers/0/metadata/txmap:gradient: object expected, but number found"));
    EXPECT_THAT(ProblemsOf("fill", R"({"txmap:gradient": {"type": "square", "colors": ["red", "bleu"], "x": 1}})"),
                ElementsAre(::testing::HasSubstr("/txmap:gradient/type: "),
                            ::testing::HasSubstr("/txmap:gradient/colors/1: "),
                            ::testing::HasSubstr("/txmap:gradient/x: ")));
    EXPECT_THAT(ProblemsOf("fill", R"({"txmap:gradient": {"type": "conical"}})"),
                ElementsAre(::testing::HasSubstr("\"colors\"")));
    EXPECT_THAT(ProblemsOf("line", R"({"txmap:gradient": {"type": "conical", "colors": ["red", "blue"]}})"),
                ElementsAre("/layers/0/metadata/txmap:gradient: only layers of type fill have gradients"));
    EXPECT_THAT(ProblemsOf("circle", R"({"txmap:marker": "heart"})"),
                ElementsAre(::testing::HasSubstr("/layers/0/metadata/txmap:marker: ")));
    for (const char* const corners :
         {"[]", "[[0, 0], [1, 1]]", "[[0, 0], [1, 1], [2]]", "[[0, 0], [1, 1], [2, \"a\"]]"})
        EXPECT_THAT(ProblemsOf("circle", R"({"txmap:marker": )" + std::string(corners) + "}"),
                    ElementsAre("/layers/0/metadata/txmap:marker: the name of a shape, or an array of three corners or "
                                "more expected"));
    EXPECT_THAT(ProblemsOf("fill", R"({"txmap:marker": "star"})"),
                ElementsAre("/layers/0/metadata/txmap:marker: only layers of type circle have markers"));
    for (const char* const clip : {R"({"type": "Point", "coordinates": [1, 2]})", R"({"type": "Polygon"})",
                                   R"({"type": "Polygon", "coordinates": [[[0, 0], [1, 1]]]})",
                                   R"({"type": "MultiPolygon", "coordinates": [[[[0, 0], [1, 1], [0, "x"]]]]})"})
        EXPECT_THAT(ProblemsOf("fill", R"({"txmap:clip": )" + std::string(clip) + "}"),
                    ElementsAre("/layers/0/metadata/txmap:clip: a Polygon or MultiPolygon of GeoJSON expected"));
    EXPECT_THAT(ProblemsOf("fill", R"({"txmap:clip": {"margin": -1}})"),
                ElementsAre(::testing::HasSubstr("/txmap:clip/margin: ")));
    EXPECT_THAT(ProblemsOf("fill", R"({"txmap:clip": {"radius": 1}})"),
                ElementsAre(::testing::HasSubstr("\"margin\"")));
    EXPECT_THAT(ProblemsOf("fill", R"({"txmap:clip": "here"})"),
                ElementsAre("/layers/0/metadata/txmap:clip: object expected, but string found"));
}
