// Images: whole, in part, scaled, rotated.
#include <txpluginqt/graphics/TXGraphicsQT.h>

#include <QImage>

#include <txpluginqt/graphics/ImagePlacement.h>
#include <txpluginqt/raster/ScaledImage.h>
#include <txpluginqt/support/Conversions.h>
#include <txpluginqt/support/Images.h>
#include <txpluginqt/support/ScopeGuards.h>

using namespace TZObjects;
using namespace txqt;

namespace
{

// A crop reaches as far beyond its source as the host says, and takes memory all the way.
constexpr qint64 kLargestCrop = qint64(1) << 28;

bool IsDrawableRect(const TXRect& rect) { return IsDrawable(rect.left, rect.right, rect.top, rect.bottom); }

bool HasRoomFor(const QRect& crop, const QImage& source)
{
    return source.rect().contains(crop) || crop.isEmpty() || qint64(crop.width()) * crop.height() <= kLargestCrop;
}

/// Turns the painter about a point.
void RotateAbout(QPainter& painter, const QPointF& centre, double angle)
{
    painter.translate(centre);
    painter.rotate(angle);
    painter.translate(-centre);
}

QImage Cropped(const QImage& source, const ImagePlacement& placement)
{
    return placement.TakesWhole(source.size()) ? source : PartOf(source, placement.Crop());
}

/// True when drawing the part of an image gives the pixels that drawing a copy of the part does: where every pixel of
/// the part falls on one pixel of the target.
bool DrawsPartInPlace(const QPainter& painter, const QImage& image, const QRect& part, const QPointF& corner)
{
    const QTransform& transform = painter.deviceTransform();
    const QPointF onDevice(corner.x() + transform.dx(), corner.y() + transform.dy());
    return transform.type() <= QTransform::TxTranslate && corner == corner.toPoint() &&
           onDevice == onDevice.toPoint() && image.devicePixelRatio() == 1.0 && !part.isEmpty() &&
           part.size() != QSize(1, 1) && image.rect().contains(part);
}

QImage Scaled(const QImage& crop, const ImagePlacement& placement, Qt::TransformationMode mode)
{
    return crop.isNull() || placement.KeepsSize() ? crop
                                                  : crop.scaled(placement.ScaledSize(), Qt::IgnoreAspectRatio, mode);
}

} // namespace

struct TXGraphicsQT::ImageRequest
{
    const TXRect& dst;
    TXImage* source;
    const TXRect& src;
    double opacity;
};

template <class DrawInPlace, class DrawPlaced>
bool TXGraphicsQT::PaintImage(const ImageRequest& request, DrawInPlace drawInPlace, DrawPlaced drawPlaced)
{
    const QImage* const target = PixelsOf(image.get());
    const QImage* const source = PixelsOf(request.source);
    if (!painter || !target || !source || !IsDrawableRect(request.dst) || !IsDrawableRect(request.src))
        return false;

    if (StaysInPlace(request.dst, request.src))
        return Paint(
            [&](QPainter& p)
            {
                const OpacityScope opacity(p, request.opacity);
                if (CanBeDrawn(*source))
                    drawInPlace(p, DrawableImage(*source, PaintedImage(p)).Get(), TruncatedRect(request.dst));
            });

    if (!Reaches(request.dst, target->size()))
        return true;
    const ImagePlacement placement = ClipToTarget(request.dst, request.src, target->size());
    const bool collapses = placement.Collapses();
    if (!collapses && !HasRoomFor(placement.Crop(), *source))
        return false;
    const bool painted = Paint(
        [&](QPainter& p)
        {
            OpacityScope opacity(p, request.opacity);
            if (collapses)
                // Hosts have come to rely on the opacity staying here.
                opacity.Keep();
            else if (CanBeDrawn(*source))
                drawPlaced(p, DrawableImage(*source, PaintedImage(p)).Get(), placement);
            else
                drawPlaced(p, QImage(), placement);
        });
    return painted && !collapses;
}

bool TXGraphicsQT::DrawImage(TXImage* source, double opacity)
{
    if (!source)
        return false;
    const TXRect whole(0.0, source->GetWidth(), 0.0, source->GetHeight());
    DrawImage(whole, source, whole, opacity);
    return true;
}

bool TXGraphicsQT::DrawImage(const TXRect& dst, TXImage* source, const TXRect& src, double opacity)
{
    return PaintImage(
        {dst, source, src, opacity},
        [](QPainter& p, const QImage& pixels, const QRectF& rect) { p.drawImage(rect, pixels, rect); },
        [](QPainter& p, const QImage& pixels, const ImagePlacement& placement)
        {
            // It stays behind.
            p.setCompositionMode(QPainter::CompositionMode_SourceOver);
            const QPointF corner(placement.dst.left, placement.dst.top);
            const QRect part = placement.Crop();
            if (placement.KeepsSize() && DrawsPartInPlace(p, pixels, part, corner))
            {
                p.drawImage(corner, pixels, QRectF(part));
                return;
            }
            const QImage crop = Cropped(pixels, placement);
            const QRect target(corner.toPoint(), placement.ScaledSize());
            if (!crop.isNull() && !placement.KeepsSize() && target.topLeft() == corner &&
                CanDrawScaled(p, crop, target))
                DrawScaled(p, crop, target);
            else
                p.drawImage(corner, Scaled(crop, placement, Qt::FastTransformation));
        });
}

bool TXGraphicsQT::DrawImage4BitmapRotate(const TXRect& dst, TXImage* source, const TXRect& src, double angle,
                                          double opacity)
{
    if (!IsDrawable(angle))
        return false;
    return PaintImage(
        {dst, source, src, opacity},
        [&](QPainter& p, const QImage& pixels, const QRect& rect)
        {
            const PainterStateScope state(p);
            RotateAbout(p, rect.center(), angle);
            p.drawImage(QRectF(rect), pixels, QRectF(rect));
        },
        [&](QPainter& p, const QImage& pixels, const ImagePlacement& placement)
        {
            const QImage scaled = Scaled(Cropped(pixels, placement), placement, Qt::SmoothTransformation);
            const QPointF corner(placement.dst.left, placement.dst.top);
            const PainterStateScope state(p);
            RotateAbout(p, corner + QPoint(scaled.width() / 2, scaled.height() / 2), angle);
            p.drawImage(corner, scaled);
        });
}
