#include <txpluginqt/support/Images.h>

#include <algorithm>

namespace txqt
{
namespace
{

int LargestIndex(const QImage& image)
{
    if (image.depth() == 1)
        return 1;
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
    return HasIndices(image) && image.colorCount() < 1 << image.depth() && LargestIndex(image) >= image.colorCount();
}

/// Two images may lie over the same pixels of a caller.
bool Overlap(const QImage& one, const QImage& other)
{
    return one.constBits() < other.constBits() + other.sizeInBytes() &&
           other.constBits() < one.constBits() + one.sizeInBytes();
}

} // namespace

const QImage* PaintedImage(const QPainter& painter)
{
    const QPaintDevice* const device = painter.device();
    return device && device->devType() == QInternal::Image ? static_cast<const QImage*>(device) : nullptr;
}

DrawableImage::DrawableImage(const QImage& image, const QImage* target) : drawable(&changed)
{
    const bool lacksColors = LacksColors(image);
    if (target && Overlap(image, *target))
        changed = image.copy();
    else if (image.paintingActive())
        // Qt copies it deeply when it is passed by value.
        changed = PartOf(image, image.rect());
    else if (lacksColors)
        changed = image;
    else
        drawable = &image;
    if (lacksColors)
        changed.setColor(LargestIndex(image), 0u);
}

QImage PartOf(const QImage& image, const QRect& part)
{
    // Qt takes a part without extent for the whole image, and copies it.
    if (part.isNull())
        return image;
    // Colours and fractions of bytes belong to the image that holds them.
    const bool canShare = image.depth() >= 8 && image.colorCount() == 0 && image.devicePixelRatio() == 1.0;
    if (!canShare || part.isEmpty() || !image.rect().contains(part))
        return image.copy(part);
    const uchar* const first =
        image.constScanLine(part.y()) + static_cast<std::ptrdiff_t>(part.x()) * (image.depth() / 8);
    return QImage(first, part.width(), part.height(), image.bytesPerLine(), image.format());
}

} // namespace txqt
