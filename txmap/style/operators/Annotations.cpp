#include <txmap/style/operators/Annotations.h>

#include <cmath>

#include <txmap/style/operators/Conversions.h>
#include <txmap/style/operators/OperatorTable.h>

namespace txmap
{
namespace
{

using Kind = ExpressionType::Kind;

/// What assertions and coercions share: both are constant where their inputs could be folded.
class AnnotationNode : public ExpressionNode
{
public:
    AnnotationNode(const ExpressionType& type, std::vector<NodePtr> inputs, const std::string& key)
        : ExpressionNode(type, key), inputs(std::move(inputs))
    {
    }

    void ForEachChild(const Visitor& visit) const override
    {
        for (const NodePtr& input : inputs)
            visit(*input);
    }
    bool IsConstant() const override
    {
        for (const NodePtr& input : inputs)
            if (!input->IsConstant())
                return false;
        return true;
    }

protected:
    std::vector<NodePtr> inputs;
};

class AssertionNode : public AnnotationNode
{
public:
    using AnnotationNode::AnnotationNode;

    Value Evaluate(const EvaluationContext& context) const override
    {
        Value scratch;
        return Refer(context, scratch);
    }
    const Value& Refer(const EvaluationContext& context, Value& scratch) const override
    {
        for (const NodePtr& input : inputs)
        {
            const Value& value = input->Refer(context, scratch);
            if (Fits(value))
                return value;
            if (&input == &inputs.back())
                Fail("Expected value to be of type " + Type().ToString() + ", but found " +
                     ExpressionType::Of(value).ToString() + " instead.");
        }
        return scratch;
    }

private:
    // The types that nearly every assertion is about need no description of the value's type.
    bool Fits(const Value& value) const
    {
        switch (Type().GetKind())
        {
        case Kind::Number:
            return value.Is(Value::Kind::Number);
        case Kind::String:
            return value.Is(Value::Kind::String);
        case Kind::Boolean:
            return value.Is(Value::Kind::Boolean);
        default:
            return Type().Accepts(ExpressionType::Of(value));
        }
    }
};

class CoercionNode : public AnnotationNode
{
public:
    using AnnotationNode::AnnotationNode;

    Value Evaluate(const EvaluationContext& context) const override
    {
        std::string problem;
        Value value;
        for (const NodePtr& input : inputs)
        {
            value = input->Evaluate(context);
            problem.clear();
            if (std::optional<Value> converted = ConvertTo(Type().GetKind(), value, problem))
                return *std::move(converted);
        }
        if (!problem.empty())
            Fail(problem);
        if (Type().Is(Kind::Number))
            Fail("Could not convert " + value.ToJsonText() + " to number.");
        Fail("Could not parse " + Type().ToString() + " from value '" +
             (value.Is(Value::Kind::String) ? value.String() : value.ToJsonText()) + "'");
    }
};

std::optional<ExpressionType> ItemType(const Json& name)
{
    if (name == "string")
        return Kind::String;
    if (name == "number")
        return Kind::Number;
    if (name == "boolean")
        return Kind::Boolean;
    return std::nullopt;
}

// "array", then perhaps a type of items and a length. Moves `next` to the first input.
std::optional<ExpressionType> ParseArrayType(const Json& arguments, std::size_t& next, ParsingContext& context)
{
    std::optional<ExpressionType> item = Kind::Value;
    std::optional<std::size_t> length;
    if (arguments.size() > 2)
    {
        item = ItemType(arguments[next++]);
        if (!item)
        {
            context.Error("The item type argument of \"array\" must be one of string, number, boolean", 1);
            return std::nullopt;
        }
    }
    if (arguments.size() > 3)
    {
        const Json& given = arguments[next++];
        const double number = given.is_number() ? given.get<double>() : -1.0;
        if (!given.is_null() && (number < 0.0 || number > 1e9 || number != std::floor(number)))
        {
            context.Error("The length argument to \"array\" must be a positive integer literal", 2);
            return std::nullopt;
        }
        if (!given.is_null())
            length = static_cast<std::size_t>(number);
    }
    return ExpressionType::ArrayOf(*item, length);
}

std::optional<std::vector<NodePtr>> ParseInputs(const Json& arguments, std::size_t first, ParsingContext& context)
{
    std::vector<NodePtr> inputs;
    for (std::size_t i = first; i < arguments.size(); ++i)
    {
        NodePtr input = context.Parse(arguments[i], i, Kind::Value);
        if (!input)
            return std::nullopt;
        inputs.push_back(std::move(input));
    }
    return inputs;
}

} // namespace

NodePtr MakeAssertion(const ExpressionType& type, std::vector<NodePtr> inputs, const std::string& key)
{
    return std::make_shared<AssertionNode>(type, std::move(inputs), key);
}

NodePtr MakeCoercion(const ExpressionType& type, std::vector<NodePtr> inputs, const std::string& key)
{
    return std::make_shared<CoercionNode>(type, std::move(inputs), key);
}

NodePtr ParseAssertion(const Json& arguments, ParsingContext& context)
{
    if (arguments.size() < 2)
        return context.Error("Expected at least one argument.");
    std::size_t next = 1;
    std::optional<ExpressionType> type;
    if (arguments[0] == "array")
        type = ParseArrayType(arguments, next, context);
    else
        type = arguments[0] == "object" ? ExpressionType(Kind::Object) : ItemType(arguments[0]);
    if (!type)
        return nullptr;
    auto inputs = ParseInputs(arguments, next, context);
    return inputs ? MakeAssertion(*type, *std::move(inputs), context.Key()) : nullptr;
}

NodePtr ParseCoercion(const Json& arguments, ParsingContext& context)
{
    if (arguments.size() < 2)
        return context.Error("Expected at least one argument.");
    const std::string name = arguments[0];
    const bool single = name == "to-boolean" || name == "to-string";
    if (single && arguments.size() != 2)
        return context.Error("Expected one argument.");
    const ExpressionType type = name == "to-boolean"  ? Kind::Boolean
                                : name == "to-color"  ? Kind::Color
                                : name == "to-number" ? Kind::Number
                                                      : Kind::String;
    auto inputs = ParseInputs(arguments, 1, context);
    return inputs ? MakeCoercion(type, *std::move(inputs), context.Key()) : nullptr;
}

} // namespace txmap
