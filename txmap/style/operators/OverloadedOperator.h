#pragma once

#include <optional>
#include <string>
#include <vector>

#include <txmap/style/operators/ParsingContext.h>

namespace txmap
{

class OverloadedNode;
/// Evaluates an operator whose arguments have the types of its signature.
using OverloadFunction = Value (*)(const OverloadedNode& node, const EvaluationContext& context);

/// One way to call an operator.
struct Overload
{
    std::vector<ExpressionType> parameters;
    OverloadFunction function = nullptr;
    unsigned uses = UsesNothing; ///< A sum of `ExpressionUse`.
    bool anyNumber = false;      ///< Whether the only parameter stands for any number of arguments.
};

/// An operator that has nothing but types of arguments.
struct OverloadedOperator
{
    std::string name;
    ExpressionType type;
    std::vector<Overload> overloads;
};

/// All of them, in no order.
const std::vector<OverloadedOperator>& OverloadedOperators();

/// @name Parts of that list
/// @{
void AddMathOperators(std::vector<OverloadedOperator>& operators);
void AddFeatureOperators(std::vector<OverloadedOperator>& operators);
void AddFilterOperators(std::vector<OverloadedOperator>& operators);
void AddColorOperators(std::vector<OverloadedOperator>& operators);
void AddTextOperators(std::vector<OverloadedOperator>& operators);
/// @}

/// A call of such an operator.
class OverloadedNode : public ExpressionNode
{
public:
    OverloadedNode(const OverloadedOperator& definition, const Overload& overload, std::vector<NodePtr> arguments,
                   std::string key)
        : ExpressionNode(definition.type, std::move(key)), definition(definition), overload(overload),
          arguments(std::move(arguments))
    {
    }

    Value Evaluate(const EvaluationContext& context) const override { return overload.function(*this, context); }
    const Value& Refer(const EvaluationContext& context, Value& scratch) const override;
    void ForEachChild(const Visitor& visit) const override
    {
        for (const NodePtr& argument : arguments)
            visit(*argument);
    }
    unsigned OwnUses() const override { return overload.uses; }

    const std::string& Name() const { return definition.name; }
    const std::vector<NodePtr>& Arguments() const { return arguments; }

    /// @name For the functions of operators
    /// @{
    double Number(std::size_t index, const EvaluationContext& context) const
    {
        return NumberOf(*arguments[index], context);
    }
    /// An argument without a copy; `scratch` may hold it.
    const Value& Argument(std::size_t index, const EvaluationContext& context, Value& scratch) const
    {
        return arguments[index]->Refer(context, scratch);
    }
    using ExpressionNode::Fail;
    /// @}

private:
    const OverloadedOperator& definition; // lives as long as the program
    const Overload& overload;
    std::vector<NodePtr> arguments;
};

} // namespace txmap
