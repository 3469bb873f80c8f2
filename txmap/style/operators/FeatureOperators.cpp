#include <limits>

#include <txmap/style/operators/OperatorTable.h>
#include <txmap/style/operators/OverloadedOperator.h>

namespace txmap
{
namespace
{

using Kind = ExpressionType::Kind;
using Node = OverloadedNode;
using Context = EvaluationContext;

Value Copy(const Value* value) { return value ? *value : Value(); }

const Value* Property(const Node& node, const Context& context)
{
    Value scratch;
    return context.feature ? context.feature->Property(node.Argument(0, context, scratch).String()) : nullptr;
}

Value Get(const Node& node, const Context& context) { return Copy(Property(node, context)); }
Value Has(const Node& node, const Context& context) { return Property(node, context) != nullptr; }

// The member of the object that is the second argument. The name is asked for first.
const Value* Member(const Node& node, const Context& context, Value& object)
{
    Value scratch;
    const Value& name = node.Argument(0, context, scratch);
    return node.Argument(1, context, object).Member(name.String());
}

Value GetMember(const Node& node, const Context& context)
{
    Value object;
    return Copy(Member(node, context, object));
}

Value HasMember(const Node& node, const Context& context)
{
    Value object;
    return Member(node, context, object) != nullptr;
}

Value FeatureState(const Node& node, const Context& context)
{
    Value name;
    return context.feature ? Copy(context.feature->State(node.Argument(0, context, name).String())) : Value();
}

Value Properties(const Node&, const Context& context)
{
    return context.feature ? context.feature->Properties() : ValueObject();
}

Value GeometryType(const Node&, const Context& context)
{
    const std::string_view type = context.feature ? context.feature->GeometryType() : std::string_view();
    return type.empty() ? Value() : Value(std::string(type));
}

Value Id(const Node&, const Context& context) { return context.feature ? context.feature->Id() : Value(); }

Value Zoom(const Node&, const Context& context)
{
    return context.zoom.value_or(std::numeric_limits<double>::quiet_NaN());
}
Value HeatmapDensity(const Node&, const Context& context) { return context.heatmapDensity.value_or(0.0); }
Value LineProgress(const Node&, const Context& context) { return context.lineProgress.value_or(0.0); }
Value Elevation(const Node&, const Context& context) { return context.elevation.value_or(0.0); }
Value Accumulated(const Node&, const Context& context) { return context.accumulated; }

/// A value that an application gives the whole style.
class GlobalStateNode : public ExpressionNode
{
public:
    GlobalStateNode(std::string name, std::string key)
        : ExpressionNode(Kind::Value, std::move(key)), name(std::move(name))
    {
    }

    Value Evaluate(const EvaluationContext& context) const override
    {
        const bool present = context.globalState && context.globalState->Is(Value::Kind::Object);
        return present ? Copy(context.globalState->Member(name)) : Value();
    }
    void ForEachChild(const Visitor&) const override {}
    unsigned OwnUses() const override { return UsesRuntime; }

private:
    std::string name;
};

} // namespace

void AddFeatureOperators(std::vector<OverloadedOperator>& operators)
{
    const ExpressionType text = Kind::String;
    operators.push_back({"get",
                         Kind::Value,
                         {{{text}, Get, UsesFeature, false}, {{text, Kind::Object}, GetMember, UsesNothing, false}}});
    operators.push_back({"has",
                         Kind::Boolean,
                         {{{text}, Has, UsesFeature, false}, {{text, Kind::Object}, HasMember, UsesNothing, false}}});
    operators.push_back(
        {"feature-state", Kind::Value, {{{text}, FeatureState, UsesFeature | UsesFeatureState, false}}});
    operators.push_back({"properties", Kind::Object, {{{}, Properties, UsesFeature, false}}});
    operators.push_back({"geometry-type", text, {{{}, GeometryType, UsesFeature, false}}});
    operators.push_back({"id", Kind::Value, {{{}, Id, UsesFeature, false}}});
    operators.push_back({"zoom", Kind::Number, {{{}, Zoom, UsesZoom, false}}});
    operators.push_back({"heatmap-density", Kind::Number, {{{}, HeatmapDensity, UsesOtherGlobals, false}}});
    operators.push_back({"line-progress", Kind::Number, {{{}, LineProgress, UsesOtherGlobals, false}}});
    operators.push_back({"elevation", Kind::Number, {{{}, Elevation, UsesOtherGlobals, false}}});
    operators.push_back({"accumulated", Kind::Value, {{{}, Accumulated, UsesOtherGlobals, false}}});
}

NodePtr ParseGlobalState(const Json& arguments, ParsingContext& context)
{
    if (arguments.size() != 2)
        return context.Error("Expected 1 argument, but found " + std::to_string(arguments.size() - 1) + " instead.");
    const Json& name = arguments[1];
    if (name.is_null())
        return context.Error("Global state property must be defined.");
    if (!name.is_string())
        return context.Error("Global state property must be string, but found " + JsonTypeName(name) + " instead.");
    return std::make_shared<GlobalStateNode>(name.get<std::string>(), context.Key());
}

} // namespace txmap
