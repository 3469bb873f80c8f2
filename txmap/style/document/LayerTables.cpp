#include <txmap/style/document/LayerTables.h>

#include <array>

namespace txmap
{
namespace
{

const std::array<LayerRules, 10>& AllRules()
{
    // In the order of LayerType.
    static const std::array<LayerRules, 10> rules = {
        BackgroundRules(), FillRules(),          LineRules(),   SymbolRules(),    CircleRules(),
        HeatmapRules(),    FillExtrusionRules(), RasterRules(), HillshadeRules(), ColorReliefRules()};
    return rules;
}

} // namespace

const MemberRule* RuleList::Find(const std::string& name) const
{
    for (const MemberRule& rule : *this)
        if (name == rule.name)
            return &rule;
    return nullptr;
}

const LayerRules& RulesOf(LayerType type) { return AllRules()[static_cast<std::size_t>(type)]; }

const LayerRules* FindLayerRules(const std::string& name)
{
    for (const LayerRules& rules : AllRules())
        if (name == rules.name)
            return &rules;
    return nullptr;
}

std::vector<std::string> LayerTypeNames()
{
    std::vector<std::string> names;
    for (const LayerRules& rules : AllRules())
        names.emplace_back(rules.name);
    return names;
}

} // namespace txmap
