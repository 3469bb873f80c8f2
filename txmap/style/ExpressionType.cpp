#include <txmap/style/ExpressionType.h>

namespace txmap
{
namespace
{

using Kind = ExpressionType::Kind;

const char* KindName(Kind kind)
{
    switch (kind)
    {
    case Kind::Null:
        return "null";
    case Kind::Number:
        return "number";
    case Kind::String:
        return "string";
    case Kind::Boolean:
        return "boolean";
    case Kind::Color:
        return "color";
    case Kind::Projection:
        return "projectionDefinition";
    case Kind::Object:
        return "object";
    case Kind::Value:
        return "value";
    case Kind::Error:
        return "error";
    case Kind::Collator:
        return "collator";
    case Kind::Formatted:
        return "formatted";
    case Kind::Padding:
        return "padding";
    case Kind::NumberArray:
        return "numberArray";
    case Kind::ColorArray:
        return "colorArray";
    case Kind::Image:
        return "resolvedImage";
    case Kind::VariableAnchorOffsets:
        return "variableAnchorOffsetCollection";
    case Kind::Array:
        return "array";
    }
    return "";
}

Kind KindOf(Value::Kind kind)
{
    switch (kind)
    {
    case Value::Kind::Null:
        return Kind::Null;
    case Value::Kind::Boolean:
        return Kind::Boolean;
    case Value::Kind::Number:
        return Kind::Number;
    case Value::Kind::String:
        return Kind::String;
    case Value::Kind::Color:
        return Kind::Color;
    case Value::Kind::Array:
        return Kind::Array;
    case Value::Kind::Object:
        return Kind::Object;
    case Value::Kind::Collator:
        return Kind::Collator;
    case Value::Kind::Formatted:
        return Kind::Formatted;
    case Value::Kind::Image:
        return Kind::Image;
    case Value::Kind::Padding:
        return Kind::Padding;
    case Value::Kind::NumberArray:
        return Kind::NumberArray;
    case Value::Kind::ColorArray:
        return Kind::ColorArray;
    case Value::Kind::VariableAnchorOffsets:
        return Kind::VariableAnchorOffsets;
    case Value::Kind::Projection:
        return Kind::Projection;
    }
    return Kind::Null;
}

// Items that are arrays have a type of their own each, so two of them are never of one type.
ExpressionType CommonItem(const ValueArray& items)
{
    if (items.empty())
        return Kind::Value;
    if (items.front().Is(Value::Kind::Array))
        return items.size() == 1 ? ExpressionType::Of(items.front()) : ExpressionType(Kind::Value);
    for (const Value& item : items)
        if (!item.Is(items.front().GetKind()))
            return Kind::Value;
    return KindOf(items.front().GetKind());
}

} // namespace

ExpressionType ExpressionType::ArrayOf(const ExpressionType& item, std::optional<std::size_t> length)
{
    ExpressionType type(Kind::Array);
    type.item = std::make_shared<const ExpressionType>(item);
    type.length = length;
    return type;
}

ExpressionType ExpressionType::Of(const Value& value)
{
    if (value.Is(Value::Kind::Array))
        return ArrayOf(CommonItem(value.Array()), value.Array().size());
    return KindOf(value.GetKind());
}

bool ExpressionType::Accepts(const ExpressionType& other) const
{
    if (other.kind == Kind::Error)
        return true;
    if (kind == Kind::Array)
    {
        if (other.kind != Kind::Array || (length && length != other.length))
            return false;
        const bool emptyOfAnything = other.length == 0u && other.item->kind == Kind::Value;
        return emptyOfAnything || item->Accepts(*other.item);
    }
    if (kind == Kind::Value)
        return other.kind != Kind::Collator;
    return kind == other.kind;
}

std::string ExpressionType::ToString() const
{
    if (kind != Kind::Array)
        return KindName(kind);
    if (length)
        return "array<" + item->ToString() + ", " + std::to_string(*length) + ">";
    return item->kind == Kind::Value ? "array" : "array<" + item->ToString() + ">";
}

std::string TypeMismatch(const ExpressionType& expected, const ExpressionType& found)
{
    return "Expected " + expected.ToString() + " but found " + found.ToString() + " instead.";
}

} // namespace txmap
