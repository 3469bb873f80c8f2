#pragma once

#include <optional>
#include <string>

#include <txmap/style/document/MemberRule.h>

namespace txmap
{

/// What a layer of a style draws.
enum class LayerType
{
    Background,
    Fill,
    Line,
    Symbol,
    Circle,
    Heatmap,
    FillExtrusion,
    Raster,
    Hillshade,
    ColorRelief
};

/// A table of rules.
struct RuleList
{
    const MemberRule* first = nullptr;
    std::size_t count = 0;

    const MemberRule* begin() const { return first; }
    const MemberRule* end() const { return first + count; }
    /// The rule for a member, or null where there is none of that name.
    const MemberRule* Find(const std::string& name) const;
};

/// Everything about a type of layers.
struct LayerRules
{
    LayerType type;
    const char* name;
    RuleList layout;
    RuleList paint;
    /// The types of sources that it draws, with blanks between them; empty for none.
    const char* sources;
    /// Why no layer of this type is drawn; empty if it is.
    const char* unsupported;
};

/// The rules of a type of layers.
const LayerRules& RulesOf(LayerType type);
/// The same by the name of the type, or null where there is none of that name.
const LayerRules* FindLayerRules(const std::string& name);
/// The names of all types.
std::vector<std::string> LayerTypeNames();

/// @name The tables
/// @{
LayerRules BackgroundRules();
LayerRules FillRules();
LayerRules LineRules();
LayerRules CircleRules();
LayerRules RasterRules();
LayerRules HillshadeRules();
LayerRules SymbolRules();
LayerRules HeatmapRules();
LayerRules FillExtrusionRules();
LayerRules ColorReliefRules();
/// @}

template <std::size_t N>
RuleList ListOf(const MemberRule (&rules)[N])
{
    return {rules, N};
}

} // namespace txmap
