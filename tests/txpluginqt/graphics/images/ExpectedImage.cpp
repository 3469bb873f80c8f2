#include "ExpectedImage.h"

using namespace TZObjects;

namespace
{

int Truncated(double value) { return static_cast<int>(value); }

/// The crop of an image in the size in which it is drawn, and where.
struct FittedImage
{
    ImageOutcome outcome;
    TXRect dst;
    QImage pixels;
};

FittedImage Fit(const QSize& target, const ImageCall& call, const QImage& image, Qt::TransformationMode mode)
{
    const double width = target.width();
    const double height = target.height();
    const TXRect& dst = call.dst;
    const TXRect& src = call.src;
    FittedImage fitted;
    if (dst.left > width || dst.right < 0.0 || dst.top > height || dst.bottom < 0.0)
    {
        fitted.outcome = {true, ImageRoute::Outside};
        return fitted;
    }

    const double dstWidth = dst.right - dst.left;
    const double dstHeight = dst.bottom - dst.top;
    const double srcWidth = src.right - src.left;
    const double srcHeight = src.bottom - src.top;
    TXRect clippedDst = dst;
    TXRect clippedSrc = src;
    if (dst.left < 0.0)
    {
        clippedDst.left = 0.0;
        clippedSrc.left = src.left - srcWidth * (dst.left / dstWidth);
    }
    if (dst.right > width)
    {
        clippedDst.right = width;
        clippedSrc.right = src.right + srcWidth * ((width - dst.right) / dstWidth);
    }
    if (dst.top < 0.0)
    {
        clippedDst.top = 0.0;
        clippedSrc.top = src.top - srcHeight * (dst.top / dstHeight);
    }
    if (dst.bottom > height)
    {
        clippedDst.bottom = height;
        clippedSrc.bottom = src.bottom + srcHeight * ((height - dst.bottom) / dstHeight);
    }
    fitted.dst = clippedDst;
    const double toWidth = clippedDst.right - clippedDst.left;
    const double toHeight = clippedDst.bottom - clippedDst.top;
    const double fromWidth = clippedSrc.right - clippedSrc.left;
    const double fromHeight = clippedSrc.bottom - clippedSrc.top;

    fitted.outcome.whole =
        clippedSrc.left == 0.0 && clippedSrc.top == 0.0 && fromWidth == image.width() && fromHeight == image.height();
    fitted.pixels = fitted.outcome.whole ? image
                                         : image.copy(Truncated(clippedSrc.left), Truncated(clippedSrc.top),
                                                      Truncated(fromWidth), Truncated(fromHeight));
    fitted.outcome.scaled = toWidth != fromWidth || toHeight != fromHeight;
    // Of an image without pixels Qt prints that it cannot be scaled; there is nothing to scale.
    if (fitted.outcome.scaled && !fitted.pixels.isNull())
        fitted.pixels = fitted.pixels.scaled(Truncated(toWidth), Truncated(toHeight), Qt::IgnoreAspectRatio, mode);

    const bool collapsed =
        (clippedDst.left <= 0.0 && clippedDst.right <= 0.0) || (clippedDst.top < 0.0 && clippedDst.bottom <= 0.0);
    fitted.outcome.result = !collapsed;
    fitted.outcome.route = collapsed ? ImageRoute::Collapsed : ImageRoute::Placed;
    return fitted;
}

bool StaysInPlace(const ImageCall& call)
{
    return call.dst.left == call.src.left && call.dst.right == call.src.right && call.dst.top == call.src.top &&
           call.dst.bottom == call.src.bottom && call.dst.left == 0.0 && call.dst.top == 0.0;
}

ImageOutcome Draw(QPainter& painter, const QSize& target, const ImageCall& call, const QImage& image)
{
    const double opacityBefore = painter.opacity();
    painter.setOpacity(call.opacity);
    if (StaysInPlace(call))
    {
        const TXRect& rect = call.dst;
        const QRect whole(Truncated(rect.left), Truncated(rect.top), Truncated(rect.right - rect.left),
                          Truncated(rect.bottom - rect.top));
        painter.drawImage(QRectF(whole), image, QRectF(whole));
        painter.setOpacity(opacityBefore);
        return {true, ImageRoute::InPlace};
    }
    const FittedImage fitted = Fit(target, call, image, Qt::FastTransformation);
    if (fitted.outcome.route == ImageRoute::Placed)
    {
        painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
        painter.drawImage(QPointF(fitted.dst.left, fitted.dst.top), fitted.pixels);
    }
    if (fitted.outcome.route != ImageRoute::Collapsed)
        painter.setOpacity(opacityBefore);
    return fitted.outcome;
}

ImageOutcome Rotate(QPainter& painter, const QSize& target, const ImageCall& call, const QImage& image)
{
    const double opacityBefore = painter.opacity();
    painter.setOpacity(call.opacity);
    if (StaysInPlace(call))
    {
        const int x1 = Truncated(call.dst.left);
        const int y1 = Truncated(call.dst.top);
        const int width = Truncated(call.dst.right);
        const int height = Truncated(call.dst.bottom);
        const int centreX = (x1 + (x1 + width - 1)) / 2;
        const int centreY = (y1 + (y1 + height - 1)) / 2;
        const QRectF rect(x1, y1, width, height);
        painter.save();
        painter.translate(centreX, centreY);
        painter.rotate(call.angle);
        painter.translate(-centreX, -centreY);
        painter.drawImage(rect, image, rect);
        painter.restore();
        painter.setOpacity(opacityBefore);
        return {true, ImageRoute::InPlace};
    }
    const FittedImage fitted = Fit(target, call, image, Qt::SmoothTransformation);
    if (fitted.outcome.route == ImageRoute::Placed)
    {
        const int halfWidth = fitted.pixels.width() / 2;
        const int halfHeight = fitted.pixels.height() / 2;
        const QPointF centre(fitted.dst.left + halfWidth, fitted.dst.top + halfHeight);
        painter.save();
        painter.translate(centre.x(), centre.y());
        painter.rotate(call.angle);
        painter.translate(-centre.x(), -centre.y());
        painter.drawImage(QPointF(fitted.dst.left, fitted.dst.top), fitted.pixels);
        painter.restore();
    }
    if (fitted.outcome.route != ImageRoute::Collapsed)
        painter.setOpacity(opacityBefore);
    return fitted.outcome;
}

} // namespace

bool CallSurface(TXGraphics& surface, ImageOperation operation, const ImageCall& call, TXImage* image)
{
    return operation == ImageOperation::Draw
               ? surface.DrawImage(call.dst, image, call.src, call.opacity)
               : surface.DrawImage4BitmapRotate(call.dst, image, call.src, call.angle, call.opacity);
}

ImageOutcome PaintDirectly(QPainter& painter, const QSize& target, ImageOperation operation, const ImageCall& call,
                           const QImage& image)
{
    return operation == ImageOperation::Draw ? Draw(painter, target, call, image)
                                             : Rotate(painter, target, call, image);
}
