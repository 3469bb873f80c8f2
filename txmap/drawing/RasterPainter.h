#pragma once

namespace txmap
{

class Canvas;
struct Raster;

/// Draws a raster over the whole picture.
class RasterPainter
{
public:
    /// The canvas must outlive the painter.
    explicit RasterPainter(Canvas& canvas) : canvas(canvas) {}

    /// @param opacity 0 for invisible, 1 for as it is.
    /// @throw Failure with `ExitCode::Drawing` when the surface refuses.
    void Draw(Raster& raster, double opacity);

private:
    Canvas& canvas;
};

} // namespace txmap
