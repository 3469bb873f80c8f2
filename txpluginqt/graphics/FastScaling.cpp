#include <txpluginqt/graphics/FastScaling.h>

#include <cmath>

#include <QPaintEngine>

#include <txpluginqt/support/Images.h>

namespace
{

constexpr double kFixedOne = 65536.0;
/// Qt scales in another way what is larger, or enlarged more.
constexpr int kLargestSide = 32767;
constexpr double kGreatestScale = 512.0;

/// Where Qt's scaling in fixed-point numbers begins in the source, and how it goes on.
struct Steps
{
    /// @param target the length that is scaled to, which need not be whole after calculation.
    Steps(int source, double target)
        : step(static_cast<int>(kFixedOne * (source / target))),
          first(static_cast<int>(std::ceil(0.5 * (source / target) * kFixedOne)) - 1)
    {
    }

    bool operator==(const Steps& other) const { return step == other.step && first == other.first; }

    int step;
    int first;
};

bool ScalesAlike(int source, int target)
{
    // `QImage::scaled` computes its scale first and the length from that.
    const double scale = double(target) / source;
    return scale < kGreatestScale && Steps(source, scale * source) == Steps(source, target);
}

bool BlendsAlike(const QImage& image, QImage::Format target)
{
    return (target == QImage::Format_RGB32 || target == QImage::Format_ARGB32_Premultiplied) &&
           (image.format() == QImage::Format_RGB32 || image.format() == QImage::Format_ARGB32_Premultiplied);
}

} // namespace

bool ScalesAlikeInPlace(const QPainter& painter, const QImage& image, const QRect& target)
{
    const QPaintEngine* const engine = painter.paintEngine();
    const QImage* const device = PaintedImage(painter);
    if (!engine || engine->type() != QPaintEngine::Raster || !device || painter.hasClipping() ||
        image.devicePixelRatio() != 1.0)
        return false;
    // Translucent, Qt scales slower than it scales and blends.
    if (painter.opacity() < 1.0)
        return false;
    const QTransform& transform = painter.deviceTransform();
    if (transform.type() > QTransform::TxTranslate || transform.dx() != std::trunc(transform.dx()) ||
        transform.dy() != std::trunc(transform.dy()))
        return false;
    // Cut off at an edge, Qt begins elsewhere in the source.
    const QRectF onDevice = QRectF(target).translated(transform.dx(), transform.dy());
    const bool isInside = QRectF(device->rect()).contains(onDevice);
    const bool isUsual = !target.isEmpty() && image.width() <= kLargestSide && image.height() <= kLargestSide &&
                         image.width() * image.height() > 1;
    return isInside && isUsual && BlendsAlike(image, device->format()) && ScalesAlike(image.width(), target.width()) &&
           ScalesAlike(image.height(), target.height());
}

void DrawScaledInPlace(QPainter& painter, const QImage& image, const QRect& target)
{
    const bool smooth = painter.testRenderHint(QPainter::SmoothPixmapTransform);
    if (smooth)
        painter.setRenderHint(QPainter::SmoothPixmapTransform, false);
    painter.drawImage(QRectF(target), image, QRectF(image.rect()));
    if (smooth)
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
}
