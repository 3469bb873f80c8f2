#include <txpluginqt/text/CairoTextLayout.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

#include <QStringList>

#include <txpluginqt/text/Alignment.h>

namespace txqt
{
namespace
{

// Rules are this part of the font's height thick. The spaced single line alone has finer ones.
constexpr double kRulePart = 15.0;
constexpr double kSpacedLineRulePart = 20.0;

/// One line at the origin, and how wide it counts.
struct Line
{
    CairoTextPart part;
    double width = 0.0;
};

void SetRules(CairoTextPart& part, double length, double strikeOut, double underline)
{
    part.strikeOut = {0.0, strikeOut, length};
    part.underline = {0.0, underline, length};
}

void AddLine(CairoTextLayout& layout, CairoTextPart part, double x = 0.0, double y = 0.0)
{
    CairoTextPiece line;
    line.x = x;
    line.y = y;
    line.parts.push_back(std::move(part));
    layout.pieces.push_back(std::move(line));
}

/// The descent is divided by the scale, though it has been scaled with the font.
double UnderlineDepth(const CairoTextMetrics& metrics) { return metrics.extents.descent / metrics.scale; }

/// A line whose rules hang on the ink of its first glyphs; its top is at 0.
void SetRulesByInk(CairoTextPart& part, const CairoTextMetrics& metrics, double length, const GlyphRun& first)
{
    const double ascent = metrics.extents.ascent;
    SetRules(part, length, ascent - std::abs(first.Extents().y_bearing) * 0.5, ascent + UnderlineDepth(metrics));
}

/// The whole text as one run.
CairoTextLayout PlainLine(const QString& text, const CairoTextMetrics& metrics)
{
    CairoTextLayout layout;
    std::optional<GlyphRun> run = GlyphRun::FromText(metrics.font, text, 0.0, metrics.extents.ascent);
    if (!run)
        return layout;
    CairoTextPart part;
    SetRulesByInk(part, metrics, run->Extents().width, *run);
    part.runs.push_back(std::move(*run));
    AddLine(layout, std::move(part));
    return layout;
}

/// A line character by character, with the spacing between them.
Line SpacedLine(const QString& text, const CairoTextMetrics& metrics)
{
    const double spacing = metrics.charSpacing * metrics.scale;
    Line line;
    double x = 0.0;
    for (int i = 0; i < text.size(); ++i)
    {
        std::optional<GlyphRun> run = GlyphRun::FromText(metrics.font, text.mid(i, 1), x, metrics.extents.ascent);
        if (!run)
            continue;
        x += run->Extents().width + run->Extents().x_bearing + spacing;
        line.width += run->Extents().width;
        line.part.runs.push_back(std::move(*run));
    }
    line.width += (text.size() - 1) * spacing;
    if (!line.part.runs.empty())
        SetRulesByInk(line.part, metrics, line.width, line.part.runs.front());
    return line;
}

CairoTextLayout PlainLines(const QStringList& texts, const CairoTextMetrics& metrics, int hAlign)
{
    CairoTextLayout layout;
    std::vector<std::optional<GlyphRun>> lines;
    // Extents of ink are not negative.
    double widest = 0.0;
    for (const QString& text : texts)
    {
        lines.push_back(GlyphRun::FromText(metrics.font, text, 0.0, 0.0));
        if (lines.back())
            widest = std::max(widest, lines.back()->Extents().width);
    }
    const double step = metrics.extents.height + metrics.lineSpacing * metrics.scale;
    for (std::size_t i = 0; i < lines.size(); ++i)
    {
        if (!lines[i] || lines[i]->IsEmpty())
            continue;
        const double width = lines[i]->Extents().width;
        CairoTextPart part;
        // By the font alone, and from the baseline, unlike in all other layouts.
        SetRules(part, width, metrics.extents.descent - metrics.extents.ascent * 0.5, UnderlineDepth(metrics));
        part.runs.push_back(std::move(*lines[i]));
        AddLine(layout, std::move(part), AlignedOffset(hAlign, widest - width),
                step * static_cast<double>(i) + metrics.extents.ascent);
    }
    return layout;
}

CairoTextLayout SpacedLines(const QStringList& texts, const CairoTextMetrics& metrics, int hAlign)
{
    CairoTextLayout layout;
    std::vector<Line> lines;
    double widest = -std::numeric_limits<double>::infinity();
    for (const QString& text : texts)
    {
        lines.push_back(SpacedLine(text, metrics));
        widest = std::max(widest, lines.back().width);
    }
    // The line spacing is not scaled here.
    const double step = metrics.extents.height + metrics.lineSpacing;
    for (std::size_t i = 0; i < lines.size(); ++i)
    {
        if (!lines[i].part.runs.empty())
            AddLine(layout, std::move(lines[i].part), AlignedOffset(hAlign, widest - lines[i].width),
                    step * static_cast<double>(i));
    }
    return layout;
}

} // namespace

CairoTextLayout LayOutCairoLines(const QString& text, const CairoTextMetrics& metrics, int hAlign)
{
    const bool spaced = std::abs(metrics.charSpacing * metrics.scale) > 0.0;
    const bool several = text.contains(QLatin1Char('\n'));
    CairoTextLayout layout;
    double rulePart = kRulePart;
    if (several)
    {
        const QStringList lines = text.split(QLatin1Char('\n'));
        layout = spaced ? SpacedLines(lines, metrics, hAlign) : PlainLines(lines, metrics, hAlign);
    }
    else if (spaced)
    {
        rulePart = kSpacedLineRulePart;
        Line line = SpacedLine(text, metrics);
        if (!line.part.runs.empty())
            AddLine(layout, std::move(line.part));
    }
    else
        layout = PlainLine(text, metrics);
    layout.ruleWidth = metrics.extents.height / rulePart;
    return layout;
}

} // namespace txqt
