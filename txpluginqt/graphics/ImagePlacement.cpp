#include <txpluginqt/graphics/ImagePlacement.h>

#include <txpluginqt/support/Conversions.h>

namespace txqt
{

using TZObjects::TXRect;

QRect ImagePlacement::Crop() const { return TruncatedRect(src); }

bool ImagePlacement::TakesWhole(const QSize& source) const
{
    return src.left == 0.0 && src.top == 0.0 && src.Width() == source.width() && src.Height() == source.height();
}

bool ImagePlacement::KeepsSize() const { return dst.Width() == src.Width() && dst.Height() == src.Height(); }

QSize ImagePlacement::ScaledSize() const { return QSize(Truncated(dst.Width()), Truncated(dst.Height())); }

bool ImagePlacement::Collapses() const
{
    return (dst.left <= 0.0 && dst.right <= 0.0) || (dst.top < 0.0 && dst.bottom <= 0.0);
}

bool StaysInPlace(const TXRect& dst, const TXRect& src) { return dst == src && dst.left == 0.0 && dst.top == 0.0; }

bool Reaches(const TXRect& dst, const QSize& target)
{
    return !dst.Disjoint(TXRect(0.0, target.width(), 0.0, target.height()));
}

ImagePlacement ClipToTarget(const TXRect& dst, const TXRect& src, const QSize& target)
{
    ImagePlacement clipped{dst, src};
    if (dst.left < 0.0)
    {
        clipped.dst.left = 0.0;
        clipped.src.left = src.left - src.Width() * (dst.left / dst.Width());
    }
    if (dst.right > target.width())
    {
        clipped.dst.right = target.width();
        clipped.src.right = src.right + src.Width() * ((target.width() - dst.right) / dst.Width());
    }
    if (dst.top < 0.0)
    {
        clipped.dst.top = 0.0;
        clipped.src.top = src.top - src.Height() * (dst.top / dst.Height());
    }
    if (dst.bottom > target.height())
    {
        clipped.dst.bottom = target.height();
        clipped.src.bottom = src.bottom + src.Height() * ((target.height() - dst.bottom) / dst.Height());
    }
    return clipped;
}

} // namespace txqt
