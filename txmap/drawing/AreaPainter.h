#pragma once

namespace txmap
{

class Canvas;
struct MapLayer;
struct Style;

/// Draws areas of land and of water.
class AreaPainter
{
public:
    /// Both must outlive the painter.
    AreaPainter(Canvas& canvas, const Style& style) : canvas(canvas), style(style) {}

    /// Fills and outlines the areas of a layer. @throw Failure with `ExitCode::Drawing` when the surface refuses.
    void Draw(const MapLayer& layer);
    /// Draws their outlines once more, over a raster. @throw Failure with `ExitCode::Drawing` when the surface refuses.
    void DrawOutlines(const MapLayer& layer);

private:
    Canvas& canvas;
    const Style& style;
};

} // namespace txmap
