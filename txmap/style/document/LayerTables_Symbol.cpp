#include <txmap/style/document/LayerTables.h>

namespace txmap
{
namespace
{

constexpr double kNone = MemberRule::kNone;

constexpr MemberRule kSymbolLayout[] = {
    {"symbol-placement", "enum", "point line line-center", "\"point\"", Varies::Zoom},
    {"symbol-spacing", "number", "", "250", Varies::Zoom, 1},
    {"symbol-avoid-edges", "boolean", "", "false", Varies::Zoom},
    {"symbol-sort-key", "number", "", "", Varies::Feature},
    {"symbol-z-order", "enum", "auto viewport-y source", "\"auto\"", Varies::Zoom},
    {"icon-allow-overlap", "boolean", "", "false", Varies::Zoom},
    {"icon-overlap", "enum", "never always cooperative", "", Varies::Zoom},
    {"icon-ignore-placement", "boolean", "", "false", Varies::Zoom},
    {"icon-optional", "boolean", "", "false", Varies::Zoom},
    {"icon-rotation-alignment", "enum", "map viewport auto", "\"auto\"", Varies::Feature},
    {"icon-size", "number", "", "1", Varies::Feature, 0},
    {"icon-text-fit", "enum", "none width height both", "\"none\"", Varies::Zoom},
    {"icon-text-fit-padding", "array<number,4>", "", "[0, 0, 0, 0]", Varies::Zoom},
    {"icon-image", "resolvedImage", "", "", Varies::Feature, -kNone, kNone, false, true},
    {"icon-rotate", "number", "", "0", Varies::Feature},
    {"icon-padding", "padding", "", "[2]", Varies::Feature},
    {"icon-keep-upright", "boolean", "", "false", Varies::Zoom},
    {"icon-offset", "array<number,2>", "", "[0, 0]", Varies::Feature},
    {"icon-anchor", "enum", "center left right top bottom top-left top-right bottom-left bottom-right", "\"center\"",
     Varies::Feature},
    {"icon-pitch-alignment", "enum", "map viewport auto", "\"auto\"", Varies::Zoom},
    {"text-pitch-alignment", "enum", "map viewport auto", "\"auto\"", Varies::Zoom},
    {"text-rotation-alignment", "enum", "map viewport viewport-glyph auto", "\"auto\"", Varies::Zoom},
    {"text-field", "formatted", "", "\"\"", Varies::Feature, -kNone, kNone, false, true},
    {"text-font", "array<string>", "", "[\"Open Sans Regular\", \"Arial Unicode MS Regular\"]", Varies::Feature},
    {"text-size", "number", "", "16", Varies::Feature, 0},
    {"text-max-width", "number", "", "10", Varies::Feature, 0},
    {"text-line-height", "number", "", "1.2", Varies::Zoom},
    {"text-letter-spacing", "number", "", "0", Varies::Feature},
    {"text-justify", "enum", "auto left center right", "\"center\"", Varies::Feature},
    {"text-radial-offset", "number", "", "0", Varies::Feature},
    {"text-variable-anchor", "array<enum>", "center left right top bottom top-left top-right bottom-left bottom-right",
     "", Varies::Zoom},
    {"text-variable-anchor-offset", "variableAnchorOffsetCollection", "", "", Varies::Feature},
    {"text-anchor", "enum", "center left right top bottom top-left top-right bottom-left bottom-right", "\"center\"",
     Varies::Feature},
    {"text-max-angle", "number", "", "45", Varies::Zoom},
    {"text-writing-mode", "array<enum>", "horizontal vertical", "", Varies::Zoom},
    {"text-rotate", "number", "", "0", Varies::Feature},
    {"text-padding", "number", "", "2", Varies::Zoom, 0},
    {"text-keep-upright", "boolean", "", "true", Varies::Zoom},
    {"text-transform", "enum", "none uppercase lowercase", "\"none\"", Varies::Feature},
    {"text-offset", "array<number,2>", "", "[0, 0]", Varies::Feature},
    {"text-allow-overlap", "boolean", "", "false", Varies::Zoom},
    {"text-overlap", "enum", "never always cooperative", "", Varies::Zoom},
    {"text-ignore-placement", "boolean", "", "false", Varies::Zoom},
    {"text-optional", "boolean", "", "false", Varies::Zoom},
    {"symbol-height-offset", "number", "", "0", Varies::Feature},
    {"symbol-height-anchor", "enum", "ground absolute", "\"ground\"", Varies::Zoom},
    {"visibility", "enum", "visible none", "\"visible\"", Varies::State},
};
constexpr MemberRule kSymbolPaint[] = {
    {"icon-opacity", "number", "", "1", Varies::Feature, 0, 1},
    {"icon-color", "color", "", "\"#000000\"", Varies::Feature},
    {"icon-halo-color", "color", "", "\"rgba(0, 0, 0, 0)\"", Varies::Feature},
    {"icon-halo-width", "number", "", "0", Varies::Feature, 0},
    {"icon-halo-blur", "number", "", "0", Varies::Feature, 0},
    {"icon-translate", "array<number,2>", "", "[0, 0]", Varies::Zoom},
    {"icon-translate-anchor", "enum", "map viewport", "\"map\"", Varies::Zoom},
    {"text-opacity", "number", "", "1", Varies::Feature, 0, 1},
    {"text-color", "color", "", "\"#000000\"", Varies::Feature},
    {"text-halo-color", "color", "", "\"rgba(0, 0, 0, 0)\"", Varies::Feature},
    {"text-halo-width", "number", "", "0", Varies::Feature, 0},
    {"text-halo-blur", "number", "", "0", Varies::Feature, 0},
    {"text-translate", "array<number,2>", "", "[0, 0]", Varies::Zoom},
    {"text-translate-anchor", "enum", "map viewport", "\"map\"", Varies::Zoom},
};

} // namespace

LayerRules SymbolRules()
{
    return {LayerType::Symbol, "symbol", ListOf(kSymbolLayout), ListOf(kSymbolPaint), "geojson vector", ""};
}

} // namespace txmap
