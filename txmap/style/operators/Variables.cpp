#include <txmap/style/operators/OperatorTable.h>

namespace txmap
{
namespace
{

class LetNode : public ExpressionNode
{
public:
    LetNode(std::vector<NodePtr> values, NodePtr result, const std::string& key)
        : ExpressionNode(result->Type(), key), values(std::move(values)), result(std::move(result))
    {
    }

    Value Evaluate(const EvaluationContext& context) const override { return result->Evaluate(context); }
    const Value& Refer(const EvaluationContext& context, Value& scratch) const override
    {
        return result->Refer(context, scratch);
    }
    void ForEachChild(const Visitor& visit) const override
    {
        for (const NodePtr& value : values)
            visit(*value);
        visit(*result);
    }
    Passes PassesOn() const override { return Passes::LastPart; }

private:
    std::vector<NodePtr> values;
    NodePtr result;
};

// The expression that a variable stands for is a part of the `let` that binds it, not of this.
class VarNode : public ExpressionNode
{
public:
    VarNode(NodePtr bound, const std::string& key) : ExpressionNode(bound->Type(), key), bound(std::move(bound)) {}

    Value Evaluate(const EvaluationContext& context) const override { return bound->Evaluate(context); }
    const Value& Refer(const EvaluationContext& context, Value& scratch) const override
    {
        return bound->Refer(context, scratch);
    }
    void ForEachChild(const Visitor&) const override {}
    bool IsConstant() const override { return bound->IsConstant(); }

private:
    NodePtr bound;
};

bool IsName(const std::string& text)
{
    for (const char letter : text)
    {
        const bool alphanumeric = (letter >= 'a' && letter <= 'z') || (letter >= 'A' && letter <= 'Z') ||
                                  (letter >= '0' && letter <= '9') || letter == '_';
        if (!alphanumeric)
            return false;
    }
    return true;
}

} // namespace

NodePtr ParseLet(const Json& arguments, ParsingContext& context)
{
    const std::size_t count = arguments.size();
    if (count < 4)
        return context.Error("Expected at least 3 arguments, but found " + std::to_string(count - 1) + " instead.");
    VariableScope scope;
    scope.outer = context.Scope();
    std::vector<NodePtr> values;
    for (std::size_t i = 1; i + 1 < count; i += 2)
    {
        const Json& name = arguments[i];
        if (!name.is_string())
            return context.Error("Expected string, but found " + JsonTypeName(name) + " instead.", i);
        if (!IsName(name.get_ref<const std::string&>()))
            return context.Error("Variable names must contain only alphanumeric characters or '_'.", i);
        NodePtr value = context.Parse(arguments[i + 1], i + 1);
        if (!value)
            return nullptr;
        scope.variables[name.get<std::string>()] = value;
        values.push_back(std::move(value));
    }
    NodePtr result = context.Parse(arguments[count - 1], count - 1, context.Expected(), Annotation::Default, &scope);
    return result ? std::make_shared<LetNode>(std::move(values), std::move(result), context.Key()) : nullptr;
}

NodePtr ParseVar(const Json& arguments, ParsingContext& context)
{
    if (arguments.size() != 2 || !arguments[1].is_string())
        return context.Error("'var' expression requires exactly one string literal argument.");
    const std::string name = arguments[1];
    NodePtr bound = context.Scope() ? context.Scope()->Find(name) : nullptr;
    if (!bound)
        return context.Error("Unknown variable \"" + name + "\". Make sure \"" + name +
                                 "\" has been bound in an enclosing \"let\" expression before using it.",
                             1);
    return std::make_shared<VarNode>(std::move(bound), context.Key());
}

} // namespace txmap
