#pragma once

#include <string>

#include <txbase/TXRect.h>
#include <txmap/labels/LabelFonts.h>
#include <txmap/labels/PlacedLabel.h>

namespace txmap
{

class Canvas;
class LabelPainter;
class MapView;
struct Style;

/// A length of the ground, as a map shows it from west to east at its middle.
struct GroundLength
{
    double pixels = 0.0;
    std::string text; ///< "500 km"
};

/// The longest round length that takes at most so many pixels; none where nothing can be told.
GroundLength RoundLength(const MapView& view, double mostPixels);

/// A bar in the bottom right corner of a map that shows how long distances are.
class ScaleBar
{
public:
    /// @param fonts measure its text.
    ScaleBar(const MapView& view, const Style& style, LabelFonts& fonts);

    /// The room that it takes.
    const TZObjects::TXRect& Box() const { return box; }
    /// @throw Failure with `ExitCode::Drawing` when the surface refuses.
    void Draw(Canvas& canvas, LabelPainter& texts, const Style& style) const;

private:
    GroundLength length;
    TZObjects::TXRect box;
    TZObjects::TXRect bar;
    PlacedLabel label;
};

} // namespace txmap
