#include <txpluginqt/raster/InkReach.h>

#include <algorithm>
#include <cmath>

#include <QPaintEngine>

namespace txqt
{
namespace
{

/// Beyond this distance in device pixels Qt clips outlines before it rasterises them.
constexpr double kFarthest = 16000.0;
/// Qt moves points by less than 1/64 of a pixel when it rasterises.
constexpr double kRasterError = 1.0 / 32.0;

} // namespace

bool CanBeDrawnInParts(const QPainter& painter, const QRectF& bounds)
{
    const QPaintEngine* const engine = painter.paintEngine();
    const QTransform& transform = painter.deviceTransform();
    if (!engine || engine->type() != QPaintEngine::Raster || transform.type() > QTransform::TxScale)
        return false;
    const QRectF device = transform.mapRect(bounds);
    return device.left() > -kFarthest && device.right() < kFarthest && device.top() > -kFarthest &&
           device.bottom() < kFarthest;
}

QRect TouchedPixels(const QRectF& bounds, const QTransform& transform)
{
    const QRectF device = transform.mapRect(bounds);
    const int left = static_cast<int>(std::floor(device.left() - kRasterError));
    const int top = static_cast<int>(std::floor(device.top() - kRasterError));
    const int right = static_cast<int>(std::floor(device.right() + kRasterError));
    const int bottom = static_cast<int>(std::floor(device.bottom() + kRasterError));
    return QRect(QPoint(left, top), QPoint(right, bottom));
}

bool IsFilledStroke(const QPainter& painter, const QPen& pen)
{
    constexpr double certainlyWider = 1.0 + 1e-6;
    const QPaintEngine* const engine = painter.paintEngine();
    const QTransform& t = painter.deviceTransform();
    if (!engine || engine->type() != QPaintEngine::Raster || t.type() >= QTransform::TxProject || pen.isCosmetic())
        return false;
    const double smallestScale = std::min({std::hypot(t.m11(), t.m12()), std::hypot(t.m21(), t.m22()),
                                           std::hypot(t.m11(), t.m21()), std::hypot(t.m12(), t.m22())});
    return pen.widthF() * smallestScale > certainlyWider;
}

double StrokeReach(const QPen& pen)
{
    const bool isMitred = pen.joinStyle() == Qt::MiterJoin || pen.joinStyle() == Qt::SvgMiterJoin;
    // Qt takes a negative limit for a positive one.
    return pen.widthF() * (1.0 + (isMitred ? std::abs(pen.miterLimit()) : 0.0));
}

} // namespace txqt
