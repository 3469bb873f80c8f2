#include <txmap/style/operators/Conversions.h>

#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <unordered_set>

namespace txmap
{
namespace
{

using Kind = ExpressionType::Kind;

bool InRange(const Value& value, double maximum)
{
    return value.Is(Value::Kind::Number) && value.Number() >= 0.0 && value.Number() <= maximum;
}

std::optional<Value> ColorFrom(const Value& value, std::string& problem)
{
    if (value.Is(Value::Kind::Color))
        return value;
    if (value.Is(Value::Kind::String))
    {
        const auto color = Color::Parse(value.String());
        return color ? std::optional<Value>(*color) : std::nullopt;
    }
    if (!value.Is(Value::Kind::Array))
        return std::nullopt;
    const ValueArray& channels = value.Array();
    if (channels.size() < 3 || channels.size() > 4)
    {
        problem = "Invalid rgba value " + value.ToJsonText() +
                  ": expected an array containing either three or four numeric values.";
        return std::nullopt;
    }
    problem = CheckRgba(channels[0], channels[1], channels[2], channels.size() == 4 ? &channels[3] : nullptr);
    if (!problem.empty())
        return std::nullopt;
    // Channels in an array count as multiplied by the opacity already.
    const double alpha = channels.size() == 4 ? channels[3].Number() : 1.0;
    const double factor = alpha > 0.0 ? 1.0 / (255.0 * alpha) : 0.0;
    return Color{channels[0].Number() * factor, channels[1].Number() * factor, channels[2].Number() * factor, alpha};
}

std::optional<std::vector<double>> NumbersFrom(const Value& value)
{
    if (value.Is(Value::Kind::Number))
        return std::vector<double>{value.Number()};
    if (!value.Is(Value::Kind::Array))
        return std::nullopt;
    std::vector<double> numbers;
    for (const Value& item : value.Array())
    {
        if (!item.Is(Value::Kind::Number))
            return std::nullopt;
        numbers.push_back(item.Number());
    }
    return numbers;
}

// One to four numbers, of which missing ones are as on the opposite side, as in CSS.
std::optional<Value> PaddingFrom(const Value& value)
{
    if (value.Is(Value::Kind::Padding))
        return value;
    const auto numbers = NumbersFrom(value);
    if (!numbers || numbers->empty() || numbers->size() > 4)
        return std::nullopt;
    const std::vector<double>& n = *numbers;
    const double right = n.size() > 1 ? n[1] : n[0];
    return Padding{{n[0], right, n.size() > 2 ? n[2] : n[0], n.size() > 3 ? n[3] : right}};
}

std::optional<Value> NumberArrayFrom(const Value& value)
{
    if (value.Is(Value::Kind::NumberArray))
        return value;
    auto numbers = NumbersFrom(value);
    return numbers ? std::optional<Value>(NumberArray{*std::move(numbers)}) : std::nullopt;
}

std::optional<Value> ColorArrayFrom(const Value& value)
{
    if (value.Is(Value::Kind::ColorArray))
        return value;
    ValueArray items;
    if (value.Is(Value::Kind::String))
        items.push_back(value);
    else if (value.Is(Value::Kind::Array))
        items = value.Array();
    else
        return std::nullopt;
    ColorArray colors;
    for (const Value& item : items)
    {
        const auto color = item.Is(Value::Kind::String) ? Color::Parse(item.String()) : std::nullopt;
        if (!color)
            return std::nullopt;
        colors.values.push_back(*color);
    }
    return colors;
}

std::optional<Value> AnchorOffsetsFrom(const Value& value)
{
    static const std::unordered_set<std::string> anchors = {
        "center", "left", "right", "top", "bottom", "top-left", "top-right", "bottom-left", "bottom-right"};
    if (value.Is(Value::Kind::VariableAnchorOffsets))
        return value;
    if (!value.Is(Value::Kind::Array) || value.Array().empty() || value.Array().size() % 2 != 0)
        return std::nullopt;
    VariableAnchorOffsets offsets;
    const ValueArray& items = value.Array();
    for (std::size_t i = 0; i < items.size(); i += 2)
    {
        const auto offset = items[i + 1].Is(Value::Kind::Array) ? NumbersFrom(items[i + 1]) : std::nullopt;
        const bool known = items[i].Is(Value::Kind::String) && anchors.count(items[i].String()) > 0;
        if (!known || !offset || offset->size() != 2)
            return std::nullopt;
        offsets.entries.push_back({items[i].String(), {(*offset)[0], (*offset)[1]}});
    }
    return offsets;
}

// A name, or an array of two names and the position between them; both stay as they are written.
std::optional<Value> ProjectionFrom(const Value& value)
{
    if (value.Is(Value::Kind::String) || value.Is(Value::Kind::Projection))
        return value;
    if (!value.Is(Value::Kind::Array) || value.Array().size() != 3)
        return std::nullopt;
    const ValueArray& items = value.Array();
    const bool fits =
        items[0].Is(Value::Kind::String) && items[1].Is(Value::Kind::String) && items[2].Is(Value::Kind::Number);
    return fits ? std::optional<Value>(value) : std::nullopt;
}

std::optional<Value> NumberFrom(const Value& value)
{
    double number = std::numeric_limits<double>::quiet_NaN();
    if (value.Is(Value::Kind::Number))
        number = value.Number();
    else if (value.IsNull())
        number = 0.0;
    else if (value.Is(Value::Kind::Boolean))
        number = value.Boolean() ? 1.0 : 0.0;
    else if (value.Is(Value::Kind::String))
        number = TextToNumber(value.String());
    else if (value.Is(Value::Kind::Array) && value.Array().size() < 2)
        // An array is read as the text of its items, and one of a single number is that number.
        number = value.Array().empty() ? 0.0 : TextToNumber(value.Array().front().ToString());
    return std::isnan(number) ? std::nullopt : std::optional<Value>(number);
}

Value FormattedFrom(const Value& value)
{
    if (value.Is(Value::Kind::Formatted))
        return value;
    FormattedSection section;
    section.text = value.ToString();
    return Formatted{{std::move(section)}};
}

Value ImageFrom(const Value& value)
{
    if (value.Is(Value::Kind::Image))
        return value;
    std::string name = value.ToString();
    return name.empty() ? Value() : Value(ResolvedImage{std::move(name), false});
}

} // namespace

std::string CheckRgba(const Value& red, const Value& green, const Value& blue, const Value* alpha)
{
    const bool channels = InRange(red, 255.0) && InRange(green, 255.0) && InRange(blue, 255.0);
    const bool opacity = !alpha || InRange(*alpha, 1.0);
    if (channels && opacity)
        return {};
    std::string text = "Invalid rgba value [" + red.ToString() + ", " + green.ToString() + ", " + blue.ToString();
    if (alpha)
        text += ", " + alpha->ToString();
    return text + (channels ? "]: 'a' must be between 0 and 1." : "]: 'r', 'g', and 'b' must be between 0 and 255.");
}

double TextToNumber(const std::string& text)
{
    const char* const blanks = " \t\n\r\f\v";
    const std::size_t first = text.find_first_not_of(blanks);
    if (first == std::string::npos)
        return 0.0;
    std::string trimmed = text.substr(first, text.find_last_not_of(blanks) - first + 1);
    if (trimmed.size() > 2 && trimmed[0] == '0')
    {
        const char prefix = trimmed[1];
        const int base = prefix == 'x' || prefix == 'X'   ? 16
                         : prefix == 'o' || prefix == 'O' ? 8
                         : prefix == 'b' || prefix == 'B' ? 2
                                                          : 0;
        if (base != 0)
        {
            unsigned long long whole = 0;
            const char* end = trimmed.data() + trimmed.size();
            const auto read = std::from_chars(trimmed.data() + 2, end, whole, base);
            return read.ec == std::errc() && read.ptr == end ? static_cast<double>(whole)
                                                             : std::numeric_limits<double>::quiet_NaN();
        }
    }
    const bool negative = trimmed[0] == '-';
    if (negative || trimmed[0] == '+')
        trimmed.erase(0, 1);
    const double sign = negative ? -1.0 : 1.0;
    if (trimmed == "Infinity")
        return sign * std::numeric_limits<double>::infinity();
    if (trimmed.find_first_not_of("0123456789.eE+-") != std::string::npos || trimmed.empty() || trimmed[0] == '-' ||
        trimmed[0] == '+')
        return std::numeric_limits<double>::quiet_NaN();
    double number = 0.0;
    const char* end = trimmed.data() + trimmed.size();
    const auto read = std::from_chars(trimmed.data(), end, number);
    if (read.ptr != end)
        return std::numeric_limits<double>::quiet_NaN();
    if (read.ec == std::errc::result_out_of_range)
        return trimmed.find("e-") != std::string::npos || trimmed.find("E-") != std::string::npos
                   ? 0.0
                   : sign * std::numeric_limits<double>::infinity();
    return read.ec == std::errc() ? sign * number : std::numeric_limits<double>::quiet_NaN();
}

std::optional<Value> ConvertTo(ExpressionType::Kind kind, const Value& value, std::string& problem)
{
    switch (kind)
    {
    case Kind::Boolean:
        return Value(value.IsTruthy());
    case Kind::Number:
        return NumberFrom(value);
    case Kind::Color:
        return ColorFrom(value, problem);
    case Kind::Padding:
        return PaddingFrom(value);
    case Kind::NumberArray:
        return NumberArrayFrom(value);
    case Kind::ColorArray:
        return ColorArrayFrom(value);
    case Kind::VariableAnchorOffsets:
        return AnchorOffsetsFrom(value);
    case Kind::Projection:
        return ProjectionFrom(value);
    case Kind::Formatted:
        return FormattedFrom(value);
    case Kind::Image:
        return ImageFrom(value);
    default:
        return Value(value.ToString());
    }
}

} // namespace txmap
