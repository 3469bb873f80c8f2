// Images and whole surfaces of the model.
#include "ModelSurface.h"

using namespace TZObjects;

namespace
{

/// Cuts off what lies outside a target of @p width by @p height, and as much of the source in proportion.
void ClipToTarget(TXRect& dst, TXRect& src, int width, int height)
{
    const TXRect d = dst;
    const TXRect s = src;
    if (d.left < 0.0)
    {
        dst.left = 0.0;
        src.left = s.left - s.Width() * (d.left / d.Width());
    }
    if (d.right > width)
    {
        dst.right = width;
        src.right = s.right + s.Width() * ((width - d.right) / d.Width());
    }
    if (d.top < 0.0)
    {
        dst.top = 0.0;
        src.top = s.top - s.Height() * (d.top / d.Height());
    }
    if (d.bottom > height)
    {
        dst.bottom = height;
        src.bottom = s.bottom + s.Height() * ((height - d.bottom) / d.Height());
    }
}

QImage CropAndScale(const QImage& pixels, const TXRect& dst, const TXRect& src, Qt::TransformationMode mode)
{
    const bool whole =
        src.left == 0.0 && src.top == 0.0 && src.Width() == pixels.width() && src.Height() == pixels.height();
    const QImage crop =
        whole ? pixels
              : pixels.copy(Truncate(src.left), Truncate(src.top), Truncate(src.Width()), Truncate(src.Height()));
    if (crop.isNull() || (dst.Width() == src.Width() && dst.Height() == src.Height()))
        return crop;
    return crop.scaled(Truncate(dst.Width()), Truncate(dst.Height()), Qt::IgnoreAspectRatio, mode);
}

/// Draws after turning about a point, and turns back.
void DrawTurned(QPainter& painter, const QPointF& centre, double angle, const std::function<void()>& draw)
{
    painter.save();
    painter.translate(centre);
    painter.rotate(angle);
    painter.translate(-centre);
    draw();
    painter.restore();
}

} // namespace

bool ModelSurface::DrawImage(ModelImage* source, double opacity)
{
    if (!source)
        return false;
    const TXRect whole(0.0, source->GetWidth(), 0.0, source->GetHeight());
    DrawImage(whole, source, whole, opacity);
    return true;
}

bool ModelSurface::DrawImage(const TXRect& dst, ModelImage* source, const TXRect& src, double opacity)
{
    return PaintImage(
        {dst, source, src, opacity},
        [](QPainter& p, const QImage& pixels, const TXRect& rect)
        {
            const QRectF place(TruncatedRect(rect.left, rect.top, rect.Width(), rect.Height()));
            p.drawImage(place, pixels, place);
        },
        [](QPainter& p, const QImage& pixels, const TXRect& to, const TXRect& from)
        {
            const QImage scaled = CropAndScale(pixels, to, from, Qt::FastTransformation);
            p.setCompositionMode(QPainter::CompositionMode_SourceOver);
            p.drawImage(QPointF(to.left, to.top), scaled);
        });
}

bool ModelSurface::DrawImage4BitmapRotate(const TXRect& dst, ModelImage* source, const TXRect& src, double angle,
                                          double opacity)
{
    return PaintImage(
        {dst, source, src, opacity},
        [&](QPainter& p, const QImage& pixels, const TXRect& rect)
        {
            const QRect place = TruncatedRect(rect.left, rect.top, rect.right, rect.bottom);
            const QPoint centre((place.x() + place.x() + place.width() - 1) / 2,
                                (place.y() + place.y() + place.height() - 1) / 2);
            DrawTurned(p, centre, angle, [&] { p.drawImage(QRectF(place), pixels, QRectF(place)); });
        },
        [&](QPainter& p, const QImage& pixels, const TXRect& to, const TXRect& from)
        {
            const QImage scaled = CropAndScale(pixels, to, from, Qt::SmoothTransformation);
            const QPointF centre(to.left + scaled.width() / 2, to.top + scaled.height() / 2);
            DrawTurned(p, centre, angle, [&] { p.drawImage(QPointF(to.left, to.top), scaled); });
        });
}

bool ModelSurface::PaintImage(const ImageCall& call, const DrawInPlace& drawInPlace, const DrawPlaced& drawPlaced)
{
    if (!Painter() || !image || !image->pixels || !call.source || !call.source->pixels)
        return false;
    QPainter* const p = Painter()->isActive() ? Painter() : nullptr;
    const double oldOpacity = p ? p->opacity() : 1.0;
    const int width = image->pixels->width();
    const int height = image->pixels->height();
    // The source may be the target, which changes while it is drawn.
    const QImage pixels = call.source->Drawable();
    drewRawPixels = call.source->isRaw;
    TXRect dst = call.dst;
    TXRect src = call.src;
    const bool inPlace = dst == src && dst.left == 0.0 && dst.top == 0.0;
    const bool reaches = dst.right >= 0.0 && dst.left <= width && dst.bottom >= 0.0 && dst.top <= height;
    if (!inPlace && !reaches)
        return true;
    if (p)
        p->setOpacity(call.opacity);
    if (inPlace)
    {
        if (p)
            drawInPlace(*p, pixels, dst);
    }
    else
    {
        ClipToTarget(dst, src, width, height);
        // The opacity stays.
        if ((dst.left <= 0.0 && dst.right <= 0.0) || (dst.top < 0.0 && dst.bottom <= 0.0))
            return false;
        if (p)
            drawPlaced(*p, pixels, dst, src);
    }
    if (p)
        p->setOpacity(oldOpacity);
    return true;
}

bool ModelSurface::StretchBlt(const TXRect& dst, ModelSurface* source, const TXRect& src)
{
    return source && source->image && DrawImage(dst, source->image.get(), src, 1.0);
}

bool ModelSurface::BiltTo(ModelSurface* to, int x, int y) const
{
    if (!to || !to->image || !to->image->pixels || !image || !image->pixels)
        return false;
    const QImage pixels = image->Drawable();
    return to->Paint(
        [&](QPainter& p)
        {
            p.save();
            p.translate(x, y);
            p.drawImage(0, 0, pixels);
            p.restore();
        });
}

bool ModelSurface::ClearWithColor(const TXColor& color)
{
    if (image)
        image->Fill(color);
    return image != nullptr;
}
