// Blocks of tiles beside each other are the picture of all, whatever the source: vector tiles, pictures, patterns,
// icons.
#include <cmath>
#include <cstdint>
#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <tests/support/RandomSource.h>
#include <tests/txmap/support/TemporaryFolder.h>
#include <tests/txmap/support/TestTile.h>
#include <tests/txmap/tiles/BlockDifference.h>
#include <txmap/sources/Gdal.h>
#include <txmap/tiles/TileImage.h>

using namespace txmap;

namespace
{

/// A picture of noise in which neighbours differ by little.
std::string Noise(RandomSource& random, int side, int alpha)
{
    TilePixels picture{{side, side}, {}};
    for (int i = 0; i < side * side; ++i)
        for (const int channel : {random.Int(60, 120), random.Int(100, 200), random.Int(0, 255), alpha})
            picture.rgba.push_back(static_cast<std::uint8_t>(channel));
    return Encode(picture, TileFormat::Png);
}

/// A disc, 24 pixels wide: as colours, and as distances.
std::string Discs()
{
    TilePixels picture{{48, 24}, {}};
    for (int y = 0; y < 24; ++y)
        for (int x = 0; x < 48; ++x)
        {
            const double inside = 9.0 - std::hypot(x % 24 - 11.5, y - 11.5);
            const double alpha = x < 24 ? inside * 255.0 : 191.0 + inside * 32.0;
            for (const double channel : {x * 5.0, y * 9.0, 90.0, std::fmin(255.0, std::fmax(0.0, alpha))})
                picture.rgba.push_back(static_cast<std::uint8_t>(channel));
        }
    return Encode(picture, TileFormat::Png);
}

/// A part of points near each other, a little beyond the tile at the most.
TestTile::Part Wander(RandomSource& random, int count)
{
    TestTile::Part part{{random.Int(0, 4095), random.Int(0, 4095)}};
    for (int i = 1; i < count; ++i)
        part.push_back({part.back().first + random.Int(-900, 900), part.back().second + random.Int(-900, 900)});
    for (auto& [x, y] : part)
    {
        x = std::max(-256, std::min(4352, x));
        y = std::max(-256, std::min(4352, y));
    }
    return part;
}

std::string VectorTile(RandomSource& random)
{
    TestTile tile;
    tile.layers = {{"areas"}, {"ways"}, {"places"}};
    for (TestTile::Layer& layer : tile.layers)
    {
        layer.keys = {"n"};
        for (int n = 0; n < 7; ++n)
            layer.values.push_back(TestTile::Number(n));
    }
    for (std::uint32_t i = 0; i < 12; ++i)
    {
        tile.layers[0].features.push_back({3, TestTile::Lines({Wander(random, 7)}, true), {0, i % 7}});
        tile.layers[1].features.push_back({2, TestTile::Lines({Wander(random, 9)}), {0, i % 7}});
        for (int k = 0; k < 6; ++k)
            tile.layers[2].features.push_back(
                {1, TestTile::Points({{random.Int(0, 4095), random.Int(0, 4095)}}), {0, (i + k) % 7}});
    }
    return tile.Encoded();
}

/// Shapes around the date line and elsewhere, with coordinates beyond 180.
std::string ShapesOver180()
{
    RandomSource random(31);
    std::ostringstream text;
    text << R"({"type":"FeatureCollection","features":[)";
    for (int i = 0; i < 60; ++i)
    {
        const double x = (i % 3 == 0 ? 180.0 : random.Real(-180.0, 180.0)) + random.Real(-5.0, 5.0);
        const double y = random.Real(-70.0, 70.0);
        text << (i ? "," : "") << R"({"type":"Feature","properties":{"n":)" << i % 7 << R"(},"geometry":{"type":")"
             << (i % 2 ? "Polygon" : "LineString") << R"(","coordinates":)" << (i % 2 ? "[[" : "[");
        for (int k = 0; k <= 6; ++k)
            text << (k ? "," : "") << "[" << x + 11.0 * std::cos(k * 1.0471975512) * (k % 6 == 2 ? 0.5 : 1.0) << ","
                 << y + 9.0 * std::sin(k * 1.0471975512) << "]";
        text << (i % 2 ? "]]" : "]") << "}}";
    }
    return text.str() + "]}";
}

class SeamOfSources : public ::testing::Test
{
protected:
    SeamOfSources()
    {
        PrepareGdal();
        RandomSource random(7);
        for (int z = 0; z <= 3; ++z)
            for (int x = 0; x < 1 << z; ++x)
            {
                const std::string column = std::to_string(z) + "/" + std::to_string(x);
                std::filesystem::create_directories(folder.Path() / column);
                for (int y = 0; y < 1 << z; ++y)
                {
                    folder.Write(column + "/" + std::to_string(y) + ".pbf", VectorTile(random));
                    folder.Write(column + "/" + std::to_string(y) + ".png", Noise(random, 64, 255));
                }
            }
        folder.Write("sprite.png", Discs());
        folder.Write("sprite.json", R"({"disc":{"x":0,"y":0,"width":24,"height":24,"pixelRatio":1},
            "shape":{"x":24,"y":0,"width":24,"height":24,"pixelRatio":1,"sdf":true}})");
        folder.Write("shapes.geojson", ShapesOver180());
        folder.Write("image.png", Noise(random, 50, 200));
    }

    Difference CompareLayers(const std::string& layers, const TileBlock& all, int side, double scale = 1.0)
    {
        TileLook look;
        look.style = folder.Write("style.json", R"({"version":8,"sprite":"sprite","sources":{
            "vector":{"type":"vector","tiles":["{z}/{x}/{y}.pbf"],"maxzoom":3},
            "tiles":{"type":"raster","tiles":["{z}/{x}/{y}.png"],"tileSize":64,"maxzoom":3},
            "heights":{"type":"raster-dem","tiles":["{z}/{x}/{y}.png"],"tileSize":64,"maxzoom":3,
                "encoding":"terrarium"},
            "image":{"type":"image","url":"image.png","coordinates":[[-150,60],[40,70],[80,-60],[-120,-70]]},
            "shapes":{"type":"geojson","data":"shapes.geojson"}},"layers":[)" +
                                                    layers + "]}");
        look.tileSize = 256;
        look.scale = scale;
        look.plugin = TX_TEST_PLUGIN;
        TileRenderer renderer(look, [](const std::string& warning) { ADD_FAILURE() << warning; });
        return Compare(renderer, all, side);
    }

    /// Pixel for pixel, of blocks of every size.
    void ExpectSame(const std::string& layers)
    {
        for (const auto& [all, side] : {std::pair<TileBlock, int>{{3, 0, 0, 8, 8}, 4}, {{5, 4, 9, 4, 4}, 1}})
        {
            const Difference difference = CompareLayers(layers, all, side);
            EXPECT_EQ(difference.pixels, 0u)
                << layers << " zoom " << all.z << " by " << difference.most << " at" << difference.where.substr(0, 300);
        }
    }

    /// But for one pixel in 10,000, by at most 4 of 255.
    void ExpectNearlySame(const std::string& layers)
    {
        for (const auto& [all, side] : {std::pair<TileBlock, int>{{3, 0, 0, 8, 8}, 4}, {{5, 4, 9, 4, 4}, 1}})
        {
            const Difference difference = CompareLayers(layers, all, side);
            EXPECT_LE(static_cast<double>(difference.pixels), 256.0 * 256.0 * all.columns * all.rows / 10000.0)
                << layers << " zoom " << all.z;
            EXPECT_LE(difference.most, 4) << layers << " zoom " << all.z << " at" << difference.where.substr(0, 300);
        }
    }

    TemporaryFolder folder;
};

TEST_F(SeamOfSources, VectorTilesJoin)
{
    ExpectSame(R"({"id":"f","type":"fill","source":"vector","source-layer":"areas",
        "paint":{"fill-color":"#336699","fill-opacity":0.6}})");
    ExpectNearlySame(R"({"id":"l","type":"line","source":"vector","source-layer":"ways",
        "paint":{"line-width":["+",1,["get","n"]],"line-color":"#aa2200"}})");
    ExpectSame(R"({"id":"c","type":"circle","source":"vector","source-layer":"places","paint":{"circle-radius":30,
        "circle-color":"#0066cc","circle-opacity":0.5,"circle-stroke-width":4,"circle-stroke-opacity":0.5}})");
}

TEST_F(SeamOfSources, CirclesOfEachSizeJoin)
{
    ExpectSame(R"({"id":"c","type":"circle","source":"vector","source-layer":"places","paint":{
        "circle-radius":["*",4,["get","n"]],"circle-blur":0.7,"circle-stroke-width":3,"circle-color":"#0066cc",
        "circle-stroke-color":"#cc6600"}})");
    ExpectSame(R"({"id":"c","type":"circle","source":"shapes","paint":{"circle-radius":40,"circle-blur":0.5,
        "circle-stroke-width":6,"circle-translate":[20,-30]}})");
}

TEST_F(SeamOfSources, PatternsJoin)
{
    ExpectSame(R"({"id":"b","type":"background","paint":{"background-pattern":"disc"}})");
    ExpectSame(R"({"id":"f","type":"fill","source":"vector","source-layer":"areas",
        "paint":{"fill-pattern":"disc","fill-opacity":0.7}})");
    ExpectNearlySame(R"({"id":"l","type":"line","source":"shapes","paint":{"line-width":20,"line-pattern":"disc"}})");
}

TEST_F(SeamOfSources, PicturesJoin)
{
    ExpectSame(R"({"id":"r","type":"raster","source":"tiles","paint":{"raster-opacity":0.8,"raster-contrast":0.2}})");
    ExpectSame(R"({"id":"r","type":"raster","source":"tiles","paint":{"raster-resampling":"nearest"}})");
    ExpectSame(R"({"id":"i","type":"raster","source":"image"})");
}

TEST_F(SeamOfSources, HeightsJoin)
{
    for (const char* const layer : {R"({"id":"h","type":"hillshade","source":"heights"})",
                                    R"({"id":"h","type":"color-relief","source":"heights","paint":{
            "color-relief-color":["interpolate",["linear"],["elevation"],-20000,"#003366",0,"#66aa66",2000,
            "#ffffff"]}})"})
    {
        // All around the world, and a part of it.
        EXPECT_EQ(CompareLayers(layer, {2, 0, 0, 4, 4}, 2).pixels, 0u) << layer;
        EXPECT_EQ(CompareLayers(layer, {5, 4, 9, 2, 2}, 1).pixels, 0u) << layer;
    }
}

TEST_F(SeamOfSources, IconsJoin)
{
    ExpectSame(R"({"id":"i","type":"symbol","source":"vector","source-layer":"places","layout":{"icon-image":"disc",
        "icon-rotate":["*",10,["get","n"]]}})");
    ExpectSame(R"({"id":"i","type":"symbol","source":"vector","source-layer":"places","layout":{"icon-image":"shape",
        "icon-size":["+",0.5,["*",0.3,["get","n"]]]},"paint":{"icon-color":"#aa0000","icon-halo-width":2,
        "icon-halo-color":"#ffffff"}})");
}

TEST_F(SeamOfSources, ShapesOverTheDateLineJoin)
{
    for (const TileBlock& all : {TileBlock{4, 0, 4, 4, 4}, TileBlock{4, 12, 4, 4, 4}})
    {
        EXPECT_EQ(CompareLayers(R"({"id":"f","type":"fill","source":"shapes","paint":{"fill-color":"#336699",
            "fill-opacity":0.6}})",
                                all, 1)
                      .pixels,
                  0u);
        const Difference lines =
            CompareLayers(R"({"id":"l","type":"line","source":"shapes","paint":{"line-width":7}})", all, 1);
        EXPECT_LE(lines.pixels, 16.0 * 256.0 * 256.0 / 10000.0);
        EXPECT_LE(lines.most, 4);
    }
}

TEST_F(SeamOfSources, GradientsAndHatchesJoin)
{
    for (const char* const gradient : {R"({"type":"linear","angle":30,"colors":["#ffffff","#446688"]})",
                                       R"({"type":"radial","colors":["#ffffff","#446688"]})"})
        for (const char* const source : {R"("shapes")", R"("vector","source-layer":"areas")"})
            for (const auto& [all, side] : {std::pair<TileBlock, int>{{3, 0, 0, 8, 8}, 4}, {{5, 4, 9, 4, 4}, 1}})
            {
                const Difference difference =
                    CompareLayers(R"({"id":"f","type":"fill","source":)" + std::string(source) +
                                      R"(,"metadata":{"txmap:gradient":)" + gradient + "}}",
                                  all, side);
                // The shade of a pixel is computed along its row, and rounded another way from another start.
                EXPECT_LE(static_cast<double>(difference.clear), 256.0 * 256.0 * all.columns * all.rows / 100000.0)
                    << gradient << " of " << source << difference.where.substr(0, 300);
            }
    ExpectSame(R"({"id":"f","type":"fill","source":"shapes","paint":{"fill-color":"#224466"},
        "metadata":{"txmap:hatch":"cross"}})");
}

} // namespace
