#pragma once

namespace txmap
{

class Canvas;
class View;
struct Style;

/// Draws the sea, which lies under everything.
class SeaPainter
{
public:
    /// Both must outlive the painter.
    SeaPainter(Canvas& canvas, const Style& style) : canvas(canvas), style(style) {}

    /// Fills what the world covers. @throw Failure with `ExitCode::Drawing` when the surface refuses.
    void Draw(const View& view);

private:
    Canvas& canvas;
    const Style& style;
};

} // namespace txmap
