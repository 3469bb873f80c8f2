#pragma once

#include <string>
#include <vector>

#include <txbase/TXColor.h>
#include <txbase/TXRect.h>
#include <txmap/labels/LabelFonts.h>
#include <txmap/labels/PlacedLabel.h>

namespace txmap
{

class Canvas;
class LabelPainter;
class MapView;
class PlacePainter;
struct Style;

/// A line of a legend.
struct LegendEntry
{
    enum class Kind
    {
        Area,
        Line,
        Place
    };

    Kind kind = Kind::Area;
    TZObjects::TXColor color; ///< Places have the colour of their symbol.
    std::string text;         ///< In UTF-8.
};

/// Says in the bottom left corner of a map what its colours stand for.
class Legend
{
public:
    /// @param entries from top to bottom; what the map has no room for is left out. @param fonts measure the texts.
    Legend(const std::vector<LegendEntry>& entries, const MapView& view, const Style& style, LabelFonts& fonts);

    /// The room that it takes; empty where it has no entry.
    const TZObjects::TXRect& Box() const { return box; }
    bool IsEmpty() const { return lines.empty(); }
    /// @param places draws the symbol of places, smaller where it has no room.
    /// @throw Failure with `ExitCode::Drawing` when the surface refuses.
    void Draw(Canvas& canvas, LabelPainter& texts, const PlacePainter& places, const Style& style) const;

private:
    struct Line
    {
        LegendEntry entry;
        TZObjects::TXRect symbol;
        PlacedLabel label;
    };

    std::vector<Line> lines;
    TZObjects::TXRect box;
};

} // namespace txmap
