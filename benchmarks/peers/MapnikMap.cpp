// The world map of the benchmarks, drawn by Mapnik. Prints a line for the table: name, milliseconds, note.
#include <algorithm>
#include <cstdio>
#include <ctime>
#include <memory>
#include <string>
#include <vector>

#include <mapnik/agg_renderer.hpp>
#include <mapnik/feature_factory.hpp>
#include <mapnik/font_engine_freetype.hpp>
#include <mapnik/image.hpp>
#include <mapnik/layer.hpp>
#include <mapnik/load_map.hpp>
#include <mapnik/map.hpp>
#include <mapnik/memory_datasource.hpp>
#include <mapnik/unicode.hpp>
#include <mapnik/version.hpp>

#include "../Countries.h"

namespace
{

constexpr int kWidth = 2048;
constexpr int kHeight = 1024;
constexpr int kPictures = 9;

const char* const kStyles =
    R"(<Map background-color="#c8d7e1">
<Style name="countries">)"
    R"(<Rule><Filter>[c]=0</Filter><PolygonSymbolizer fill="#e8e0d0"/><LineSymbolizer stroke="#786e78"/></Rule>
<Rule><Filter>[c]=1</Filter><PolygonSymbolizer fill="#f2d9b8"/><LineSymbolizer stroke="#786e78"/></Rule>
<Rule><Filter>[c]=2</Filter><PolygonSymbolizer fill="#d8e6c4"/><LineSymbolizer stroke="#786e78"/></Rule>
<Rule><Filter>[c]=3</Filter><PolygonSymbolizer fill="#e9c9c3"/><LineSymbolizer stroke="#786e78"/></Rule>
<Rule><Filter>[c]=4</Filter><PolygonSymbolizer fill="#d3d3ea"/><LineSymbolizer stroke="#786e78"/></Rule>
<Rule><Filter>[c]=5</Filter><PolygonSymbolizer fill="#f4ecb0"/><LineSymbolizer stroke="#786e78"/></Rule>
<Rule><Filter>[c]=6</Filter><PolygonSymbolizer fill="#c8e2e0"/><LineSymbolizer stroke="#786e78"/></Rule>
<Rule><Filter>[c]=7</Filter><PolygonSymbolizer fill="#e3cfe4"/><LineSymbolizer stroke="#786e78"/></Rule>
</Style>
<Style name="names"><Rule><TextSymbolizer face-name="DejaVu Sans Book" size="8.25" fill="#28283c" halo-fill="white"
halo-radius="1.5" allow-overlap="true">[name]</TextSymbolizer></Rule></Style>
</Map>)";

/// Rows count from the bottom there.
double Up(double y) { return kHeight - y; }

mapnik::geometry::multi_polygon<double> Geometry(const Country& country)
{
    mapnik::geometry::multi_polygon<double> all;
    for (const QPolygonF& polygon : country.polygons)
    {
        mapnik::geometry::linear_ring<double> ring;
        for (const QPointF& point : polygon)
            ring.emplace_back(point.x(), Up(point.y()));
        mapnik::geometry::polygon<double> one;
        one.set_exterior_ring(std::move(ring));
        all.push_back(std::move(one));
    }
    return all;
}

double CpuMilliseconds()
{
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) * 1e3 + static_cast<double>(now.tv_nsec) * 1e-6;
}

void AddLayer(mapnik::Map& map, const char* name, const mapnik::datasource_ptr& data)
{
    mapnik::layer layer(name);
    layer.set_datasource(data);
    layer.add_style(name);
    map.add_layer(std::move(layer));
}

} // namespace

int main(int argc, char** argv)
{
    (void)argv;
    if (argc > 2)
        return 2;
    mapnik::freetype_engine::register_font("/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf");
    mapnik::Map map(kWidth, kHeight);
    mapnik::load_map_string(map, kStyles);

    mapnik::parameters parameters;
    parameters["type"] = "memory";
    const auto areas = std::make_shared<mapnik::memory_datasource>(parameters);
    const auto names = std::make_shared<mapnik::memory_datasource>(parameters);
    const auto context = std::make_shared<mapnik::context_type>();
    context->push("c");
    context->push("name");
    const mapnik::transcoder utf8("utf-8");
    mapnik::value_integer id = 0;
    for (const Country& country : ReadCountries("countries-10m.json", kWidth, kHeight))
    {
        const mapnik::feature_ptr area = mapnik::feature_factory::create(context, ++id);
        area->put("c", mapnik::value_integer(country.category));
        area->set_geometry(Geometry(country));
        areas->push(area);
        if (id > 250)
            continue;
        const mapnik::feature_ptr name = mapnik::feature_factory::create(context, id);
        name->put("name", utf8.transcode(country.name.direct.toUtf8().constData()));
        name->set_geometry(mapnik::geometry::point<double>(country.middle.x, Up(country.middle.y)));
        names->push(name);
    }
    AddLayer(map, "countries", areas);
    AddLayer(map, "names", names);
    map.zoom_to_box(mapnik::box2d<double>(0, 0, kWidth, kHeight));

    std::vector<double> times;
    for (int i = 0; i <= kPictures; ++i)
    {
        mapnik::image_rgba8 picture(kWidth, kHeight);
        const double start = CpuMilliseconds();
        mapnik::agg_renderer<mapnik::image_rgba8> renderer(map, picture);
        renderer.apply();
        if (i > 0)
            times.push_back(CpuMilliseconds() - start);
    }
    std::sort(times.begin(), times.end());
    std::printf("Mapnik %s\t%.0f\tAGG renderer, features in memory, lakes filled, places labels as it sees fit\n",
                MAPNIK_VERSION_STRING, times[times.size() / 2]);
    return 0;
}
