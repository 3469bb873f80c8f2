#pragma once

namespace txmap
{

class Canvas;
struct MapLayer;
struct Style;

/// Draws rivers and borders.
class LinePainter
{
public:
    /// Both must outlive the painter.
    LinePainter(Canvas& canvas, const Style& style) : canvas(canvas), style(style) {}

    /// Draws the lines of a layer. @throw Failure with `ExitCode::Drawing` when the surface refuses.
    void Draw(const MapLayer& layer);

private:
    Canvas& canvas;
    const Style& style;
};

} // namespace txmap
