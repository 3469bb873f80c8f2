#include <txmap/style/operators/Annotations.h>
#include <txmap/style/operators/OperatorTable.h>
#include <txmap/style/operators/TextCollator.h>

namespace txmap
{
namespace
{

using Kind = ExpressionType::Kind;

enum class Relation
{
    Equal,
    NotEqual,
    Less,
    Greater,
    LessOrEqual,
    GreaterOrEqual
};

Relation RelationOf(const std::string& name)
{
    if (name == "==")
        return Relation::Equal;
    if (name == "!=")
        return Relation::NotEqual;
    if (name == "<")
        return Relation::Less;
    if (name == ">")
        return Relation::Greater;
    return name == "<=" ? Relation::LessOrEqual : Relation::GreaterOrEqual;
}

bool IsOrder(Relation relation) { return relation != Relation::Equal && relation != Relation::NotEqual; }

template <class T>
bool Holds(Relation relation, const T& left, const T& right)
{
    switch (relation)
    {
    case Relation::Equal:
        return left == right;
    case Relation::NotEqual:
        return !(left == right);
    case Relation::Less:
        return left < right;
    case Relation::Greater:
        return left > right;
    case Relation::LessOrEqual:
        return left <= right;
    case Relation::GreaterOrEqual:
        return left >= right;
    }
    return false;
}

class ComparisonNode : public ExpressionNode
{
public:
    ComparisonNode(const std::string& name, NodePtr left, NodePtr right, NodePtr collator, const std::string& key)
        : ExpressionNode(Kind::Boolean, key), name(name), relation(RelationOf(name)), left(std::move(left)),
          right(std::move(right)), collator(std::move(collator))
    {
    }

    Value Evaluate(const EvaluationContext& context) const override
    {
        Value leftScratch;
        Value rightScratch;
        const Value& a = left->Refer(context, leftScratch);
        const Value& b = right->Refer(context, rightScratch);
        const bool texts = a.Is(Value::Kind::String) && b.Is(Value::Kind::String);
        if (IsOrder(relation) && !texts && !(a.Is(Value::Kind::Number) && b.Is(Value::Kind::Number)))
            FailOrder(a, b);
        if (collator && texts)
        {
            Value collatorScratch;
            return Holds(relation, collator->Refer(context, collatorScratch).Collator().Compare(a.String(), b.String()),
                         0);
        }
        if (!IsOrder(relation))
            return (a == b) == (relation == Relation::Equal);
        return texts ? Holds(relation, a.String(), b.String()) : Holds(relation, a.Number(), b.Number());
    }
    void ForEachChild(const Visitor& visit) const override
    {
        visit(*left);
        visit(*right);
        if (collator)
            visit(*collator);
    }

private:
    [[noreturn]] void FailOrder(const Value& a, const Value& b) const
    {
        const auto kind = [](const Value& value)
        { return value.Is(Value::Kind::Array) ? "array" : ExpressionType::Of(value).ToString(); };
        Fail("Expected arguments for \"" + name + "\" to be (string, string) or (number, number), but found (" +
             kind(a) + ", " + kind(b) + ") instead.");
    }

    std::string name;
    Relation relation;
    NodePtr left;
    NodePtr right;
    NodePtr collator;
};

bool IsComparable(Relation relation, const ExpressionType& type)
{
    const bool ordered = type.Is(Kind::String) || type.Is(Kind::Number) || type.Is(Kind::Value);
    return ordered || (!IsOrder(relation) && (type.Is(Kind::Boolean) || type.Is(Kind::Null)));
}

} // namespace

NodePtr ParseComparison(const Json& arguments, ParsingContext& context)
{
    if (arguments.size() != 3 && arguments.size() != 4)
        return context.Error("Expected two or three arguments.");
    const std::string name = arguments[0];
    const Relation relation = RelationOf(name);
    NodePtr sides[2];
    for (std::size_t i = 0; i < 2; ++i)
    {
        sides[i] = context.Parse(arguments[i + 1], i + 1, Kind::Value);
        if (!sides[i])
            return nullptr;
        if (!IsComparable(relation, sides[i]->Type()))
            return context.Error("\"" + name + "\" comparisons are not supported for type '" +
                                     sides[i]->Type().ToString() + "'.",
                                 i + 1);
    }
    auto& [left, right] = sides;
    const bool leftAny = left->Type().Is(Kind::Value);
    const bool rightAny = right->Type().Is(Kind::Value);
    if (!leftAny && !rightAny && !left->Type().Is(right->Type().GetKind()))
        return context.Error("Cannot compare types '" + left->Type().ToString() + "' and '" + right->Type().ToString() +
                             "'.");
    // Only values of one type are in an order, so the known type of one side is what the other must have.
    if (IsOrder(relation) && leftAny && !rightAny)
        left = MakeAssertion(right->Type(), {left}, context.Key());
    else if (IsOrder(relation) && rightAny && !leftAny)
        right = MakeAssertion(left->Type(), {right}, context.Key());

    NodePtr collator;
    if (arguments.size() == 4)
    {
        const auto mayBeText = [](const NodePtr& side)
        { return side->Type().Is(Kind::String) || side->Type().Is(Kind::Value); };
        if (!mayBeText(left) && !mayBeText(right))
            return context.Error("Cannot use collator to compare non-string types.");
        collator = context.Parse(arguments[3], 3, Kind::Collator);
        if (!collator)
            return nullptr;
    }
    return std::make_shared<ComparisonNode>(name, left, right, std::move(collator), context.Key());
}

} // namespace txmap
