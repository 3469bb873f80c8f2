// Countries styled by an attribute, read from GeoJSON and drawn by Mapnik. Prints the milliseconds of reading and of
// drawing:
//
//   txbench_mapnik_style COUNTRIES.geojson [PICTURE.png]
#include <chrono>
#include <cstdio>
#include <string>

#include <mapnik/agg_renderer.hpp>
#include <mapnik/datasource_cache.hpp>
#include <mapnik/image.hpp>
#include <mapnik/image_util.hpp>
#include <mapnik/layer.hpp>
#include <mapnik/load_map.hpp>
#include <mapnik/map.hpp>

namespace
{

constexpr int kWidth = 2048;
constexpr int kHeight = 1024;
/// Half of what the picture shows of the world at zoom 2, in metres of Web Mercator.
constexpr double kHalfWidth = 20037508.342789244;

const char* const kFills[] = {"#e8e0d0", "#f2d9b8", "#d8e6c4", "#e9c9c3", "#d3d3ea", "#f4ecb0", "#c8e2e0"};

std::string StyleText()
{
    std::string rules;
    for (int i = 0; i < 7; ++i)
        rules += "<Rule><Filter>[mapcolor]=" + std::to_string(i + 1) + "</Filter><PolygonSymbolizer fill=\"" +
                 kFills[i] + "\"/></Rule>";
    return "<Map srs=\"epsg:3857\" background-color=\"#c8d7e1\"><Style name=\"fill\">" + rules +
           "</Style><Style name=\"line\"><Rule><LineSymbolizer stroke=\"#786e78\" stroke-width=\"1.2\" "
           "stroke-linejoin=\"round\"/></Rule></Style></Map>";
}

double Milliseconds()
{
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

} // namespace

int main(int argc, char** argv)
{
    if (argc < 2)
        return 2;
    mapnik::datasource_cache::instance().register_datasources(TX_MAPNIK_PLUGINS);
    mapnik::Map map(kWidth, kHeight);
    mapnik::load_map_string(map, StyleText());

    const double start = Milliseconds();
    mapnik::parameters parameters;
    parameters["type"] = "geojson";
    parameters["file"] = std::string(argv[1]);
    parameters["cache_features"] = true;
    mapnik::layer layer("countries", "epsg:4326");
    layer.set_datasource(mapnik::datasource_cache::instance().create(parameters));
    const double read = Milliseconds();
    layer.add_style("fill");
    layer.add_style("line");
    map.add_layer(std::move(layer));
    map.zoom_to_box(mapnik::box2d<double>(-kHalfWidth, -kHalfWidth / 2, kHalfWidth, kHalfWidth / 2));
    mapnik::image_rgba8 picture(kWidth, kHeight);
    mapnik::agg_renderer<mapnik::image_rgba8> renderer(map, picture);
    renderer.apply();
    const double drawn = Milliseconds();
    std::printf("%.1f %.1f\n", read - start, drawn - read);
    if (argc > 2)
        mapnik::save_to_file(picture, argv[2], "png");
    return 0;
}
