#pragma once

#include <vector>

#include <txbase/TXPoint.h>

namespace txmap
{

class Canvas;
struct MapLayer;
struct Style;

/// Draws the pale bands in the sea along the coasts.
class ShorePainter
{
public:
    /// Both must outlive the painter.
    ShorePainter(Canvas& canvas, const Style& style) : canvas(canvas), style(style) {}

    /// Draws the bands of all land. @throw Failure with `ExitCode::Drawing` when the surface refuses.
    void Draw(const std::vector<MapLayer>& layers);

private:
    void DrawBand(const MapLayer& layer, double width);

    Canvas& canvas;
    const Style& style;
    std::vector<TZObjects::TXPoint> piece; ///< Scratch space, kept so that it need not be allocated again.
};

} // namespace txmap
