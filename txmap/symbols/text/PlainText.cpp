#include <txmap/symbols/text/PlainText.h>

#include <unicode/brkiter.h>
#include <unicode/unistr.h>

#include <algorithm>
#include <memory>

#include <txmap/labels/LabelText.h>
#include <txmap/symbols/text/LetterClasses.h>

namespace txmap
{

using TZObjects::TXString;

namespace
{

// It has no width and no shape, and is neither a letter nor a space: what it stands in is no tag and no escape.
constexpr wchar_t kWordJoiner = L'\x2060';
constexpr wchar_t kReplacement = L'\xFFFD';

bool IsControl(wchar_t c) { return (c >= 0 && c < 0x20) || (c >= 0x7F && c < 0xA0); }

bool IsLineBreak(wchar_t c) { return c == L'\n' || c == 0x85 || c == 0x2028 || c == 0x2029; }

bool TurnsDirection(wchar_t c) { return (c >= 0x202A && c <= 0x202E) || (c >= 0x2066 && c <= 0x2069) || c == 0xFEFF; }

bool IsNoCharacter(wchar_t c)
{
    return c < 0 || c > 0x10FFFF || (c >= 0xD800 && c <= 0xDFFF) || (c & 0xFFFE) == 0xFFFE;
}

} // namespace

std::wstring VisibleLetters(const std::string& utf8)
{
    std::wstring letters;
    for (const wchar_t c : TXString(utf8).toStdWString())
    {
        if (c == L'\r' || TurnsDirection(c))
            continue;
        if (IsLineBreak(c))
            letters += L'\n';
        else if (IsControl(c))
            letters += L' ';
        else
            letters += IsNoCharacter(c) ? kReplacement : c;
    }
    return letters;
}

TXString PlainText(const std::wstring& letters, TextPath path)
{
    std::wstring plain;
    plain.reserve(letters.size());
    for (const wchar_t c : letters)
    {
        // Through cairo each character is drawn as what the face has for it, and no tag means anything.
        if (path == TextPath::Cairo)
        {
            if (!IsShapeless(c))
                plain += IsBlank(c) ? L' ' : c;
            continue;
        }
        plain += c;
        if (c == L'<' || c == L'&')
            plain += kWordJoiner;
    }
    return plain;
}

std::vector<std::size_t> LetterEnds(const std::wstring& text)
{
    std::vector<std::size_t> ends;
    if (std::all_of(text.begin(), text.end(), StandsAlone))
    {
        for (std::size_t i = 1; i <= text.size(); ++i)
            ends.push_back(i);
        return ends;
    }
    UErrorCode status = U_ZERO_ERROR;
    static const thread_local std::unique_ptr<icu::BreakIterator> letters(
        icu::BreakIterator::createCharacterInstance(icu::Locale::getRoot(), status));
    icu::UnicodeString units;
    std::vector<std::size_t> characterOf; // by unit
    for (std::size_t i = 0; i < text.size(); ++i)
    {
        units.append(static_cast<UChar32>(text[i]));
        characterOf.resize(static_cast<std::size_t>(units.length()), i);
    }
    characterOf.push_back(text.size());
    letters->setText(units);
    letters->first();
    for (int end = letters->next(); end != icu::BreakIterator::DONE; end = letters->next())
        ends.push_back(characterOf[static_cast<std::size_t>(end)]);
    return ends;
}

} // namespace txmap
