#include <txmap/style/document/PropertyReader.h>

#include <txmap/style/Filter.h>
#include <txmap/style/LegacyFunction.h>
#include <txmap/style/document/ValueCheck.h>
#include <txmap/style/operators/OperatorTable.h>

namespace txmap
{
namespace
{

bool IsExpression(const Json& json)
{
    return json.is_array() && !json.empty() && json[0].is_string() && FindOperator(json[0].get<std::string>());
}

/// A constant as an expression.
Json Literal(const Json& json, const MemberRule& rule)
{
    if (json.is_string() && rule.tokens)
        return ConvertTokens(json.get<std::string>());
    return json.is_structured() ? Json::array({"literal", json}) : json;
}

std::optional<Expression> ExpressionIn(const CompiledExpression& compiled, const std::string& pointer,
                                       StyleProblems& problems)
{
    if (const auto* expression = std::get_if<Expression>(&compiled))
        return *expression;
    for (const ParsingError& error : std::get<std::vector<ParsingError>>(compiled))
        problems.Add(PointerToPart(pointer, error.key), error.message);
    return std::nullopt;
}

} // namespace

std::optional<Expression> ReadProperty(const Json& json, const MemberRule& rule, const std::string& pointer,
                                       StyleProblems& problems)
{
    const std::size_t before = problems.Count();
    if (IsNestedTooDeep(json))
    {
        problems.Add(pointer, "nested too deep");
        return std::nullopt;
    }
    PropertySpec spec = rule.Spec();
    if (json.is_object())
    {
        CheckFunction(json, rule, pointer, problems);
        if (problems.Count() > before)
            return std::nullopt;
        return ExpressionIn(CompileProperty(json, spec), pointer, problems);
    }
    if (IsExpression(json))
    {
        if (rule.varies != Varies::Never)
            return ExpressionIn(CompileProperty(json, spec), pointer, problems);
        problems.Add(pointer, "expressions are not allowed here");
        return std::nullopt;
    }
    CheckConstant(json, rule, pointer, problems);
    if (problems.Count() > before)
        return std::nullopt;
    return ExpressionIn(CompileProperty(Literal(json, rule), spec), pointer, problems);
}

std::optional<Expression> DefaultOf(const MemberRule& rule)
{
    if (*rule.fallback == '\0')
        return std::nullopt;
    StyleProblems none;
    return ReadProperty(Json::parse(rule.fallback), rule, "", none);
}

std::optional<Expression> ReadFilter(const Json& json, const std::string& pointer, StyleProblems& problems)
{
    const std::size_t before = problems.Count();
    if (!IsExpressionFilter(json) && !IsNestedTooDeep(json))
        CheckLegacyFilter(json, pointer, problems);
    if (problems.Count() > before)
        return std::nullopt;
    return ExpressionIn(CompileFilter(json), pointer, problems);
}

} // namespace txmap
