#include <txmap/style/Filter.h>

namespace txmap
{
namespace
{

bool IsComparison(const std::string& name)
{
    return name == "==" || name == "!=" || name == "<" || name == ">" || name == "<=" || name == ">=";
}

// What a filter shows of its kind. Some are the same in both.
enum class Nature
{
    Legacy,
    Either,
    Expression
};

Nature NatureOf(const Json& filter, int depth);

// One part that can only be an expression makes the whole one; otherwise one of the old kind makes the whole old.
Nature NatureOfParts(const Json& filter, int depth)
{
    Nature nature = Nature::Either;
    for (std::size_t i = 1; i < filter.size(); ++i)
    {
        const Nature part = NatureOf(filter[i], depth + 1);
        if (part == Nature::Expression)
            return part;
        nature = part == Nature::Legacy ? part : nature;
    }
    return nature;
}

Nature NatureOf(const Json& filter, int depth)
{
    const auto decided = [](bool expression) { return expression ? Nature::Expression : Nature::Legacy; };
    if (filter.is_boolean())
        return Nature::Either;
    if (!filter.is_array() || filter.empty() || depth > kMaximumNesting)
        return Nature::Legacy;
    if (!filter[0].is_string())
        return Nature::Expression;
    const std::string name = filter[0];
    if (name == "has")
        return filter.size() == 2 && filter[1] != "$id" && filter[1] != "$type" ? Nature::Either
                                                                                : decided(filter.size() > 2);
    if (name == "in")
        return decided(filter.size() >= 3 && (!filter[1].is_string() || filter[2].is_array()));
    if (name == "!in" || name == "!has" || name == "none")
        return Nature::Legacy;
    if (IsComparison(name))
        return decided(filter.size() != 3 || filter[1].is_array() || filter[2].is_array());
    return name == "any" || name == "all" ? NatureOfParts(filter, depth) : Nature::Expression;
}

Json Not(const Json& filter) { return Json::array({"!", filter}); }

Json Element(const Json& filter, std::size_t index) { return index < filter.size() ? filter[index] : Json(); }

Json Literal(const Json& value) { return value.is_structured() ? Json::array({"literal", value}) : value; }

// "filter-", "filter-id-" or "filter-type-" with the operator, and what it works on.
Json OnSubject(const Json& subject, const std::string& name, const Json& operand)
{
    if (subject == "$type" || subject == "$id")
    {
        Json filter = Json::array({(subject == "$type" ? "filter-type-" : "filter-id-") + name});
        filter.push_back(operand);
        return filter;
    }
    return Json::array({"filter-" + name, subject, operand});
}

Json ConvertHas(const Json& subject)
{
    if (subject == "$type")
        return true;
    if (subject == "$id")
        return Json::array({"filter-has-id"});
    return Json::array({"filter-has", subject});
}

Json ConvertIn(const Json& filter)
{
    if (filter.size() < 3)
        return false;
    Json values = Json::array();
    for (std::size_t i = 2; i < filter.size(); ++i)
        values.push_back(filter[i]);
    return OnSubject(filter[1], "in", Json::array({"literal", values}));
}

Json Convert(const Json& filter, int depth)
{
    if (filter.is_null() || (filter.is_array() && filter.empty()))
        return true;
    if (!filter.is_array() || !filter[0].is_string() || depth > kMaximumNesting)
        return filter;
    const std::string name = filter[0];
    if (filter.size() == 1)
        return name != "any";
    if (name == "any" || name == "all" || name == "none")
    {
        Json parts = Json::array({name == "any" ? "any" : "all"});
        for (std::size_t i = 1; i < filter.size(); ++i)
        {
            const Json part = Convert(filter[i], depth + 1);
            parts.push_back(name == "none" ? Not(part) : part);
        }
        return parts;
    }
    if (name == "!=")
        return Not(OnSubject(filter[1], "==", Literal(Element(filter, 2))));
    if (IsComparison(name))
        return OnSubject(filter[1], name, Literal(Element(filter, 2)));
    if (name == "in")
        return ConvertIn(filter);
    if (name == "!in")
        return Not(ConvertIn(filter));
    if (name == "has")
        return ConvertHas(filter[1]);
    if (name == "!has")
        return Not(ConvertHas(filter[1]));
    return name == "within" ? filter : Json(true);
}

} // namespace

bool IsExpressionFilter(const Json& filter) { return NatureOf(filter, 0) != Nature::Legacy; }

Json ConvertLegacyFilter(const Json& filter) { return Convert(filter, 0); }

CompiledExpression CompileFilter(const Json& filter)
{
    if (IsExpressionFilter(filter) || IsNestedTooDeep(filter))
        return CompileExpression(filter, PropertySpec::Filter());
    return CompileExpression(ConvertLegacyFilter(filter), PropertySpec::Filter());
}

} // namespace txmap
