#include <txpluginqt/graphics/FastScaling.h>

#include <cmath>
#include <cstring>

#include <QPaintEngine>

#include <txpluginqt/support/Images.h>

namespace
{

constexpr double kFixedOne = 65536.0;
/// Qt scales in another way what is larger, lies farther, or is enlarged more.
constexpr int kLargestSide = 32767;
constexpr double kFarthestEdge = 32766.0;
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

/// False for premultiplied pixels with more colour than alpha, which no drawing leaves, but a host's own pixels may
/// have: Qt's two ways of blending let them overflow differently.
bool AreColorsWithinAlpha(const QImage& image)
{
    if (image.format() == QImage::Format_RGB32)
        return true;
    for (int y = 0; y < image.height(); ++y)
    {
        const auto* const line = reinterpret_cast<const QRgb*>(image.constScanLine(y));
        // A difference below 0 sets the uppermost bit. Without an early exit the compiler vectorises this.
        quint32 differences = 0;
        for (int x = 0; x < image.width(); ++x)
        {
            const quint32 alpha = line[x] >> 24;
            differences |=
                (alpha - (line[x] >> 16 & 0xff)) | (alpha - (line[x] >> 8 & 0xff)) | (alpha - (line[x] & 0xff));
        }
        if (differences >> 31)
            return false;
    }
    return true;
}

void ScaleInPlace(QPainter& painter, const QImage& image, const QRect& target)
{
    painter.setRenderHint(QPainter::SmoothPixmapTransform, false);
    painter.drawImage(QRectF(target), image, QRectF(image.rect()));
}

void ScaleACopy(QPainter& painter, const QImage& image, const QRect& target)
{
    painter.drawImage(target.topLeft(), image.scaled(target.size(), Qt::IgnoreAspectRatio, Qt::FastTransformation));
}

QImage Drawn(void (*scale)(QPainter&, const QImage&, const QRect&), const QImage& image, QImage::Format format,
             const QSize& size)
{
    QImage picture(size + QSize(3, 2), format);
    picture.fill(0xff7090c0);
    QPainter painter(&picture);
    scale(painter, image, QRect(QPoint(2, 1), size));
    return picture;
}

/// What `Steps` repeats is Qt's own arithmetic, and a processor may have blending functions of its own.
bool QtScalesAsExpected()
{
    if (std::strncmp(qVersion(), "5.15.", 5) != 0)
        return false;
    for (const QImage::Format from : {QImage::Format_RGB32, QImage::Format_ARGB32_Premultiplied})
        for (const QImage::Format to : {QImage::Format_RGB32, QImage::Format_ARGB32_Premultiplied})
            for (const QSize& size : {QSize(7, 5), QSize(49, 31), QSize(20, 3), QSize(33, 40)})
            {
                QImage image(29, 17, QImage::Format_ARGB32);
                for (int y = 0; y < image.height(); ++y)
                    for (int x = 0; x < image.width(); ++x)
                        image.setPixel(x, y, static_cast<QRgb>(x * 37 + y * 101) * 2654435761U);
                const QImage source = image.convertToFormat(from);
                if (!ScalesAlike(source.width(), size.width()) || !ScalesAlike(source.height(), size.height()))
                    continue;
                if (Drawn(ScaleInPlace, source, to, size) != Drawn(ScaleACopy, source, to, size))
                    return false;
            }
    return true;
}

} // namespace

bool ScalesAlikeInPlace(const QPainter& painter, const QImage& image, const QRect& target)
{
    static const bool isAsExpected = QtScalesAsExpected();
    if (!isAsExpected)
        return false;
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
    const bool isNear = onDevice.right() <= kFarthestEdge && onDevice.bottom() <= kFarthestEdge;
    return isInside && isUsual && isNear && BlendsAlike(image, device->format()) &&
           ScalesAlike(image.width(), target.width()) && ScalesAlike(image.height(), target.height()) &&
           AreColorsWithinAlpha(image);
}

void DrawScaledInPlace(QPainter& painter, const QImage& image, const QRect& target)
{
    const bool smooth = painter.testRenderHint(QPainter::SmoothPixmapTransform);
    ScaleInPlace(painter, image, target);
    if (smooth)
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
}
