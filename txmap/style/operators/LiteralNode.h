#pragma once

#include <txmap/style/operators/ParsingContext.h>

namespace txmap
{

/// A value that is known.
class LiteralNode : public ExpressionNode
{
public:
    LiteralNode(ExpressionType type, Value value, std::string key)
        : ExpressionNode(std::move(type), std::move(key)), value(std::move(value))
    {
    }

    Value Evaluate(const EvaluationContext&) const override { return value; }
    const Value& Refer(const EvaluationContext&, Value&) const override { return value; }
    void ForEachChild(const Visitor&) const override {}
    const Value* Constant() const override { return &value; }
    bool IsConstant() const override { return true; }

private:
    Value value;
};

/// A literal of this JSON. An empty array gets the type that is expected.
NodePtr MakeLiteral(const Json& json, const ParsingContext& context);

} // namespace txmap
