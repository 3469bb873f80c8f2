#pragma once

#include <QBrush>
#include <QPen>
#include <QRect>

#include <private/qpaintengine_raster_p.h>

namespace txqt
{

/// Qt's raster engine as the rasteriser sees it: its brushes and pens ready for blending, its clip and its device.
class RasterTarget
{
public:
    explicit RasterTarget(QRasterPaintEngine& engine) : engine(engine) {}

    QRasterPaintEngine& Engine() const { return engine; }
    QRasterPaintEngineState& State() const { return *engine.state(); }
    /// Where pixels are.
    QRect Device() const;
    /// The whole device, also where the window system restricts it.
    QRect UnclippedDevice() const;

    /// A brush with the painter's opacity, composition and clip; null when it draws nothing.
    QSpanData* Brush(const QBrush& brush) const;
    /// The same for a pen.
    QSpanData* Pen(const QPen& pen) const;
    /// The function that blends a shape of these bounds in device space: where no clip is in the way, Qt saves
    /// clipping.
    ProcessSpans BlendOf(const QSpanData& data, const QRectF& bounds) const;

private:
    bool IsUnclipped(const QRectF& bounds) const;

    QRasterPaintEngine& engine;
};

} // namespace txqt
