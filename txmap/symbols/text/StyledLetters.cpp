#include <txmap/symbols/text/StyledLetters.h>

#include <algorithm>
#include <cmath>

#include <txmap/symbols/text/LetterClasses.h>
#include <txmap/symbols/text/PlainText.h>
#include <txmap/symbols/text/SymbolFonts.h>

namespace txmap
{
namespace
{

constexpr wchar_t kImageLetter = L'\xFFFC';
constexpr wchar_t kEllipsis = L'\x2026';
constexpr double kLargestSize = 10000.0;

bool IsSize(double size) { return size > 0.0 && size <= kLargestSize; }

std::wstring LettersOf(const TextSection& section)
{
    if (!section.image.empty())
        return std::wstring(1, kImageLetter);
    // No text needs more bytes than that for what is kept of it.
    std::wstring letters = VisibleLetters(section.text.substr(0, 8 * kLongestText));
    std::replace(letters.begin(), letters.end(), kImageLetter, L'\xFFFD');
    return letters;
}

bool IsUsable(const TextSection& section, const TextStyle& style)
{
    if (section.image.empty())
        return IsSize(section.scale * style.size);
    return IsSize(section.imageWidth * section.scale) && IsSize(section.imageHeight * section.scale);
}

void Cut(StyledLetters& text)
{
    if (text.letters.size() <= kLongestText)
        return;
    std::size_t end = kLongestText - 1;
    const std::vector<std::size_t> ends = LetterEnds(text.letters);
    const auto behind = std::upper_bound(ends.begin(), ends.end(), end);
    if (behind != ends.begin())
        end = *std::prev(behind);
    text.letters.resize(end);
    text.look.resize(end + 1);
    text.letters += kEllipsis;
    if (text.looks[text.look.back()].IsImage())
        text.letters.back() = kImageLetter;
}

void MeasureLetters(StyledLetters& text, const TextStyle& style)
{
    text.advances.assign(text.letters.size(), 0.0);
    std::size_t begin = 0;
    for (const std::size_t end : LetterEnds(text.letters))
    {
        const LetterLook& look = text.looks[text.look[begin]];
        const wchar_t first = text.letters[begin];
        if (look.IsImage())
            text.advances[begin] = look.section->imageWidth * look.scale / style.size + text.spacing;
        else if (first != L'\n' && first != L'\x200B')
            text.advances[begin] =
                look.face->KeptAdvance(text.letters.substr(begin, end - begin)) * look.scale + text.spacing;
        begin = end;
    }
}

} // namespace

TextStyle WithUsableSize(TextStyle style)
{
    if (style.engine == TextPath::Cairo && style.size > 0.0)
        style.size = std::max(1.0, std::round(style.size));
    return style;
}

bool IsVisible(const TextStyle& style)
{
    return IsSize(style.size) && std::isfinite(style.letterSpacing) && std::isfinite(style.lineHeight) &&
           std::abs(style.letterSpacing) <= kLargestSize && std::abs(style.lineHeight) <= kLargestSize;
}

StyledLetters MakeStyledLetters(const std::vector<TextSection>& sections, const TextStyle& style, SymbolFonts& fonts)
{
    StyledLetters text;
    for (const TextSection& section : sections)
    {
        if (!IsUsable(section, style))
            continue;
        const std::wstring letters = LettersOf(section);
        if (letters.empty())
            continue;
        const std::vector<std::string>& stack = section.fontStack.empty() ? style.fontStack : section.fontStack;
        text.looks.push_back({&fonts.Find(stack, style.engine), &section, section.scale});
        text.letters += letters;
        text.look.resize(text.letters.size(), text.looks.size() - 1);
        if (text.letters.size() > kLongestText)
            break;
    }
    Cut(text);
    const auto any = [&](auto is) { return std::any_of(text.letters.begin(), text.letters.end(), is); };
    text.rightToLeft = style.engine == TextPath::Qt && any(IsRightToLeft);
    text.spacing = any(JoinsNeighbours) ? 0.0 : style.letterSpacing;
    MeasureLetters(text, style);
    return text;
}

} // namespace txmap
