#include <txpluginqt/raster/Eligibility.h>

#include <QPainter>

#include <private/qpaintengine_raster_p.h>
#include <private/qpainter_p.h>

#include <txpluginqt/raster/SelfCheck.h>
#include <txpluginqt/raster/ThreadEnd.h>

namespace txqt
{

bool IsPlain(const QBrush& brush)
{
    if (brush.style() == Qt::TexturePattern)
        return false;
    const QGradient* const gradient = brush.gradient();
    return !gradient || gradient->coordinateMode() == QGradient::LogicalMode;
}

Refusal WhyNotRasterized(QPainter& painter)
{
    if (!RasterizerIsOn())
        return Refusal::SwitchedOff;
    if (rasterBuffersAreGone)
        return Refusal::ThreadEnds;
    QPaintEngine* const engine = painter.paintEngine();
    if (!engine || engine->type() != QPaintEngine::Raster || !painter.device() ||
        painter.device()->devType() != QInternal::Image)
        return Refusal::NotAnImage;
    if (QPainterPrivate::get(&painter)->extended != engine)
        return Refusal::Emulated;
    const auto* const raster = static_cast<QRasterPaintEngine*>(engine);
    if (!raster->state()->flags.antialiased)
        return Refusal::NotAntialiased;
    if (raster->state()->matrix.type() >= QTransform::TxProject)
        return Refusal::Perspective;
    return engine->systemClip().isEmpty() ? Refusal::None : Refusal::SystemClip;
}

QRasterPaintEngine* RasterizerEngine(QPainter& painter)
{
    return WhyNotRasterized(painter) == Refusal::None ? static_cast<QRasterPaintEngine*>(painter.paintEngine())
                                                      : nullptr;
}

} // namespace txqt
