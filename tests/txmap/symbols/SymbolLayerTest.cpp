// Symbols of a style: which there are, where, and that they do not depend on the order of features or tiles.
#include <algorithm>
#include <fstream>
#include <sstream>

#include <tests/support/RandomSource.h>
#include <tests/txmap/drawing/layers/StyledTwins.h>
#include <txgraphics/TXImage.h>
#include <txmap/map/MercatorView.h>
#include <txmap/sources/SourceDiagnostics.h>
#include <txmap/sources/SourcePath.h>
#include <txmap/sources/Sprites.h>
#include <txmap/symbols/SymbolLayout.h>
#include <txmap/symbols/text/SymbolFonts.h>

using namespace TZObjects;
using namespace txmap;

namespace
{

/// The symbols of one layer over features that stand in pixels of a picture of 256 x 256.
class SymbolLayer : public StyledTwins
{
protected:
    SymbolLayer() : fonts(plugin.Engine(), [](const std::string&) {}) {}

    /// A feature of a set.
    struct Feature
    {
        GeometryType type;
        std::vector<std::vector<TXPoint>> parts; ///< In pixels.
        std::string name;
        double n = 0.0;
    };

    static MercatorView View() { return {{0.0, 0.0, 0.0, 0.0}, {256, 256}}; }

    static PlacedFeatures Placed(const std::vector<Feature>& features)
    {
        auto set = std::make_shared<FeatureSet>();
        set->keys = {"name", "n"};
        set->keyNumbers = {{"name", 0}, {"n", 1}};
        for (const Feature& feature : features)
        {
            SetFeature made;
            made.type = feature.type;
            made.firstPart = set->counts.size();
            made.firstPoint = set->points.size();
            made.parts = feature.parts.size();
            made.firstTag = set->tags.size();
            made.tags = 2;
            for (const auto& part : feature.parts)
            {
                set->counts.push_back(static_cast<int>(part.size()));
                for (const TXPoint& pixel : part)
                    set->points.push_back(View().ToPlace(pixel));
            }
            for (std::uint32_t key = 0; key < 2; ++key)
                set->tags.push_back({key, static_cast<std::uint32_t>(set->values.size() + key)});
            set->values.emplace_back(feature.name);
            set->values.emplace_back(feature.n);
            set->features.push_back(made);
        }
        return {set, {0}, std::nullopt, std::nullopt, nullptr};
    }

    static MapStyle StyleOf(const std::string& layout)
    {
        StyleReading reading =
            ReadStyle(R"({"version": 8, "sources": {"s": {"type": "geojson", "data": "d"}}, "layers": [
            {"id": "l", "type": "symbol", "source": "s", "layout": {)" +
                      layout + "}}]}");
        EXPECT_TRUE(reading.problems.empty());
        return std::move(reading.style);
    }

    /// What is shown: the texts with their anchors, in the order of placement.
    std::vector<std::string> Shown(const std::string& layout, const std::vector<PlacedFeatures>& features,
                                   const MercatorView& view = View())
    {
        const MapStyle style = StyleOf(layout);
        SourceDiagnostics diagnostics(true);
        const Sprites sprites({}, SourceFolder(""), 1.0, diagnostics);
        EvaluationContext context;
        context.zoom = 0.0;
        const auto laidOut = LayOutSymbols({style.layers.at(0), features, sprites, view, fonts, context});
        CollisionIndex index(view.PictureBox(kSymbolMargin * view.Scale()));
        const std::vector<SymbolVerdict> verdicts = PlaceSymbols(laidOut->candidates, index);
        std::vector<std::string> shown;
        for (std::size_t i = 0; i < verdicts.size(); ++i)
        {
            const SymbolInstance& instance = laidOut->instances[i];
            std::ostringstream text;
            text << instance.content->text << " " << std::lround(instance.pixel.x) << " "
                 << std::lround(instance.pixel.y);
            if (instance.content->places.size() > 1)
                text << " " << verdicts[i].choice;
            if (verdicts[i].text)
                shown.push_back(text.str());
        }
        return shown;
    }

    SymbolFonts fonts;
};

using Names = std::vector<std::string>;

const char* const kText = R"("text-field": "{name}", "text-font": ["DejaVu Sans"], "text-size": 10)";

} // namespace

TEST_F(SymbolLayer, PointsLinesAndAreasHaveOneEach)
{
    const std::vector<Feature> features = {
        {GeometryType::Point, {{{20, 20}}, {{200, 20}}}, "P"},
        {GeometryType::LineString, {{{30, 60}, {220, 60}}}, "L"},
        {GeometryType::Polygon, {{{40, 100}, {240, 100}, {240, 200}, {40, 200}, {40, 100}}}, "A"}};
    const Names shown = Shown(kText, {Placed(features)});
    ASSERT_EQ(shown.size(), 4u);
    EXPECT_EQ(shown[0], "P 20 20");
    EXPECT_EQ(shown[1], "P 200 20");
    EXPECT_EQ(shown[2], "L 30 60");
    EXPECT_EQ(shown[3].substr(0, 2), "A ");
    EXPECT_EQ(shown[3].substr(shown[3].size() - 4), " 150");
}

TEST_F(SymbolLayer, AreaWithAHoleAndASecondOne)
{
    const std::vector<Feature> features = {{GeometryType::Polygon,
                                            {{{0, 0}, {100, 0}, {100, 100}, {0, 100}, {0, 0}},
                                             {{10, 10}, {10, 90}, {60, 90}, {60, 10}, {10, 10}},
                                             {{150, 100}, {250, 100}, {250, 200}, {150, 200}, {150, 100}}},
                                            "A"}};
    const Names shown = Shown(kText, {Placed(features)});
    ASSERT_EQ(shown.size(), 2u);
    EXPECT_EQ(shown[0].substr(0, 4), "A 80");
    EXPECT_EQ(shown[1], "A 200 150");
}

TEST_F(SymbolLayer, PointsBelongToTheTileInWhichTheyLie)
{
    const Feature one{GeometryType::Point, {{{100, 100}}}, "W"};
    const Feature two{GeometryType::Point, {{{128, 60}}}, "E"};
    PlacedFeatures west = Placed({one, two});
    PlacedFeatures east = Placed({one, two});
    const TXPoint middle = View().ToPlace({128, 128});
    west.tile = MercatorBox{0.0, 0.0, middle.x, 1.0};
    east.tile = MercatorBox{middle.x, 0.0, 1.0, 1.0};
    EXPECT_EQ(Shown(kText, {west, east}), (Names{"W 100 100", "E 128 60"}));
    EXPECT_EQ(Shown(kText, {east, west}), (Names{"W 100 100", "E 128 60"}));
}

TEST_F(SymbolLayer, TheSortKeyDecides)
{
    std::vector<Feature> features;
    for (int i = 0; i < 4; ++i)
        features.push_back({GeometryType::Point, {{{100.0 + i, 100.0}}}, "N" + std::to_string(i), 10.0 - i});
    const std::string layout = kText;
    EXPECT_EQ(Shown(layout, {Placed(features)}), Names{"N0 100 100"});
    EXPECT_EQ(Shown(layout + R"(, "symbol-sort-key": ["get", "n"])", {Placed(features)}), Names{"N3 103 100"});
}

TEST_F(SymbolLayer, TheLowestComesFirstWhereTextsMayOverlap)
{
    const std::vector<Feature> features = {{GeometryType::Point, {{{100, 50}}}, "A"},
                                           {GeometryType::Point, {{{100, 150}}}, "B"},
                                           {GeometryType::Point, {{{100, 100}}}, "C"}};
    const std::string overlap = std::string(kText) + R"(, "text-overlap": "always")";
    EXPECT_EQ(Shown(overlap, {Placed(features)}), (Names{"B 100 150", "C 100 100", "A 100 50"}));
    EXPECT_EQ(Shown(overlap + R"(, "symbol-z-order": "source")", {Placed(features)}),
              (Names{"A 100 50", "B 100 150", "C 100 100"}));
}

TEST_F(SymbolLayer, TextsStandOnTheSideThatIsFree)
{
    const std::vector<Feature> features = {{GeometryType::Point, {{{100, 100}}}, "A"},
                                           {GeometryType::Point, {{{100, 100}}}, "B"},
                                           {GeometryType::Point, {{{100, 100}}}, "C"}};
    EXPECT_EQ(Shown(std::string(kText) + R"(, "text-variable-anchor": ["left", "right"], "text-radial-offset": 0.5)",
                    {Placed(features)}),
              (Names{"A 100 100 0", "B 100 100 1"}));
}

TEST_F(SymbolLayer, AvoidingEdgesLeavesOutWhatCrossesThem)
{
    PlacedFeatures west = Placed(
        {{GeometryType::Point, {{{60, 60}}}, "inside"}, {GeometryType::Point, {{{120, 100}}}, "across the edge"}});
    west.tile = MercatorBox{0.0, 0.0, View().ToPlace({128, 128}).x, 1.0};
    EXPECT_EQ(Shown(kText, {west}), (Names{"inside 60 60", "across the edge 120 100"}));
    EXPECT_EQ(Shown(std::string(kText) + R"(, "symbol-avoid-edges": true)", {west}), Names{"inside 60 60"});
}

TEST_F(SymbolLayer, PiecesOfARoadBecomeOneLine)
{
    // Each is too short for its name.
    std::vector<Feature> pieces;
    for (int i = 0; i < 8; ++i)
        pieces.push_back({GeometryType::LineString, {{{20.0 + i * 20, 100.0}, {40.0 + i * 20, 100.0}}}, "Long Street"});
    const std::string line = std::string(kText) + R"(, "symbol-placement": "line")";
    EXPECT_EQ(Shown(line, {Placed(pieces)}).size(), 1u);
    for (std::size_t i = 0; i < pieces.size(); ++i)
        pieces[i].name += std::to_string(i);
    EXPECT_EQ(Shown(line, {Placed(pieces)}).size(), 0u);
}

TEST_F(SymbolLayer, TheSameTextKeepsItsDistance)
{
    const std::vector<Feature> features = {{GeometryType::LineString, {{{20, 100}, {220, 100}}}, "Street"},
                                           {GeometryType::LineString, {{{20, 130}, {220, 130}}}, "Street"},
                                           {GeometryType::LineString, {{{20, 160}, {220, 160}}}, "Other"}};
    EXPECT_EQ(Shown(std::string(kText) + R"(, "symbol-placement": "line")", {Placed(features)}).size(), 2u);
    EXPECT_EQ(Shown(std::string(kText) + R"(, "symbol-placement": "line-center")", {Placed(features)}),
              (Names{"Street 120 100", "Street 120 130", "Other 120 160"}));
}

TEST_F(SymbolLayer, PaddingKeepsTextsApart)
{
    const std::vector<Feature> lines = {{GeometryType::LineString, {{{20, 100}, {220, 100}}}, "First"},
                                        {GeometryType::LineString, {{{20, 118}, {220, 118}}}, "Second"}};
    const std::vector<Feature> points = {{GeometryType::Point, {{{100, 100}}}, "First"},
                                         {GeometryType::Point, {{{100, 118}}}, "Second"}};
    const std::string along = std::string(kText) + R"(, "symbol-placement": "line-center")";
    EXPECT_EQ(Shown(along, {Placed(lines)}).size(), 2u);
    EXPECT_EQ(Shown(along + R"(, "text-padding": 8)", {Placed(lines)}).size(), 1u);
    EXPECT_EQ(Shown(kText, {Placed(points)}).size(), 2u);
    EXPECT_EQ(Shown(std::string(kText) + R"(, "text-padding": 8)", {Placed(points)}).size(), 1u);
    // A text that may stand on several sides keeps its padding away from the point: these two do not touch.
    const std::string sides = std::string(kText) + R"(, "text-variable-anchor": ["left", "right"], "text-padding": 6)";
    const std::vector<Feature> pair = {{GeometryType::Point, {{{100, 100}}}, "First"},
                                       {GeometryType::Point, {{{99, 100}}}, "Second"}};
    EXPECT_EQ(Shown(sides, {Placed(pair)}), (Names{"First 100 100 0", "Second 99 100 1"}));
}

TEST_F(SymbolLayer, TwiceAsDenseTheSameAreShown)
{
    const PlacedFeatures placed = Placed({{GeometryType::Point, {{{100, 100}}}, "First"},
                                          {GeometryType::Point, {{{100, 118}}}, "Second"},
                                          {GeometryType::Point, {{{100, 132}}}, "Third"}});
    EXPECT_EQ(Shown(kText, {placed}), (Names{"First 100 100", "Second 100 118"}));
    EXPECT_EQ(Shown(kText, {placed}, MercatorView({0.0, 0.0, 0.0, 0.0}, {256, 256}, 2.0)),
              (Names{"First 200 200", "Second 200 236"}));
}

TEST_F(SymbolLayer, NamesMakeRoomAcrossTheDateLine)
{
    const auto at = [](double longitude) { return TXPoint(128.0 + longitude / 360.0 * 512.0, 128.0); };
    PlacedFeatures placed = Placed({{GeometryType::Point, {{at(179)}}, "A"},
                                    {GeometryType::Point, {{at(-179)}}, "B"},
                                    {GeometryType::Point, {{at(-150)}}, "C"}});
    placed.worlds = {0, 1};
    EXPECT_EQ(Shown(kText, {placed}, MercatorView({180.0, 0.0, 0.0, 0.0}, {256, 256})),
              (Names{"A 127 128", "C 171 128"}));
}

TEST_F(SymbolLayer, TextsOfLinesAreBrokenOnlyWhereTheyAskForIt)
{
    // Two lines of the text would not fit between its neighbours.
    const auto shown = [&](const std::string& name)
    {
        return Shown(
                   std::string(kText) +
                       R"(, "symbol-placement": "line-center", "text-rotation-alignment": "viewport", "text-max-width": 1)",
                   {Placed({{GeometryType::LineString, {{{100, 20}, {100, 180}}}, name},
                            {GeometryType::LineString, {{{100, 38}, {100, 198}}}, name}})})
            .size();
    };
    EXPECT_EQ(shown("A 7"), 2u);
    EXPECT_EQ(shown("A\n7"), 1u);
}

TEST_F(SymbolLayer, DoesNotDependOnTheOrderOfFeaturesOrTiles)
{
    RandomSource random(5);
    std::vector<std::vector<Feature>> tiles(4);
    for (int i = 0; i < 400; ++i)
    {
        const TXPoint at(random.Real(0.0, 256.0), random.Real(0.0, 256.0));
        Feature feature{GeometryType::Point, {{at}}, "Name " + std::to_string(i), 1.0 * i};
        if (i % 4 == 0)
        {
            feature.type = GeometryType::LineString;
            feature.parts[0].emplace_back(at.x + 90.0, at.y + random.Real(-20.0, 20.0));
        }
        tiles[static_cast<std::size_t>(i) % 4].push_back(feature);
    }
    const std::string layout = std::string(kText) + R"(, "symbol-sort-key": ["get", "n"])";
    for (const char* const placement : {"point", "line"})
    {
        const std::string style = layout + R"(, "symbol-placement": ")" + placement + "\"";
        Names expected;
        for (int shuffle = 0; shuffle < 20; ++shuffle)
        {
            const auto swapAny = [&](auto& list)
            {
                for (std::size_t i = list.size() - 1; i > 0; --i)
                    std::swap(list[i], list[random.Below(i + 1)]);
            };
            std::vector<PlacedFeatures> placed;
            for (auto& tile : tiles)
            {
                swapAny(tile);
                placed.push_back(Placed(tile));
            }
            swapAny(placed);
            const Names shown = Shown(style, placed);
            EXPECT_GT(shown.size(), 20u);
            if (shuffle == 0)
                expected = shown;
            EXPECT_EQ(shown, expected);
        }
    }
}

TEST_F(SymbolLayer, EqualSortKeysLeaveTheOrderOfTheSource)
{
    RandomSource random(6);
    std::vector<PlacedFeatures> tiles;
    for (int tile = 0; tile < 4; ++tile)
    {
        std::vector<Feature> features;
        for (int i = 0; i < 100; ++i)
            features.push_back({GeometryType::Point,
                                {{{random.Real(0.0, 256.0), random.Real(0.0, 256.0)}}},
                                "Name " + std::to_string(tile) + " " + std::to_string(i),
                                1.0 * (i / 50)});
        tiles.push_back(Placed(features));
    }
    const std::string layout = std::string(kText) + R"(, "symbol-sort-key": ["get", "n"])";
    const Names expected = Shown(layout, tiles);
    EXPECT_GT(expected.size(), 20u);
    for (int shuffle = 0; shuffle < 20; ++shuffle)
    {
        for (std::size_t i = tiles.size() - 1; i > 0; --i)
            std::swap(tiles[i], tiles[random.Below(i + 1)]);
        EXPECT_EQ(Shown(layout, tiles), expected);
    }
    // In one set the first comes first.
    const Feature first{GeometryType::Point, {{{100, 100}}}, "First", 1.0};
    const Feature second{GeometryType::Point, {{{101, 100}}}, "Second", 1.0};
    EXPECT_EQ(Shown(layout, {Placed({first, second})}), Names{"First 100 100"});
    EXPECT_EQ(Shown(layout, {Placed({second, first})}), Names{"Second 101 100"});
}
