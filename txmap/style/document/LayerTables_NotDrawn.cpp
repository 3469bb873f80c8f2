#include <txmap/style/document/LayerTables.h>

namespace txmap
{
namespace
{

constexpr MemberRule kHeatmapLayout[] = {
    {"visibility", "enum", "visible none", "\"visible\"", Varies::State},
};
constexpr MemberRule kHeatmapPaint[] = {
    {"heatmap-radius", "number", "", "30", Varies::Feature, 1},
    {"heatmap-weight", "number", "", "1", Varies::Feature, 0},
    {"heatmap-intensity", "number", "", "1", Varies::Zoom, 0},
    {"heatmap-color", "color", "",
     "[\"interpolate\", [\"linear\"], [\"heatmap-density\"], 0, \"rgba(0, 0, 255, 0)\", 0.1, \"royalblue\", 0.3, "
     "\"cyan\", 0.5, \"lime\", 0.7, \"yellow\", 1, \"red\"]",
     Varies::OtherRamp},
    {"heatmap-opacity", "number", "", "1", Varies::Zoom, 0, 1},
};
constexpr MemberRule kFillExtrusionLayout[] = {
    {"visibility", "enum", "visible none", "\"visible\"", Varies::State},
    {"fill-extrusion-rounded-corner-distance", "number", "", "0", Varies::Never, 0},
};
constexpr MemberRule kFillExtrusionPaint[] = {
    {"fill-extrusion-opacity", "number", "", "1", Varies::Zoom, 0, 1},
    {"fill-extrusion-color", "color", "", "\"#000000\"", Varies::Feature},
    {"fill-extrusion-translate", "array<number,2>", "", "[0, 0]", Varies::Zoom},
    {"fill-extrusion-translate-anchor", "enum", "map viewport", "\"map\"", Varies::Zoom},
    {"fill-extrusion-pattern", "resolvedImage", "", "", Varies::FeatureCrossFaded},
    {"fill-extrusion-height", "number", "", "0", Varies::Feature},
    {"fill-extrusion-base", "number", "", "0", Varies::Feature},
    {"fill-extrusion-vertical-gradient", "boolean", "", "true", Varies::Zoom},
};

} // namespace

LayerRules HeatmapRules()
{
    return {LayerType::Heatmap,    "heatmap",        ListOf(kHeatmapLayout),
            ListOf(kHeatmapPaint), "geojson vector", "heat maps are not drawn"};
}

LayerRules FillExtrusionRules()
{
    return {LayerType::FillExtrusion,    "fill-extrusion", ListOf(kFillExtrusionLayout),
            ListOf(kFillExtrusionPaint), "geojson vector", "maps are flat, and buildings without height are fills"};
}

} // namespace txmap
