#include <txmap/style/document/LayerProperty.h>

#include <algorithm>

namespace txmap
{

using Kind = Value::Kind;

namespace
{

// No picture is as large as that, and arithmetic with it stays finite.
constexpr double kLargest = 1e6;

double Limited(double number) { return std::clamp(number, -kLargest, kLargest); }

} // namespace

void Take(const Value& value, double& result)
{
    if (value.Is(Kind::Number) && !std::isnan(value.Number()))
        result = Limited(value.Number());
}

void Take(const Value& value, SortKey& result)
{
    if (value.Is(Kind::Number) && !std::isnan(value.Number()))
        result.value = value.Number();
}

void Take(const Value& value, bool& result)
{
    if (value.Is(Kind::Boolean))
        result = value.Boolean();
}

void Take(const Value& value, Color& result)
{
    if (value.Is(Kind::Color))
        result = value.GetColor();
}

void Take(const Value& value, std::string& result)
{
    if (value.Is(Kind::String))
        result = value.String();
    else if (value.Is(Kind::Image))
        result = value.Image().name;
}

void Take(const Value& value, std::vector<double>& result)
{
    if (value.Is(Kind::NumberArray))
        result = value.Numbers().values;
    else if (value.Is(Kind::Array))
    {
        result.clear();
        for (const Value& item : value.Array())
        {
            double number = 0.0;
            Take(item, number);
            result.push_back(number);
        }
    }
}

void Take(const Value& value, std::array<double, 2>& result)
{
    std::vector<double> numbers;
    Take(value, numbers);
    if (numbers.size() == 2)
        result = {Limited(numbers[0]), Limited(numbers[1])};
}

void Take(const Value& value, std::vector<Color>& result)
{
    if (value.Is(Kind::ColorArray))
        result = value.Colors().values;
}

void Take(const Value& value, std::array<double, 4>& result)
{
    std::vector<double> numbers;
    if (value.Is(Kind::Padding))
        numbers.assign(value.GetPadding().values.begin(), value.GetPadding().values.end());
    else
        Take(value, numbers);
    if (numbers.size() == 4)
        std::transform(numbers.begin(), numbers.end(), result.begin(),
                       [](double number) { return std::isnan(number) ? 0.0 : Limited(number); });
}

void Take(const Value& value, std::vector<std::string>& result)
{
    if (!value.Is(Kind::Array))
        return;
    result.clear();
    for (const Value& item : value.Array())
        if (item.Is(Kind::String))
            result.push_back(item.String());
}

void Take(const Value& value, Formatted& result)
{
    if (value.Is(Kind::Formatted))
        result = value.GetFormatted();
    else if (value.Is(Kind::String))
    {
        result.sections.assign(1, {});
        result.sections[0].text = value.String();
    }
}

void Take(const Value& value, VariableAnchorOffsets& result)
{
    if (value.Is(Kind::VariableAnchorOffsets))
        result = value.AnchorOffsets();
}

} // namespace txmap
