#include <txmap/style/Color.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <unordered_map>
#include <vector>

namespace txmap
{
namespace
{

// The named colours of CSS as red, green and blue.
const std::unordered_map<std::string_view, unsigned> kNamedColors = {
    {"aliceblue", 0xf0f8ff},
    {"antiquewhite", 0xfaebd7},
    {"aqua", 0x00ffff},
    {"aquamarine", 0x7fffd4},
    {"azure", 0xf0ffff},
    {"beige", 0xf5f5dc},
    {"bisque", 0xffe4c4},
    {"black", 0x000000},
    {"blanchedalmond", 0xffebcd},
    {"blue", 0x0000ff},
    {"blueviolet", 0x8a2be2},
    {"brown", 0xa52a2a},
    {"burlywood", 0xdeb887},
    {"cadetblue", 0x5f9ea0},
    {"chartreuse", 0x7fff00},
    {"chocolate", 0xd2691e},
    {"coral", 0xff7f50},
    {"cornflowerblue", 0x6495ed},
    {"cornsilk", 0xfff8dc},
    {"crimson", 0xdc143c},
    {"cyan", 0x00ffff},
    {"darkblue", 0x00008b},
    {"darkcyan", 0x008b8b},
    {"darkgoldenrod", 0xb8860b},
    {"darkgray", 0xa9a9a9},
    {"darkgreen", 0x006400},
    {"darkgrey", 0xa9a9a9},
    {"darkkhaki", 0xbdb76b},
    {"darkmagenta", 0x8b008b},
    {"darkolivegreen", 0x556b2f},
    {"darkorange", 0xff8c00},
    {"darkorchid", 0x9932cc},
    {"darkred", 0x8b0000},
    {"darksalmon", 0xe9967a},
    {"darkseagreen", 0x8fbc8f},
    {"darkslateblue", 0x483d8b},
    {"darkslategray", 0x2f4f4f},
    {"darkslategrey", 0x2f4f4f},
    {"darkturquoise", 0x00ced1},
    {"darkviolet", 0x9400d3},
    {"deeppink", 0xff1493},
    {"deepskyblue", 0x00bfff},
    {"dimgray", 0x696969},
    {"dimgrey", 0x696969},
    {"dodgerblue", 0x1e90ff},
    {"firebrick", 0xb22222},
    {"floralwhite", 0xfffaf0},
    {"forestgreen", 0x228b22},
    {"fuchsia", 0xff00ff},
    {"gainsboro", 0xdcdcdc},
    {"ghostwhite", 0xf8f8ff},
    {"gold", 0xffd700},
    {"goldenrod", 0xdaa520},
    {"gray", 0x808080},
    {"green", 0x008000},
    {"greenyellow", 0xadff2f},
    {"grey", 0x808080},
    {"honeydew", 0xf0fff0},
    {"hotpink", 0xff69b4},
    {"indianred", 0xcd5c5c},
    {"indigo", 0x4b0082},
    {"ivory", 0xfffff0},
    {"khaki", 0xf0e68c},
    {"lavender", 0xe6e6fa},
    {"lavenderblush", 0xfff0f5},
    {"lawngreen", 0x7cfc00},
    {"lemonchiffon", 0xfffacd},
    {"lightblue", 0xadd8e6},
    {"lightcoral", 0xf08080},
    {"lightcyan", 0xe0ffff},
    {"lightgoldenrodyellow", 0xfafad2},
    {"lightgray", 0xd3d3d3},
    {"lightgreen", 0x90ee90},
    {"lightgrey", 0xd3d3d3},
    {"lightpink", 0xffb6c1},
    {"lightsalmon", 0xffa07a},
    {"lightseagreen", 0x20b2aa},
    {"lightskyblue", 0x87cefa},
    {"lightslategray", 0x778899},
    {"lightslategrey", 0x778899},
    {"lightsteelblue", 0xb0c4de},
    {"lightyellow", 0xffffe0},
    {"lime", 0x00ff00},
    {"limegreen", 0x32cd32},
    {"linen", 0xfaf0e6},
    {"magenta", 0xff00ff},
    {"maroon", 0x800000},
    {"mediumaquamarine", 0x66cdaa},
    {"mediumblue", 0x0000cd},
    {"mediumorchid", 0xba55d3},
    {"mediumpurple", 0x9370db},
    {"mediumseagreen", 0x3cb371},
    {"mediumslateblue", 0x7b68ee},
    {"mediumspringgreen", 0x00fa9a},
    {"mediumturquoise", 0x48d1cc},
    {"mediumvioletred", 0xc71585},
    {"midnightblue", 0x191970},
    {"mintcream", 0xf5fffa},
    {"mistyrose", 0xffe4e1},
    {"moccasin", 0xffe4b5},
    {"navajowhite", 0xffdead},
    {"navy", 0x000080},
    {"oldlace", 0xfdf5e6},
    {"olive", 0x808000},
    {"olivedrab", 0x6b8e23},
    {"orange", 0xffa500},
    {"orangered", 0xff4500},
    {"orchid", 0xda70d6},
    {"palegoldenrod", 0xeee8aa},
    {"palegreen", 0x98fb98},
    {"paleturquoise", 0xafeeee},
    {"palevioletred", 0xdb7093},
    {"papayawhip", 0xffefd5},
    {"peachpuff", 0xffdab9},
    {"peru", 0xcd853f},
    {"pink", 0xffc0cb},
    {"plum", 0xdda0dd},
    {"powderblue", 0xb0e0e6},
    {"purple", 0x800080},
    {"rebeccapurple", 0x663399},
    {"red", 0xff0000},
    {"rosybrown", 0xbc8f8f},
    {"royalblue", 0x4169e1},
    {"saddlebrown", 0x8b4513},
    {"salmon", 0xfa8072},
    {"sandybrown", 0xf4a460},
    {"seagreen", 0x2e8b57},
    {"seashell", 0xfff5ee},
    {"sienna", 0xa0522d},
    {"silver", 0xc0c0c0},
    {"skyblue", 0x87ceeb},
    {"slateblue", 0x6a5acd},
    {"slategray", 0x708090},
    {"slategrey", 0x708090},
    {"snow", 0xfffafa},
    {"springgreen", 0x00ff7f},
    {"steelblue", 0x4682b4},
    {"tan", 0xd2b48c},
    {"teal", 0x008080},
    {"thistle", 0xd8bfd8},
    {"tomato", 0xff6347},
    {"turquoise", 0x40e0d0},
    {"violet", 0xee82ee},
    {"wheat", 0xf5deb3},
    {"white", 0xffffff},
    {"whitesmoke", 0xf5f5f5},
    {"yellow", 0xffff00},
    {"yellowgreen", 0x9acd32},
};

Color FromBytes(unsigned rgb, double alpha = 1.0)
{
    return {((rgb >> 16) & 0xFF) / 255.0, ((rgb >> 8) & 0xFF) / 255.0, (rgb & 0xFF) / 255.0, alpha};
}

// Three, four, six or eight digits after the sign; of the short ones, each counts twice.
std::optional<Color> ParseHex(std::string_view digits)
{
    std::vector<double> channels;
    const std::size_t width = digits.size() < 6 ? 1 : 2;
    if (digits.size() != 3 && digits.size() != 4 && digits.size() != 6 && digits.size() != 8)
        return std::nullopt;
    for (std::size_t i = 0; i < digits.size(); i += width)
    {
        unsigned value = 0;
        const char* const end = digits.data() + i + width;
        const auto read = std::from_chars(digits.data() + i, end, value, 16);
        if (read.ec != std::errc() || read.ptr != end)
            return std::nullopt;
        channels.push_back((width == 1 ? value * 17 : value) / 255.0);
    }
    return Color{channels[0], channels[1], channels[2], channels.size() > 3 ? channels[3] : 1.0};
}

/// An argument of a colour function, and what stands before it.
struct Component
{
    double value = 0.0;
    bool percent = false;
    bool degrees = false;
    char separator = ' ';
};

/// Reads what stands between the brackets of a colour function.
class ComponentReader
{
public:
    explicit ComponentReader(std::string_view text) : rest(text) {}

    std::optional<std::vector<Component>> ReadAll()
    {
        std::vector<Component> components;
        SkipBlanks();
        while (!rest.empty())
        {
            Component component;
            if (!components.empty() && !ReadSeparator(component.separator))
                return std::nullopt;
            if (!ReadNumber(component))
                return std::nullopt;
            components.push_back(component);
            if (rest.find_first_not_of(kBlanks) == std::string_view::npos)
                break;
        }
        return components;
    }

private:
    static constexpr const char* kBlanks = " \t\n\r\f\v";

    bool SkipBlanks()
    {
        const std::size_t count = std::min(rest.find_first_not_of(kBlanks), rest.size());
        rest.remove_prefix(count);
        return count > 0;
    }
    bool ReadSeparator(char& separator)
    {
        const bool blank = SkipBlanks();
        separator = !rest.empty() && (rest[0] == ',' || rest[0] == '/') ? rest[0] : ' ';
        if (separator == ' ')
            return blank;
        rest.remove_prefix(1);
        SkipBlanks();
        return true;
    }
    bool ReadNumber(Component& component)
    {
        std::string_view number = rest.substr(0, std::min(rest.find_first_not_of("0123456789.e+-"), rest.size()));
        if (number.size() > 1 && number.back() == 'e') // of no exponent
            return false;
        rest.remove_prefix(number.size());
        if (!number.empty() && number[0] == '+')
            number.remove_prefix(1);
        const char* const end = number.data() + number.size();
        const auto read = std::from_chars(number.data(), end, component.value);
        if (read.ec != std::errc() || read.ptr != end || !std::isfinite(component.value))
            return false;
        component.percent = Skip("%");
        component.degrees = !component.percent && Skip("deg");
        return true;
    }
    bool Skip(std::string_view unit)
    {
        if (rest.substr(0, unit.size()) != unit)
            return false;
        rest.remove_prefix(unit.size());
        return true;
    }

    std::string_view rest;
};

// The old notation has commas everywhere, the new one blanks, and a slash before the opacity.
bool HasGoodSeparators(const std::vector<Component>& components)
{
    if (components.size() < 3 || components.size() > 4)
        return false;
    const char separator = components[1].separator;
    if (separator == '/' || components[2].separator != separator)
        return false;
    return components.size() == 3 || components[3].separator == (separator == ',' ? ',' : '/');
}

double Unit(double value) { return std::clamp(value, 0.0, 1.0); }

double Opacity(const std::vector<Component>& components)
{
    if (components.size() < 4)
        return 1.0;
    return Unit(components[3].value / (components[3].percent ? 100.0 : 1.0));
}

std::optional<Color> FromRgb(const std::vector<Component>& c)
{
    const bool mixed = c[0].percent != c[1].percent || c[0].percent != c[2].percent;
    if (mixed || c[0].degrees || c[1].degrees || c[2].degrees)
        return std::nullopt;
    const double whole = c[0].percent ? 100.0 : 255.0;
    return Color{Unit(c[0].value / whole), Unit(c[1].value / whole), Unit(c[2].value / whole), Opacity(c)};
}

std::optional<Color> FromHsl(const std::vector<Component>& c)
{
    if (c[0].percent || !c[1].percent || !c[2].percent)
        return std::nullopt;
    double hue = std::fmod(c[0].value, 360.0);
    hue += hue < 0.0 ? 360.0 : 0.0;
    const double saturation = Unit(c[1].value / 100.0);
    const double lightness = Unit(c[2].value / 100.0);
    const double amplitude = saturation * std::min(lightness, 1.0 - lightness);
    const auto channel = [&](double offset)
    {
        const double k = std::fmod(offset + hue / 30.0, 12.0);
        return lightness - amplitude * std::max(-1.0, std::min({k - 3.0, 9.0 - k, 1.0}));
    };
    return Color{channel(0.0), channel(8.0), channel(4.0), Opacity(c)};
}

std::optional<Color> ParseFunction(std::string_view text)
{
    const std::size_t bracket = text.find('(');
    if (bracket == std::string_view::npos || text.back() != ')')
        return std::nullopt;
    const std::string_view name = text.substr(0, bracket);
    const auto components = ComponentReader(text.substr(bracket + 1, text.size() - bracket - 2)).ReadAll();
    if (!components || !HasGoodSeparators(*components) || (components->size() == 4 && components->back().degrees))
        return std::nullopt;
    if (name == "rgb" || name == "rgba")
        return FromRgb(*components);
    if (name == "hsl" || name == "hsla")
        return FromHsl(*components);
    return std::nullopt;
}

} // namespace

std::optional<Color> Color::Parse(std::string_view input)
{
    std::string text;
    for (const char letter : input)
        text += letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
    const std::size_t first = text.find_first_not_of(" \t\n\r\f\v");
    if (first == std::string::npos)
        return std::nullopt;
    text = text.substr(first, text.find_last_not_of(" \t\n\r\f\v") - first + 1);

    if (text == "transparent")
        return Color{0.0, 0.0, 0.0, 0.0};
    if (const auto named = kNamedColors.find(text); named != kNamedColors.end())
        return FromBytes(named->second);
    return text[0] == '#' ? ParseHex(std::string_view(text).substr(1)) : ParseFunction(text);
}

} // namespace txmap
