// Blocks of tiles beside each other are the picture of all: fills pixel for pixel, lines all but, names in both or
// none.
#include <cmath>
#include <functional>
#include <sstream>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <tests/support/RandomSource.h>
#include <tests/txmap/support/TemporaryFolder.h>
#include <tests/txmap/tiles/BlockDifference.h>
#include <txmap/symbols/PlacementGrid.h>
#include <txmap/tiles/TileRenderer.h>

namespace
{

using txmap::TileBlock;
using txmap::TileLook;
using txmap::TileRenderer;

constexpr int kTile = 256;

std::string Place(RandomSource& random)
{
    std::ostringstream text;
    text << "[" << random.Real(-179.0, 179.0) << "," << random.Real(-80.0, 80.0) << "]";
    return text.str();
}

/// Places near each other, which make a line or a ring.
std::string Way(RandomSource& random, int count, double step, bool closes)
{
    std::ostringstream text;
    double x = random.Real(-170.0, 170.0), y = random.Real(-75.0, 75.0);
    const double firstX = x, firstY = y;
    text << "[";
    for (int i = 0; i < count; ++i)
    {
        text << (i ? "," : "") << "[" << x << "," << y << "]";
        x = std::fmax(-180.0, std::fmin(180.0, x + random.Real(-step, step)));
        y = std::fmax(-85.0, std::fmin(85.0, y + random.Real(-step, step)));
    }
    if (closes)
        text << ",[" << firstX << "," << firstY << "]";
    return text.str() + "]";
}

/// A line within a pixel beside a corner of tiles of zoom 4 on the equator, of whole 64ths of a pixel.
std::string Crumb(RandomSource& random)
{
    constexpr double kPixel = 360.0 / (16.0 * kTile);
    const double corner = 22.5 * random.Int(1, 15) - 180.0;
    const double x = random.Int(-512, 512), y = random.Int(-512, 512);
    std::ostringstream text;
    text.precision(12);
    text << "[";
    for (int i = 0, count = random.Int(2, 5); i < count; ++i)
        text << (i ? "," : "") << "[" << corner + (x + random.Int(0, 32)) / 64.0 * kPixel << ","
             << (y + random.Int(0, 32)) / 64.0 * kPixel << "]";
    return text.str() + "]";
}

std::string Features(int count, const char* type, const std::function<std::string(int)>& coordinates)
{
    std::string text = R"({"type":"geojson","data":{"type":"FeatureCollection","features":[)";
    for (int i = 0; i < count; ++i)
        text += std::string(i ? "," : "") + R"({"type":"Feature","properties":{"name":"Place )" + std::to_string(i) +
                R"(","n":)" + std::to_string(i % 7) + R"(},"geometry":{"type":")" + type + R"(","coordinates":)" +
                coordinates(i) + "}}";
    return text + "]}}";
}

std::string StyleOf(const std::string& layers, unsigned seed)
{
    RandomSource random(seed);
    const std::string areas = Features(80, "Polygon", [&](int) { return "[" + Way(random, 9, 25.0, true) + "]"; });
    const std::string ways = Features(150, "LineString", [&](int) { return Way(random, 12, 6.0, false); });
    const std::string places = Features(1500, "Point", [&](int) { return Place(random); });
    const std::string crumbs = Features(300, "LineString", [&](int) { return Crumb(random); });
    return R"({"version":8,"sources":{"areas":)" + areas + R"(,"ways":)" + ways + R"(,"places":)" + places +
           R"(,"crumbs":)" + crumbs + R"(},"layers":[)" + layers + "]}";
}

class Seam : public ::testing::Test
{
protected:
    TileRenderer Renderer(const std::string& layers, double scale = 1.0)
    {
        TileLook look;
        look.style = folder.Write("style.json", StyleOf(layers, 11));
        look.tileSize = kTile;
        look.scale = scale;
        look.plugin = TX_TEST_PLUGIN;
        return TileRenderer(look, [this](const std::string& warning) { warnings += warning + "\n"; });
    }

    TemporaryFolder folder;
    std::string warnings;
};

constexpr double kPixels = 16.0 * 16.0 * kTile * kTile;

const char* const kFills = R"({"id":"f","type":"fill","source":"areas","paint":{"fill-color":
    ["interpolate",["linear"],["get","n"],0,"#336699",6,"#ffcc00"],"fill-opacity":0.7}},
    {"id":"g","type":"fill","source":"areas","filter":["==",["get","n"],3],"paint":{"fill-color":"#883322"}})";
const char* const kHairlines = R"({"id":"o","type":"line","source":"areas","paint":{"line-width":1}})";
const char* const kWideLines = R"({"id":"l","type":"line","source":"ways","paint":{"line-width":["+",1,["get","n"]],
    "line-color":"#aa2200"}})";
const char* const kDashes =
    R"({"id":"d","type":"line","source":"ways","layout":{"line-cap":"round","line-join":"round"},
    "paint":{"line-width":3,"line-dasharray":[2,3],"line-color":"#00aa22","line-offset":4}})";
const char* const kNames = R"({"id":"r","type":"symbol","source":"ways","layout":{"symbol-placement":"line",
     "text-field":["get","name"],"text-font":["DejaVu Sans"],"text-size":13,"symbol-spacing":120}},
    {"id":"p","type":"symbol","source":"places","layout":{"text-field":["get","name"],"text-font":["DejaVu Sans"],
     "text-variable-anchor":["left","right","top"],"text-size":["+",10,["get","n"]]},
     "paint":{"text-halo-color":"#ffffff","text-halo-width":2}})";

TEST_F(Seam, FillsAreTheSamePixels)
{
    TileRenderer renderer = Renderer(kFills);
    EXPECT_EQ(Compare(renderer, {4, 0, 0, 16, 16}, 8).pixels, 0u);
    EXPECT_EQ(Compare(renderer, {5, 13, 9, 6, 6}, 1).pixels, 0u);
}

TEST_F(Seam, LinesAreNearlyTheSamePixels)
{
    for (const char* const layer : {kHairlines, kWideLines, kDashes})
    {
        TileRenderer renderer = Renderer(layer);
        const Difference difference = Compare(renderer, {4, 0, 0, 16, 16}, 8);
        EXPECT_LE(static_cast<double>(difference.pixels), kPixels / 10000.0) << layer;
        EXPECT_LE(difference.most, 4) << layer << " at" << difference.where;
    }
}

TEST_F(Seam, CrumbsAtCornersAreTheSamePixels)
{
    for (const char* const paint :
         {R"("line-width":24)", R"("line-width":1.54)", R"("line-width":2,"line-dasharray":[1,1])"})
    {
        TileRenderer renderer = Renderer(R"({"id":"c","type":"line","source":"crumbs","paint":{)" + std::string(paint) +
                                         R"(},"layout":{"line-join":"bevel"}})");
        const Difference difference = Compare(renderer, {4, 0, 6, 16, 4}, 1);
        EXPECT_LE(difference.pixels, 20u) << paint;
        EXPECT_LE(difference.most, 2) << paint << " at" << difference.where;
    }
}

TEST_F(Seam, NamesAcrossAnEdgeAreInBothBlocksOrInNeither)
{
    TileRenderer renderer = Renderer(kNames);
    for (const auto& [all, side] : {std::pair<TileBlock, int>{{4, 0, 0, 16, 16}, 8},
                                    {{3, 0, 0, 8, 8}, 2},
                                    {{5, 4, 5, 9, 9}, 3},
                                    {{6, 30, 30, 4, 4}, 1}})
    {
        const Difference difference = Compare(renderer, all, side);
        EXPECT_LE(difference.pixels, 40u) << "zoom " << all.z;
        EXPECT_LE(difference.most, 4) << "zoom " << all.z;
    }
    EXPECT_EQ(warnings, "");
}

TEST_F(Seam, BlocksOfTwiceThePixelsJoinAsWell)
{
    TileRenderer renderer =
        Renderer(std::string(kFills) + "," + kHairlines + "," + kWideLines + "," + kDashes + "," + kNames, 2.0);
    const Difference difference = Compare(renderer, {3, 2, 1, 4, 4}, 2);
    EXPECT_LE(static_cast<double>(difference.pixels), 16.0 * 4.0 * kTile * kTile / 10000.0);
    EXPECT_LE(difference.most, 4);
}

TEST_F(Seam, NoTwoNamesOfDifferentTurnsAndPlacesCanMeet)
{
    using Turn = txmap::PlacementGrid::Turn;
    const txmap::TileView view({5, 0, 0, 32, 32}, kTile, 1.0);
    const txmap::PlacementGrid grid(view);
    RandomSource random(5);
    int met = 0;
    for (int i = 0; i < 20000; ++i)
    {
        const auto box = [&](double x, double y)
        { return TZObjects::TXRect(x, x + random.Real(0.0, 479.0), y, y + random.Real(0.0, 479.0)); };
        const double x = random.Real(500.0, 7000.0), y = random.Real(500.0, 7000.0);
        const TZObjects::TXRect one = box(x, y);
        const TZObjects::TXRect other = box(x + random.Real(-479.0, 479.0), y + random.Real(-479.0, 479.0));
        const Turn turn = grid.TurnOf(one);
        ASSERT_NE(turn, Turn::Never);
        if (turn != grid.TurnOf(other) || one.left > other.right || other.left > one.right || one.top > other.bottom ||
            other.top > one.bottom)
            continue;
        ++met;
        // Those that meet in the same turn are of the same cell, the same side or the same corner.
        const auto nearest = [](double a, double b) { return std::round((a + b) / 2.0 / 2048.0); };
        const auto cell = [](double a, double b) { return std::floor((a + b) / 2.0 / 2048.0); };
        const auto place = [&](const TZObjects::TXRect& rect)
        {
            const auto number = [&](double a, double b) {
                return turn == Turn::Cell ? cell(a, b) : turn == Turn::Corner ? nearest(a, b) : 0.0;
            };
            return std::pair(number(rect.left, rect.right), number(rect.top, rect.bottom));
        };
        ASSERT_EQ(place(one), place(other));
    }
    EXPECT_GT(met, 1000);
}

} // namespace
