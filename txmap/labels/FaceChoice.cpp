#include <txmap/labels/FaceChoice.h>

#include <algorithm>
#include <cstddef>
#include <iomanip>
#include <iterator>
#include <set>
#include <sstream>

#include <txbase/TXString.h>
#include <txgraphics/TXFont.h>
#include <txmap/labels/FontCatalog.h>
#include <txmap/labels/LabelText.h>

namespace txmap
{

using TZObjects::TXFont;

namespace
{

constexpr char kUsualFace[] = "sans-serif";
constexpr std::size_t kMostNamedCharacters = 8;

bool NeedsNoGlyph(char32_t c) { return IsBlank(c) || IsShapeless(c); }

} // namespace

FaceChoice ChooseFace(const std::string& wanted, const std::string& option)
{
    if (wanted.empty())
        return {FontCatalog::Resolved(kUsualFace), ""};
    const std::string english = TXFont::GetEnglishNameForKnownFont(wanted.c_str()).toUTF8();
    for (const std::string& name : {wanted, english})
        if (!name.empty() && FontCatalog::Has(name))
            return {FontCatalog::Resolved(name), ""};
    const std::string other = FontCatalog::Resolved(wanted);
    return {other, option + ": no such font is installed" + (other.empty() ? "" : "; " + other + " is used instead")};
}

std::string CharacterName(char32_t character)
{
    std::ostringstream name;
    name << "U+" << std::hex << std::uppercase << std::setw(4) << std::setfill('0')
         << static_cast<unsigned long>(character);
    return name.str();
}

std::string MissingCharacters(const std::vector<std::wstring>& texts, const std::function<bool(char32_t)>& hasCharacter,
                              const std::string& begin, const std::string& end)
{
    std::set<char32_t> characters;
    for (const std::wstring& text : texts)
        characters.insert(text.begin(), text.end());
    std::vector<char32_t> missing;
    std::copy_if(characters.begin(), characters.end(), std::back_inserter(missing),
                 [&](char32_t c) { return !NeedsNoGlyph(c) && !hasCharacter(c); });
    if (missing.empty())
        return {};
    std::string message = begin;
    for (std::size_t i = 0; i < std::min(missing.size(), kMostNamedCharacters); ++i)
        message += (i == 0 ? " " : ", ") + CharacterName(missing[i]);
    if (missing.size() > kMostNamedCharacters)
        message += " and " + std::to_string(missing.size() - kMostNamedCharacters) + " more";
    return message + end;
}

} // namespace txmap
