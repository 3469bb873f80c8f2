#include <txmap/style/operators/OperatorTable.h>

#include <unordered_map>

#include <txmap/style/operators/OverloadedOperator.h>

namespace txmap
{
namespace
{

using Table = std::unordered_map<std::string, OperatorParser>;

Table MakeTable()
{
    Table table = {
        {"literal", ParseLiteral},
        {"semiliteral", ParseSemiliteral},
        {"array", ParseAssertion},
        {"boolean", ParseAssertion},
        {"number", ParseAssertion},
        {"object", ParseAssertion},
        {"string", ParseAssertion},
        {"to-boolean", ParseCoercion},
        {"to-color", ParseCoercion},
        {"to-number", ParseCoercion},
        {"to-string", ParseCoercion},
        {"case", ParseCase},
        {"match", ParseMatch},
        {"coalesce", ParseCoalesce},
        {"let", ParseLet},
        {"var", ParseVar},
        {"==", ParseComparison},
        {"!=", ParseComparison},
        {"<", ParseComparison},
        {">", ParseComparison},
        {"<=", ParseComparison},
        {">=", ParseComparison},
        {"step", ParseStep},
        {"interpolate", ParseInterpolate},
        {"interpolate-hcl", ParseInterpolate},
        {"interpolate-lab", ParseInterpolate},
        {"at", ParseAt},
        {"in", ParseIn},
        {"index-of", ParseIndexOf},
        {"slice", ParseSlice},
        {"length", ParseLength},
        {"format", ParseFormat},
        {"image", ParseImage},
        {"number-format", ParseNumberFormat},
        {"collator", ParseCollator},
        {"global-state", ParseGlobalState},
        {"within", ParseWithin},
        {"distance", ParseDistance},
    };
    for (const OverloadedOperator& one : OverloadedOperators())
        table.emplace(one.name, ParseOverloaded);
    return table;
}

} // namespace

const OperatorParser* FindOperator(const std::string& name)
{
    static const Table table = MakeTable();
    const auto found = table.find(name);
    return found == table.end() ? nullptr : &found->second;
}

} // namespace txmap
