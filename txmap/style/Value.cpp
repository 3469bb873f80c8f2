#include <txmap/style/Value.h>

#include <charconv>
#include <cmath>

#include <nlohmann/json.hpp>

namespace txmap
{
namespace
{

using Kind = Value::Kind;

std::string Quoted(const std::string& text) { return Json(text).dump(-1, ' ', false, Json::error_handler_t::replace); }

template <class Items, class ToText>
std::string Joined(const Items& items, ToText toText)
{
    std::string text;
    for (const auto& item : items)
    {
        text += text.empty() ? "" : ",";
        text += toText(item);
    }
    return text;
}

std::string ColorJson(const Color& color)
{
    const auto [red, green, blue, alpha] = color.Premultiplied();
    return "{\"r\":" + Value(red).ToJsonText() + ",\"g\":" + Value(green).ToJsonText() +
           ",\"b\":" + Value(blue).ToJsonText() + ",\"a\":" + Value(alpha).ToJsonText() + "}";
}

std::string ImageJson(const ResolvedImage& image)
{
    return "{\"name\":" + Quoted(image.name) + ",\"available\":" + (image.available ? "true" : "false") + "}";
}

std::string SectionJson(const FormattedSection& section)
{
    return "{\"text\":" + Quoted(section.text) + ",\"image\":" + (section.image ? ImageJson(*section.image) : "null") +
           ",\"scale\":" + (section.scale ? Value(*section.scale).ToJsonText() : "null") +
           ",\"fontStack\":" + (section.fontStack ? Quoted(*section.fontStack) : "null") +
           ",\"textColor\":" + (section.textColor ? ColorJson(*section.textColor) : "null") +
           ",\"verticalAlign\":" + (section.verticalAlign ? Quoted(*section.verticalAlign) : "null") + "}";
}

std::string AnchorsText(const VariableAnchorOffsets& offsets)
{
    return "[" +
           Joined(offsets.entries,
                  [](const VariableAnchorOffsets::Entry& entry)
                  {
                      return Quoted(entry.anchor) + ",[" + Value(entry.offset[0]).ToJsonText() + "," +
                             Value(entry.offset[1]).ToJsonText() + "]";
                  }) +
           "]";
}

template <class Numbers>
std::string NumbersText(const Numbers& numbers)
{
    return "[" + Joined(numbers, [](double number) { return Value(number).ToJsonText(); }) + "]";
}

bool IsDeeper(const Json& json, int levels)
{
    if (levels < 0)
        return true;
    if (json.is_structured())
        for (const Json& item : json)
            if (IsDeeper(item, levels - 1))
                return true;
    return false;
}

} // namespace

bool IsNestedTooDeep(const Json& json) { return IsDeeper(json, kMaximumNesting); }

std::string Formatted::ToString() const
{
    std::string text;
    for (const FormattedSection& section : sections)
        text += section.text;
    return text;
}

Value::Value(ValueArray value) : content(std::make_shared<const ValueArray>(std::move(value))) {}

Value::Value(ValueObject value) : content(std::make_shared<const ValueObject>(std::move(value))) {}

const Value* Value::Member(const std::string& name) const
{
    for (const auto& member : Object())
        if (member.first == name)
            return &member.second;
    return nullptr;
}

bool Value::IsTruthy() const
{
    switch (GetKind())
    {
    case Kind::Null:
        return false;
    case Kind::Boolean:
        return Boolean();
    case Kind::Number:
        return Number() != 0.0 && !std::isnan(Number());
    case Kind::String:
        return !String().empty();
    default:
        return true;
    }
}

std::string Value::ToString() const
{
    switch (GetKind())
    {
    case Kind::Null:
        return {};
    case Kind::Number:
        return NumberText(Number());
    case Kind::String:
        return String();
    case Kind::Color:
        return GetColor().ToString();
    case Kind::Formatted:
        return GetFormatted().ToString();
    case Kind::Image:
        return Image().name;
    case Kind::Padding:
        return NumbersText(GetPadding().values);
    case Kind::NumberArray:
        return NumbersText(Numbers().values);
    case Kind::ColorArray:
        return "[" + Joined(Colors().values, [](const Color& color) { return Quoted(color.ToString()); }) + "]";
    case Kind::VariableAnchorOffsets:
        return AnchorsText(AnchorOffsets());
    default:
        return ToJsonText();
    }
}

std::string Value::ToJsonText() const
{
    switch (GetKind())
    {
    case Kind::Null:
    case Kind::Collator:
        return "null";
    case Kind::Boolean:
        return Boolean() ? "true" : "false";
    case Kind::Number:
        return std::isfinite(Number()) ? NumberText(Number()) : "null";
    case Kind::String:
        return Quoted(String());
    case Kind::Color:
        return ColorJson(GetColor());
    case Kind::Array:
        return "[" + Joined(Array(), [](const Value& item) { return item.ToJsonText(); }) + "]";
    case Kind::Object:
        return "{" +
               Joined(Object(),
                      [](const auto& member) { return Quoted(member.first) + ":" + member.second.ToJsonText(); }) +
               "}";
    case Kind::Formatted:
        return "{\"sections\":[" + Joined(GetFormatted().sections, SectionJson) + "]}";
    case Kind::Image:
        return ImageJson(Image());
    case Kind::Padding:
        return "{\"values\":" + NumbersText(GetPadding().values) + "}";
    case Kind::NumberArray:
        return "{\"values\":" + NumbersText(Numbers().values) + "}";
    case Kind::ColorArray:
        return "{\"values\":[" + Joined(Colors().values, ColorJson) + "]}";
    case Kind::VariableAnchorOffsets:
        return "{\"values\":" + AnchorsText(AnchorOffsets()) + "}";
    case Kind::Projection:
        return "{\"from\":" + Quoted(Projection().from) + ",\"to\":" + Quoted(Projection().to) +
               ",\"transition\":" + Value(Projection().transition).ToJsonText() + "}";
    }
    return "null";
}

bool operator==(const Value& a, const Value& b)
{
    if (a.GetKind() != b.GetKind())
        return false;
    if (a.Is(Kind::String))
        return a.String() == b.String();
    if (a.Is(Kind::Padding))
        return a.GetPadding().values == b.GetPadding().values;
    return std::visit(
        [&](const auto& content)
        {
            using T = std::decay_t<decltype(content)>;
            if constexpr (std::is_same_v<T, Padding>)
                return false;
            else
                return content == std::get<T>(b.content);
        },
        a.content);
}

Value Value::FromJson(const Json& json, int depth)
{
    if (depth > kMaximumNesting)
        return nullptr;
    if (json.is_boolean())
        return json.get<bool>();
    if (json.is_number())
        return json.get<double>();
    if (json.is_string())
        return json.get<std::string>();
    if (json.is_array())
    {
        ValueArray items;
        items.reserve(json.size());
        for (const Json& item : json)
            items.push_back(FromJson(item, depth + 1));
        return items;
    }
    if (json.is_object())
    {
        ValueObject members;
        members.reserve(json.size());
        for (const auto& member : json.items())
            members.emplace_back(member.key(), FromJson(member.value(), depth + 1));
        return members;
    }
    return nullptr;
}

std::string NumberText(double number)
{
    if (std::isnan(number))
        return "NaN";
    if (std::isinf(number))
        return number > 0.0 ? "Infinity" : "-Infinity";
    if (number == 0.0)
        return "0";
    char buffer[32];
    const auto end = std::to_chars(buffer, buffer + sizeof buffer, std::abs(number), std::chars_format::scientific).ptr;
    const std::string text(buffer, end);
    const std::size_t mark = text.find('e');
    int exponent = std::stoi(text.substr(mark + 1));
    std::string digits = text.substr(0, 1);
    if (mark > 2)
        digits += text.substr(2, mark - 2);
    const int count = static_cast<int>(digits.size());
    std::string result;
    if (exponent >= 21 || exponent < -6)
        result = digits.substr(0, 1) + (count > 1 ? "." + digits.substr(1) : "") + "e" + (exponent < 0 ? "-" : "+") +
                 std::to_string(std::abs(exponent));
    else if (exponent < 0)
        result = "0." + std::string(static_cast<std::size_t>(-exponent - 1), '0') + digits;
    else if (count <= exponent + 1)
        result = digits + std::string(static_cast<std::size_t>(exponent + 1 - count), '0');
    else
        result = digits.substr(0, static_cast<std::size_t>(exponent) + 1) + "." +
                 digits.substr(static_cast<std::size_t>(exponent) + 1);
    return number < 0.0 ? "-" + result : result;
}

} // namespace txmap
