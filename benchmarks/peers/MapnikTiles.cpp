// Tiles of the political world, drawn by Mapnik in metatiles and written as files:
//
//   txbench_mapnik_tiles DATA ZOOM FIRST_ROW LAST_ROW METATILE THREADS FORMAT OUTPUT
//
// DATA is a folder of GeoJSON in metres of Web Mercator. Rows are those of tiles. FORMAT is one of Mapnik's, or "none"
// to draw without writing anything. What is written is OUTPUT/ZOOM/X/Y.png. Prints the number of tiles.
#include <algorithm>
#include <atomic>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include <mapnik/agg_renderer.hpp>
#include <mapnik/datasource_cache.hpp>
#include <mapnik/font_engine_freetype.hpp>
#include <mapnik/image.hpp>
#include <mapnik/image_util.hpp>
#include <mapnik/image_view_any.hpp>
#include <mapnik/load_map.hpp>
#include <mapnik/map.hpp>

namespace
{

constexpr int kTileSize = 512;
/// Half of the world's width, in metres of Web Mercator.
constexpr double kHalfWidth = 20037508.342789244;
/// Names and wide lines that reach so many pixels into a metatile are drawn there.
constexpr int kBuffer = 256;

struct Wish
{
    std::string data;
    int zoom, firstRow, lastRow, metatile, threads;
    std::string format, output;
};

struct Block
{
    int x, y, columns, rows;
};

std::string Text(double number)
{
    char text[32];
    std::snprintf(text, sizeof text, "%.4g", number);
    return text;
}

/// Interpolates at a zoom. @param base 1 for straight lines.
double At(double zoom, const std::vector<std::pair<double, double>>& stops, double base = 1.0)
{
    if (zoom <= stops.front().first)
        return stops.front().second;
    for (std::size_t i = 1; i < stops.size(); ++i)
    {
        const auto [from, first] = stops[i - 1];
        const auto [to, second] = stops[i];
        if (zoom > to)
            continue;
        const double part = base == 1.0 ? (zoom - from) / (to - from)
                                        : (std::pow(base, zoom - from) - 1.0) / (std::pow(base, to - from) - 1.0);
        return first + (second - first) * part;
    }
    return stops.back().second;
}

/// A part of the map with its style, over one file of the data.
std::string Layer(const Wish& wish, const std::string& name, const std::string& file, const std::string& rules)
{
    return "<Style name=\"" + name + "\">" + rules + "</Style><Layer name=\"" + name +
           "\" srs=\"epsg:3857\"><StyleName>" + name +
           "</StyleName><Datasource><Parameter name=\"type\">geojson</Parameter><Parameter name=\"file\">" + wish.data +
           "/" + file + ".geojson</Parameter><Parameter name=\"cache_features\">true</Parameter></Datasource></Layer>";
}

std::string Line(const std::string& color, double width, const std::string& more = "")
{
    return "<LineSymbolizer clip=\"true\" stroke=\"" + color + "\" stroke-width=\"" + Text(width) +
           "\" stroke-linejoin=\"round\" " + more + "/>";
}

std::string Rule(const std::string& symbolizers, const std::string& filter = "")
{
    return "<Rule>" + (filter.empty() ? "" : "<Filter>" + filter + "</Filter>") + symbolizers + "</Rule>";
}

std::string Land()
{
    const char* const fills[] = {"#f3e2b8", "#dfe6bf", "#f1cfbd", "#d6dbe8", "#ecd6e2", "#cfe3d6", "#f6ecd2"};
    const auto fill = [](const std::string& color)
    { return "<PolygonSymbolizer clip=\"true\" fill=\"" + color + "\"/>"; };
    std::string rules;
    for (int i = 0; i < 7; ++i)
        rules += Rule(fill(fills[i]), "[mapcolor]=" + std::to_string(i + 1));
    return rules + "<Rule><ElseFilter/>" + fill("#fbfaf6") + "</Rule>";
}

/// A circle of a radius, which may be an expression, with a line around it.
std::string Circle(const std::string& radius, const std::string& fill, const std::string& stroke, double width)
{
    const std::string diameter = "2*(" + radius + ")+" + Text(width);
    return "<MarkersSymbolizer marker-type=\"ellipse\" width=\"" + diameter + "\" height=\"" + diameter + "\" fill=\"" +
           fill + "\" stroke=\"" + stroke + "\" stroke-width=\"" + Text(width) +
           "\" allow-overlap=\"true\" ignore-placement=\"true\"/>";
}

/// Between two values of an attribute's expression, as an expression.
std::string Ramp(const std::string& value, double from, double first, double to, double second)
{
    return "(" + Text(first) + "+" + Text(second - first) + "*(min(max(" + value + "," + Text(from) + ")," + Text(to) +
           ")-" + Text(from) + ")/" + Text(to - from) + ")";
}

std::string Capitals(double zoom)
{
    const double part = std::min(zoom, 5.0) / 5.0;
    const std::string radius =
        Ramp("pow([pop_max],0.5)", 0, At(part, {{0, 0.8}, {1, 3}}), 4000, At(part, {{0, 2.2}, {1, 9}}));
    return Circle(radius, "#b5403f", "#ffffff", 0.8);
}

std::string CountryNames(double zoom)
{
    const std::string small = Ramp("[size]", 4, 7, 30, 12);
    const std::string middle = Ramp("[size]", 2, 8, 30, 17);
    const std::string large = "(" + Ramp("[size]", 0, 11, 10, 22) + "+" + Ramp("[size]", 10, 0, 30, 12) + ")";
    const auto mix = [](const std::string& a, const std::string& b, double part) {
        return part <= 0 ? a : part >= 1 ? b : "(" + a + "*" + Text(1 - part) + "+" + b + "*" + Text(part) + ")";
    };
    const std::string size = zoom < 2 ? mix(small, middle, zoom / 2) : mix(middle, large, (zoom - 2) / 3);
    const double least = At(zoom, {{0, 10}, {2, 2.5}, {4, 0.5}, {6, 0}}, 0.5);
    return Rule("<TextSymbolizer face-name=\"DejaVu Sans Condensed\" size=\"" + size +
                    "\" fill=\"#725a66\" halo-fill=\"rgba(255,255,255,0.7)\" halo-radius=\"1.25\" "
                    "text-transform=\"uppercase\" character-spacing=\"0.15*" +
                    size + "\" wrap-width=\"6*" + size + "\" margin=\"3\">[name]</TextSymbolizer>",
                "[size]&gt;=" + Text(least));
}

std::string PlaceNames(double zoom)
{
    const double size = At(zoom, {{0, 8}, {2, 9.5}, {5, 14}});
    const std::string offset = Text(0.45 * size);
    return Rule("<TextSymbolizer face-name=\"DejaVu Sans Condensed\" size=\"" + Text(size) +
                    "\" fill=\"#3c3338\" halo-fill=\"rgba(255,255,255,0.75)\" halo-radius=\"1\" "
                    "placement-type=\"simple\" placements=\"E,W,N,S\" dx=\"" +
                    offset + "\" dy=\"" + offset + "\" wrap-width=\"" + Text(12 * size) +
                    "\" margin=\"1\">[name]</TextSymbolizer>",
                "[adm0cap]=1 or [scalerank]&lt;=3");
}

/// styles/political.json at a zoom, but for the blur of the shelf, which Mapnik does not have. Names of countries stand
/// before those of places, because Mapnik gives room in the order of layers, and the style in the opposite one.
std::string StyleText(const Wish& wish)
{
    const double zoom = wish.zoom;
    const double border = At(zoom, {{0, 0.5}, {5, 1.8}});
    const std::string dashes =
        zoom < 3 ? "" : "stroke-dasharray=\"" + Text(4 * border) + "," + Text(1.5 * border) + "\"";
    const auto layer = [&](const char* name, const char* file, const std::string& rules)
    { return Layer(wish, name, file, rules); };
    return "<Map srs=\"epsg:3857\" background-color=\"#c9dfe9\" buffer-size=\"" + std::to_string(kBuffer) + "\">" +
           layer("shelf", "countries",
                 Rule(Line("#b3d1e0", At(zoom, {{0, 5}, {5, 22}}, 1.5), "stroke-linecap=\"round\""))) +
           layer("land", "countries", Land()) +
           layer("rivers", "rivers",
                 Rule(Line("#93bed4", At(zoom, {{0, 0.3}, {2, 0.7}, {6, 3}}), "stroke-linecap=\"round\""))) +
           layer("lakes", "lakes", Rule("<PolygonSymbolizer clip=\"true\" fill=\"#c9dfe9\"/>" + Line("#93bed4", 1))) +
           layer("casing", "borders", Rule(Line("rgba(255,255,255,0.55)", At(zoom, {{0, 1.2}, {5, 6}})))) +
           layer("borders", "borders", Rule(Line("#8d6f78", border, dashes))) +
           layer("coast", "countries", Rule(Line("#6f97ab", At(zoom, {{0, 0.35}, {5, 1}})))) +
           layer("towns", "towns",
                 Rule(Circle(Text(At(zoom, {{0, 1}, {5, 4}})), "#ffffff", "#5b4a50", At(zoom, {{0, 0.6}, {5, 1.5}})))) +
           layer("capitals", "capitals", Rule(Capitals(zoom))) +
           layer("country-names", "country-names", CountryNames(zoom)) +
           layer("place-names", "places", PlaceNames(zoom)) + "</Map>";
}

void Write(const mapnik::image_rgba8& picture, const Wish& wish, const Block& block)
{
    for (int column = 0; column < block.columns; ++column)
    {
        const std::string folder =
            wish.output + "/" + std::to_string(wish.zoom) + "/" + std::to_string(block.x + column);
        std::filesystem::create_directories(folder);
        for (int row = 0; row < block.rows; ++row)
        {
            const mapnik::image_view_any tile(
                mapnik::image_view_rgba8(column * kTileSize, row * kTileSize, kTileSize, kTileSize, picture));
            mapnik::save_to_file(tile, folder + "/" + std::to_string(block.y + row) + ".png", wish.format);
        }
    }
}

/// Draws blocks until there are none. A thread has its own map and data.
void Work(const Wish& wish, const std::vector<Block>& blocks, std::atomic<std::size_t>& next)
{
    mapnik::Map map(kTileSize, kTileSize);
    mapnik::load_map_string(map, StyleText(wish), true);
    const double tile = 2 * kHalfWidth / (1 << wish.zoom);
    for (std::size_t i = next++; i < blocks.size(); i = next++)
    {
        const Block& block = blocks[i];
        map.resize(block.columns * kTileSize, block.rows * kTileSize);
        const double west = block.x * tile - kHalfWidth;
        const double north = kHalfWidth - block.y * tile;
        map.zoom_to_box({west, north - block.rows * tile, west + block.columns * tile, north});
        mapnik::image_rgba8 picture(map.width(), map.height());
        mapnik::agg_renderer<mapnik::image_rgba8> renderer(map, picture);
        renderer.apply();
        if (wish.format != "none")
            Write(picture, wish, block);
    }
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 9)
        return 2;
    const auto number = [&](int i) { return std::atoi(argv[i]); };
    const Wish wish{argv[1], number(2), number(3), number(4), std::max(1, number(5)), number(6), argv[7], argv[8]};
    mapnik::datasource_cache::instance().register_datasources(TX_MAPNIK_PLUGINS);
    mapnik::freetype_engine::register_font("/usr/share/fonts/truetype/dejavu/DejaVuSansCondensed.ttf");
    const int across = 1 << wish.zoom;
    const int lastRow = std::min(wish.lastRow, across - 1);
    std::vector<Block> blocks;
    for (int y = wish.firstRow; y <= lastRow; y += wish.metatile)
        for (int x = 0; x < across; x += wish.metatile)
            blocks.push_back({x, y, std::min(wish.metatile, across - x), std::min(wish.metatile, lastRow + 1 - y)});
    std::atomic<std::size_t> next{0};
    std::vector<std::thread> threads;
    std::atomic<bool> failed{false};
    for (int i = 0; i < wish.threads; ++i)
        threads.emplace_back(
            [&]
            {
                try
                {
                    Work(wish, blocks, next);
                }
                catch (const std::exception& problem)
                {
                    std::fprintf(stderr, "Mapnik: %s\n", problem.what());
                    failed = true;
                }
            });
    for (std::thread& thread : threads)
        thread.join();
    std::size_t tiles = 0;
    for (const Block& block : blocks)
        tiles += static_cast<std::size_t>(block.columns) * static_cast<std::size_t>(block.rows);
    std::printf("%zu\n", tiles);
    return failed ? 1 : 0;
}
