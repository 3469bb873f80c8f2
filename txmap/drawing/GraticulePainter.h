#pragma once

#include <vector>

namespace txmap
{

class Canvas;
struct GraticuleLine;
struct Style;

/// Draws meridians and parallels.
class GraticulePainter
{
public:
    /// Both must outlive the painter.
    GraticulePainter(Canvas& canvas, const Style& style) : canvas(canvas), style(style) {}

    /// Draws the lines. @throw Failure with `ExitCode::Drawing` when the surface refuses.
    void Draw(const std::vector<GraticuleLine>& graticule);

private:
    Canvas& canvas;
    const Style& style;
};

} // namespace txmap
