#include <txmap/symbols/text/FontName.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <cstddef>
#include <string_view>
#include <vector>

#include <txmap/labels/FontCatalog.h>

namespace txmap
{
namespace
{

// Names of fonts are short; what is longer is no name, and costs no search.
constexpr std::size_t kLongestName = 200;

struct StyleWord
{
    std::string_view word;
    int weight; ///< 0: it says nothing about the weight.
    bool italic;
};

// In small letters. Two words stand before the ones of which they consist.
constexpr std::array<StyleWord, 28> kStyleWords = {{
    {"extra light", 200, false}, {"ultra light", 200, false}, {"semi light", 300, false}, {"semi bold", 600, false},
    {"demi bold", 600, false},   {"extra bold", 800, false},  {"ultra bold", 800, false}, {"thin", 100, false},
    {"hairline", 100, false},    {"extralight", 200, false},  {"ultralight", 200, false}, {"light", 300, false},
    {"semilight", 300, false},   {"regular", 400, false},     {"normal", 400, false},     {"book", 400, false},
    {"roman", 400, false},       {"medium", 500, false},      {"semibold", 600, false},   {"demibold", 600, false},
    {"demi", 600, false},        {"bold", 700, false},        {"extrabold", 800, false},  {"ultrabold", 800, false},
    {"black", 900, false},       {"heavy", 900, false},       {"italic", 0, true},        {"oblique", 0, true},
}};

std::vector<std::string> WordsOf(const std::string& name)
{
    std::vector<std::string> words;
    bool inWord = false;
    for (const char c : name.substr(0, kLongestName))
    {
        if (c == ' ')
        {
            inWord = false;
            continue;
        }
        if (!inWord)
            words.emplace_back();
        inWord = true;
        words.back() += c;
    }
    return words;
}

std::string Joined(const std::vector<std::string>& words, std::size_t from, std::size_t to)
{
    std::string text;
    for (std::size_t i = from; i < to; ++i)
        text += (i == from ? "" : " ") + words[i];
    return text;
}

std::string Small(std::string text)
{
    std::transform(text.begin(), text.end(), text.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return text;
}

/// Reads words of style from a position to the end. @return false when there is another word among them.
bool ReadStyle(const std::vector<std::string>& words, std::size_t from, FontName& font)
{
    while (from < words.size())
    {
        const std::string two = Small(Joined(words, from, std::min(from + 2, words.size())));
        const std::string one = Small(words[from]);
        const auto found = std::find_if(kStyleWords.begin(), kStyleWords.end(),
                                        [&](const StyleWord& style) { return style.word == two || style.word == one; });
        if (found == kStyleWords.end())
            return false;
        if (found->weight > 0)
            font.weight = found->weight;
        font.italic = font.italic || found->italic;
        from += found->word == two && two != one ? 2 : 1;
    }
    return true;
}

} // namespace

std::optional<FontName> FindFont(const std::string& name)
{
    if (name.size() > kLongestName)
        return std::nullopt;
    const std::vector<std::string> words = WordsOf(name);
    for (std::size_t family = words.size(); family > 0; --family)
    {
        FontName font;
        if (!ReadStyle(words, family, font))
            return std::nullopt;
        font.family = Joined(words, 0, family);
        if (!FontCatalog::Has(font.family))
            continue;
        font.family = FontCatalog::Resolved(font.family);
        return font;
    }
    return std::nullopt;
}

FontName FontInstead(const std::string& name, const std::string& family)
{
    const std::vector<std::string> words = WordsOf(name);
    FontName font;
    for (std::size_t style = words.empty() ? 0 : 1; style < words.size(); ++style)
    {
        FontName read;
        if (!ReadStyle(words, style, read))
            continue;
        font = read;
        break;
    }
    font.family = family;
    return font;
}

} // namespace txmap
