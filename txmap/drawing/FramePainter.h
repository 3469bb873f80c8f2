#pragma once

namespace txmap
{

class Canvas;
class FrameShape;
class MapView;
struct Style;

/// Draws where the map ends: the paper beside the world, and the frame that the map is cut to.
class FramePainter
{
public:
    /// Both must outlive the painter.
    FramePainter(Canvas& canvas, const Style& style) : canvas(canvas), style(style) {}

    /// How wide the outline of a frame is, in pixels.
    double Width() const;
    /// Cuts everything to a frame that is drawn from here on, until `Draw`. @throw Failure with `ExitCode::Drawing`
    /// when the surface refuses.
    void Clip(const FrameShape& frame);
    /// Lifts the clip, and draws the outline of the frame over the edge of the map. @throw Failure with
    /// `ExitCode::Drawing` when the surface refuses.
    void Draw(const FrameShape& frame);
    /// Draws the paper beside the world, over whatever reached beyond. @throw Failure with `ExitCode::Drawing` when the
    /// surface refuses.
    void DrawMargins(const MapView& view);

private:
    Canvas& canvas;
    const Style& style;
};

} // namespace txmap
