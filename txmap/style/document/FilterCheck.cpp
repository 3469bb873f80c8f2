#include <txmap/style/document/PropertyReader.h>
#include <txmap/style/document/ValueCheck.h>

namespace txmap
{
namespace
{

constexpr const char* kOperators = "== != > >= < <= in !in all any none has !has within";

void CheckOperand(const Json& subject, const Json& operand, const std::string& pointer, StyleProblems& problems)
{
    if (subject == "$type")
        CheckConstant(operand, {"", "enum", "Point LineString Polygon"}, pointer, problems);
    else if (operand.is_structured() || operand.is_null())
        problems.Add(pointer, "string, number or boolean expected, but " + JsonKind(operand) + " found");
}

void CheckComparison(const Json& filter, const std::string& pointer, StyleProblems& problems)
{
    const std::string name = filter[0];
    const bool isSet = name == "in" || name == "!in";
    if (!isSet && filter.size() != 3)
        problems.Add(pointer, "\"" + name + "\" has three elements");
    if (filter.size() < 2)
        return;
    RequireKind(filter[1], "string", PointerTo(pointer, 1), problems);
    if (filter[1] == "$type" && (name[0] == '<' || name[0] == '>'))
        problems.Add(pointer, "\"$type\" cannot be used with \"" + name + "\"");
    for (std::size_t i = 2; i < filter.size(); ++i)
        CheckOperand(filter[1], filter[i], PointerTo(pointer, i), problems);
}

} // namespace

void CheckLegacyFilter(const Json& json, const std::string& pointer, StyleProblems& problems)
{
    if (!RequireKind(json, "array", pointer, problems))
        return;
    if (json.empty())
        return problems.Add(pointer, "a filter has at least one element");
    const std::size_t before = problems.Count();
    CheckConstant(json[0], {"", "enum", kOperators}, PointerTo(pointer, 0), problems);
    if (problems.Count() > before)
        return;
    const std::string name = json[0];
    if (name == "all" || name == "any" || name == "none")
    {
        for (std::size_t i = 1; i < json.size(); ++i)
            if (!json[i].is_boolean())
                CheckLegacyFilter(json[i], PointerTo(pointer, i), problems);
        return;
    }
    if (name == "has" || name == "!has")
    {
        if (json.size() != 2)
            return problems.Add(pointer, "\"" + name + "\" has two elements");
        RequireKind(json[1], "string", PointerTo(pointer, 1), problems);
    }
    else if (name != "within")
        CheckComparison(json, pointer, problems);
}

} // namespace txmap
