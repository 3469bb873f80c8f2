#include <txmap/cli/ParseSymbol.h>

#include <charconv>

#include <txbase/TXString.h>
#include <txmap/cli/OptionValues.h>
#include <txmap/labels/LabelText.h>

namespace txmap
{

using TZObjects::TXString;

namespace
{

constexpr char kFont[] = "font:";
constexpr double kSmallestSize = 1.0;
constexpr double kLargestSize = 256.0;

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

} // namespace

PlaceSymbol ParseSymbol(const std::string& text)
{
    if (text.rfind(kFont, 0) == 0)
        return ParseCharacter(text);
    PlaceSymbol symbol;
    symbol.text = text;
    if (const std::optional<PlaceSymbol::Shape> shape = ShapeOf(text))
    {
        symbol.shape = *shape;
        return symbol;
    }
    std::string known;
    for (const auto& named : kPlaceShapes)
        known += std::string(named.first) + ", ";
    Refuse("--symbol", text, "unknown symbol; known are " + known + "and font:FACE:CHARACTER");
}

double ParseSymbolSize(const std::string& text)
{
    const std::optional<double> size = SizeIn(text);
    if (!size)
        Refuse("--symbol-size", text, "must be a number of pixels from 1 to 256");
    return *size;
}

} // namespace txmap
