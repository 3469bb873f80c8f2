#include <txmap/symbols/text/TextBlock.h>

#include <algorithm>
#include <cmath>

#include <txmap/labels/LabelText.h>
#include <txmap/symbols/text/LetterClasses.h>
#include <txmap/symbols/text/LineRuns.h>
#include <txmap/symbols/text/PlainText.h>
#include <txmap/symbols/text/TextMetrics.h>

namespace txmap
{

using TZObjects::TXPoint;

namespace
{

/// A line with what it measures, in ems of the style's size.
struct Line
{
    std::vector<LineRun> runs;
    double width = 0.0;
    double scale = 1.0;     ///< The greatest of its letters.
    double imageRoom = 0.0; ///< By how much its pictures are higher than its letters.
    double height = 0.0;
};

double JustifyFactor(TextJustify justify)
{
    return justify == TextJustify::Left ? 0.0 : justify == TextJustify::Right ? 1.0 : 0.5;
}

/// How far something is raised in a line that is higher by so much.
double Raised(SectionAlign align, double room)
{
    return align == SectionAlign::Bottom ? 0.0 : align == SectionAlign::Top ? room : room / 2.0;
}

class BlockMaker
{
public:
    BlockMaker(const StyledLetters& text, const TextStyle& style)
        : text(text), style(style), inColumns(style.mode == WritingMode::Vertical)
    {
        for (const LineSpan& span : BreakLines(text, style.maxWidth))
            lines.push_back(MeasuredLine(span));
        for (const Line& line : lines)
        {
            longest = std::max(longest, line.width);
            depth += line.height;
            isUniform = isUniform && line.height == style.lineHeight;
        }
    }

    TextBlock Make()
    {
        block.lines = lines.size();
        block.size = style.size;
        block.width = (inColumns ? depth : longest) * style.size;
        block.height = (inColumns ? longest : depth) * style.size;
        double top = 0.0;
        for (const Line& line : lines)
        {
            double along = (longest - line.width) * JustifyFactor(style.justify);
            for (const LineRun& run : line.runs)
            {
                if (inColumns)
                    PlaceInColumn(run, along, depth - top - line.height / 2.0);
                else
                    PlaceInLine(run, line, along, top);
                along += Advance(run) + text.spacing;
            }
            top += line.height;
        }
        return std::move(block);
    }

private:
    static constexpr double kUprightAdvance = 1.0;

    double Advance(const LineRun& run) const
    {
        return run.upright && !run.look->IsImage() ? kUprightAdvance * run.look->scale : run.width;
    }

    Line MeasuredLine(const LineSpan& span) const
    {
        Line line;
        line.runs = RunsOf(text, span, style);
        double scale = 0.0;
        double image = 0.0;
        for (const LineRun& run : line.runs)
        {
            line.width += Advance(run) + text.spacing;
            if (!run.look->IsImage())
                scale = std::max(scale, run.look->scale);
            else
                image = std::max(image, (inColumns ? run.look->section->imageWidth : run.look->section->imageHeight) *
                                            run.look->scale / style.size);
        }
        if (!line.runs.empty())
            line.width -= text.spacing;
        line.scale = scale > 0.0 ? scale : 1.0;
        line.imageRoom = std::max(0.0, image - line.scale);
        line.height = style.lineHeight * line.scale + line.imageRoom;
        return line;
    }

    /// Where letters with accents begin, from the top of a line. Among lines of different heights they begin at the top
    /// of each; lines of the usual height have them about their middle.
    double LettersTop(const Line& line) const
    {
        return isUniform ? style.lineHeight / 2.0 - kLettersAboveMiddle : line.imageRoom;
    }

    void PlaceInLine(const LineRun& run, const Line& line, double left, double top)
    {
        const double lettersTop = top + LettersTop(line);
        const SectionAlign align = run.look->section->align;
        if (run.look->IsImage())
        {
            const double height = run.look->section->imageHeight * run.look->scale / style.size;
            const double bottom = lettersTop + line.scale - Raised(align, line.scale + line.imageRoom - height);
            AddImage(run, {left, bottom - height});
            return;
        }
        const double baseline =
            lettersTop + kBaselineBelowTop * line.scale - Raised(align, line.scale - run.look->scale);
        AddLetters(run, {left, baseline}, 0.0);
    }

    /// @param middle of the column.
    void PlaceInColumn(const LineRun& run, double top, double middle)
    {
        const double scale = run.look->scale;
        if (run.look->IsImage())
            AddImage(run, {middle - run.look->section->imageWidth * scale / style.size / 2.0, top});
        else if (run.upright)
            AddLetters(run, {middle - run.width / 2.0, top + (kUprightAdvance / 2.0 + kBaselineBelowIdeograph) * scale},
                       0.0);
        else
            AddLetters(run, {middle - kBaselineBesideColumn * scale, top}, 90.0);
    }

    void AddImage(const LineRun& run, const TXPoint& topLeft)
    {
        const TextSection& section = *run.look->section;
        block.images.push_back({section.image,
                                {topLeft.x * style.size, topLeft.y * style.size},
                                section.imageWidth * run.look->scale,
                                section.imageHeight * run.look->scale});
    }

    void AddLetters(const LineRun& run, const TXPoint& origin, double angle)
    {
        if (std::all_of(run.letters.begin(), run.letters.end(), [](wchar_t c) { return IsBlank(c) || IsShapeless(c); }))
            return;
        TextPiece piece = PieceOf(run, text, style);
        piece.origin = {origin.x * style.size, origin.y * style.size};
        piece.angle = angle;
        block.pieces.push_back(std::move(piece));
    }

    const StyledLetters& text;
    const TextStyle& style;
    bool inColumns;
    std::vector<Line> lines;
    double longest = 0.0; ///< In ems, as the next.
    double depth = 0.0;   ///< The heights of all lines.
    bool isUniform = true;
    TextBlock block;
};

} // namespace

TextBlock LayOutText(const std::vector<TextSection>& sections, const TextStyle& given, SymbolFonts& fonts)
{
    const TextStyle style = WithUsableSize(given);
    if (!IsVisible(style))
        return {};
    const StyledLetters text = MakeStyledLetters(sections, style, fonts);
    if (text.letters.empty())
        return {};
    return BlockMaker(text, style).Make();
}

bool CanBeVertical(const std::vector<TextSection>& sections)
{
    return std::any_of(sections.begin(), sections.end(),
                       [](const TextSection& section)
                       {
                           const std::wstring letters = VisibleLetters(section.text.substr(0, 8 * kLongestText));
                           return std::any_of(letters.begin(), letters.end(), StandsUpright);
                       });
}

} // namespace txmap
