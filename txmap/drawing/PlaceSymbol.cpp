#include <txmap/drawing/PlaceSymbol.h>

#include <array>
#include <cmath>
#include <string_view>

#include <txbase/TXString.h>
#include <txmap/cli/OptionValues.h>
#include <txmap/labels/LabelText.h>

namespace TZObjects
{
namespace
{

constexpr double kTurn = 6.283185307179586;
constexpr char kFont[] = "font:";
constexpr double kSmallestSize = 1.0;
constexpr double kLargestSize = 256.0;

struct NamedShape
{
    std::string_view name;
    PlaceSymbol::Shape shape;
    double usualSize;
};

constexpr std::array<NamedShape, 6> kShapes = {{{"circle", PlaceSymbol::Shape::Circle, 1.0},
                                                {"square", PlaceSymbol::Shape::Square, 1.0},
                                                {"triangle", PlaceSymbol::Shape::Triangle, 1.7},
                                                {"star", PlaceSymbol::Shape::Star, 2.5},
                                                {"cross", PlaceSymbol::Shape::Cross, 2.0},
                                                {"diamond", PlaceSymbol::Shape::Diamond, 1.5}}};
// Characters are drawn smaller than the size of their font.
constexpr double kUsualCharacterSize = 4.4;

std::optional<double> SizeIn(const std::string& text)
{
    const std::vector<double> numbers = NumbersIn<double>(text, ',');
    // Written so that a NaN is refused as well.
    if (numbers.size() != 1 || !(numbers[0] >= kSmallestSize && numbers[0] <= kLargestSize))
        return std::nullopt;
    return numbers[0];
}

/// The character that is meant by itself, or by its number such as "U+2605"; nothing for anything else.
std::optional<char32_t> CharacterIn(const std::string& text)
{
    if (text.size() > 2 && (text[0] == 'U' || text[0] == 'u') && text[1] == '+')
    {
        unsigned int number = 0;
        const char* const end = text.data() + text.size();
        const auto [behind, error] = std::from_chars(text.data() + 2, end, number, 16);
        return error == std::errc() && behind == end ? std::optional<char32_t>(number) : std::nullopt;
    }
    const TXString string(text.c_str());
    const std::wstring letters = string.toStdWString();
    // What is not UTF-8 does not come back as it was.
    if (letters.size() != 1 || string.toUTF8() != text)
        return std::nullopt;
    return static_cast<char32_t>(letters[0]);
}

bool CanBeDrawn(char32_t c)
{
    const bool isControl = c < 0x20 || (c >= 0x7F && c < 0xA0);
    const bool isSurrogate = c >= 0xD800 && c <= 0xDFFF;
    return c <= 0xFFFF && !isControl && !isSurrogate && !IsBlank(c) && !IsShapeless(c);
}

PlaceSymbol ParseCharacter(const std::string& text)
{
    PlaceSymbol symbol;
    symbol.shape = PlaceSymbol::Shape::Character;
    symbol.text = text;
    const std::string rest = text.substr(sizeof kFont - 1);
    const std::size_t colon = rest.find(':');
    symbol.face = rest.substr(0, colon);
    if (colon == std::string::npos || symbol.face.empty())
        Refuse("--symbol", text, "must be font:FACE:CHARACTER, such as 'font:DejaVu Sans:U+2605'");
    std::string character = rest.substr(colon + 1);
    // The character itself may be a colon.
    if (const std::size_t end = character.find(':', 1); end != std::string::npos)
    {
        symbol.size = SizeIn(character.substr(end + 1));
        if (!symbol.size)
            Refuse("--symbol", text, "the size must be a number of pixels from 1 to 256");
        character.resize(end);
    }
    const std::optional<char32_t> found = CharacterIn(character);
    if (!found || !CanBeDrawn(*found))
        Refuse("--symbol", text, "the character must be a visible one, or its number from U+0021 to U+FFFF");
    symbol.character = static_cast<char16_t>(*found);
    return symbol;
}

std::vector<TXPoint> Corners(int count, double radius, double everySecond)
{
    std::vector<TXPoint> corners;
    for (int i = 0; i < count; ++i)
    {
        const double angle = kTurn * i / count - kTurn / 4.0;
        const double distance = i % 2 == 0 ? radius : everySecond;
        corners.emplace_back(distance * std::cos(angle), distance * std::sin(angle));
    }
    return corners;
}

} // namespace

PlaceSymbol ParseSymbol(const std::string& text)
{
    if (text.rfind(kFont, 0) == 0)
        return ParseCharacter(text);
    PlaceSymbol symbol;
    symbol.text = text;
    std::string known;
    for (const NamedShape& shape : kShapes)
    {
        symbol.shape = shape.shape;
        if (shape.name == text)
            return symbol;
        known += std::string(shape.name) + ", ";
    }
    Refuse("--symbol", text, "unknown symbol; known are " + known + "and font:FACE:CHARACTER");
}

double ParseSymbolSize(const std::string& text)
{
    const std::optional<double> size = SizeIn(text);
    if (!size)
        Refuse("--symbol-size", text, "must be a number of pixels from 1 to 256");
    return *size;
}

std::vector<TXPoint> CornersOf(PlaceSymbol::Shape shape)
{
    constexpr double kHalf = 0.5;
    switch (shape)
    {
    case PlaceSymbol::Shape::Circle:
        return Corners(24, kHalf, kHalf);
    case PlaceSymbol::Shape::Square:
        return {{-kHalf, -kHalf}, {kHalf, -kHalf}, {kHalf, kHalf}, {-kHalf, kHalf}};
    case PlaceSymbol::Shape::Triangle:
        // Equal sides, which are 1 long.
        return Corners(3, 1.0 / std::sqrt(3.0), 1.0 / std::sqrt(3.0));
    case PlaceSymbol::Shape::Star:
    {
        // Its width, from the second tip to the last, is 1. A little stouter than the lines between the tips make it.
        const double radius = kHalf / std::sin(kTurn / 5.0);
        return Corners(10, radius, 0.44 * radius);
    }
    case PlaceSymbol::Shape::Cross:
    {
        constexpr double kArm = 0.17;
        return {{-kArm, -kHalf}, {kArm, -kHalf}, {kArm, -kArm}, {kHalf, -kArm}, {kHalf, kArm},   {kArm, kArm},
                {kArm, kHalf},   {-kArm, kHalf}, {-kArm, kArm}, {-kHalf, kArm}, {-kHalf, -kArm}, {-kArm, -kArm}};
    }
    case PlaceSymbol::Shape::Diamond:
        return Corners(4, kHalf, kHalf);
    case PlaceSymbol::Shape::Character:
        break;
    }
    return {};
}

double UsualSize(PlaceSymbol::Shape shape)
{
    for (const NamedShape& named : kShapes)
        if (named.shape == shape)
            return named.usualSize;
    return kUsualCharacterSize;
}

} // namespace TZObjects
