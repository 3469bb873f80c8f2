#include <txmap/cli/ParseLabels.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <optional>
#include <string_view>

#include <txmap/cli/OptionValues.h>

namespace txmap
{

using TZObjects::TXColor;

namespace
{

constexpr int kSmallestSize = 4;
constexpr int kLargestSize = 256;
constexpr double kWidestHalo = 32.0;

struct NamedColor
{
    std::string_view name;
    unsigned int value;
};

constexpr std::array<NamedColor, 16> kColors = {{{"black", 0x000000},
                                                 {"silver", 0xC0C0C0},
                                                 {"gray", 0x808080},
                                                 {"white", 0xFFFFFF},
                                                 {"maroon", 0x800000},
                                                 {"red", 0xFF0000},
                                                 {"purple", 0x800080},
                                                 {"fuchsia", 0xFF00FF},
                                                 {"green", 0x008000},
                                                 {"lime", 0x00FF00},
                                                 {"olive", 0x808000},
                                                 {"yellow", 0xFFFF00},
                                                 {"navy", 0x000080},
                                                 {"blue", 0x0000FF},
                                                 {"teal", 0x008080},
                                                 {"aqua", 0x00FFFF}}};

std::optional<TXColor> HexColor(std::string digits)
{
    // Three digits stand for six, each of them twice.
    if (digits.size() == 3)
        digits = {digits[0], digits[0], digits[1], digits[1], digits[2], digits[2]};
    unsigned int value = 0;
    const char* const end = digits.data() + digits.size();
    const auto [behind, error] = std::from_chars(digits.data(), end, value, 16);
    if (digits.size() != 6 || error != std::errc() || behind != end)
        return std::nullopt;
    return TXColor(value, false);
}

std::optional<TXColor> ParseColor(const std::string& text)
{
    if (!text.empty() && text[0] == '#')
        return HexColor(text.substr(1));
    std::string lower = text;
    std::transform(lower.begin(), lower.end(), lower.begin(),
                   [](unsigned char letter) { return static_cast<char>(std::tolower(letter)); });
    for (const NamedColor& color : kColors)
        if (color.name == lower)
            return TXColor(color.value, false);
    return std::nullopt;
}

} // namespace

TextPath ParseTextPath(const std::string& text)
{
    if (text != "qt" && text != "cairo")
        Refuse("--text", text, "must be qt or cairo");
    return text == "cairo" ? TextPath::Cairo : TextPath::Qt;
}

int ParseLabelSize(const std::string& text)
{
    const std::vector<int> numbers = NumbersIn<int>(text, ',');
    if (numbers.size() != 1 || numbers[0] < kSmallestSize || numbers[0] > kLargestSize)
        Refuse("--label-size", text,
               "must be a whole number of pixels from " + std::to_string(kSmallestSize) + " to " +
                   std::to_string(kLargestSize));
    return numbers[0];
}

LabelHalo ParseLabelHalo(const std::string& text)
{
    const std::size_t colon = text.find(':');
    if (colon == std::string::npos)
        Refuse("--label-halo", text, "must be WIDTH:COLOR, such as 1.5:#fffcf0 or 2:white");
    const std::vector<double> width = NumbersIn<double>(text.substr(0, colon), ',');
    // Written so that a NaN is refused as well.
    if (width.size() != 1 || !(width[0] >= 0.0 && width[0] <= kWidestHalo))
        Refuse("--label-halo", text, "the width must be a number of pixels from 0 to 32");
    const std::optional<TXColor> color = ParseColor(text.substr(colon + 1));
    if (!color)
        Refuse("--label-halo", text, "the colour must be #RRGGBB, #RGB or a name such as white");
    return {width[0], *color};
}

} // namespace txmap
