#include <txmap/labels/LetterRuns.h>

#include <algorithm>

#include <txmap/support/Failure.h>

namespace txmap
{
namespace
{

/// Marks that stand above or below the letter before.
bool IsAccent(wchar_t c) { return (c >= 0x300 && c <= 0x36F) || (c >= 0x483 && c <= 0x489); }

std::vector<std::wstring> LinesOf(const std::wstring& text)
{
    std::vector<std::wstring> lines(1);
    for (const wchar_t c : text)
        if (c == L'\n')
            lines.emplace_back();
        else
            lines.back() += c;
    return lines;
}

/// The letters of a line, each with its accents.
std::vector<std::wstring> LettersOf(const std::wstring& line)
{
    std::vector<std::wstring> letters;
    for (const wchar_t c : line)
        if (IsAccent(c) && !letters.empty())
            letters.back() += c;
        else
            letters.emplace_back(1, c);
    return letters;
}

} // namespace

LabelExtent LetterRuns::Measure(const std::wstring& text) const
{
    LabelExtent extent;
    for (const std::wstring& line : LinesOf(text))
    {
        extent.width = std::max(extent.width, Width(line));
        extent.height += LineHeight();
    }
    return extent;
}

std::vector<LetterRun> LetterRuns::Break(const std::wstring& text) const
{
    std::vector<LetterRun> runs;
    const double widest = Measure(text).width;
    double top = 0.0;
    for (const std::wstring& line : LinesOf(text))
    {
        double left = (widest - Width(line)) / 2.0;
        if (spacing == 0.0)
            runs.push_back({line, left, top});
        else
            for (const std::wstring& letter : LettersOf(line))
            {
                runs.push_back({letter, left, top});
                left += Advance(letter) + spacing;
            }
        top += LineHeight();
    }
    return runs;
}

double LetterRuns::LineHeight() const
{
    // The font's own height may be less than both together.
    double height = 0.0;
    double ascent = 0.0;
    double descent = 0.0;
    font.GetFontMetricsInfo(height, ascent, descent, false);
    return ascent + descent;
}

double LetterRuns::Width(const std::wstring& line) const
{
    if (spacing == 0.0 || line.empty())
        return Advance(line);
    return Advance(line) + spacing * static_cast<double>(LettersOf(line).size() - 1);
}

double LetterRuns::Advance(const std::wstring& line) const
{
    // Measured is the ink alone, which is neither where a line begins nor where the next letter follows. Between two
    // others, all of it counts.
    static const std::wstring edge = L"|";
    return std::max(InkWidth(line), InkWidth(edge + line + edge) - InkWidth(edge + edge));
}

double LetterRuns::InkWidth(const std::wstring& text) const
{
    double width = 0.0;
    double height = 0.0;
    if (!font.GetTextExtent(text, width, height, false))
        throw Failure(ExitCode::Drawing, "the plugin refused to measure a label");
    return width;
}

} // namespace txmap
