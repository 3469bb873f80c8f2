#include <txmap/symbols/text/LineBreaks.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <string_view>

#include <txmap/symbols/text/LetterClasses.h>

namespace txmap
{
namespace
{

// Penalties are in the units of squared widths, in which an em is 24.
constexpr double kUnitsPerEm = 24.0;
constexpr double kWantedBreak = -10000.0;
constexpr double kAwkwardBreak = 150.0;
constexpr double kLonelyBracket = 50.0;
constexpr wchar_t kZeroWidthSpace = L'\x200B';
constexpr std::wstring_view kBreakBehind = L"\n &)+-/\xAD\xB7\x200B\x2010\x2013\x2027";
constexpr std::size_t kNone = std::numeric_limits<std::size_t>::max();

bool Contains(std::wstring_view letters, wchar_t c) { return letters.find(c) != std::wstring_view::npos; }

bool IsSpace(wchar_t c) { return (c >= 0x9 && c <= 0xD) || c == L' '; }

/// A place where a line may end.
struct Break
{
    std::size_t end;   ///< The letter behind it.
    double position;   ///< The width of all before it, without spaces.
    double badness;    ///< That of all lines up to it.
    std::size_t prior; ///< The best break before it; `kNone` for the start.
};

double Badness(double width, double wanted, double penalty, bool isLast)
{
    const double raggedness = (width - wanted) * (width - wanted);
    // A last line that is too short looks better than one that is too long.
    if (isLast)
        return width < wanted ? raggedness / 2.0 : raggedness * 2.0;
    return raggedness + std::abs(penalty) * penalty;
}

class LineBreaker
{
public:
    LineBreaker(const StyledLetters& text, double wanted)
        : text(text), wanted(wanted), hasHints(Contains(text.letters, kZeroWidthSpace))
    {
    }

    std::vector<std::size_t> Ends()
    {
        double position = 0.0;
        for (std::size_t i = 0; i < text.letters.size(); ++i)
        {
            if (!IsSpace(text.letters[i]))
                position += text.advances[i] * kUnitsPerEm;
            if (i + 1 < text.letters.size() && MayBreakBehind(i))
                Add(i + 1, position, PenaltyBehind(i), false);
        }
        Add(text.letters.size(), position, 0.0, true);
        std::vector<std::size_t> ends;
        for (std::size_t at = breaks.size() - 1; at != kNone; at = breaks[at].prior)
            ends.push_back(breaks[at].end);
        std::reverse(ends.begin(), ends.end());
        return ends;
    }

private:
    bool IsIdeographicBreak(std::size_t i) const
    {
        const wchar_t next = text.letters[i + 1];
        return BreaksAnywhere(text.letters[i]) && MayEndLine(text.letters[i]) && MayBeginLine(next);
    }

    bool MayBreakBehind(std::size_t i) const
    {
        const wchar_t c = text.letters[i];
        const wchar_t next = text.letters[i + 1];
        return Contains(kBreakBehind, c) || text.looks[text.look[i]].IsImage() || IsIdeographicBreak(i) ||
               (next == L'(' && i + 2 < text.letters.size());
    }

    double PenaltyBehind(std::size_t i) const
    {
        const wchar_t c = text.letters[i];
        const wchar_t next = text.letters[i + 1];
        double penalty = 0.0;
        if (c == L'\n')
            penalty += kWantedBreak;
        // Where a text says where to break it, other places are second to those.
        if (hasHints && IsIdeographicBreak(i))
            penalty += kAwkwardBreak;
        if (c == L'(' || c == 0xFF08)
            penalty += kLonelyBracket;
        if (next == L')' || next == 0xFF09)
            penalty += kLonelyBracket;
        return penalty;
    }

    void Add(std::size_t end, double position, double penalty, bool isLast)
    {
        Break added{end, position, Badness(position, wanted, penalty, isLast), kNone};
        for (std::size_t i = 0; i < breaks.size(); ++i)
        {
            const double badness = breaks[i].badness + Badness(position - breaks[i].position, wanted, penalty, isLast);
            if (badness > added.badness)
                continue;
            added.badness = badness;
            added.prior = i;
        }
        breaks.push_back(added);
    }

    const StyledLetters& text;
    double wanted;
    bool hasHints;
    std::vector<Break> breaks;
};

/// The same breaks, where only those count that the text asks for.
std::vector<std::size_t> WantedEnds(const std::wstring& letters)
{
    std::vector<std::size_t> ends;
    for (std::size_t i = 0; i + 1 < letters.size(); ++i)
        if (letters[i] == L'\n')
            ends.push_back(i + 1);
    ends.push_back(letters.size());
    return ends;
}

std::vector<std::size_t> LineEnds(const StyledLetters& text, double maxWidth)
{
    double width = 0.0;
    for (const double advance : text.advances)
        width += advance;
    if (maxWidth < 0.0 || !std::isfinite(maxWidth) || !std::isfinite(width) || width <= maxWidth)
        return WantedEnds(text.letters);
    const double lines = std::max(1.0, std::ceil(width / maxWidth));
    return LineBreaker(text, width * kUnitsPerEm / lines).Ends();
}

} // namespace

std::vector<LineSpan> BreakLines(const StyledLetters& text, double maxWidth)
{
    std::vector<LineSpan> lines;
    std::size_t begin = 0;
    for (const std::size_t end : LineEnds(text, maxWidth))
    {
        LineSpan line{begin, end};
        while (line.begin < line.end && IsSpace(text.letters[line.begin]))
            ++line.begin;
        while (line.end > line.begin && IsSpace(text.letters[line.end - 1]))
            --line.end;
        lines.push_back(line);
        begin = end;
    }
    return lines;
}

} // namespace txmap
