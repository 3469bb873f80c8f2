#include <txpluginqt/raster/RasterTarget.h>

#include <limits>

#include <private/qpainter_p.h>

QT_BEGIN_NAMESPACE
Q_GUI_EXPORT bool qt_region_strictContains(const QRegion& region, const QRect& rect);
QT_END_NAMESPACE

namespace txqt
{

QRect RasterTarget::Device() const
{
    return static_cast<const QRasterPaintEnginePrivate*>(QPaintEnginePrivate::get(&engine))->deviceRect;
}

QRect RasterTarget::UnclippedDevice() const
{
    return static_cast<const QRasterPaintEnginePrivate*>(QPaintEnginePrivate::get(&engine))->deviceRectUnclipped;
}

QSpanData* RasterTarget::Brush(const QBrush& brush) const
{
    QRasterPaintEngineState& state = State();
    if (!qbrush_fast_equals(state.lastBrush, brush) || state.fillFlags)
        engine.updateBrush(brush);
    return state.brushData.blend ? &state.brushData : nullptr;
}

QSpanData* RasterTarget::Pen(const QPen& pen) const
{
    QRasterPaintEngineState& state = State();
    if (!qpen_fast_equals(state.lastPen, pen) || (pen.style() != Qt::NoPen && state.strokeFlags))
        engine.updatePen(pen);
    return state.penData.blend ? &state.penData : nullptr;
}

ProcessSpans RasterTarget::BlendOf(const QSpanData& data, const QRectF& bounds) const
{
    return IsUnclipped(bounds) ? data.unclipped_blend : data.blend;
}

bool RasterTarget::IsUnclipped(const QRectF& bounds) const
{
    constexpr double kLeast = std::numeric_limits<int>::min();
    constexpr double kGreatest = std::numeric_limits<int>::max();
    if (bounds.left() < kLeast || bounds.top() < kLeast || bounds.right() > kGreatest || bounds.bottom() > kGreatest ||
        bounds.width() > kGreatest || bounds.height() > kGreatest)
        return false;
    const QRect device = Device();
    const QRect pixels = bounds.toAlignedRect();
    const QClipData* const clip = engine.clipData();
    if (!clip)
        return pixels.left() >= device.left() && pixels.right() <= device.right() && pixels.top() >= device.top() &&
               pixels.bottom() <= device.bottom();
    if (clip->hasRectClip && clip->clipRect == device)
        return true;
    // Antialiasing may touch one more pixel at each side.
    const QRect touched(pixels.x() - 1, pixels.y() - 1, pixels.width() + 2, pixels.height() + 2);
    if (!clip->hasRectClip)
        return qt_region_strictContains(clip->clipRegion, touched);
    const QRect& inside = clip->clipRect;
    return touched.left() >= inside.left() && touched.right() <= inside.right() && touched.top() >= inside.top() &&
           touched.bottom() <= inside.bottom();
}

} // namespace txqt
