#include <txmap/drawing/Legend.h>

#include <algorithm>
#include <cmath>

#include <txgraphics/TXGraphics.h>
#include <txmap/drawing/Canvas.h>
#include <txmap/drawing/Decoration.h>
#include <txmap/drawing/DrawingTools.h>
#include <txmap/drawing/LabelPainter.h>
#include <txmap/drawing/PlacePainter.h>
#include <txmap/map/MapView.h>
#include <txmap/style/Style.h>

namespace txmap
{

using TZObjects::TXPoint;
using TZObjects::TXRect;

namespace
{

// In heights of the text.
constexpr double kLineStep = 1.7;
constexpr double kSymbolWidth = 2.0;
constexpr double kPadding = 0.8;
// As a part of the map's height.
constexpr double kMostOfMap = 0.9;

} // namespace

Legend::Legend(const std::vector<LegendEntry>& entries, const MapView& view, const Style& style, LabelFonts& fonts)
{
    const TXRect& frame = view.Frame();
    const LabelLook look = DecorationLook(style, view);
    const double size = look.size;
    const double margin = DecorationMargin(view);
    double widest = 0.0;
    for (const LegendEntry& entry : entries)
    {
        const double height = (static_cast<double>(lines.size()) + 1.0) * kLineStep * size + 2.0 * kPadding * size;
        const LabelText text = MakeLabelText(entry.text, fonts.Path());
        if (text.text.isEmpty() || height > kMostOfMap * frame.Height())
            continue;
        const LabelExtent extent = fonts.Measure(text, look);
        widest = std::max(widest, extent.width);
        lines.push_back({entry, {}, {text, look, {0.0, extent.width, 0.0, extent.height}}});
    }
    if (lines.empty())
        return;
    const double width = widest + (kSymbolWidth + 3.0 * kPadding) * size;
    const double height = static_cast<double>(lines.size()) * kLineStep * size + kPadding * size;
    const double left = std::round(frame.left + margin);
    const double bottom = std::round(frame.bottom - margin);
    box = {left, left + std::ceil(width), bottom - std::ceil(height), bottom};
    double middle = box.top + kPadding * size / 2.0 + kLineStep * size / 2.0;
    for (Line& line : lines)
    {
        const double start = box.left + kPadding * size;
        line.symbol = {start, start + kSymbolWidth * size, middle - size / 2.0, middle + size / 2.0};
        const double textLeft = line.symbol.right + kPadding * size;
        TXRect& place = line.label.box;
        const double textHeight = place.Height();
        place = {textLeft, textLeft + place.Width(), middle - textHeight / 2.0, middle + textHeight / 2.0};
        middle += kLineStep * size;
    }
}

void Legend::Draw(Canvas& canvas, LabelPainter& texts, const PlacePainter& places, const Style& style) const
{
    if (lines.empty())
        return;
    RequireDrawn(canvas.Surface().fillRect(box, style.panel));
    canvas.Use({style.frame.color, 1.0});
    DrawOutline(canvas.Surface(), box);
    std::vector<PlacedLabel> labels;
    for (const Line& line : lines)
    {
        const TXRect& symbol = line.symbol;
        const double middle = (symbol.top + symbol.bottom) / 2.0;
        if (line.entry.kind == LegendEntry::Kind::Area)
        {
            RequireDrawn(canvas.Surface().fillRect(symbol, line.entry.color));
            canvas.Use(style.outline);
            DrawOutline(canvas.Surface(), symbol);
        }
        else if (line.entry.kind == LegendEntry::Kind::Line)
        {
            canvas.Use({line.entry.color, 2.0});
            const TXPoint ends[] = {{symbol.left, middle}, {symbol.right, middle}};
            RequireDrawn(canvas.Surface().Polyline(ends, 2));
        }
        else
        {
            const TXPoint centre((symbol.left + symbol.right) / 2.0, middle);
            places.Within(kLineStep * symbol.Height() / 2.0).Draw(canvas, std::vector<TXPoint>{centre});
        }
        labels.push_back(line.label);
    }
    texts.Draw(labels);
}

} // namespace txmap
