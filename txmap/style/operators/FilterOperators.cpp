#include <txmap/style/operators/OverloadedOperator.h>

namespace txmap
{
namespace
{

using Kind = ExpressionType::Kind;
using Node = OverloadedNode;
using Context = EvaluationContext;

// Where the left side of a comparison comes from: an attribute, the kind of geometry or the identifier.
enum class Subject
{
    Property,
    Type,
    Id
};

// Filters of the old kind know points, lines and polygons, however many a feature has of them.
Value SimpleGeometryType(const Context& context)
{
    std::string_view type = context.feature ? context.feature->GeometryType() : std::string_view();
    if (type.substr(0, 5) == "Multi")
        type.remove_prefix(5);
    return type.empty() ? Value() : Value(std::string(type));
}

const Value* Left(Subject subject, const Node& node, const Context& context, Value& scratch)
{
    if (!context.feature)
        return nullptr;
    if (subject == Subject::Property)
    {
        Value name;
        return context.feature->Property(node.Argument(0, context, name).String());
    }
    scratch = subject == Subject::Type ? SimpleGeometryType(context) : context.feature->Id();
    return scratch.IsNull() ? nullptr : &scratch;
}

template <Subject Of>
Value Equal(const Node& node, const Context& context)
{
    Value leftScratch;
    Value rightScratch;
    const Value* left = Left(Of, node, context, leftScratch);
    const Value& right = node.Argument(Of == Subject::Property ? 1 : 0, context, rightScratch);
    return left && *left == right;
}

// Values of different types are in no order.
template <Subject Of, class Compare>
Value Ordered(const Node& node, const Context& context)
{
    Value leftScratch;
    Value rightScratch;
    const Value* left = Left(Of, node, context, leftScratch);
    const Value& right = node.Argument(Of == Subject::Property ? 1 : 0, context, rightScratch);
    if (!left || left->GetKind() != right.GetKind())
        return false;
    if (right.Is(Value::Kind::Number))
        return Compare()(left->Number(), right.Number());
    return right.Is(Value::Kind::String) && Compare()(left->String(), right.String());
}

template <Subject Of>
Value IsIn(const Node& node, const Context& context)
{
    Value leftScratch;
    Value rightScratch;
    const Value* left = Left(Of, node, context, leftScratch);
    if (!left)
        return false;
    for (const Value& value : node.Argument(Of == Subject::Property ? 1 : 0, context, rightScratch).Array())
        if (*left == value)
            return true;
    return false;
}

Value HasProperty(const Node& node, const Context& context)
{
    Value scratch;
    return Left(Subject::Property, node, context, scratch) != nullptr;
}

Value HasId(const Node&, const Context& context) { return context.feature && !context.feature->Id().IsNull(); }

struct Less
{
    template <class T>
    bool operator()(const T& a, const T& b) const
    {
        return a < b;
    }
};
struct Greater
{
    template <class T>
    bool operator()(const T& a, const T& b) const
    {
        return a > b;
    }
};
struct LessOrEqual
{
    template <class T>
    bool operator()(const T& a, const T& b) const
    {
        return a <= b;
    }
};
struct GreaterOrEqual
{
    template <class T>
    bool operator()(const T& a, const T& b) const
    {
        return a >= b;
    }
};

} // namespace

void AddFilterOperators(std::vector<OverloadedOperator>& operators)
{
    const auto add = [&](const char* name, std::vector<ExpressionType> parameters, OverloadFunction function) {
        operators.push_back({name, Kind::Boolean, {{std::move(parameters), function, UsesFeature, false}}});
    };
    const ExpressionType text = Kind::String;
    const ExpressionType value = Kind::Value;
    const ExpressionType values = ExpressionType::ArrayOf(value);
    add("filter-==", {text, value}, Equal<Subject::Property>);
    add("filter-<", {text, value}, Ordered<Subject::Property, Less>);
    add("filter->", {text, value}, Ordered<Subject::Property, Greater>);
    add("filter-<=", {text, value}, Ordered<Subject::Property, LessOrEqual>);
    add("filter->=", {text, value}, Ordered<Subject::Property, GreaterOrEqual>);
    add("filter-id-==", {value}, Equal<Subject::Id>);
    add("filter-id-<", {value}, Ordered<Subject::Id, Less>);
    add("filter-id->", {value}, Ordered<Subject::Id, Greater>);
    add("filter-id-<=", {value}, Ordered<Subject::Id, LessOrEqual>);
    add("filter-id->=", {value}, Ordered<Subject::Id, GreaterOrEqual>);
    add("filter-type-==", {text}, Equal<Subject::Type>);
    add("filter-has", {value}, HasProperty);
    add("filter-has-id", {}, HasId);
    add("filter-in", {text, values}, IsIn<Subject::Property>);
    add("filter-id-in", {values}, IsIn<Subject::Id>);
    add("filter-type-in", {ExpressionType::ArrayOf(text)}, IsIn<Subject::Type>);
}

} // namespace txmap
