#include <txmap/labels/LabelText.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <string_view>
#include <vector>

namespace txmap
{

using TZObjects::TXString;

namespace
{

constexpr std::array<std::wstring_view, 20> kTags = {
    L"<BOL>", L"</BOL>", L"<ITA>", L"</ITA>", L"<UND>", L"</UND>", L"<ACP>", L"</ACP>", L"<SCP>", L"</SCP>",
    L"<bol>", L"</bol>", L"<ita>", L"</ita>", L"<und>", L"</und>", L"<acp>", L"</acp>", L"<scp>", L"</scp>"};

struct Escape
{
    wchar_t character;
    std::wstring_view entity;
};

constexpr std::array<Escape, 3> kEscapes = {{{L'<', L"&lt;"}, {L'>', L"&gt;"}, {L'&', L"&amp;"}}};

// A pair of tags around nothing makes a label rich, whatever follows.
constexpr std::wstring_view kRichMark = L"<BOL></BOL>";
constexpr wchar_t kEllipsis = L'\x2026';
constexpr wchar_t kReplacement = L'\xFFFD';

bool IsLineBreak(wchar_t c) { return c == L'\n' || c == L'\r' || c == 0x85 || c == 0x2028 || c == 0x2029; }

bool IsControl(wchar_t c) { return (c >= 0 && c < 0x20) || (c >= 0x7F && c < 0xA0); }

/// Embeddings and overrides of the direction of writing, which work beyond the place where they stand, and the byte
/// order mark, which gets lost on the way anyway.
bool IsInvisible(wchar_t c) { return (c >= 0x202A && c <= 0x202E) || (c >= 0x2066 && c <= 0x2069) || c == 0xFEFF; }

bool IsNoCharacter(wchar_t c) { return (c >= 0xD800 && c <= 0xDFFF) || c < 0 || c > 0x10FFFF; }

bool IsSpace(wchar_t c) { return c == L' ' || c == L'\n'; }

/// The text without what must not reach the page: line breaks are "\n", and no space begins or ends a line.
std::wstring Cleaned(const std::wstring& text)
{
    std::wstring clean;
    wchar_t space = 0;
    for (const wchar_t c : text)
    {
        if (IsInvisible(c))
            continue;
        if (IsLineBreak(c) || IsControl(c) || c == L' ')
        {
            space = IsLineBreak(c) || space == L'\n' ? L'\n' : L' ';
            continue;
        }
        if (space && !clean.empty())
            clean += space;
        space = 0;
        clean += IsNoCharacter(c) ? kReplacement : c;
    }
    return clean;
}

/// The label tag that begins at a position; empty for none.
std::wstring_view TagAt(std::wstring_view text, std::size_t position)
{
    for (const std::wstring_view tag : kTags)
        if (text.substr(position, tag.size()) == tag)
            return tag;
    return {};
}

/// A label in its pieces: label tags, and everything else character by character.
std::vector<std::wstring_view> Pieces(std::wstring_view text, TextPath path = TextPath::Qt)
{
    std::vector<std::wstring_view> pieces;
    for (std::size_t position = 0; position < text.size();)
    {
        const bool mayBeTag = path == TextPath::Qt && text[position] == L'<';
        const std::wstring_view tag = mayBeTag ? TagAt(text, position) : std::wstring_view();
        pieces.push_back(tag.empty() ? text.substr(position, 1) : tag);
        position += pieces.back().size();
    }
    return pieces;
}

bool IsTag(std::wstring_view piece) { return piece.size() > 1; }

/// Cuts behind so many characters. As many tags are kept at the most: more would format nothing and cost much.
std::vector<std::wstring_view> Cut(const std::vector<std::wstring_view>& pieces)
{
    static constexpr std::wstring_view ellipsis(&kEllipsis, 1);
    const auto characters =
        static_cast<std::size_t>(std::count_if(pieces.begin(), pieces.end(), [](auto piece) { return !IsTag(piece); }));
    const std::size_t wanted = characters > kLongestLabel ? kLongestLabel - 1 : characters;
    std::vector<std::wstring_view> kept;
    std::size_t seen = 0;
    std::size_t tags = 0;
    for (const std::wstring_view piece : pieces)
    {
        std::size_t& count = IsTag(piece) ? tags : seen;
        if (count == (IsTag(piece) ? kLongestLabel : wanted))
            continue;
        ++count;
        kept.push_back(piece);
    }
    if (wanted < characters)
    {
        while (!kept.empty() && (IsTag(kept.back()) || IsSpace(kept.back()[0])))
            kept.pop_back();
        kept.push_back(ellipsis);
    }
    return kept;
}

/// The text without label tags, and of characters alone that have the shape of a letter or are ordinary spaces.
std::wstring LettersIn(std::wstring_view text)
{
    std::wstring letters;
    for (const std::wstring_view piece : Pieces(text))
    {
        const wchar_t c = piece[0];
        if (IsTag(piece) || IsShapeless(c))
            continue;
        const bool keepsTogether = c == 0xA0 || c == 0x2007 || c == 0x202F;
        letters += !IsBlank(c) || c == L'\n' ? c : keepsTogether ? L'\xA0' : L' ';
    }
    return letters;
}

std::wstring Escaped(wchar_t c)
{
    for (const Escape& escape : kEscapes)
        if (escape.character == c)
            return std::wstring(escape.entity);
    // The lines of a rich label would be measured one by one, and tags may reach over several.
    return std::wstring(1, c == L'\n' ? L' ' : c);
}

} // namespace

LabelText MakeLabelText(const std::string& name, TextPath path)
{
    std::wstring clean = Cleaned(TXString(name.c_str()).toStdWString());
    // What is dropped may leave two spaces side by side.
    if (path == TextPath::Cairo)
        clean = Cleaned(LettersIn(clean));
    const std::vector<std::wstring_view> pieces = Cut(Pieces(clean, path));
    const bool visible = std::any_of(pieces.begin(), pieces.end(),
                                     [](std::wstring_view piece) { return !IsTag(piece) && !IsSpace(piece[0]); });
    if (!visible)
        return {};
    std::wstring plain;
    for (const std::wstring_view piece : pieces)
        plain += piece;
    // Without any of these two nothing that reads a label can mistake it for rich text.
    if (path == TextPath::Cairo ||
        (plain.find(L'<') == std::wstring::npos && plain.find(L"&lt;") == std::wstring::npos))
        return {plain, false};
    std::wstring rich(kRichMark);
    for (const std::wstring_view piece : pieces)
        rich += IsTag(piece) ? std::wstring(piece) : Escaped(piece[0]);
    return {rich, true};
}

LabelText InTwoLines(const LabelText& label)
{
    std::wstring text = label.text.toStdWString();
    if (label.rich || text.find(L'\n') != std::wstring::npos)
        return {};
    const auto middle = static_cast<long>(text.size() / 2);
    std::size_t best = std::wstring::npos;
    const auto distance = [&](std::size_t at) { return std::labs(static_cast<long>(at) - middle); };
    for (std::size_t at = text.find(L' '); at != std::wstring::npos; at = text.find(L' ', at + 1))
        if (best == std::wstring::npos || distance(at) < distance(best))
            best = at;
    if (best == std::wstring::npos)
        return {};
    text[best] = L'\n';
    return {text, false};
}

bool IsBlank(char32_t c)
{
    return c <= 0x20 || c == 0xA0 || (c >= 0x2000 && c <= 0x200A) || c == 0x2028 || c == 0x2029 || c == 0x202F ||
           c == 0x205F || c == 0x3000;
}

bool IsShapeless(char32_t c)
{
    return c == 0xAD || c == 0x61C || c == 0x180E || (c >= 0x200B && c <= 0x200F) || (c >= 0x202A && c <= 0x202E) ||
           (c >= 0x2060 && c <= 0x206F) || (c >= 0xFE00 && c <= 0xFE0F) || (c >= 0xE0000 && c <= 0xE0FFF);
}

std::wstring VisibleText(const LabelText& label)
{
    std::wstring text = label.text.toStdWString();
    if (!label.rich)
        return text;
    std::wstring visible;
    for (const std::wstring_view piece : Pieces(text))
        if (!IsTag(piece))
            visible += piece;
    for (const Escape& escape : kEscapes)
        for (std::size_t at = visible.find(escape.entity); at != std::wstring::npos;
             at = visible.find(escape.entity, at + 1))
            visible.replace(at, escape.entity.size(), 1, escape.character);
    return visible;
}

} // namespace txmap
