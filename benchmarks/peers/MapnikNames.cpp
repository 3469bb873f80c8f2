// Names of points, read from GeoJSON and drawn by Mapnik:
//
//   txbench_mapnik_names POINTS.geojson none|placed|all [PICTURE.png]
#include <cstdio>
#include <string>

#include <mapnik/agg_renderer.hpp>
#include <mapnik/datasource_cache.hpp>
#include <mapnik/font_engine_freetype.hpp>
#include <mapnik/image.hpp>
#include <mapnik/image_util.hpp>
#include <mapnik/layer.hpp>
#include <mapnik/load_map.hpp>
#include <mapnik/map.hpp>

namespace
{

constexpr int kSize = 4096;
/// Half of the world's width, in metres of Web Mercator.
constexpr double kHalfWidth = 20037508.342789244;

std::string StyleText(const std::string& mode)
{
    const std::string overlap = mode == "all" ? "true" : "false";
    const std::string rule = mode == "none"
                                 ? ""
                                 : "<TextSymbolizer face-name=\"DejaVu Sans Book\" size=\"12\" fill=\"#28283c\" "
                                   "halo-fill=\"white\" halo-radius=\"1\" margin=\"2\" allow-overlap=\"" +
                                       overlap + "\">[name]</TextSymbolizer>";
    return "<Map srs=\"epsg:3857\" background-color=\"#c8d7e1\"><Style name=\"names\"><Rule>" + rule +
           "</Rule></Style></Map>";
}

} // namespace

int main(int argc, char** argv)
{
    if (argc < 3)
        return 2;
    mapnik::datasource_cache::instance().register_datasources(TX_MAPNIK_PLUGINS);
    mapnik::freetype_engine::register_font("/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf");
    mapnik::Map map(kSize, kSize);
    mapnik::load_map_string(map, StyleText(argv[2]));
    mapnik::parameters parameters;
    parameters["type"] = "geojson";
    parameters["file"] = std::string(argv[1]);
    parameters["cache_features"] = true;
    mapnik::layer layer("names", "epsg:4326");
    layer.set_datasource(mapnik::datasource_cache::instance().create(parameters));
    layer.add_style("names");
    map.add_layer(std::move(layer));
    map.zoom_to_box(mapnik::box2d<double>(-kHalfWidth, -kHalfWidth, kHalfWidth, kHalfWidth));
    mapnik::image_rgba8 picture(kSize, kSize);
    mapnik::agg_renderer<mapnik::image_rgba8> renderer(map, picture);
    renderer.apply();
    if (argc > 3)
        mapnik::save_to_file(picture, argv[3], "png");
    return 0;
}
