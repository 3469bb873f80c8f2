// Sources that are kept for many views: what an index leaves out, nobody sees.
#include <algorithm>
#include <cstdint>
#include <functional>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <tests/support/RandomSource.h>
#include <tests/txmap/support/TemporaryFolder.h>
#include <txgraphics/TXGraphics.h>
#include <txgraphics/TXImage.h>
#include <txmap/drawing/PluginSession.h>
#include <txmap/drawing/layers/StyledMap.h>
#include <txmap/map/MercatorView.h>
#include <txmap/render/StyleFile.h>
#include <txmap/sources/KeptSources.h>
#include <txmap/sources/PassingFeatures.h>
#include <txmap/sources/SourceDiagnostics.h>
#include <txmap/sources/SourceRequest.h>
#include <txmap/symbols/LayerLines.h>
#include <txmap/tiles/TileRenderer.h>

using namespace txmap;

namespace
{

constexpr int kTile = 256;

/// Places near each other from anywhere in the world on, some beyond the date line.
std::string Way(RandomSource& random, int count, double step, bool closes)
{
    std::ostringstream text;
    double x = random.Real(-200.0, 200.0), y = random.Real(-75.0, 75.0);
    const double firstX = x, firstY = y;
    text << "[";
    for (int i = 0; i < count; ++i)
    {
        text << (i ? "," : "") << "[" << x << "," << y << "]";
        x += random.Real(-step, step);
        y = std::min(84.0, std::max(-84.0, y + random.Real(-step, step)));
    }
    if (closes)
        text << ",[" << firstX << "," << firstY << "]";
    return text.str() + "]";
}

std::string Features(int count, const char* type, const char* members, const std::function<std::string()>& coordinates)
{
    std::string text =
        R"({"type":"geojson",)" + std::string(members) + R"("data":{"type":"FeatureCollection","features":[)";
    for (int i = 0; i < count; ++i)
        text += std::string(i ? "," : "") + R"({"type":"Feature","properties":{"name":"Way )" + std::to_string(i % 40) +
                R"(","n":)" + std::to_string(i % 7) + R"(},"geometry":{"type":")" + type + R"(","coordinates":)" +
                coordinates() + "}}";
    return text + "]}}";
}

const char* const kLayers = R"(
    {"id":"f","type":"fill","source":"areas","paint":{"fill-color":["interpolate",["linear"],["get","n"],0,"#336699",
        6,"#ffcc00"],"fill-opacity":0.6,"fill-outline-color":"#222222"}},
    {"id":"g","type":"fill","source":"areas","filter":["==",["get","n"],3],
        "paint":{"fill-color":"#883322","fill-translate":[300,-200]}},
    {"id":"l","type":"line","source":"ways","layout":{"line-sort-key":["get","n"]},
        "paint":{"line-width":["+",1,["*",9,["get","n"]]],"line-color":"#aa2200","line-opacity":0.5}},
    {"id":"w","type":"line","source":"ways","filter":["==",["get","n"],2],
        "paint":{"line-width":90,"line-color":"#00aa22","line-opacity":0.3,"line-translate":[-150,80]}},
    {"id":"d","type":"line","source":"ways","paint":{"line-width":3,"line-dasharray":[2,3],"line-offset":12,
        "line-color":["case",["<",["get","n"],4],"#0000ff","#ff00ff"],"line-opacity":0.5}},
    {"id":"c","type":"circle","source":"places","filter":["==",["get","n"],1],
        "paint":{"circle-radius":170,"circle-opacity":0.2,"circle-translate":[100,0]}},
    {"id":"e","type":"circle","source":"places","filter":[">",["get","n"],3],
        "paint":{"circle-radius":["*",4,["get","n"]],"circle-blur":0.5,"circle-stroke-width":3}},
    {"id":"k","type":"circle","source":"groups","paint":{"circle-radius":["case",["has","point_count"],12,4]}},
    {"id":"r","type":"symbol","source":"ways","layout":{"symbol-placement":"line","text-field":["get","name"],
        "text-font":["DejaVu Sans"],"text-size":12,"symbol-spacing":120}},
    {"id":"s","type":"symbol","source":"areas","layout":{"text-field":["get","name"],"text-font":["DejaVu Sans"],
        "symbol-placement":"line-center"}},
    {"id":"p","type":"symbol","source":"places","layout":{"text-field":["get","name"],"text-font":["DejaVu Sans"],
        "symbol-sort-key":["get","n"]}})";

std::string StyleText(const std::string& layers = kLayers)
{
    RandomSource random(23);
    const auto place = [&]
    {
        std::ostringstream text;
        text << "[" << random.Real(-190.0, 190.0) << "," << random.Real(-80.0, 80.0) << "]";
        return text.str();
    };
    return R"({"version":8,"sources":{"areas":)" +
           Features(120, "Polygon", "", [&] { return "[" + Way(random, 8, 12.0, true) + "]"; }) + R"(,"ways":)" +
           Features(200, "LineString", "", [&] { return Way(random, 10, 4.0, false); }) + R"(,"places":)" +
           Features(600, "Point", "", place) + R"(,"groups":)" + Features(300, "Point", R"("cluster":true,)", place) +
           R"(},"layers":[)" + layers + "]}";
}

class KeptSourcesTest : public ::testing::Test
{
protected:
    KeptSourcesTest() : file(folder.Write("style.json", StyleText())), style(ReadStyleFile(file, false, nullptr)) {}

    /// The tile as it is drawn from all features, and lines that were put together for it alone.
    std::vector<std::uint8_t> DrawnFromAll(PluginSession& plugin, const MapView& view)
    {
        SourceDiagnostics diagnostics(true);
        LoadedSources loaded;
        for (const StyleSource& source : style.sources)
        {
            auto made = MakeFeatureSource(source.name, source.json, SourceFolder::Of(file));
            made->Load(TileView::World(source.name == "groups" ? view.Zoom() : 0.0),
                       RequestFor(source, style, std::nullopt, view.Scale()), diagnostics);
            // In tiles, more of the repeating worlds than anything reaches across.
            made->ShowIn(view,
                         view.GridOrigin() ? 5000.0 : RequestFor(source, style, view.Zoom(), view.Scale()).margin);
            EXPECT_EQ(made->Features("").at(0).index, nullptr);
            loaded.features.emplace(source.name, std::move(made));
        }
        const MapData data(style, SourceFolder::Of(file), view, diagnostics, std::move(loaded));
        DrawingReport report;
        MapCanvas canvas(plugin.Engine(), view);
        DrawLayers(canvas, style, data, report);
        return BlockPixels(canvas.Surface().GetImage(), 1, 1, view.Size()).Tile(0, 0).rgba;
    }

    TemporaryFolder folder;
    std::string file;
    MapStyle style;
};

TEST_F(KeptSourcesTest, DrawTheSamePixelsAsAllOfTheirFeatures)
{
    TileLook look;
    look.style = file;
    look.tileSize = kTile;
    look.plugin = TX_TEST_PLUGIN;
    TileRenderer renderer(look, [](const std::string& warning) { ADD_FAILURE() << warning; });
    PluginSession plugin(TX_TEST_PLUGIN, TextPath::Qt);
    for (const TileBlock& block : {TileBlock{1, 0, 0, 2, 2}, TileBlock{4, 0, 4, 2, 2}, TileBlock{4, 14, 9, 2, 1},
                                   TileBlock{6, 30, 20, 3, 3}, TileBlock{6, 63, 31, 1, 1}, TileBlock{7, 0, 60, 2, 2},
                                   TileBlock{4, 0, 4, 2, 2}, TileBlock{9, 250, 251, 4, 4}})
    {
        const TileView view(block, kTile, 1.0);
        const BlockPixels drawn = renderer.Draw(block);
        const std::vector<std::uint8_t> all = DrawnFromAll(plugin, view);
        const auto width = static_cast<std::size_t>(view.Size().width);
        for (int row = 0; row < block.rows; ++row)
            for (int column = 0; column < block.columns; ++column)
            {
                const TilePixels tile = drawn.Tile(column, row);
                const std::size_t bytes = std::size_t{4} * kTile;
                for (int y = 0; y < kTile; ++y)
                {
                    const auto top = static_cast<std::size_t>(TileView::kEdge + row * kTile + y);
                    const auto left = static_cast<std::size_t>(TileView::kEdge + column * kTile);
                    const std::size_t start = (top * width + left) * 4;
                    ASSERT_TRUE(std::equal(tile.rgba.begin() + static_cast<std::ptrdiff_t>(bytes * y),
                                           tile.rgba.begin() + static_cast<std::ptrdiff_t>(bytes * (y + 1)),
                                           all.begin() + static_cast<std::ptrdiff_t>(start)))
                        << block.z << "/" << block.x + column << "/" << block.y + row << ", line " << y;
                }
            }
    }
}

TEST_F(KeptSourcesTest, DrawTheSamePixelsInTurnedPictures)
{
    TileLook look;
    look.style = file;
    look.plugin = TX_TEST_PLUGIN;
    TileRenderer renderer(look, [](const std::string& warning) { ADD_FAILURE() << warning; });
    PluginSession plugin(TX_TEST_PLUGIN, TextPath::Qt);
    for (const Camera& camera :
         {Camera{10.0, 20.0, 4.3, 33.0}, Camera{179.0, -30.0, 3.0, 0.0}, Camera{-178.0, 50.0, 6.7, -120.0}})
    {
        const MercatorView view(camera, {500, 400});
        EXPECT_TRUE(renderer.DrawPicture(view).rgba == DrawnFromAll(plugin, view)) << "at zoom " << camera.zoom;
    }
}

TEST_F(KeptSourcesTest, LookAtFewFeaturesOfManyForAFewTiles)
{
    KeptSources sources(style, SourceFolder::Of(file));
    SourceDiagnostics diagnostics(true);
    const StyleLayer& ways = style.layers.at(4);
    const TileView view({8, 100, 100, 2, 2}, kTile, 1.0);
    MapData data = sources.Read(view, 0.0, diagnostics);
    const PlacedFeatures& placed = data.Features(ways).at(0);
    EvaluationContext context;
    context.zoom = view.Zoom();
    ASSERT_FALSE(ways.filter);
    const std::size_t all = placed.features->features.size();
    EXPECT_EQ(all, 200u);
    EXPECT_LT(PassingFeatures(ways, placed, "line-sort-key", context, {view.Visible()}).size(), all / 10);
    EXPECT_EQ(PassingFeatures(ways, placed, "line-sort-key", context, {placed.features->bounds}).size(), all);
}

TEST_F(KeptSourcesTest, MakeLinesOnceForALayerAndZoom)
{
    const auto set = std::make_shared<FeatureSet>();
    const auto other = std::make_shared<FeatureSet>();
    int made = 0;
    const auto make = [&]
    {
        ++made;
        return std::make_shared<const LayerLines>(*set, std::vector<PassedFeature>(), nullptr);
    };
    KeptLines lines;
    const StyleLayer& layer = style.layers.at(0);
    EXPECT_EQ(lines.Find(layer, set, 3.0, make), lines.Find(layer, set, 3.0, make));
    EXPECT_EQ(made, 1);
    lines.Find(style.layers.at(1), set, 3.0, make);
    lines.Find(layer, set, 4.0, make);
    EXPECT_EQ(made, 3);
    // A source that was read again has other features.
    lines.Find(layer, other, 3.0, make);
    EXPECT_EQ(made, 4);
    lines.Find(layer, set, 4.0, make);
    EXPECT_EQ(made, 4);
}

TEST_F(KeptSourcesTest, KeepLinesOfOtherZoomsWhereThereIsRoom)
{
    KeptSources sources(style, SourceFolder::Of(file));
    SourceDiagnostics diagnostics(true);
    const TileView view({0, 0, 0, 1, 1}, kTile, 1.0);
    const MapData data = sources.Read(view, 0.0, diagnostics);
    const PlacedFeatures& placed = data.Features(style.layers.at(4)).at(0);
    std::vector<PassedFeature> passing;
    for (const SetFeature& feature : placed.features->features)
        passing.push_back({&feature, 0.0});
    const auto make = [&]
    {
        return std::make_shared<const LayerLines>(*placed.features, passing,
                                                  [](const PassedFeature&) { return std::string(); });
    };
    const std::size_t one = make()->Bytes();
    EXPECT_GT(one, 200u * 10u * sizeof(TZObjects::TXPoint));
    KeptLines lines(one * 5 / 2);
    for (int zoom = 0; zoom < 6; ++zoom)
        lines.Find(style.layers.at(0), placed.features, zoom, make);
    EXPECT_EQ(lines.Bytes(), 2 * one);
    // All layers of one zoom find room.
    for (std::size_t i = 0; i < 4; ++i)
        lines.Find(style.layers.at(i), placed.features, 9.0, make);
    EXPECT_EQ(lines.Bytes(), 4 * one);
}

} // namespace
