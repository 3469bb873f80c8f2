#pragma once

#include <txbase/TXRefPtr.h>
#include <txgraphics/TXGraphics.h>
#include <txgraphics/TXPen.h>
#include <txmap/drawing/layers/MapCanvas.h>
#include <txmap/style/Style.h>

namespace txmap
{

/// What names and decorations are drawn on, over the layers of the map.
class Canvas
{
public:
    /// @param map what the layers are drawn on; it must outlive this canvas.
    explicit Canvas(const MapCanvas& map) : map(map), unit(map.View().Scale()) {}

    TZObjects::TXGraphicsEngine& Engine() const { return map.Engine(); }
    TZObjects::TXGraphics& Surface() const { return map.Surface(); }
    /// What the style calls a pixel, in pixels of this picture.
    double Unit() const { return unit; }
    /// A pen for a line of the style. @throw Failure with `ExitCode::Drawing`.
    TZObjects::TXRefPtr<TZObjects::TXPen> Pen(const Stroke& stroke) const;
    /// Selects such a pen. @throw Failure with `ExitCode::Drawing`.
    void Use(const Stroke& stroke);

private:
    const MapCanvas& map;
    double unit;
};

} // namespace txmap
