#include <txmap/style/Expression.h>

#include <algorithm>
#include <cmath>

#include <txmap/style/LegacyFunction.h>
#include <txmap/style/operators/Conversions.h>
#include <txmap/style/operators/CurveNodes.h>
#include <txmap/style/operators/OverloadedOperator.h>

namespace txmap
{
namespace
{

using Kind = ExpressionType::Kind;

/// The curve of an expression whose input is the zoom, or what is wrong with it.
struct ZoomCurve
{
    const CurveNode* curve = nullptr;
    std::string problem;

    bool IsFound() const { return curve || !problem.empty(); }
};

constexpr const char* kOnlyTopLevel =
    "\"zoom\" expression may only be used as input to a top-level \"step\" or \"interpolate\" expression.";
constexpr const char* kOnlyOne =
    "Only one zoom-based \"step\" or \"interpolate\" subexpression may be used in an expression.";

ZoomCurve FindZoomCurve(const ExpressionNode& node)
{
    std::vector<ZoomCurve> inner;
    node.ForEachChild([&](const ExpressionNode& child) { inner.push_back(FindZoomCurve(child)); });

    ZoomCurve result;
    const auto* curve = dynamic_cast<const CurveNode*>(&node);
    if (curve && curve->IsZoomCurve())
        result.curve = curve;
    else if (node.PassesOn() == ExpressionNode::Passes::LastPart && !inner.empty())
        result = inner.back();
    else if (node.PassesOn() == ExpressionNode::Passes::AnyPart)
        for (const ZoomCurve& part : inner)
            result = result.IsFound() ? result : part;
    if (!result.problem.empty())
        return result;
    for (const ZoomCurve& part : inner)
    {
        if (!part.problem.empty())
            result = part;
        else if (!result.IsFound() && part.curve)
            result.problem = kOnlyTopLevel;
        else if (result.curve && part.curve && result.curve != part.curve)
            result = {nullptr, kOnlyOne};
    }
    return result;
}

void CollectProperties(const ExpressionNode& node, UsedProperties& used)
{
    if (const auto* call = dynamic_cast<const OverloadedNode*>(&node))
    {
        const std::string& name = call->Name();
        const auto& arguments = call->Arguments();
        const bool filter = name.compare(0, 7, "filter-") == 0 && name.compare(0, 10, "filter-id-") != 0 &&
                            name.compare(0, 12, "filter-type-") != 0 && name != "filter-has-id";
        const bool reads = ((name == "get" || name == "has") && arguments.size() == 1) || filter;
        if (name == "properties")
            used.all = true;
        if (const Value* constant = reads ? arguments[0]->Constant() : nullptr)
            used.names.insert(constant->ToString());
        else if (reads)
            used.all = true;
    }
    node.ForEachChild([&](const ExpressionNode& child) { CollectProperties(child, used); });
}

// The default of a property in the type of its values. A ramp of colours is a function and has no value of its own.
Value DefaultValue(const PropertySpec& spec)
{
    if (!spec.defaultValue || IsLegacyFunction(*spec.defaultValue))
        return spec.type == "color" ? Value(Color{0.0, 0.0, 0.0, 0.0}) : Value();
    const Value value = Value::FromJson(*spec.defaultValue);
    const auto type = spec.ExpectedType();
    if (!type || value.IsNull() || type->Is(Kind::Array))
        return value;
    std::string problem;
    return ConvertTo(type->GetKind(), value, problem).value_or(value);
}

constexpr const char* kTooDeep = "Expressions must not be nested deeper than 256 levels.";

std::vector<ParsingError> WholeError(const std::string& message) { return {{std::string(), message}}; }

} // namespace

Expression::Expression(NodePtr root, Value defaultValue, std::vector<std::string> enumValues)
    : root(std::move(root)), uses(AllUses(*this->root)), defaultValue(std::move(defaultValue)),
      enumValues(std::move(enumValues))
{
}

Value Expression::Evaluate(const EvaluationContext& context) const
{
    try
    {
        return root->Evaluate(context);
    }
    catch (const std::bad_variant_access&)
    {
        throw EvaluationError(root->Key(), "The value is of another type than its expression.");
    }
}

Value Expression::EvaluateOrDefault(const EvaluationContext& context, std::string* problem) const
{
    try
    {
        Value value = Evaluate(context);
        if (value.IsNull() || (value.Is(Value::Kind::Number) && std::isnan(value.Number())))
            return defaultValue;
        const bool known = enumValues.empty() || !value.Is(Value::Kind::String) ||
                           std::find(enumValues.begin(), enumValues.end(), value.String()) != enumValues.end();
        if (known)
            return value;
        std::string names;
        for (const std::string& name : enumValues)
            names += (names.empty() ? "" : ", ") + Value(name).ToJsonText();
        throw EvaluationError(std::string(), "Expected value to be one of " + names + ", but found " +
                                                 value.ToJsonText() + " instead.");
    }
    catch (const EvaluationError& error)
    {
        if (problem)
            *problem = error.what();
        return defaultValue;
    }
}

Expression Expression::AtZoom(double zoom) const
{
    NodePtr specialised = root->AtZoom(zoom);
    return Expression(specialised ? std::move(specialised) : root, defaultValue, enumValues);
}

UsedProperties Expression::Properties() const
{
    UsedProperties used;
    CollectProperties(*root, used);
    return used;
}

CompiledExpression CompileExpression(const Json& json, const PropertySpec& spec)
{
    if (IsNestedTooDeep(json))
        return WholeError(kTooDeep);
    std::vector<ParsingError> errors;
    ParsingContext context(errors, spec.ExpectedType());
    // Properties that are texts take anything for one.
    NodePtr root = context.ParseHere(json, spec.type == "string" ? Annotation::Coerce : Annotation::Default);
    if (!root || !errors.empty())
        return errors;
    return Expression(std::move(root), DefaultValue(spec), spec.enumValues);
}

CompiledExpression CompileProperty(const Json& json, const PropertySpec& spec)
{
    // Nothing that deep may be copied, because that would end the stack.
    const bool converted = IsLegacyFunction(json) && !IsNestedTooDeep(json);
    const CompiledExpression compiled =
        converted ? CompileExpression(ConvertLegacyFunction(json, spec), spec) : CompileExpression(json, spec);
    const auto* expression = std::get_if<Expression>(&compiled);
    if (!expression)
        return compiled;
    if (!expression->IsFeatureConstant() && !spec.dataDriven)
        return WholeError("data expressions not supported");
    if (!expression->IsZoomConstant() && !spec.zoomAllowed)
        return WholeError("zoom expressions not supported");
    const ZoomCurve zoom = FindZoomCurve(*expression->Root());
    if (!zoom.IsFound() && !expression->IsZoomConstant())
        return WholeError(kOnlyTopLevel);
    if (!zoom.problem.empty())
        return WholeError(zoom.problem);
    if (zoom.curve && zoom.curve->IsInterpolation() && !spec.interpolated)
        return WholeError("\"interpolate\" expressions cannot be used with this property");
    return compiled;
}

bool IsLegacyFunction(const Json& json) { return json.is_object(); }

} // namespace txmap
