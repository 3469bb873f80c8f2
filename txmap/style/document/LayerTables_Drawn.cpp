#include <txmap/style/document/LayerTables.h>

namespace txmap
{
namespace
{

constexpr double kNone = MemberRule::kNone;

constexpr MemberRule kBackgroundLayout[] = {
    {"visibility", "enum", "visible none", "\"visible\"", Varies::State},
};
constexpr MemberRule kBackgroundPaint[] = {
    {"background-color", "color", "", "\"#000000\"", Varies::Zoom},
    {"background-pattern", "resolvedImage", "", "", Varies::ZoomCrossFaded},
    {"background-opacity", "number", "", "1", Varies::Zoom, 0, 1},
};
constexpr MemberRule kFillLayout[] = {
    {"fill-sort-key", "number", "", "", Varies::Feature},
    {"visibility", "enum", "visible none", "\"visible\"", Varies::State},
};
constexpr MemberRule kFillPaint[] = {
    {"fill-antialias", "boolean", "", "true", Varies::Zoom},
    {"fill-opacity", "number", "", "1", Varies::Feature, 0, 1},
    {"fill-layer-opacity", "number", "", "1", Varies::Zoom, 0, 1},
    {"fill-layer-blend", "enum", "normal multiply color luminosity plus-lighter screen overlay", "\"normal\"",
     Varies::Never},
    {"fill-color", "color", "", "\"#000000\"", Varies::Feature},
    {"fill-outline-color", "color", "", "", Varies::Feature},
    {"fill-translate", "array<number,2>", "", "[0, 0]", Varies::Zoom},
    {"fill-translate-anchor", "enum", "map viewport", "\"map\"", Varies::Zoom},
    {"fill-pattern", "resolvedImage", "", "", Varies::FeatureCrossFaded},
};
constexpr MemberRule kLineLayout[] = {
    {"line-cap", "enum", "butt round square", "\"butt\"", Varies::Feature},
    {"line-join", "enum", "bevel round miter", "\"miter\"", Varies::Feature},
    {"line-miter-limit", "number", "", "2", Varies::Feature},
    {"line-round-limit", "number", "", "1.05", Varies::Feature},
    {"line-sort-key", "number", "", "", Varies::Feature},
    {"visibility", "enum", "visible none", "\"visible\"", Varies::State},
};
constexpr MemberRule kLinePaint[] = {
    {"line-opacity", "number", "", "1", Varies::Feature, 0, 1},
    {"line-layer-opacity", "number", "", "1", Varies::Zoom, 0, 1},
    {"line-layer-blend", "enum", "normal multiply color luminosity plus-lighter screen overlay", "\"normal\"",
     Varies::Never},
    {"line-color", "color", "", "\"#000000\"", Varies::Feature},
    {"line-translate", "array<number,2>", "", "[0, 0]", Varies::Zoom},
    {"line-translate-anchor", "enum", "map viewport", "\"map\"", Varies::Zoom},
    {"line-width", "number", "", "1", Varies::Feature, 0},
    {"line-gap-width", "number", "", "0", Varies::Feature, 0},
    {"line-offset", "number", "", "0", Varies::Feature},
    {"line-blur", "number", "", "0", Varies::Feature, 0},
    {"line-dasharray", "array<number>", "", "", Varies::FeatureCrossFaded, 0},
    {"line-pattern", "resolvedImage", "", "", Varies::FeatureCrossFaded},
    {"line-gradient", "color", "", "", Varies::LineProgress},
};
constexpr MemberRule kCircleLayout[] = {
    {"circle-sort-key", "number", "", "", Varies::Feature},
    {"visibility", "enum", "visible none", "\"visible\"", Varies::State},
};
constexpr MemberRule kCirclePaint[] = {
    {"circle-radius", "number", "", "5", Varies::Feature, 0},
    {"circle-color", "color", "", "\"#000000\"", Varies::Feature},
    {"circle-blur", "number", "", "0", Varies::Feature},
    {"circle-opacity", "number", "", "1", Varies::Feature, 0, 1},
    {"circle-translate", "array<number,2>", "", "[0, 0]", Varies::Zoom},
    {"circle-translate-anchor", "enum", "map viewport", "\"map\"", Varies::Zoom},
    {"circle-pitch-scale", "enum", "map viewport", "\"map\"", Varies::Zoom},
    {"circle-pitch-alignment", "enum", "map viewport", "\"viewport\"", Varies::Zoom},
    {"circle-stroke-width", "number", "", "0", Varies::Feature, 0},
    {"circle-stroke-color", "color", "", "\"#000000\"", Varies::Feature},
    {"circle-stroke-opacity", "number", "", "1", Varies::Feature, 0, 1},
};
constexpr MemberRule kRasterLayout[] = {
    {"visibility", "enum", "visible none", "\"visible\"", Varies::State},
};
constexpr MemberRule kRasterPaint[] = {
    {"raster-opacity", "number", "", "1", Varies::Zoom, 0, 1},
    {"raster-layer-blend", "enum", "normal multiply color luminosity plus-lighter screen overlay", "\"normal\"",
     Varies::Never},
    {"raster-hue-rotate", "number", "", "0", Varies::Zoom},
    {"raster-brightness-min", "number", "", "0", Varies::Zoom, 0, 1},
    {"raster-brightness-max", "number", "", "1", Varies::Zoom, 0, 1},
    {"raster-saturation", "number", "", "0", Varies::Zoom, -1, 1},
    {"raster-contrast", "number", "", "0", Varies::Zoom, -1, 1},
    {"resampling", "enum", "linear nearest", "\"linear\"", Varies::Zoom},
    {"raster-resampling", "enum", "linear nearest", "\"linear\"", Varies::Zoom},
    {"raster-fade-duration", "number", "", "300", Varies::Zoom, 0},
};
constexpr MemberRule kHillshadeLayout[] = {
    {"visibility", "enum", "visible none", "\"visible\"", Varies::State},
};
constexpr MemberRule kHillshadePaint[] = {
    {"hillshade-illumination-direction", "numberArray", "", "335", Varies::Zoom, 0, 359},
    {"hillshade-illumination-altitude", "numberArray", "", "45", Varies::Zoom, 0, 90},
    {"hillshade-illumination-anchor", "enum", "map viewport", "\"viewport\"", Varies::Zoom},
    {"hillshade-exaggeration", "number", "", "0.5", Varies::Zoom, 0, 1},
    {"hillshade-shadow-color", "colorArray", "", "\"#000000\"", Varies::Zoom},
    {"hillshade-highlight-color", "colorArray", "", "\"#FFFFFF\"", Varies::Zoom},
    {"hillshade-accent-color", "color", "", "\"#000000\"", Varies::Zoom},
    {"hillshade-method", "enum", "standard basic combined igor multidirectional", "\"standard\"", Varies::Zoom},
    {"resampling", "enum", "linear nearest", "\"linear\"", Varies::Zoom},
};
constexpr MemberRule kColorReliefLayout[] = {
    {"visibility", "enum", "visible none", "\"visible\"", Varies::State},
};
constexpr MemberRule kColorReliefPaint[] = {
    {"color-relief-opacity", "number", "", "1", Varies::Zoom, 0, 1},
    {"color-relief-color", "color", "", "", Varies::OtherRamp},
    {"resampling", "enum", "linear nearest", "\"linear\"", Varies::Zoom},
};

} // namespace

LayerRules BackgroundRules()
{
    return {LayerType::Background, "background", ListOf(kBackgroundLayout), ListOf(kBackgroundPaint), "", ""};
}

LayerRules FillRules()
{
    return {LayerType::Fill, "fill", ListOf(kFillLayout), ListOf(kFillPaint), "geojson vector", ""};
}

LayerRules LineRules()
{
    return {LayerType::Line, "line", ListOf(kLineLayout), ListOf(kLinePaint), "geojson vector", ""};
}

LayerRules CircleRules()
{
    return {LayerType::Circle, "circle", ListOf(kCircleLayout), ListOf(kCirclePaint), "geojson vector", ""};
}

LayerRules RasterRules()
{
    return {LayerType::Raster, "raster", ListOf(kRasterLayout), ListOf(kRasterPaint), "raster image video", ""};
}

LayerRules HillshadeRules()
{
    return {LayerType::Hillshade, "hillshade", ListOf(kHillshadeLayout), ListOf(kHillshadePaint), "raster-dem", ""};
}

LayerRules ColorReliefRules()
{
    return {LayerType::ColorRelief,    "color-relief", ListOf(kColorReliefLayout),
            ListOf(kColorReliefPaint), "raster-dem",   ""};
}

} // namespace txmap
