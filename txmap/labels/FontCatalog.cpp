#include <txmap/labels/FontCatalog.h>

#include <fontconfig/fontconfig.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <memory>
#include <string_view>

namespace txmap
{
namespace
{

struct PatternDeleter
{
    void operator()(FcPattern* pattern) const { FcPatternDestroy(pattern); }
};
using PatternPtr = std::unique_ptr<FcPattern, PatternDeleter>;

struct FontSetDeleter
{
    void operator()(FcFontSet* fonts) const { FcFontSetDestroy(fonts); }
};
using FontSetPtr = std::unique_ptr<FcFontSet, FontSetDeleter>;

struct ObjectSetDeleter
{
    void operator()(FcObjectSet* objects) const { FcObjectSetDestroy(objects); }
};
using ObjectSetPtr = std::unique_ptr<FcObjectSet, ObjectSetDeleter>;

constexpr std::array<std::string_view, 9> kKindsOfFaces = {"sans",      "sans-serif", "sans serif", "serif",    "mono",
                                                           "monospace", "cursive",    "fantasy",    "system-ui"};

PatternPtr PatternOf(const std::string& face)
{
    PatternPtr pattern(FcPatternCreate());
    FcPatternAddString(pattern.get(), FC_FAMILY, reinterpret_cast<const FcChar8*>(face.c_str()));
    return pattern;
}

PatternPtr MatchOf(FcPattern* wanted)
{
    FcConfigSubstitute(nullptr, wanted, FcMatchPattern);
    FcDefaultSubstitute(wanted);
    FcResult result = FcResultNoMatch;
    return PatternPtr(FcFontMatch(nullptr, wanted, &result));
}

bool IsKindOfFace(const std::string& face)
{
    std::string lower = face;
    std::transform(lower.begin(), lower.end(), lower.begin(),
                   [](unsigned char letter) { return static_cast<char>(std::tolower(letter)); });
    return std::find(kKindsOfFaces.begin(), kKindsOfFaces.end(), lower) != kKindsOfFaces.end();
}

bool HasCharacterIn(FcPattern* font, char32_t character)
{
    FcCharSet* characters = nullptr;
    return FcPatternGetCharSet(font, FC_CHARSET, 0, &characters) == FcResultMatch &&
           FcCharSetHasChar(characters, character) == FcTrue;
}

} // namespace

bool FontCatalog::Has(const std::string& face)
{
    if (IsKindOfFace(face))
        return true;
    const ObjectSetPtr nothing(FcObjectSetCreate());
    const FontSetPtr found(FcFontList(nullptr, PatternOf(face).get(), nothing.get()));
    return found && found->nfont > 0;
}

std::string FontCatalog::Resolved(const std::string& face)
{
    if (!IsKindOfFace(face) && Has(face))
        return face;
    const PatternPtr wanted = PatternOf(face);
    FcPatternAddString(wanted.get(), FC_FAMILY, reinterpret_cast<const FcChar8*>("sans-serif"));
    const PatternPtr match = MatchOf(wanted.get());
    FcChar8* family = nullptr;
    if (!match || FcPatternGetString(match.get(), FC_FAMILY, 0, &family) != FcResultMatch)
        return {};
    return reinterpret_cast<const char*>(family);
}

bool FontCatalog::HasCharacter(char32_t character)
{
    const FcFontSet* const fonts = FcConfigGetFonts(nullptr, FcSetSystem);
    if (!fonts)
        return false;
    return std::any_of(fonts->fonts, fonts->fonts + fonts->nfont,
                       [&](FcPattern* font) { return HasCharacterIn(font, character); });
}

std::function<bool(char32_t)> FontCatalog::CharactersOf(const std::string& face)
{
    // What cairo asks for when an upright face of normal weight is selected by its name.
    const PatternPtr wanted = PatternOf(face);
    FcPatternAddInteger(wanted.get(), FC_SLANT, FC_SLANT_ROMAN);
    FcPatternAddInteger(wanted.get(), FC_WEIGHT, FC_WEIGHT_MEDIUM);
    return [match = std::shared_ptr<FcPattern>(MatchOf(wanted.get()))](char32_t character)
    { return match && HasCharacterIn(match.get(), character); };
}

} // namespace txmap
