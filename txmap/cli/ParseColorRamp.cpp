#include <txmap/cli/ParseColorRamp.h>

#include <vector>

#include <txmap/cli/OptionValues.h>

namespace txmap
{
namespace
{

constexpr Color kPalest{255 / 255.0, 247 / 255.0, 220 / 255.0, 1.0};
constexpr Color kDarkest{158 / 255.0, 62 / 255.0, 46 / 255.0, 1.0};

} // namespace

ColorRamp ParseColorRamp(const std::string& text)
{
    const std::size_t second = text.rfind(':');
    const std::size_t first = second == std::string::npos || second == 0 ? second : text.rfind(':', second - 1);
    if (second == std::string::npos || first == std::string::npos || first == 0 || first == second)
        Refuse("--color-ramp", text, "must be FIELD:LOW:HIGH, such as pop_est:#ffffcc:#800026 or pop_est:0:1000000");
    const std::string low = text.substr(first + 1, second - first - 1);
    const std::string high = text.substr(second + 1);
    ColorRamp ramp{text.substr(0, first), kPalest, kDarkest, std::nullopt, std::nullopt};
    const std::vector<double> from = NumbersIn<double>(low, ',');
    const std::vector<double> to = NumbersIn<double>(high, ',');
    if (from.size() == 1 && to.size() == 1)
    {
        if (!(from[0] < to[0]))
            Refuse("--color-ramp", text, "LOW must be less than HIGH");
        ramp.from = from[0];
        ramp.to = to[0];
        return ramp;
    }
    const std::optional<Color> lowColor = Color::Parse(low);
    const std::optional<Color> highColor = Color::Parse(high);
    if (!lowColor || !highColor)
        Refuse("--color-ramp", text, "LOW and HIGH must be two colours, such as #ffffcc, or two numbers");
    ramp.low = *lowColor;
    ramp.high = *highColor;
    return ramp;
}

} // namespace txmap
