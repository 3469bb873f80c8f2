#include <txmap/style/operators/LiteralNode.h>
#include <txmap/style/operators/OperatorTable.h>

namespace txmap
{
namespace
{

using Kind = ExpressionType::Kind;

ExpressionType InferEmptyArray(const ExpressionType& type, const std::optional<ExpressionType>& expected)
{
    const bool empty = type.Is(Kind::Array) && type.Length() == 0u;
    const bool fits = expected && expected->Is(Kind::Array) && expected->Length().value_or(0) == 0;
    return empty && fits ? *expected : type;
}

/// An array of values that are expressions.
class ArrayNode : public ExpressionNode
{
public:
    ArrayNode(ExpressionType type, std::vector<NodePtr> items, std::string key)
        : ExpressionNode(std::move(type), std::move(key)), items(std::move(items))
    {
    }

    Value Evaluate(const EvaluationContext& context) const override
    {
        ValueArray values;
        values.reserve(items.size());
        for (const NodePtr& item : items)
            values.push_back(item->Evaluate(context));
        return values;
    }
    void ForEachChild(const Visitor& visit) const override
    {
        for (const NodePtr& item : items)
            visit(*item);
    }

private:
    std::vector<NodePtr> items;
};

NodePtr ArgumentCountError(const Json& arguments, ParsingContext& context)
{
    return context.Error("'" + arguments[0].get<std::string>() +
                         "' expression requires exactly one argument, but found " +
                         std::to_string(arguments.size() - 1) + " instead.");
}

} // namespace

NodePtr MakeLiteral(const Json& json, const ParsingContext& context)
{
    Value value = Value::FromJson(json);
    const ExpressionType type = InferEmptyArray(ExpressionType::Of(value), context.Expected());
    return std::make_shared<LiteralNode>(type, std::move(value), context.Key());
}

NodePtr ParseLiteral(const Json& arguments, ParsingContext& context)
{
    if (arguments.size() != 2)
        return ArgumentCountError(arguments, context);
    if (arguments[1].is_discarded())
        return context.Error("invalid value");
    return MakeLiteral(arguments[1], context);
}

NodePtr ParseSemiliteral(const Json& arguments, ParsingContext& context)
{
    if (arguments.size() != 2)
        return ArgumentCountError(arguments, context);
    if (!arguments[1].is_array())
        return ParseLiteral(arguments, context);

    std::vector<NodePtr> items;
    std::optional<ExpressionType> common;
    ParsingContext inner = context.At(1);
    for (const Json& json : arguments[1])
    {
        NodePtr item = inner.Parse(json, items.size());
        if (!item)
            return nullptr;
        if (!common)
            common = item->Type();
        else if (!common->Is(item->Type().GetKind()) || common->Is(Kind::Array))
            common = Kind::Value;
        items.push_back(std::move(item));
    }
    const ExpressionType type = ExpressionType::ArrayOf(common.value_or(Kind::Value), items.size());
    return std::make_shared<ArrayNode>(InferEmptyArray(type, context.Expected()), std::move(items), context.Key());
}

} // namespace txmap
