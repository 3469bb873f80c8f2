#include <txmap/symbols/text/LineRuns.h>

#include <algorithm>

#include <txmap/labels/FontCatalog.h>
#include <txmap/labels/LabelText.h>
#include <txmap/symbols/text/LetterClasses.h>
#include <txmap/symbols/text/PlainText.h>
#include <txmap/symbols/text/SymbolFonts.h>
#include <txmap/symbols/text/TextDirection.h>

namespace txmap
{
namespace
{

constexpr wchar_t kSoftHyphen = L'\xAD';

/// Letters of one look, and of one kind in a column.
struct Slice
{
    std::size_t begin;
    std::size_t end;
    bool rightToLeft;
    bool upright;
};

class RunMaker
{
public:
    RunMaker(const StyledLetters& text, const LineSpan& line, const TextStyle& style)
        : text(text), line(line), style(style), inColumns(style.mode == WritingMode::Vertical),
          rightToLeft(text.rightToLeft && IsRightToLeftParagraph(text.letters, line.begin))
    {
    }

    std::vector<LineRun> Make() const
    {
        std::vector<LineRun> runs;
        for (const Slice& slice : Slices())
            runs.push_back(RunOf(slice));
        return runs;
    }

private:
    bool IsOneRun() const
    {
        const auto first = text.look.begin() + static_cast<std::ptrdiff_t>(line.begin);
        const auto last = text.look.begin() + static_cast<std::ptrdiff_t>(line.end);
        return !inColumns && !SplitsLetters() &&
               std::all_of(first, last, [&](std::size_t look) { return look == *first; });
    }

    /// Backends that draw letter by letter leave out the space between letters when they measure.
    bool SplitsLetters() const { return style.engine == TextPath::Cairo && text.spacing != 0.0; }

    std::vector<Slice> Slices() const
    {
        if (line.begin == line.end)
            return {};
        if (IsOneRun())
            return {{line.begin, line.end, rightToLeft, false}};
        std::vector<DirectedRun> directed = {{line.begin, line.end, false}};
        if (text.rightToLeft)
            directed = VisualRuns(text.letters, line.begin, line.end, rightToLeft);
        std::vector<Slice> slices;
        for (const DirectedRun& run : directed)
        {
            const std::size_t first = slices.size();
            AppendSlices(run, slices);
            if (run.rightToLeft)
                std::reverse(slices.begin() + static_cast<std::ptrdiff_t>(first), slices.end());
        }
        return slices;
    }

    void AppendSlices(const DirectedRun& run, std::vector<Slice>& slices) const
    {
        const std::size_t first = slices.size();
        std::size_t begin = run.begin;
        for (const std::size_t length : LetterEnds(text.letters.substr(run.begin, run.end - run.begin)))
        {
            const std::size_t end = run.begin + length;
            const bool upright = inColumns && IsUpright(begin);
            const bool goesOn = slices.size() > first && !upright && !slices.back().upright && !SplitsLetters() &&
                                text.look[slices.back().begin] == text.look[begin];
            if (goesOn)
                slices.back().end = end;
            else
                slices.push_back({begin, end, run.rightToLeft, upright});
            begin = end;
        }
    }

    bool IsUpright(std::size_t i) const
    {
        return StandsUpright(text.letters[i]) || text.looks[text.look[i]].IsImage() || ColumnFormAt(i) != 0;
    }

    /// What stands in a column for a bracket among ideographs; 0 for none.
    wchar_t ColumnFormAt(std::size_t i) const
    {
        const wchar_t form = ColumnForm(text.letters[i]);
        // Beside turned letters brackets are turned like them.
        const auto isTurned = [&](std::size_t at)
        {
            return at >= line.begin && at < line.end && !StandsUpright(text.letters[at]) &&
                   ColumnForm(text.letters[at]) == text.letters[at];
        };
        const bool isKept = form == text.letters[i] || isTurned(i + 1) || (i > 0 && isTurned(i - 1));
        return !isKept && FontCatalog::HasCharacter(static_cast<char32_t>(form)) ? form : 0;
    }

    LineRun RunOf(const Slice& slice) const
    {
        LineRun run;
        run.look = &text.looks[text.look[slice.begin]];
        run.upright = slice.upright;
        if (run.look->IsImage())
        {
            run.width = (inColumns ? run.look->section->imageHeight : run.look->section->imageWidth) * run.look->scale /
                        style.size;
            return run;
        }
        const std::wstring letters = text.letters.substr(slice.begin, slice.end - slice.begin);
        const wchar_t form = slice.upright ? ColumnFormAt(slice.begin) : 0;
        run.letters = form != 0 ? std::wstring(1, form) : Shown(letters, slice.end == line.end);
        const bool areApart = style.engine == TextPath::Qt && !text.rightToLeft && !slice.upright &&
                              std::all_of(run.letters.begin(), run.letters.end(), StandsAlone);
        if (areApart)
            SetApart(run);
        else
            MeasureWhole(run, slice);
        return run;
    }

    void MeasureWhole(LineRun& run, const Slice& slice) const
    {
        const double spaces = static_cast<double>(LetterEnds(run.letters).size()) - 1.0;
        if (text.rightToLeft)
            run.letters.insert(run.letters.begin(), DirectionMark(slice.rightToLeft));
        run.width = run.look->face->KeptAdvance(PlainText(run.letters, style.engine)) * run.look->scale;
        if (!slice.upright)
            run.width += text.spacing * spaces;
    }

    /// Places each letter of a run as it would stand in it, kerned.
    void SetApart(LineRun& run) const
    {
        const SymbolFace& face = *run.look->face;
        run.lefts.reserve(run.letters.size());
        double left = 0.0;
        for (std::size_t i = 0; i < run.letters.size(); ++i)
        {
            if (i > 0)
                left += face.Kerning(run.letters[i - 1], run.letters[i]) * run.look->scale + text.spacing;
            run.lefts.push_back(left);
            left += face.Letter(run.letters[i]).advance * run.look->scale;
        }
        run.width = left;
    }

    /// Soft hyphens are seen where a line ends with them, and nowhere else.
    static std::wstring Shown(std::wstring letters, bool endsLine)
    {
        const bool isHyphenated = endsLine && !letters.empty() && letters.back() == kSoftHyphen;
        letters.erase(std::remove(letters.begin(), letters.end(), kSoftHyphen), letters.end());
        return isHyphenated ? letters + L'-' : letters;
    }

    const StyledLetters& text;
    const LineSpan& line;
    const TextStyle& style;
    bool inColumns;
    bool rightToLeft;
};

} // namespace

std::vector<LineRun> RunsOf(const StyledLetters& text, const LineSpan& line, const TextStyle& style)
{
    return RunMaker(text, line, style).Make();
}

TextPiece PieceOf(const LineRun& run, const StyledLetters& text, const TextStyle& style)
{
    TextPiece piece;
    piece.text = PlainText(run.letters, style.engine);
    piece.face = run.look->face;
    piece.size = style.size * run.look->scale;
    const bool isWhole = run.lefts.empty() && !run.upright && style.engine == TextPath::Qt;
    piece.spacing = isWhole ? text.spacing / run.look->scale : 0.0;
    for (std::size_t i = 0; i < run.lefts.size(); ++i)
        if (!IsBlank(run.letters[i]))
            piece.letters.push_back({&piece.face->Letter(run.letters[i]).text, run.lefts[i] * style.size});
    piece.width = run.width * style.size;
    piece.color = run.look->section->color;
    return piece;
}

} // namespace txmap
