#include <txpluginqt/support/Images.h>

#include <algorithm>

namespace
{

int LargestIndex(const QImage& image)
{
    uchar largest = 0;
    for (int y = 0; y < image.height(); ++y)
    {
        const uchar* const line = image.constScanLine(y);
        for (int x = 0; x < image.width(); ++x)
            largest = std::max(largest, line[x]);
    }
    return largest;
}

bool LacksColors(const QImage& image)
{
    constexpr int all = 256;
    return image.format() == QImage::Format_Indexed8 && image.colorCount() < all &&
           LargestIndex(image) >= image.colorCount();
}

} // namespace

QImage DrawableFrom(const QImage& image, const QImage* target)
{
    QImage drawable = &image == target ? image.copy() : image;
    if (LacksColors(image))
        drawable.setColorCount(LargestIndex(image) + 1);
    return drawable;
}

QImage PartOf(const QImage& image, const QRect& part)
{
    // Colours and fractions of bytes belong to the image that holds them.
    const bool canShare = image.depth() >= 8 && image.colorCount() == 0 && image.devicePixelRatio() == 1.0;
    if (!canShare || part.isEmpty() || !image.rect().contains(part))
        return image.copy(part);
    const uchar* const first =
        image.constScanLine(part.y()) + static_cast<std::ptrdiff_t>(part.x()) * (image.depth() / 8);
    return QImage(first, part.width(), part.height(), image.bytesPerLine(), image.format());
}
