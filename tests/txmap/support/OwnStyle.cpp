#include "OwnStyle.h"

#include "TestRaster.h"

using Json = nlohmann::ordered_json;

namespace
{

Json Feature(const char* type, const Json& coordinates, double number)
{
    const Json properties = {{"name", "Antarctica"}, {"mapcolor", number}, {"adm0cap", 1},        {"worldcity", 1},
                             {"scalerank", number},  {"pop_max", number},  {"size", 10 * number}, {"rank", number}};
    return {
        {"type", "Feature"}, {"properties", properties}, {"geometry", {{"type", type}, {"coordinates", coordinates}}}};
}

} // namespace

std::string OwnStyleFile(const std::string& name) { return std::string(TX_TEST_DATA) + "/../styles/" + name + ".json"; }

Json OwnStyleOnSmallSources(const std::string& name)
{
    Json style = Json::parse(ContentOf(OwnStyleFile(name)));
    const Json ring = {{-60, -40}, {70, -30}, {60, 50}, {-50, 40}, {-60, -40}};
    const Json line = {{-80, 10}, {0, 30}, {10, -20}, {90, 5}};
    const Json features = {Feature("Polygon", Json::array({ring}), 1), Feature("LineString", line, 2),
                           Feature("Point", {20, 20}, 3), Feature("Point", {170, -20}, 1)};
    for (auto& [id, source] : style["sources"].items())
        if (source["type"] == "geojson")
            source["data"] = {{"type", "FeatureCollection"}, {"features", features}};
        else
            source["url"] = "heights.tif";
    style["zoom"] = 0;
    return style;
}

void WriteSmallHeights(const TemporaryFolder& folder)
{
    TestRaster raster;
    raster.type = GDT_Int16;
    raster.value = [](int x, int y, int) { return 100.0 * ((x * 7 + y * 5) % 40); };
    raster.Write(folder / "heights.tif");
}
