#include <txmap/style/operators/Utf8.h>

#include <unicode/locid.h>
#include <unicode/unistr.h>

namespace txmap
{
namespace
{

bool BeginsCharacter(char byte) { return (static_cast<unsigned char>(byte) & 0xC0u) != 0x80u; }

} // namespace

std::size_t CountCharacters(std::string_view text)
{
    std::size_t count = 0;
    for (const char byte : text)
        count += BeginsCharacter(byte) ? 1 : 0;
    return count;
}

std::size_t CharacterOffset(std::string_view text, std::size_t character)
{
    std::size_t count = 0;
    for (std::size_t i = 0; i < text.size(); ++i)
        if (BeginsCharacter(text[i]) && count++ == character)
            return i;
    return text.size();
}

std::size_t Utf16Offset(std::string_view text, double units)
{
    double count = 0.0;
    for (std::size_t i = 0; i < text.size(); ++i)
    {
        if (!BeginsCharacter(text[i]))
            continue;
        if (!(count < units))
            return i;
        // What takes four bytes here takes two units there.
        count += static_cast<unsigned char>(text[i]) >= 0xF0u ? 2.0 : 1.0;
    }
    return text.size();
}

std::string Upcase(const std::string& text)
{
    std::string result;
    icu::UnicodeString::fromUTF8(text).toUpper(icu::Locale::getRoot()).toUTF8String(result);
    return result;
}

std::string Downcase(const std::string& text)
{
    std::string result;
    icu::UnicodeString::fromUTF8(text).toLower(icu::Locale::getRoot()).toUTF8String(result);
    return result;
}

std::vector<std::string> Split(const std::string& text, const std::string& separator)
{
    std::vector<std::string> parts;
    if (separator.empty())
    {
        for (std::size_t begin = 0; begin < text.size();)
        {
            const std::size_t end = begin + CharacterOffset(std::string_view(text).substr(begin), 1);
            parts.push_back(text.substr(begin, end - begin));
            begin = end;
        }
        return parts;
    }
    std::size_t begin = 0;
    for (std::size_t end = text.find(separator); end != std::string::npos; end = text.find(separator, begin))
    {
        parts.push_back(text.substr(begin, end - begin));
        begin = end + separator.size();
    }
    parts.push_back(text.substr(begin));
    return parts;
}

} // namespace txmap
